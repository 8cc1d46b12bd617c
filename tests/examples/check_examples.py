"""check_examples.py SOURCE BITS BIN CLIENT_USER: registers the control as its readme says, runs the examples, each with
its user, and takes the control out again."""
import pathlib
import subprocess
import sys

source, bits, programs, client_user = pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3]), sys.argv[4]
SYSTEM = "C:\\windows\\" + ("system32" if bits == "64" else "syswow64") + "\\"


def wine(*command):
    return [source / "packaging/wine-run", *command]


def run(*command):
    ended = subprocess.run(wine(*command), cwd=source, timeout=100, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                           stderr=subprocess.PIPE)
    return ended.returncode, ended.stdout.decode("utf-8", "replace").split("\r\n")[:-1]


def register(*switches):
    for name in ("vmGridViews.dll", "vmGridViewsStrings.dll"):
        library = "Z:" + str(programs / name).replace("/", "\\")
        assert run(SYSTEM + "regsvr32.exe", "/s", *switches, library)[0] == 0, f"{switches} {library}"


register()
try:
    # the second level: the second column
    steps = "title=Order key=tab key=tab key=down key=down key=enter gone".split()
    user = subprocess.Popen(wine(client_user, *steps), stdin=subprocess.DEVNULL)
    status, lines = run(SYSTEM + "cscript.exe", "//nologo", "examples\\vbscript\\sort.vbs")
    assert user.wait(30) == 0 and lines == ["1. Country, ascending", "2. City, ascending"], lines
    assert run(str(programs / "example_host.exe"), "--close") == (0, ["a grid of 3 columns"])
finally:
    register("/u")
assert run(str(programs / "example_host.exe"), "--close")[0] == 1, "the control is still registered"
