"""make_chm.py CHMCMD PAGES FOLDER: makes FOLDER/VMgridViews.chm of the pages in PAGES/el and PAGES/en.

A topic's name does not say a language, and the help window is not told one: the page of that name holds both, Greek
first, which is the product's default. Beside it the file has each language's pages in a folder of their own, to which
the table of contents leads.
"""
import pathlib
import re
import subprocess
import sys

LANGUAGES = {"el": "Ελληνικά", "en": "English"}
CODE_PAGE = "cp1253"  # of the table of contents, which the help window reads in the language of the project


def body(pages, language, name):
    """What the page shows, its places marked with the language, its links within its own language."""
    html = (pages / language / name).read_text(encoding="utf-8")
    inside = re.search(r"<body>\n(.*)</body>", html, re.S).group(1)
    inside = re.sub(r"<nav>.*?</nav>\n", "", inside, flags=re.S)
    inside = inside.replace('id="', f'id="{language}-')
    return re.sub(r'href="(?!\w+:)([^"]*)"', rf'href="{language}/\1"', inside)


def both(pages, name):
    titles = [re.search(r"<title>(.*)</title>", (pages / each / name).read_text(encoding="utf-8")).group(1)
              for each in LANGUAGES]
    choice = " ".join(f'<a href="#{each}">{text}</a>' for each, text in LANGUAGES.items())
    parts = "<hr>\n".join(f'<div id="{each}" lang="{each}">\n{body(pages, each, name)}</div>\n' for each in LANGUAGES)
    return ('<!DOCTYPE html>\n<html>\n<head>\n<meta charset="utf-8">\n'
            f'<title>{" – ".join(titles)}</title>\n<link rel="stylesheet" href="help.css">\n</head>\n'
            f'<body>\n<nav>{choice} | <a href="index.htm">Περιεχόμενα – Contents</a></nav>\n{parts}</body>\n</html>\n')


def entry(title, target):
    return (f'<li><object type="text/sitemap"><param name="Name" value="{title}">'
            f'<param name="Local" value="{target}"></object>\n')


def contents(pages):
    text = "<html><body>\n<ul>\n"
    for language, name in LANGUAGES.items():
        index = (pages / language / "index.htm").read_text(encoding="utf-8")
        text += entry(name, f"{language}/index.htm") + "<ul>\n"
        for chapter in re.split(r"<h2>", index)[1:]:
            (target, title), *tasks = re.findall(r'<a href="([^"]*)">(.*?)</a>', chapter)
            text += entry(title, f"{language}/{target}") + "<ul>\n"
            text += "".join(entry(task, f"{language}/{place}") for place, task in tasks) + "</ul>\n"
        text += "</ul>\n"
    return text + "</ul>\n</body></html>\n"


def main(chmcmd, pages, folder):
    pages, folder = pathlib.Path(pages), pathlib.Path(folder)
    files = ["help.css"]
    for language in LANGUAGES:
        (folder / language).mkdir(parents=True, exist_ok=True)
        names = sorted(path.name for path in (pages / language).glob("*.htm"))
        files += [f"{language}/{name}" for name in names]
    for file in files:
        (folder / file).write_bytes((pages / file).read_bytes())
    for name in names:
        (folder / name).write_text(both(pages, name), encoding="utf-8")
    (folder / "contents.hhc").write_text(contents(pages), encoding=CODE_PAGE)
    (folder / "VMgridViews.hhp").write_text(
        "[OPTIONS]\nCompatibility=1.1 or later\nCompiled file=VMgridViews.chm\nContents file=contents.hhc\n"
        "Default topic=index.htm\nLanguage=0x408 Greek\nTitle=vmGridViews\n\n[FILES]\n"
        + "\n".join([*names, *files]) + "\n", encoding=CODE_PAGE)
    made = subprocess.run([chmcmd, "--no-html-scan", "VMgridViews.hhp"], cwd=folder, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True)
    if made.returncode != 0 or not (folder / "VMgridViews.chm").is_file():
        sys.exit(made.stdout)


main(*sys.argv[1:])
