"""check_tour.py SCRIPT DATA.csv READERS GRIDHOST ...: plays the tour and compares its workbook with the sorted CSV.

The order is worked out here, from the file alone; the cells are read by openpyxl and where READERS names
it, once more, by LibreOffice.
"""
import csv
import os
import subprocess
import sys
import tempfile

import openpyxl

NUMBERS = {"id", "cost_other", "cost_repair", "cost_total", "speed_knots"}
DATES = {"flight_date"}


def sorted_rows(path):
    """The header and the rows by origin_state, flight_date (descending) and cost_total (descending)."""
    with open(path, newline="", encoding="utf-8") as file:
        rows = list(csv.DictReader(file))
    for key, descending in ((lambda r: float(r["cost_total"] or "-inf"), True), (lambda r: r["flight_date"], True),
                            (lambda r: r["origin_state"].lower(), False)):
        rows.sort(key=key, reverse=descending)  # stable: the last sort leads
    return list(rows[0]), rows


def expected(name, text):
    """Value and number format of the cell for one field of the CSV."""
    if text == "":
        return None, "General"
    if name in NUMBERS:
        return (float(text) if "." in text else int(text)), "General"
    if name in DATES:
        year, month, day = text.split("-")
        return f"{month}/{day}/{year}", "General"
    return text, "@"


def by_openpyxl(path):
    sheet = openpyxl.load_workbook(path, read_only=True).worksheets[0]
    for row in sheet.iter_rows():
        yield [(cell.value, cell.number_format) if cell.value is not None else (None, "General") for cell in row]


def by_libreoffice(path, folder):
    profile = "file://" + os.path.join(folder, "profile")  # one of its own: two runs may not share one
    subprocess.run(["soffice", "-env:UserInstallation=" + profile, "--headless", "--convert-to",
                    "csv:Text - txt - csv (StarCalc):44,34,76,1", "--outdir", folder, path],
                   check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, timeout=200)
    with open(os.path.join(folder, "birdstrikes.csv"), newline="", encoding="utf-8") as file:
        yield from csv.reader(file)


def compare(what, found, wanted):
    found, wanted = list(found), list(wanted)
    for number, (row, want) in enumerate(zip(found, wanted), start=1):
        if row != want:
            sys.exit(f"{what}: row {number} is {row} instead of {want}")
    if len(found) != len(wanted):
        sys.exit(f"{what}: {len(found)} rows instead of {len(wanted)}")
    print(f"{what}: {len(found)} rows as expected")


def main(script, data, readers, *gridhost):
    header, rows = sorted_rows(data)
    with tempfile.TemporaryDirectory() as folder:
        wanted = {"birdstrikes.tsv", "birdstrikes.xlsx", "layout.json", "pictures", "report.pdf"}
        if gridhost[-1].endswith(".exe"):  # where a PDF needs a printer
            wanted.remove("report.pdf")
            with open(script, encoding="utf-8") as lines, open(os.path.join(folder, "t.vgs"), "w", encoding="utf-8") as own:
                own.writelines(line for line in lines if not line.startswith("print "))
            script = own.name
            wanted.add("t.vgs")
        played = subprocess.run([*gridhost, "--data", data, "--language", "en", "--play", script, "--out", folder],
                                stderr=subprocess.PIPE, text=True)
        if played.returncode != 0:
            sys.exit(f"the tour failed with status {played.returncode}: {played.stderr}")
        left = {name for name in os.listdir(folder)}
        if left != wanted:
            sys.exit(f"the tour left {sorted(left)}")
        workbook = os.path.join(folder, "birdstrikes.xlsx")
        cells = [[(name, "General") for name in header]]
        cells += [[expected(name, row[name]) for name in header] for row in rows]
        compare("openpyxl", by_openpyxl(workbook), cells)
        if "LibreOffice" not in readers:
            return
        texts = [["" if value is None else str(value) for value, _ in row] for row in cells]
        compare("LibreOffice", by_libreoffice(workbook, folder), texts)


if __name__ == "__main__":
    main(*sys.argv[1:])
