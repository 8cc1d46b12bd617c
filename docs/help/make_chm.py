"""make_chm.py CHMCMD PAGES PICTURES FOLDER: makes FOLDER/VMgridViews.chm of the pages in PAGES/el and PAGES/en, with
the pictures that were taken on Windows.

A topic's name does not say a language, and the help window is not told one: the page of that name holds both, Greek
first, which is the product's default. Beside it the file has each language's pages in a folder of their own, to which
the table of contents leads.
"""
import pathlib
import re
import subprocess
import sys

LANGUAGES = {"el": "Ελληνικά", "en": "English"}
CODE_PAGE = "cp1253"  # of the contents and the index, which the help window reads in the language of the project


def page(pages, language, name):
    """The page without its pictures for a dark palette, which a help window does not have."""
    return re.sub(r"<source [^>]*>", "", (pages / language / name).read_text(encoding="utf-8"))


def body(pages, language, name):
    """What the page shows, its places marked with the language, its links within its own language."""
    inside = re.search(r"<body>\n(.*)</body>", page(pages, language, name), re.S).group(1)
    inside = re.sub(r"<nav>.*?</nav>\n", "", inside, flags=re.S)
    inside = inside.replace('id="', f'id="{language}-')
    return re.sub(r'(href|src)="(?!\w+:)([^"]*)"', rf'\1="{language}/\2"', inside)


def both(pages, name):
    titles = [re.search(r"<title>(.*)</title>", page(pages, each, name)).group(1) for each in LANGUAGES]
    choice = " ".join(f'<a href="#{each}">{text}</a>' for each, text in LANGUAGES.items())
    parts = "<hr>\n".join(f'<div id="{each}" lang="{each}">\n{body(pages, each, name)}</div>\n' for each in LANGUAGES)
    return ('<!DOCTYPE html>\n<html>\n<head>\n<meta charset="utf-8">\n'
            f'<title>{" – ".join(titles)}</title>\n<link rel="stylesheet" href="help.css">\n</head>\n'
            f'<body>\n<nav>{choice} | <a href="index.htm">Περιεχόμενα – Contents</a> | '
            f'<a href="keywords.htm">Ευρετήριο – Index</a></nav>\n{parts}</body>\n</html>\n')


def entry(title, target):
    return (f'<li><object type="text/sitemap"><param name="Name" value="{title}">'
            f'<param name="Local" value="{target}"></object>\n')


def contents(pages):
    text = "<html><body>\n<ul>\n"
    for language, name in LANGUAGES.items():
        text += entry(name, f"{language}/index.htm") + "<ul>\n"
        for chapter in page(pages, language, "index.htm").split("<h2>")[1:]:
            (target, title), *tasks = re.findall(r'<a href="([^"]*)">(.*?)</a>', chapter)
            text += entry(title, f"{language}/{target}") + "<ul>\n"
            text += "".join(entry(task, f"{language}/{place}") for place, task in tasks) + "</ul>\n"
        text += "</ul>\n"
    return text + "</ul>\n</body></html>\n"


def keywords(pages):
    words = []
    for language in LANGUAGES:
        words += [entry(word, f"{language}/{place}")
                  for place, word in re.findall(r'<li><a href="(.*?)">(.*?)</a>', page(pages, language, "keywords.htm"))]
    return "<html><body>\n<ul>\n" + "".join(words) + "</ul>\n</body></html>\n"


def main(chmcmd, pages, pictures, folder):
    pages, pictures, folder = pathlib.Path(pages), pathlib.Path(pictures), pathlib.Path(folder)
    names = sorted(path.name for path in (pages / "el").glob("*.htm"))
    files = ["help.css"]
    for language in LANGUAGES:
        (folder / language).mkdir(parents=True, exist_ok=True)
        for name in names:
            html = page(pages, language, name)
            (folder / language / name).write_text(html, encoding="utf-8")
            for picture in re.findall(r'src="(.*?)\.png"', html):
                (folder / language / f"{picture}.png").write_bytes(
                    (pictures / f"{picture}.{language}.win32.png").read_bytes())
                files.append(f"{language}/{picture}.png")
        files += [f"{language}/{name}" for name in names]
    (folder / "help.css").write_bytes((pages / "help.css").read_bytes())
    for name in names:
        (folder / name).write_text(both(pages, name), encoding="utf-8")
    (folder / "contents.hhc").write_text(contents(pages), encoding=CODE_PAGE)
    (folder / "keywords.hhk").write_text(keywords(pages), encoding=CODE_PAGE)
    # chmcmd's binary index has question marks for Greek letters; help windows read the text as well.
    (folder / "VMgridViews.hhp").write_text(
        "[OPTIONS]\nCompatibility=1.1 or later\nCompiled file=VMgridViews.chm\nContents file=contents.hhc\n"
        "Index file=keywords.hhk\nBinary Index=No\nDefault topic=index.htm\nLanguage=0x408 Greek\n"
        "Title=vmGridViews\n\n[FILES]\n"
        + "\n".join([*names, *files]) + "\n", encoding=CODE_PAGE)
    made = subprocess.run([chmcmd, "--no-html-scan", "VMgridViews.hhp"], cwd=folder, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True)
    if made.returncode != 0 or not (folder / "VMgridViews.chm").is_file():
        sys.exit(made.stdout)


main(*sys.argv[1:])
