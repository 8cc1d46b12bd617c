"""check_chm.py CHMLS FILE.chm PAGES: the help file, read back, has each topic in both languages with its pictures, and
every link in it, in its contents and in its index leads somewhere."""
import pathlib
import re
import subprocess
import sys
import tempfile

from pages import Page, dead_links

chmls, file, pages = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3])
with tempfile.TemporaryDirectory() as folder:
    subprocess.run([chmls, "extractall", file, folder], check=True, capture_output=True)
    root = pathlib.Path(folder)
    files = {path.relative_to(root).as_posix() for path in root.rglob("*") if path.is_file()}
    found = {name: Page((root / name).read_text(encoding="utf-8")) for name in files if name.endswith(".htm")}
    for table in ("contents.hhc", "keywords.hhk"):
        found[table] = Page((root / table).read_text(encoding="cp1253"))
    styled = (root / "help.css").read_bytes() == (pages / "help.css").read_bytes()

assert styled, "the style sheet is another one"
topics = [path.name for path in (pages / "el").glob("*.htm")]
for topic in topics:
    for language in ("el", "en"):
        html = (pages / language / topic).read_text(encoding="utf-8")
        words = Page(html).words
        assert found[f"{language}/{topic}"].words == words, f"{language}/{topic}"
        text = " ".join(words[-20:])
        assert text in " ".join(found[topic].words), f"{topic} lacks {text}"
        for picture in re.findall(r'src="(.*?)"', html):
            assert f"{language}/{picture}" in found[topic].pictures, f"{topic} lacks {picture}"
assert len(found["contents.hhc"].links) > 2 * len(topics), found["contents.hhc"].links
keywords = [link for language in ("el", "en")
            for link in Page((pages / language / "keywords.htm").read_text(encoding="utf-8")).links]
assert len(found["keywords.hhk"].links) == len([link for link in keywords if "#" in link])
dead = dead_links(found, files)
assert not dead, "\n".join(dead)
