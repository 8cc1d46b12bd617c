"""check_package.py SOURCE BUILD: installs the build into a fresh folder, builds the examples on that and runs them."""
import json
import os
import shutil
import sqlite3
import subprocess
import sys
import tempfile

import openpyxl

SOURCE, BUILD = (os.path.abspath(argument) for argument in sys.argv[1:3])
HERE = os.path.dirname(os.path.abspath(__file__))


def run(*command, status=0, **environment):
    """What the command says, on both channels."""
    done = subprocess.run(command, env={**os.environ, **environment}, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True, timeout=280)
    assert done.returncode == status, f"{command} ended with {done.returncode}, not {status}:\n{done.stdout}"
    return done.stdout


def lines(*path):
    with open(os.path.join(*path), encoding="utf-8") as file:
        return [line.rstrip("\n").split("\t") for line in file]


def sheet(path):
    return list(openpyxl.load_workbook(path, read_only=True).active.values)


def install(prefix):
    for component in ["library", "development", "designer", "gridhost"]:
        run("cmake", "--install", BUILD, "--prefix", prefix, "--component", component)
    for file in ["share/man/man1/gridhost.1", "share/applications/gridhost.desktop", "share/vmGridViews/help/en/index.htm",
                 "share/icons/hicolor/scalable/apps/gridhost.svg", "lib/qt6/plugins/designer/libvmGridViewsDesigner.so"]:
        assert os.path.exists(os.path.join(prefix, file)), file


def build(prefix, folder):
    """The examples by CMake, and what pkg-config says of the package by the plain compiler."""
    launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
    run("cmake", "-S", os.path.join(HERE, "consumer"), "-B", folder, "-G", "Ninja", "-DCMAKE_CXX_FLAGS=-Wall -Werror",
        "-DCMAKE_UNITY_BUILD=ON", f"-DCMAKE_PREFIX_PATH={prefix}", f"-DEXAMPLES={SOURCE}/examples", *launcher)
    run("cmake", "--build", folder, CCACHE_BASEDIR=os.path.dirname(prefix), CCACHE_NOHASHDIR="1")

    search = {"PKG_CONFIG_PATH": os.path.join(prefix, "lib", "pkgconfig")}
    run("pkg-config", "--exists", "--print-errors", "vmGridViewsQt", **search)
    flags = run("pkg-config", "--cflags", "--libs", "vmGridViewsCore", **search).split()
    program = os.path.join(folder, "plain")
    with open(program + ".cpp", "w") as file:
        file.write("#include <vmGridViews/GridEngine>\nint main() { return vmgv::GridEngine().rowCount(); }\n")
    run("c++", "-std=c++20", program + ".cpp", "-o", program, *flags)
    run(program, LD_LIBRARY_PATH=os.path.join(prefix, "lib"))


def check_gridhost(prefix, folder):
    """The installed program finds its demo table."""
    script = os.path.join(folder, "demo.vgs")
    with open(script, "w") as file:
        file.write("rows demo.tsv 1 2\n")
    run(os.path.join(prefix, "bin", "gridhost"), "--frontend", "headless", "--play", script, "--out", folder)
    assert len(lines(folder, "demo.tsv")) == 2


def check_batch(programs, folder):
    batch, script = os.path.join(programs, "batch", "batch"), f"{SOURCE}/examples/batch/by_state.vgs"
    table = os.path.join(folder, "flights.csv")
    with open(table, "w") as file:
        file.write("origin_state,flight_date\nOhio,2020-01-01\nAlaska,2020-01-01\nOhio,2021-01-01\n")
    run(batch, table, script, folder)
    assert [row[0] for row in sheet(os.path.join(folder, "by_state.xlsx"))] == ["origin_state", "Alaska", "Ohio", "Ohio"]
    assert sheet(os.path.join(folder, "by_state.xlsx"))[2][1] > sheet(os.path.join(folder, "by_state.xlsx"))[3][1]

    assert "none.csv" in run(batch, "none.csv", script, folder, status=1)
    with open(table, "w") as file:
        file.write("origin_state,another\nOhio,1\n")
    assert "by_state.vgs:4: " in run(batch, table, script, folder, status=1)
    assert "usage: " in run(batch, status=2)


def visit(folder, script, *command):
    """Runs the program with a user who plays the script; the folder that holds what he saw, which may be one of before."""
    os.makedirs(folder, exist_ok=True)
    run(*command, QT_QPA_PLATFORM="offscreen", QT_PLUGIN_PATH=os.path.join(BUILD, "plugins"),
        QT_QPA_GENERIC_PLUGINS="visitor", VISITOR_FOLDER=folder, VISITOR_SCRIPT=os.path.join(HERE, script),
        VMG_WORKBOOK_FOLDER=folder, HOME=folder)
    return folder


def orders(folder):
    database = folder + ".db"
    with sqlite3.connect(database) as connection:
        connection.execute("CREATE TABLE orders (customer TEXT, amount REAL)")
        connection.executemany("INSERT INTO orders VALUES (?, ?)", [("Delta", 2.5), ("Epirus", 10), ("Corinth", 7)])
    return database


def check_sql(programs, folder):
    database = orders(folder)
    seen = visit(folder, "sql.vgs", os.path.join(programs, "qt_sql", "qt_sql"), database, "SELECT * FROM orders")
    assert lines(seen, "sorted.tsv") == [["0", "Epirus", "10"], ["0", "Corinth", "7"]]
    assert os.path.exists(os.path.join(seen, "dialog.png")), "the program opens the summary"
    assert len(lines(f"{SOURCE}/examples/qt_sql/main.cpp")) <= 15, "its readers are promised a short program"


def check_window(programs, folder):
    command = [os.path.join(programs, "qt_window", "qt_window"), orders(folder), "SELECT * FROM orders"]
    visit(folder, "sql.vgs", *command)
    seen = visit(folder, "again.vgs", *command)
    assert lines(seen, "again.tsv") == lines(seen, "sorted.tsv"), "the window keeps its view"


def check_own_grid(programs, folder, help_pages):
    seen = visit(folder, "own_grid.vgs", os.path.join(programs, "qt_own_grid", "qt_own_grid"))
    assert lines(seen, "opened.txt") == [[os.path.join(help_pages, "en", "gridViewsSorting.htm")]]
    best = lines(seen, "sorted.tsv")
    assert {row[2] for row in best} == {"Aegean Books"} and [row[5] for row in best] == ["1237.5", "1200", "1187.5"], best
    assert lines(seen, "grouped.tsv")[0][1] == "1135", "groups come before the sort keys"

    with open(os.path.join(seen, "layout.json"), encoding="utf-8") as file:
        layout = json.load(file)
    assert [column["colPosition"] for column in layout["columns"]] == [1, 2, 6, 3, 4, 5]
    assert layout["columnAutoResize"] and layout["redraw"] and layout["rowCount"] == 200
    large = layout["fmtConditions"][0]
    assert (large["name"], large["colIndex"], large["operator"], large["value1"]) == ("Large", 5, 4, "900")
    assert (large["style"]["backColor"], large["style"]["fontBold"]) == (0x7AD9FF, True)

    rows = sheet(os.path.join(seen, "Book1.xlsx"))
    assert rows[0] == ("No.", "Customer", "Ordered", "Amount", "Paid") and len(rows) == 201
    assert rows[1][0] == 1135 and rows[1][3] == 1237.5 and rows[1][2] == "02/02/2024", rows[1]


with tempfile.TemporaryDirectory() as work:
    place = lambda name: os.path.join(work, name)
    os.mkdir(place("out"))
    install(place("installed"))
    build(place("installed"), place("programs"))
    check_gridhost(place("installed"), place("out"))
    check_batch(place("programs"), place("out"))
    check_sql(place("programs"), place("sql"))
    check_window(place("programs"), place("window"))
    check_own_grid(place("programs"), place("own_grid"), place("installed/share/vmGridViews/help"))
