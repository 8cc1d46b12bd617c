"""check_filled.py GRIDHOST TABLE.csv [TEMPLATE ...]: fills templates and reads the workbooks by other programs.

Without a TEMPLATE two of its own are taken, in the current format and in the old one. Templates have the columns Region,
Product, OrderDate, Qty, Amount and Notes on the sheet Data, on which formulas, pivot tables and charts on other sheets
build; what these show then is worked out here, from the table.
"""
import collections
import csv
import os
import re
import subprocess
import sys
import tempfile
import zipfile

import openpyxl
from openpyxl.chart import BarChart, Reference

COLUMNS = {"Region": "airport", "Product": "phase", "OrderDate": "flight_date", "Qty": "speed_knots",
           "Amount": "cost_total", "Notes": "species"}
MAY_CHANGE = r"\[Content_Types\]|\.rels$|xl/workbook\.xml|xl/styles\.xml|xl/worksheets/sheet|xl/tables/|" \
             r"xl/pivotCache/pivotCacheDefinition"


def same(what, found, wanted):
    if found != wanted:
        sys.exit(f"{what}: {found!r} instead of {wanted!r}")


def office(folder, kind, path):
    subprocess.run(["soffice", "-env:UserInstallation=file://" + folder + "/profile", "--headless", "--convert-to", kind,
                    "--outdir", folder, path], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=200,
                   env=dict(os.environ, LC_ALL="C.UTF-8"))  # file names


def export(host, table, folder, name, *lines):
    """Plays an export into `name`."""
    script = os.path.join(folder, "play.vgs")
    with open(script, "w", encoding="utf-8") as file:
        file.write("\n".join([f'output "{name}"', "call ShowExcel", *lines, "click cmdOK", ""]))
    subprocess.run([host, "--frontend", "headless", "--data", table, "--play", script, "--out", folder], check=True,
                   stdout=subprocess.DEVNULL, timeout=200)
    return os.path.join(folder, name)


def own_templates(host, table, folder):
    """A workbook with a pivot table, a formula and a chart over its rows."""
    book = openpyxl.load_workbook(export(host, table, folder, "few.xlsx", "click chkPivot"))
    data, pivot = book.worksheets
    data.title = "Data"
    pivot._pivots[0].cache.cacheSource.worksheetSource.sheet = "Data"
    report = book.create_sheet("Report")
    report["A1"], report["B1"] = "=SUM(Data!E2:E60000)", "=COUNTA(Data!A2:A60000)"
    chart = BarChart()
    chart.add_data(Reference(data, min_col=5, min_row=1, max_row=21), titles_from_data=True)
    report.add_chart(chart, "A5")
    book.template = True
    path = os.path.join(folder, "Πρότυπο με κενά.xltx")
    book.save(path)
    office(folder, "xls:MS Excel 97", path)
    return [path, path[:-4] + "xls"]


def sheets_by_office(path, folder):
    """The rows of each sheet as LibreOffice shows them."""
    office(folder, "csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,true,false,false,false,-1", path)
    stem = os.path.splitext(path)[0]
    sheets = {}
    for title in openpyxl.load_workbook(path, read_only=True).sheetnames:
        if os.path.exists(f"{stem}-{title}.csv"):
            with open(f"{stem}-{title}.csv", newline="", encoding="utf-8") as file:
                sheets[title] = list(csv.reader(file))
    return sheets


def number(text):
    return float(text) if re.fullmatch(r"-?\d+(\.\d+)?(E\+?\d+)?", text) else 0


def check_pivot(pivot, shown, rows):
    """Each line's total, and the grand total, are among the numbers that are shown."""
    lines, data = pivot.rowFields[0].x, pivot.dataFields[0].fld
    totals = collections.Counter()
    for row in rows:
        totals[row[lines]] += number(row[data])
    found = {row[0]: [number(cell) for cell in row[1:]] for row in shown if any(row[1:])}
    for label, total in totals.items():
        if total not in found.get(label, []):
            sys.exit(f"the pivot table's line {label}: {found.get(label)} without {total}")
    if not any(sum(totals.values()) in cells for cells in list(found.values())[-1:]):
        sys.exit(f"the pivot table's last line: {list(found.items())[-1]} without {sum(totals.values())}")


def check_formulas(book, shown, rows):
    for sheet in book.worksheets:
        for row in sheet.iter_rows():
            for cell in row:
                formula = str(cell.value)
                if sheet.title.lower() == "data" or not formula.startswith("="):
                    continue
                amounts = [number(record[4]) for record in rows[:20 if "AmountCol" in formula else None]]
                wanted = sum(amounts) if "SUM" in formula else len(rows)
                same(f"{sheet.title}!{cell.coordinate} {formula}", number(shown[sheet.title][cell.row - 1][cell.column - 1]),
                     wanted)


def packed_parts(path):
    """Each part's compressed bytes."""
    parts = {}
    with zipfile.ZipFile(path) as package, open(path, "rb") as file:
        for part in package.infolist():
            file.seek(part.header_offset + 26)
            name, extra = (int.from_bytes(file.read(2), "little") for _ in range(2))
            file.seek(part.header_offset + 30 + name + extra)
            parts[part.filename] = file.read(part.compress_size)
    return parts


def check(host, table, template, rows, folder):
    filled = export(host, table, folder, "filled.xlsx", f'enter txtTemplate "{template}"')
    book = openpyxl.load_workbook(filled)
    data = next(sheet for sheet in book.worksheets if sheet.title.lower() == "data")
    found = [[cell.value for cell in row[:6]] for row in data.iter_rows(max_row=len(rows) + 1)]
    same("the header", found[0], list(COLUMNS))
    wanted = [[f"{row[2][5:7]}/{row[2][8:]}/{row[2][:4]}" if column == 2 else cell for column, cell in enumerate(row)]
              for row in rows]
    same("the cells", [[None if cell is None else str(cell) for cell in row] for row in found[1:]],
         [[cell or None for cell in row] for row in wanted])
    shown = sheets_by_office(filled, folder)
    same("the rows that LibreOffice shows", [row[0] for row in shown[data.title][1:len(rows) + 1]],
         [row[0] for row in rows])
    check_formulas(book, shown, rows)
    pivots = 0
    for sheet in book.worksheets:
        for pivot in sheet._pivots:
            check_pivot(pivot, shown[sheet.title], rows)
            pivots += 1
    charts = sum(len(sheet._charts) for sheet in book.worksheets)
    if zipfile.is_zipfile(template):
        before = openpyxl.load_workbook(template)
        same("pivot tables", pivots, sum(len(sheet._pivots) for sheet in before.worksheets))
        same("charts", charts, sum(len(sheet._charts) for sheet in before.worksheets))
        parts = packed_parts(filled)
        changed = [name for name, part in packed_parts(template).items() if parts.get(name) != part]
        same("other parts that changed", [name for name in changed if not re.search(MAY_CHANGE, name)
                                          and name != "xl/calcChain.xml"], [])
    print(f"{os.path.basename(template)}: {len(rows)} rows, {pivots} pivot tables, {charts} charts")


def main(host, source, *templates):
    with open(source, newline="", encoding="utf-8") as file:
        rows = [[row[name] for name in COLUMNS.values()] for row in csv.DictReader(file)]
    with tempfile.TemporaryDirectory() as folder:
        tables = {"all.csv": rows, "few.csv": rows[:20]}
        for name, content in tables.items():
            with open(os.path.join(folder, name), "w", newline="", encoding="utf-8") as file:
                csv.writer(file).writerows([list(COLUMNS), *content])
        for template in templates or own_templates(host, os.path.join(folder, "few.csv"), folder):
            check(host, os.path.join(folder, "all.csv"), template, rows, folder)
    print("1 passed, 0 failed")


main(*sys.argv[1:])
