"""check_docs.py SOURCES PROGRAMS: every .md file of the tree. Links lead to files and headings that are there, and every
block of code says in a comment above it where it comes from:

  <!-- quote PATH -->  the block is found in that file, line by line
  <!-- run -->         shell commands, run here with the programs of the build in front; they write to a folder of their own
  <!-- usage -->       shell commands that a test cannot afford: the files, presets and targets that they name are there

A block in the language "text" is no code. In the guide to troubles, what stands under "message" or "reason" is what the
program says.
"""
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import textwrap

OUTSIDE = {"build", "out", ".git"}

sources, programs = (pathlib.Path(each).resolve() for each in sys.argv[1:])
sys.path.append(str(sources / "tests/help_pages"))
import program_texts  # noqa: E402

faults = []


def headings(text):
    """The names by which a page's headings are linked to."""
    text = re.sub(r"^```.*?^```$", "", text, flags=re.S | re.M)
    names = []
    for heading in re.findall(r"^#+ (.*)$", text, re.M):
        heading = re.sub(r"\[(.*?)\]\(.*?\)", r"\1", heading).lower()
        names.append(re.sub(r"[^\w\- ]", "", heading).replace(" ", "-"))
    return names


def check_links(page, text):
    prose = re.sub(r"`[^`\n]*`", "", re.sub(r"^```.*?^```$", "", text, flags=re.S | re.M))
    for link in re.findall(r"\]\(([^)\s]+)\)", prose):
        target, _, place = link.partition("#")
        if re.match(r"\w+:", target):
            continue
        path = (page.parent / target).resolve() if target else page
        if not path.exists():
            yield f"there is no {link}"
        elif place and place not in headings(path.read_text(encoding="utf-8")):
            yield f"{link} is no heading"


def is_quoted(block, file):
    block, lines = textwrap.dedent(block).splitlines(), file.read_text(encoding="utf-8").splitlines()
    return any(textwrap.dedent("\n".join(lines[i:i + len(block)])).splitlines() == block for i in range(len(lines)))


def run(block):
    """In a folder that shows the tree's files and takes new ones."""
    with tempfile.TemporaryDirectory() as folder:
        for entry in sources.iterdir():
            os.symlink(entry, pathlib.Path(folder, entry.name))
        environment = dict(os.environ, PATH=f"{programs}:{os.environ['PATH']}")
        ended = subprocess.run(["bash", "-euc", block], cwd=folder, env=environment, stdin=subprocess.DEVNULL, text=True,
                               stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=60)
    return f"{block.strip()}: {ended.stdout}" if ended.returncode else None


def check_usage(block):
    presets = json.loads((sources / "CMakePresets.json").read_text())["configurePresets"]
    lists = "".join(path.read_text(encoding="utf-8") for path in sources.rglob("CMakeLists.txt")
                    if not OUTSIDE & set(path.relative_to(sources).parts))
    for line in block.splitlines():
        words = line.partition(" #")[0].split()
        if not words:
            continue
        for word in (word.replace("\\", "/") for word in words):
            if word.removeprefix("./").startswith("build/"):
                continue
            if word.startswith("./") and not os.access(sources / word, os.X_OK):
                yield f"there is no program {word}"
            elif re.fullmatch(r"[\w.-]+(/[\w.-]+)+", word):
                if not (sources / word).exists():
                    yield f"there is no {word}"
        for preset in re.findall(r"--preset (\w+)", line):
            if preset not in [each["name"] for each in presets]:
                yield f"there is no preset {preset}"
        for target in re.findall(r"--target (\w+)", line):
            if not re.search(rf"\(\s*{target}\b", lists):
                yield f"there is no target {target}"


def check_messages(page, text):
    if page.name != "troubleshooting.md":
        return
    texts = [program_texts.code(sources), *(row[0] for row in program_texts.string_table(sources))]
    for table in re.findall(r"^\| (?:message|reason) \|.*?(?:\n\n|\Z)", text, re.S | re.M):
        for row in table.strip().splitlines()[2:]:
            for message in re.findall(r"`(.*?)`", row.split("|")[1]):
                if not program_texts.is_said(message, texts):
                    yield f"no message says {message}"


def check_blocks(page, text):
    lines = text.splitlines()
    origin, block, language = None, None, ""
    for number, line in enumerate(lines, 1):
        fence = re.match(r"\s*```(\w*)$", line)
        if block is None and fence:
            block, language, start = [], fence.group(1), number
        elif fence:
            yield from (f"{start}: {fault}" for fault in check_block(origin, "\n".join(block), language))
            block = origin = None
        elif block is not None:
            block.append(line)
        elif line.strip():
            comment = re.match(r"\s*<!-- (quote|run|usage) ?(.*?) *-->$", line)
            origin = comment.groups() if comment else None
            if line.startswith("    ") and not lines[number - 2].strip() and not re.match(r"\s*([-*|]|\d+\.)", line):
                yield f"{number}: code without a fence"
    if block is not None:
        yield f"{start}: the block does not end"


def check_block(origin, block, language):
    if not language:
        yield "the block does not say its language"
    elif language == "text":
        return
    elif not origin:
        yield "the block does not say where it comes from"
    elif origin[0] == "quote":
        file = sources / origin[1]
        if not file.is_file():
            yield f"there is no {origin[1]} to quote"
        elif not is_quoted(block, file):
            yield f"not as {origin[1]} has it:\n{textwrap.indent(block, '    ')}"
    elif origin[0] == "run":
        fault = run(block)
        if fault:
            yield fault
    else:
        yield from check_usage(block)


pages = [path for path in sources.rglob("*.md") if not OUTSIDE & set(path.relative_to(sources).parts)]
for page in sorted(pages):
    text = page.read_text(encoding="utf-8")
    for fault in [*check_links(page, text), *check_blocks(page, text), *check_messages(page, text)]:
        faults.append(f"{page.relative_to(sources)}: {fault}")
assert len(pages) > 6, pages
sys.exit("\n".join(faults) or None)
