"""check_chm.py CHMLS FILE.chm PAGES: the help file, read back, has each topic in both languages, and every link in it
and in its table of contents leads somewhere."""
import html.parser
import pathlib
import subprocess
import sys
import tempfile


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.links, self.places, self.words = [], set(), []
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.places.add(attributes.get("id"))
        if "href" in attributes:
            self.links.append(attributes["href"])
        if attributes.get("name") == "Local":
            self.links.append(attributes["value"])

    def handle_data(self, data):
        self.words += data.split()


chmls, file, pages = sys.argv[1], sys.argv[2], pathlib.Path(sys.argv[3])
with tempfile.TemporaryDirectory() as folder:
    subprocess.run([chmls, "extractall", file, folder], check=True, stdout=subprocess.DEVNULL)
    root = pathlib.Path(folder)
    found = {path.relative_to(root).as_posix(): Page(path.read_text(encoding="utf-8")) for path in root.rglob("*.htm")}
    contents = Page((root / "contents.hhc").read_text(encoding="cp1253"))
    styled = (root / "help.css").read_bytes() == (pages / "help.css").read_bytes()

assert styled, "the style sheet is another one"
topics = [path.name for path in (pages / "el").glob("*.htm")]
for topic in topics:
    for language in ("el", "en"):
        words = Page((pages / language / topic).read_text(encoding="utf-8")).words
        assert found[f"{language}/{topic}"].words == words, f"{language}/{topic}"
        text = " ".join(words[-20:])
        assert text in " ".join(found[topic].words), f"{topic} lacks {text}"

links = [("contents.hhc", link) for link in contents.links]
links += [(name, link) for name, page in found.items() for link in page.links]
assert len(contents.links) > 2 * len(topics), contents.links
for name, link in links:
    target, _, place = link.partition("#")
    path = (pathlib.PurePosixPath("/", name).parent / target).as_posix() if target else "/" + name
    path = str(pathlib.Path(path).resolve())[1:]
    assert path == "help.css" or path in found, f"{name}: {link}"
    assert not place or place in found[path].places, f"{name}: {link}"
