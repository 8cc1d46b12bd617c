"""check_scripts.py SOURCE GRIDHOST ...: plays the documented script and the Greek tour on the program itself."""
import json
import pathlib
import subprocess
import sys
import tempfile

source, gridhost = pathlib.Path(sys.argv[1]), sys.argv[2:]


def play(script, *options):
    """What the script left: the text of each file by name, pictures aside."""
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([*gridhost, "--data", source / "data/birdstrikes.csv", "--play", source / "hosts/scripts" / script,
                        "--out", folder, *options], check=True, timeout=120)
        return {path.name: path.read_text(encoding="utf-8") for path in pathlib.Path(folder).iterdir() if path.is_file()}


left = play("example.vgs", "--language", "en", "--frontend", "headless")
assert sorted(left) == ["sorted.json", "sorted.tsv"], f"the export was cancelled, yet there is {sorted(left)}"
keys = [(key["colIndex"], key["sortOrder"]) for key in json.loads(left["sorted.json"])["sortKeys"]]
assert keys == [(7, 1), (5, -1)], keys
assert left["sorted.tsv"].count("\n") == 20 and left["sorted.tsv"].startswith("0\t"), left["sorted.tsv"]

left = play("tour-el.vgs", "--language", "el")
assert list(left) == ["layout.json"], f"the Greek tour left {sorted(left)}"
assert json.loads(left["layout.json"])["redraw"], "the grid is not drawn any more"

with tempfile.TemporaryDirectory() as folder:
    script = pathlib.Path(folder, "refused.vgs")
    script.write_text("call ShowSort\nchoose cboSort(0) 99\n", encoding="utf-8")
    ended = subprocess.run([*gridhost, "--data", source / "data/birdstrikes.csv", "--play", script], timeout=120,
                           stderr=subprocess.PIPE, text=True, cwd=folder)
    assert ended.returncode == 1 and "refused.vgs:2: cboSort(0) has 16 entries, none at 99" in ended.stderr, ended.stderr
