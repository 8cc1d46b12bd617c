"""check_front_ends.py SOURCE NATIVE GRIDHOST ... [-- OTHER ...]: one script in both languages on the front end NATIVE
and without a screen, and on the program OTHER where it has been built: what they leave is the same but for geometry."""
import difflib
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import zipfile

GEOMETRY = {"left", "top", "width", "height"}
FONT = {"name", "size"}  # are the desktop's
LAYOUTS = {"sorted.json", "conditions.json", "reshaped.json", "reshaped-again.json"}  # are the same to the byte


def without_geometry(node, dropped=GEOMETRY):
    if isinstance(node, dict):
        return {name: without_geometry(value, FONT if name == "font" else GEOMETRY)
                for name, value in node.items() if name not in dropped}
    return [without_geometry(value) for value in node] if isinstance(node, list) else node


def content(path):
    if path.suffix == ".json" and path.name not in LAYOUTS:
        return json.dumps(without_geometry(json.loads(path.read_text(encoding="utf-8"))), indent=1)
    if path.suffix == ".xlsx":
        with zipfile.ZipFile(path) as parts:
            return "\n".join(parts.read(name).decode() for name in parts.namelist() if name.startswith("xl/"))
    return path.read_bytes().decode()


def play(source, command, *options):
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([*command, "--data", source / "data/birdstrikes.csv", "--play",
                        source / "tests/player/front_ends.vgs", "--out", folder, *options], check=True, timeout=200)
        return {path.name: content(path) for path in pathlib.Path(folder).iterdir()}


def compare(what, found, wanted):
    assert found.keys() == wanted.keys(), f"{what}: {sorted(found)} instead of {sorted(wanted)}"
    for name in wanted:
        difference = difflib.unified_diff(wanted[name].splitlines(), found[name].splitlines(), "headless", what, "", "", 2)
        assert found[name] == wanted[name], "\n".join([f"{what}: {name}", *difference])


source, native, *programs = sys.argv[1:]
source = pathlib.Path(source)
split = programs.index("--") if "--" in programs else len(programs)
gridhost, other = programs[:split], programs[split + 1:]
for language in ("en", "el"):
    wanted = play(source, gridhost, "--language", language, "--frontend", "headless")
    assert len(wanted) == 22 and LAYOUTS < wanted.keys(), sorted(wanted)
    compare(native, play(source, gridhost, "--language", language, "--frontend", native), wanted)
    if other and os.path.exists(other[0]):
        compare(other[0], play(source, other, "--language", language, "--frontend", "headless"), wanted)
