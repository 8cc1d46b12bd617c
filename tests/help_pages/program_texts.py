"""What the program says to its users, for checks of what is written about it."""
import re

CODE = ("adapters", "control", "dialogs", "frontends", "hosts", "output", "servers", "support", "views")


def string_table(sources):
    """(English, Greek) of each row."""
    table = (sources / "resources/strings.def").read_text(encoding="utf-8")
    text = r'((?:"(?:[^"\\]|\\.)*"\s*)+)'
    rows = [tuple(re.sub(r'"\s*"', "", each).strip().strip('"').replace("\\t", "\t") for each in row)
            for row in re.findall(rf"VMG_STRING\(\d+, \w+,\s*{text},\s*{text}\)", table)]
    assert len(rows) > 100, f"the string table was read as {len(rows)} rows"
    return rows


def code(sources):
    """All of it, with texts that go on in the next line in one."""
    files = (path for folder in CODE for path in (sources / folder).rglob("*.cpp"))
    return re.sub(r'"\s*\n\s*"', "", "".join(path.read_text(encoding="utf-8") for path in files))


def is_said(message, texts):
    """Whether one of the texts has the message, whose "..." stands for what differs; within one statement of code."""
    parts = [re.escape(part.strip()) for part in message.split("...")]
    pattern = re.compile("[^;]*?".join(parts))
    return any(pattern.search(text) for text in texts)
