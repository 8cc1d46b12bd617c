"""What the checks of the help pages share: a page's parts, and where its links lead."""
import html.parser
import posixpath

VOID = {"img", "link", "meta", "param", "source"}
UNCLOSED = {"li"}  # closed by what follows, in the tables of a help file


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.links, self.places, self.pictures, self.faults = [], [], [], []
        self.words, self.texts, self.headings = [], [], []  # texts: (element, text) of b, th, h1; headings: (id, text)
        self.open = []
        self.feed(text)
        self.faults += [f"<{tag}> is not closed" for tag, *_ in self.open if tag not in UNCLOSED]

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        if "id" in attributes:
            self.places.append(attributes["id"])
        if tag == "a" and "href" in attributes or tag == "link":
            self.links.append(attributes["href"])
        if attributes.get("name") == "Local":
            self.links.append(attributes["value"])
        if tag == "source":
            self.pictures.append(attributes["srcset"])
        if tag == "img":
            self.pictures.append(attributes["src"])
            if not attributes.get("alt"):
                self.faults.append(f"{attributes['src']} is not described")
        if tag not in VOID:
            self.open.append((tag, attributes, []))

    def handle_endtag(self, tag):
        while self.open and self.open[-1][0] != tag and self.open[-1][0] in UNCLOSED:
            self.open.pop()
        if not self.open or self.open[-1][0] != tag:
            self.faults.append(f"</{tag}> closes nothing")
            return
        _, attributes, words = self.open.pop()
        text = " ".join(" ".join(words).split())
        if tag == "h2":
            self.headings.append((attributes.get("id"), text))
        elif tag in ("a", "b", "th", "h1"):
            self.texts.append((tag, text))

    def handle_data(self, data):
        self.words += data.split()
        for _, _, words in self.open:
            words.append(data)


def dead_links(pages, files):
    """Of `pages`, by path, the links and pictures that lead to no file, or to no place of their page."""
    found = []
    for name, page in pages.items():
        for link in page.links + page.pictures:
            target, _, place = link.partition("#")
            path = posixpath.normpath(posixpath.join(posixpath.dirname(name), target)) if target else name
            if path not in files:
                found.append(f"{name}: there is no {link}")
            elif place and pages[path].places.count(place) != 1:
                found.append(f"{name}: {link} is no place, or more than one")
    return found
