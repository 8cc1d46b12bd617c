"""doxygen_comments.py HEADERS PAGE OUT: writes the headers below HEADERS to OUT, with the house's plain comments marked
as Doxygen wants them, and PAGE with its names as references. Fails where a header, or a class in it, has no
description.

What stands before a declaration or behind it on its line becomes its description, the head of the file that of the file
and of a class with the file's name. Lines that are indented within a comment are code or a table.
"""
import pathlib
import re
import sys

COMMENT = re.compile(r"(\s*)//( ?)(.*)$")
CLASS = re.compile(r"(\s*)(?:class|struct) (\w+)[^;]*\{")


def escaped(text):
    """Outside of `code` no sign of the text is a command."""
    parts = re.split(r"(`[^`]*`)", text)
    return "".join(part if part.startswith("`") else re.sub(r"([\\@#<>%&$])", r"\\\1", part) for part in parts)


def sentence(text):
    """The first letter is one of a sentence, unless it begins with a name."""
    first = re.match(r"[\w']*", text).group()
    if first.islower() and first != "null":  # which would be a class
        text = text[0].upper() + text[1:]
    return text if text.endswith((".", ")", ":")) else text + "."


def block(lines, margin="", head=""):
    """A Doxygen comment of the texts."""
    out, shown = [head] if head else [], False
    for line in lines:
        indented = line.startswith("  ") or (shown and line.startswith(" "))
        if indented != shown:
            out += ["@endverbatim"] if shown else ["", "@verbatim"]
            shown = indented
        out.append(line if indented else escaped(line))
    if shown:
        out.append("@endverbatim")
    return [f"{margin}/** {out[0]}"] + [f"{margin}{line}" for line in out[1:]] + [f"{margin}*/"]


def is_named_after(name, stem):
    snake = re.sub(r"(?<=[a-z])(?=[A-Z])", "_", name).lower()
    return snake == stem or snake.endswith("_" + stem)


def marked(text, stem):
    """The header for Doxygen, and what of it has no description."""
    lines, out, bare = text.split("\n"), [], []
    head = []
    while COMMENT.fullmatch(lines[0]):
        head.append(COMMENT.fullmatch(lines.pop(0)).group(3))
    if head:
        out += block(head, head="@file\n")
    else:
        bare.append("the file")
    pending, before = [], False  # before: a template whose class follows
    for line in lines:
        line = re.sub(r"\s*// NOLINT.*", "", line)
        whole = COMMENT.fullmatch(line)
        if whole:
            pending.append(whole.group(3))
            continue
        if len(pending) == 1 and " " not in pending[0]:  # the title of a section
            pending = []
        margin = re.match(r"\s*", line).group()
        trailing = re.match(r"(.*[;,{]) +// (.*)$", line)
        named = CLASS.match(line)
        if named and is_named_after(named.group(2), stem):
            pending = head + ([""] if pending else []) + pending
        if named and not named.group(1) and not (pending or trailing or before):
            bare.append(named.group(2))
        before = bool(pending) and line.startswith("template")
        if pending and line.strip():
            out += block(pending, margin)
        pending = []
        if trailing:
            code, said = trailing.group(1).strip(), escaped(sentence(trailing.group(2)))
            line = f"{margin}/** {said} */ {code}" if code.endswith("{") else f"{margin}{code} ///< {said}"
        out.append(line)
    return "\n".join(out), bare


headers, page, out = (pathlib.Path(each) for each in sys.argv[1:])
missing = []
for header in sorted(headers.rglob("*.h")):
    target = out / header.relative_to(headers)
    target.parent.mkdir(parents=True, exist_ok=True)
    text, bare = marked(header.read_text(encoding="utf-8"), header.stem)
    target.write_text(text, encoding="utf-8")
    missing += [f"{header.relative_to(headers)}: no description of {each}" for each in bare]
names = re.sub(r"\bvmgv(::\w+)+", r"@ref \g<0>", page.read_text(encoding="utf-8"))  # one that is not there is an error
(out / page.name).write_text(names, encoding="utf-8")
sys.exit("\n".join(missing) or None)
