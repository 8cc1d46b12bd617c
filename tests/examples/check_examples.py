"""check_examples.py SOURCE BITS BIN CLIENT_USER: registers the control as the guide says, runs the examples, each with
its user, and takes the control out again; begins the check of workbooks by Excel."""
import pathlib
import subprocess
import sys

source, bits, programs, client_user = pathlib.Path(sys.argv[1]), sys.argv[2], pathlib.Path(sys.argv[3]), sys.argv[4]
SYSTEM = "C:\\windows\\" + ("system32" if bits == "64" else "syswow64") + "\\"
SETTINGS = "HKLM\\SOFTWARE\\Velmora\\vmGridViews"


def wine(*command):
    return [source / "packaging/wine-run", *command]


def run(*command):
    ended = subprocess.run(wine(*command), cwd=source, timeout=100, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                           stderr=subprocess.PIPE)
    return ended.returncode, ended.stdout.decode("utf-8", "replace").split("\r\n")[:-1]


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def command(name, folder, *switches):
    """The exit code of one of the examples' command files."""
    return run(SYSTEM + "cmd.exe", "/c", windows_path(source / "examples" / name), windows_path(folder), *switches)[0]


def play(script, *steps):
    """What the script prints while its user takes these steps."""
    user = subprocess.Popen(wine(client_user, *steps), stdin=subprocess.DEVNULL)
    _, lines = run(SYSTEM + "cscript.exe", "//nologo", windows_path(script))
    assert user.wait(30) == 0, lines
    return lines


example = source / "examples/vbscript/sort.vbs"
assert command("register.cmd", programs / "nowhere") != 0, "what is not there was registered"
assert command("register.cmd", programs) == 0
try:
    second_column_below = "title=Order key=tab key=tab key=down key=down key=enter gone".split()
    lines = play(example, *second_column_below)
    assert lines == ["1. Country, ascending", "2. City, ascending"], lines
    assert run(str(programs / "example_host.exe"), "--close") == (0, ["a grid of 3 columns"])
    assert command("without_excel.cmd", programs) == 0
    set_up = run(SYSTEM + "reg.exe", "query", SETTINGS)[1]
    assert "vmGridViews.Workbook" in str(set_up), set_up
finally:
    run(SYSTEM + "reg.exe", "delete", SETTINGS, "/f")
    run(SYSTEM + "regsvr32.exe", "/s", "/u", windows_path(programs / "vmgWorkbook.dll"))
    assert command("register.cmd", programs, "/u") == 0
assert run(str(programs / "example_host.exe"), "--close")[0] == 1, "the control is still registered"
check = run(SYSTEM + "cscript.exe", "//nologo", windows_path(source / "docs/check-excel.vbs"), "new.xlsx")
assert check[0] == 2 and "Excel cannot be started" in check[1][0], check  # it is no program of Wine's
