"""check_export.py RUN SERVER.dll HOST.exe CONTROL.dll TABLE.csv BITS: an export through three modules by COM.

The host has the grid, the control the dialog, the server the workbook, which answers as "Excel.Application" for as
long as the check runs. The cells must be those that a run on Linux writes.
"""
import os
import sys
import tempfile

from check_server import Windows, same, windows_path

sys.path.append(os.path.join(os.path.dirname(__file__), "..", "tour"))
from check_tour import by_openpyxl, compare, expected, sorted_rows  # noqa: E402


def main(run, server, host, control, table, bits):
    header, rows = sorted_rows(table)
    with tempfile.TemporaryDirectory() as folder:
        windows = Windows(run, folder, bits)
        windows("regsvr32.exe", "/s", "/n", "/i:Excel.Application", windows_path(server))
        try:
            output = windows(host, windows_path(control), windows_path(table))
        finally:
            windows("regsvr32.exe", "/s", "/u", windows_path(server))
        same("the host's output", output, ["0 objects left"])
        same("the files", os.listdir(folder), ["Book1.xlsx"])
        cells = [[(name, "General") for name in header]]
        cells += [[expected(name, row[name]) for name in header] for row in rows]
        compare("openpyxl", by_openpyxl(os.path.join(folder, "Book1.xlsx")), cells)
    print("1 passed, 0 failed")


main(*sys.argv[1:])
