#!/usr/bin/env python3
"""check_installer.py BUILD-64 BUILD-32 VERSION WORK KEEP-IN-USE: packs both builds, then installs, damages, repairs,
upgrades and uninstalls under Wine. Each step is measured by the prefix: its registry and its files.
"""
import os
import pathlib
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
HERE = pathlib.Path(__file__).resolve().parent
PREFIX = pathlib.Path(f"{os.environ.get('WINEPREFIX', ROOT / 'build/wine')}-unseen")
C = PREFIX / "drive_c"
INSTALLED, FOLDER = C / "Program Files/vmGridViews", r"C:\Program Files\vmGridViews"
IN_USE, REGISTERING, NEWER, WINDOWS = 3, 5, 6, 7
CONTROL = r"HKLM\Software\Classes\vmGridViews.vmgrEdit"
COMMON = r"HKLM\Software\Velmora\Common"


# What Windows has of its own, and Wine makes at need.
WINDOWS_OWN = ("AppData/Local/Programs", r"user.reg [Software\\Classes\\CLSID] ", r"CurrentVersion\\Uninstall] ")


def windows_path(path):
    return "Z:" + str(path).replace("/", "\\")


def start(*command, **environment):
    return subprocess.Popen([ROOT / "packaging/wine-run", *map(str, command)], stdin=subprocess.DEVNULL,
                            stdout=subprocess.PIPE, text=True, env={**os.environ, **environment})


def wine(*command, expect=0, **environment):
    program = start(*command, **environment)
    code = program.wait(100)
    if code != expect:
        sys.exit(f"{' '.join(map(str, command))}: exit code {code}, not {expect}")
    return program


def state():
    """Every file of the prefix and every registry value of programs, once its last program has ended."""
    subprocess.run(["wineserver", "-w"], env={**os.environ, "WINEPREFIX": str(PREFIX)}, timeout=60, check=True)
    found = {str(path.relative_to(C)) for path in C.rglob("*")}
    for hive in ("system.reg", "user.reg"):
        key = ""
        for line in (PREFIX / hive).read_text(errors="replace").splitlines():
            if line.startswith("["):
                key = f"{hive} {line[:line.rindex(']') + 1]}"  # a time follows
            elif "[Software" in key and not line.startswith("#"):
                found.add(f"{key} {line}")
    # Temp has the copy of itself from which an uninstaller runs, until Windows starts the next time.
    return {line for line in found
            if not line.endswith(WINDOWS_OWN) and "Temp/" not in line and "MenuFiles" not in line}


def same(what, actual, expected):
    changes = [f"  - {line}" for line in sorted(expected - actual)] + [f"  + {line}" for line in sorted(actual - expected)]
    if changes:
        sys.exit("\n".join([f"{what}: the machine is not as it was", *changes[:40]]))


def require(condition, what):
    if not condition:
        sys.exit(what)


def stage(builds, folder):
    for build in builds:
        subprocess.run(["cmake", "--install", build, "--prefix", folder, "--component", "windows"],
                       stdout=subprocess.DEVNULL, check=True)


def pack(folder, version):
    subprocess.run([ROOT / "packaging/windows/pack", folder, version, folder.parent, "--quick"], check=True)
    return folder.parent / f"vmGridViews-{version}"


def register(folder, *switches):
    for width, system in (("x64", "system32"), ("x86", "syswow64")):
        if (C / "windows" / system / "regsvr32.exe").exists():
            for library in ("vmGridViews", "vmGridViewsStrings", "vmgWorkbook"):
                wine(rf"C:\windows\{system}\regsvr32.exe", "/s", *switches, rf"{folder}\{width}\{library}.dll")


def run_host(says="done"):
    """A script serves itself from the installed libraries, of both widths where both run."""
    for system in ("system32", "syswow64"):
        if (C / "windows" / system / "cscript.exe").exists():
            host = wine(rf"C:\windows\{system}\cscript.exe", "//nologo", windows_path(HERE / "host.vbs"))
            require(host.stdout.read().strip() == says, f"the host of {system} does not come through")


def expect_refusals(setup, keep_in_use):
    """What the installers cannot do leaves all as it was, and the exit code tells."""
    before = state()
    user = start(windows_path(keep_in_use), rf"{FOLDER}\x64\vmGridViews.dll")
    try:
        require(user.stdout.readline().strip() == "done", "the library cannot be kept in use")
        wine(setup, "/S", expect=IN_USE)
        wine(rf"{FOLDER}\uninstall.exe", "/S", *f"_?={FOLDER}".split(" "), expect=IN_USE)  # it wants no quotes
    finally:
        user.kill()
    same("a file in use", state(), before)
    wine(setup, "/S", expect=REGISTERING, WINEDLLOVERRIDES="*vmgworkbook=b")  # it cannot be loaded
    same("a library that does not load", state(), before)


def main():
    builds, version, work = sys.argv[1:3], sys.argv[3], pathlib.Path(sys.argv[4])
    if not (pathlib.Path(builds[1]) / "bin/gridhost.exe").exists():
        print("LEFT OUT: the packages hold the build of 32 bits too, which is not there")
        sys.exit(77)
    shutil.rmtree(work, ignore_errors=True)
    if PREFIX.exists() and any("vmGridViews" in line for line in state()):
        (PREFIX / "ready").unlink()  # a run was broken off: wine-run makes the prefix anew
    wine("cmd", "/c", "ver")  # makes the prefix
    run_host(says="")  # at their first run the script hosts make entries of their own
    wine("reg", "add", COMMON, "/v", "other", "/d", "of another product", "/f")
    bare = state()

    stage(builds, work / f"new/vmGridViews-{version}")
    new = pack(work / f"new/vmGridViews-{version}", version)
    setup = windows_path(f"{new}-win64-setup.exe")

    # For the user alone. There Wine has one place for both widths, creates no objects from it, and keeps the type libraries
    # among the machine's.
    wine(setup, "/S", "/CurrentUser", "/Bits=64")
    library = r"C:\users\root\AppData\Local\Programs\vmGridViews\x64\vmGridViews.dll".replace("\\", "\\\\")
    require(any(line.startswith("user.reg [Software\\\\Classes") and library in line for line in state()),
            "not registered for the user")
    wine(r"C:\users\root\AppData\Local\Programs\vmGridViews\uninstall.exe", "/S")
    same("the user's own installation", state(), bare)

    # Another copy is registered already: the zip, unpacked.
    subprocess.run(["cmake", "-E", "tar", "xf", f"{new}-windows.zip"], cwd=C, check=True)
    register(rf"C:\vmGridViews-{version}")
    run_host()
    before = state()

    shutil.copytree(work / f"new/vmGridViews-{version}", work / "old/vmGridViews")
    (work / "old/vmGridViews/data/former.csv").touch()
    old_setup = windows_path(f"{pack(work / 'old/vmGridViews', '0.0.1')}-win64-setup.exe")
    wine(old_setup, "/S")
    require((INSTALLED / "data/former.csv").exists(), "the former version is not installed")
    expect_refusals(setup, sys.argv[5])
    wine("reg", "add", COMMON, "/v", "helpFolder", "/d", r"C:\help of all", "/f")

    wine(setup, "/S")
    upgraded = state()
    require(not (INSTALLED / "data/former.csv").exists(), "what the former version had is still there")
    require((C / "help of all/VMgridViews.chm").exists(), "no help file where the administrator wants it")
    run_host()
    wine(old_setup, "/S", expect=NEWER)
    if (C / "windows/syswow64/regsvr32.exe").exists():
        wine(windows_path(f"{new}-win32-setup.exe"), "/S", expect=WINDOWS)

    (INSTALLED / "x64/vmGridViews.dll").unlink()
    wine("reg", "delete", CONTROL, "/f")
    wine(setup, "/S")
    same("the repair", state(), upgraded)

    wine("reg", "delete", COMMON, "/v", "helpFolder", "/f")
    wine(setup, "/S")
    require((C / "Program Files/Common Files/Velmora/Help/VMgridViews.chm").exists(), "no help file in the fixed folder")
    wine(rf"{FOLDER}\uninstall.exe", "/S")
    same("the uninstallation", state(), before)
    register(rf"C:\vmGridViews-{version}", "/u")
    shutil.rmtree(C / f"vmGridViews-{version}")
    same("the zip", state(), bare)
    wine("reg", "delete", r"HKLM\Software\Velmora", "/f")


main()
