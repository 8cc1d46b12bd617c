#!/usr/bin/env python3
"""run_client.py 64|32 FOLDER-OF-SERVERS USER-PROGRAM SCRIPT STEP ...

Registers the servers, runs the script under the system's script host with a user beside it, and unregisters.
A script that fails ends in silence and with success: only its last line, "done", says that it came through.
"""
import os
import pathlib
import subprocess
import sys
import tempfile

WINE = pathlib.Path(__file__).resolve().parents[2] / "packaging" / "wine-run"
SERVERS = ("vmGridViews.dll", "vmGridViewsStrings.dll")
ENVIRONMENT = dict(os.environ, LC_ALL="C.UTF-8")  # steps may be Greek


def windows_path(path):
    return "Z:" + str(pathlib.Path(path).resolve()).replace("/", "\\")


def wine(*command, timeout=60):
    """Exit code and output. By way of a file: Wine's own services keep a pipe open when the program has ended."""
    with tempfile.TemporaryFile() as output:
        code = subprocess.run([WINE, *command], env=ENVIRONMENT, timeout=timeout, stdin=subprocess.DEVNULL,
                              stdout=output).returncode
        output.seek(0)
        return code, output.read().decode(errors="replace").split("\r\n")


def main():
    bits, folder, user_program, script, *steps = sys.argv[1:]
    system = "C:\\windows\\" + ("system32" if bits == "64" else "syswow64") + "\\"
    servers = [windows_path(pathlib.Path(folder) / server) for server in SERVERS]

    def register(*switches):
        for server in servers:
            code, _ = wine(system + "regsvr32.exe", "/s", *switches, server)
            if code:
                sys.exit(f"regsvr32 {' '.join(switches)} {server}: {code}")

    register()
    user = subprocess.Popen([WINE, user_program, *steps], env=ENVIRONMENT, stdin=subprocess.DEVNULL)
    try:
        _, lines = wine(system + "cscript.exe", "//nologo", windows_path(script))
        failed = user.poll()  # its last step lasts
    finally:
        user.kill()
        user.wait()
        register("/u")
    print("\n".join(lines))
    if failed or any(line.startswith("FAILED") for line in lines) or "done" not in lines:
        sys.exit("the script, or its user, did not come through")


main()
