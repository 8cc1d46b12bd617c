"""corpus.py OUT FOLDER ...: files below the folders as inputs of the fuzz targets, each target's in a folder of OUT.

Workbooks go to `container` as they are and to `sheet` as their parts, tables to `csv`, scripts to `script`.
"""
import os
import re
import sys
import zipfile

MOST = 200_000  # bytes: what is larger only slows the fuzzer down


def as_parts(path):
    """The parts of a workbook that a fill looks at, by the names that fuzz/sheet.cpp has for them."""
    text = []
    with zipfile.ZipFile(path) as package:
        names = package.namelist()
        read = lambda name: package.read(name).decode("utf-8", "replace")
        book = next(name for name in names if re.search(r"xl/workbook\.xml$", name, re.I))
        rels = dict(re.findall(r'Id="(\w+)"[^>]*?Target="/?(?:xl/)?([^"]+)"', read("xl/_rels/workbook.xml.rels")))
        rels.update((b, a) for a, b in re.findall(r'Target="/?(?:xl/)?([^"]+)"[^>]*?Id="(\w+)"',
                                                  read("xl/_rels/workbook.xml.rels")))
        for sheet in re.findall(r"<(?:\w+:)?sheet [^>]*>", read(book)):
            target = "xl/" + rels[re.search(r'r:id="(\w+)"', sheet)[1]]
            text.append(("xl/d.xml" if re.search(r'name="data"', sheet, re.I) else "xl/r.xml", read(target)))
        for own, pattern in (("xl/s.xml", "xl/styles"), ("xl/t.xml", "xl/tables/"),
                             ("xl/p.xml", "xl/pivotCache/pivotCacheDefinition")):
            text += [(own, read(name)) for name in names if name.startswith(pattern) and name.endswith(".xml")][:1]
    return "\n".join(f"=== {name}\n{content}" for name, content in text).encode()


def inputs(path):
    kind = os.path.splitext(path)[1].lower()
    with open(path, "rb") as file:
        content = file.read(MOST)
    if kind in (".xlsx", ".xltx", ".xls", ".xlt"):
        yield "container", content
    if kind in (".xlsx", ".xltx"):
        try:
            yield "sheet", as_parts(path)[:MOST]
        except (zipfile.BadZipFile, KeyError, StopIteration, TypeError):
            pass  # damaged: good for the container alone
    if kind == ".csv":
        yield "csv", content[:4000]
    if kind == ".vgs":
        yield "script", content


def main(out, *folders):
    for folder in folders:
        for where, _, names in os.walk(folder):
            for name in names:
                for target, content in inputs(os.path.join(where, name)):
                    os.makedirs(os.path.join(out, target), exist_ok=True)
                    with open(os.path.join(out, target, name), "wb") as file:
                        file.write(content)


main(*sys.argv[1:])
