"""check_pages.py SOURCES HELP: the help pages as they are laid into HELP. Nothing is dead, both languages say the same
things, every dialog has its page, contents and index lead everywhere, and what a page calls a control or a message is
what the user sees."""
import pathlib
import re
import sys
import unicodedata

import program_texts
from pages import Page, dead_links

LANGUAGES = ("en", "el")  # in the order of the string table
OTHER_LABELS = {"..."}    # of the button that picks a file

sources, folder = (pathlib.Path(each) for each in sys.argv[1:])
files = {path.relative_to(folder).as_posix() for path in folder.rglob("*") if path.is_file()}
pages = {name: Page((folder / name).read_text(encoding="utf-8")) for name in files if name.endswith(".htm")}
faults = dead_links(pages, files) + [f"{name}: {fault}" for name, page in pages.items() for fault in page.faults]


def check(holds, fault):
    if not holds:
        faults.append(fault)


def names(language):
    return {name.split("/")[1] for name in pages if name.startswith(language + "/")}


# Both languages have the same pages, with the same places, pictures and links.
check(names("en") == names("el"), f"pages of one language only: {names('en') ^ names('el')}")
for name in names("en") & names("el"):
    for part in ("places", "pictures") + (() if name == "keywords.htm" else ("links",)):
        english, greek = (getattr(pages[f"{language}/{name}"], part) for language in LANGUAGES)
        check(english == greek, f"{name}: {part} differ: {set(english) ^ set(greek)}")

# Every dialog's Help button has its page.
program = program_texts.code(sources)
topics = set(re.findall(r'"(gridViews[A-Z]\w+)"', program))
check(len(topics) >= 7, f"only {topics} are asked for by dialogs")
for topic in topics:
    check(f"{topic}.htm" in names("en"), f"{topic}: a dialog's topic without a page")


def folded(text):
    return "".join(each for each in unicodedata.normalize("NFD", text.casefold()) if not unicodedata.combining(each))


# Contents and index lead to every place; the index is in the order of the alphabet.
for language in LANGUAGES:
    contents, keywords = pages[f"{language}/index.htm"], pages[f"{language}/keywords.htm"]
    words = [folded(text) for tag, text in keywords.texts if tag == "a"][1:]  # the first leads to the contents
    check(words == sorted(words), f"{language}/keywords.htm: not in order: {sorted(words)}")
    for name in names(language) - {"index.htm", "keywords.htm"}:
        page = pages[f"{language}/{name}"]
        check(name in contents.links, f"{language}/index.htm lacks {name}")
        for place, title in page.headings:
            if not place:  # "Good to know"
                continue
            check(("a", title) in contents.texts, f"{language}/index.htm lacks \"{title}\"")
            for table in (contents, keywords):
                check(f"{name}#{place}" in table.links, f"{language}: contents or index lack {name}#{place}")

# Labels and messages are the program's own.
rows = program_texts.string_table(sources)
for column, language in enumerate(LANGUAGES):
    texts = [row[column] for row in rows]
    labels = OTHER_LABELS | {each.strip() for each in texts}
    for name in names(language):
        for tag, said in pages[f"{language}/{name}"].texts:
            if tag == "b":
                check(said in labels, f"{language}/{name}: no control is called {said}")
            if tag == "th":
                check(program_texts.is_said(said, [*texts, program]), f"{language}/{name}: no message says {said}")

sys.exit("\n".join(sorted(set(faults))) or None)
