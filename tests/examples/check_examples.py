"""check_examples.py SOURCE BITS BIN CLIENT_USER: registers the control as its readme says, runs the examples, each with
its user, and takes the control out again. The readme's own host runs on the script example's grid."""
import pathlib
import re
import subprocess
import sys
import tempfile

source, bits, programs, client_user = pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3]), sys.argv[4]
SYSTEM = "C:\\windows\\" + ("system32" if bits == "64" else "syswow64") + "\\"


def wine(*command):
    return [source / "packaging/wine-run", *command]


def run(*command):
    ended = subprocess.run(wine(*command), cwd=source, timeout=100, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                           stderr=subprocess.PIPE)
    return ended.returncode, ended.stdout.decode("utf-8", "replace").split("\r\n")[:-1]


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def register(*switches):
    for name in ("vmGridViews.dll", "vmGridViewsStrings.dll"):
        library = windows_path(programs / name)
        assert run(SYSTEM + "regsvr32.exe", "/s", *switches, library)[0] == 0, f"{switches} {library}"


def play(script, *steps):
    """What the script prints while its user takes these steps."""
    user = subprocess.Popen(wine(client_user, *steps), stdin=subprocess.DEVNULL)
    _, lines = run(SYSTEM + "cscript.exe", "//nologo", windows_path(script))
    assert user.wait(30) == 0, lines
    return lines


example = source / "examples/vbscript/sort.vbs"
grid = example.read_text(encoding="utf-8").partition("Dim table")[0].replace("Option Explicit", "")
host = re.search(r"```vbscript\n(.*?)```", (source / "README.md").read_text(encoding="utf-8"), re.S).group(1)
register()
try:
    second_column_below = "title=Order key=tab key=tab key=down key=down key=enter gone".split()
    lines = play(example, *second_column_below)
    assert lines == ["1. Country, ascending", "2. City, ascending"], lines
    with tempfile.TemporaryDirectory() as folder:
        script = pathlib.Path(folder, "readme.vbs")
        script.write_text(grid + "Set grid = New CityGrid\n" + host)
        lines = play(script, "title=Order", "key=down", "key=enter", "gone")
        assert lines == ["1 sort keys"], lines
    assert run(str(programs / "example_host.exe"), "--close") == (0, ["a grid of 3 columns"])
finally:
    register("/u")
assert run(str(programs / "example_host.exe"), "--close")[0] == 1, "the control is still registered"
