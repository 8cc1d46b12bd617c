"""check_server.py RUN SERVER.dll BITS: registers the server, has a script fill a workbook, reads it.

RUN starts a Windows program. The registry is as before at the end.
"""
import datetime
import os
import subprocess
import sys
import tempfile

import openpyxl

PROG_ID = "vmGridViewsTest.Application"
SCRIPT = r'''
Function Named(wanted)
  On Error Resume Next
  Set found = app.ActiveWorkbook.Sheets(wanted)
  Named = Err.Number
End Function
Function Again()
  On Error Resume Next
  sheet.Cells(1, 1).Value = "too late"
  Again = Err.Number & " " & Err.Description
End Function

Dim app, sheet, range
Set app = CreateObject(WScript.Arguments(0))
app.Workbooks.Add
Set sheet = app.ActiveSheet
sheet.Name = "Data"
sheet.Cells(1, 1).Value = "text"
sheet.Cells(1, 2).Value = 1.5
sheet.Cells(1, 3).Value = True
sheet.Cells(1, 4).Value = CDate(45000.5)
sheet.Cells(1, 5).NumberFormat = "@"
sheet.Cells(1, 5).Value = "00123"
sheet.Cells(1, 6).Value = Null
sheet.Cells(1, 7).Value = sheet.Cells(1, 2)
sheet.Cells(1, 8).Value = CCur(-12.3456)
sheet.Cells(1, 9).Value = "a & <b>" & vbLf & "007"
sheet.Cells(1, 10).Value = String(32767, "x")
Set range = sheet.Range(sheet.Cells(2, 1), sheet.Cells(2, 4))
range.Merge
range.WrapText = True
sheet.Cells(2, 1).Value = "merged"
WScript.Echo app.Workbooks.Count & " " & sheet.Name & " " & Named("Script") & " " & Named("Data")
WScript.Echo Again()
sheet.PivotTableWizard.Update
app.Visible = True
app.Quit

Set app = CreateObject(WScript.Arguments(0))
Set book = app.Workbooks.Open(WScript.Arguments(1) & "\Book1.xlsx")
Set sheet = book.Sheets("Data")
sheet.Cells.ClearContents
sheet.Cells(1, 1).Value = "name"
sheet.Cells(2, 1).Value = "fig"
sheet.Cells.EntireColumn.AutoFit
For Each cache In book.PivotCaches
  cache.Refresh
Next
app.Visible = True
WScript.Echo book.PivotCaches.Count & " done"
'''


def windows_path(path):
    return "Z:" + path.replace("/", "\\")


class Windows:
    """Starts Windows programs; the server's workbooks go into `folder`."""
    def __init__(self, run, folder, bits):
        self.run, self.folder, self.bits = run, folder, bits

    def path(self, name):
        return windows_path(os.path.join(self.folder, name))

    def __call__(self, program, *arguments, status=0):
        environment = dict(os.environ, VMG_WORKBOOK_FOLDER=windows_path(self.folder))
        system = "C:\\windows\\" + ("syswow64" if self.bits == "32" else "system32") + "\\"
        program = program if "/" in program else system + program
        done = subprocess.run([self.run, program, *arguments], capture_output=True, env=environment, timeout=120)
        output = done.stdout.decode("utf-8", "replace").replace("\r", "").splitlines()
        if status is not None and done.returncode != status:
            sys.exit(f"{program} {arguments}: status {done.returncode} instead of {status}: {output}")
        return output

    def classes(self):
        """What is registered, a line with its key each."""
        self("reg.exe", "export", "HKLM\\Software\\Classes", self.path("classes.reg"), "/y")
        file = os.path.join(self.folder, "classes.reg")
        lines, key = set(), ""
        with open(file, encoding="utf-16") as exported:
            for line in exported:
                key = line if line.startswith("[") else key
                lines.add(key + line)
        os.remove(file)
        return lines


def same(what, found, wanted):
    if found != wanted:
        sys.exit(f"{what}: {found!r} instead of {wanted!r}")


def play(windows, text, *arguments):
    with open(os.path.join(windows.folder, "fill.vbs"), "w", encoding="ascii") as script:
        script.write(text)
    return windows("cscript.exe", "//nologo", windows.path("fill.vbs"), *arguments)


def check_script(windows):
    output = play(windows, SCRIPT, PROG_ID, windows_path(windows.folder))
    same("the script's output", output[-3:], [
        "1 Data 9 0",
        "1004 The cell A1 can no longer be changed: the rows above row 2 are written already", "0 done"])
    book = openpyxl.load_workbook(os.path.join(windows.folder, "Book1.xlsx"))
    sheet = book["Data"]
    same("the script's cells", [cell.value for cell in sheet[1]],
         ["text", 1.5, True, datetime.datetime(2023, 3, 15, 12), "00123", None, 1.5, -12.3456,
          "a & <b>\n007", "x" * 32767])
    same("a text's format", sheet["E1"].number_format, "@")
    same("the merged cells", [str(area) for area in sheet.merged_cells.ranges], ["A2:D2"])
    same("the pivot table's cells", [[cell.value for cell in row] for row in book["Sheet2"]["A3:A4"]], [["# text"], [1]])
    same("their text", (sheet["A2"].value, sheet["A2"].alignment.wrap_text), ("merged", True))
    filled = openpyxl.load_workbook(os.path.join(windows.folder, "Book2.xlsx"))
    same("the filled cells", [filled["Data"][cell].value for cell in ("A1", "A2", "B1")], ["name", "fig", None])
    source = filled["Sheet2"]._pivots[0].cache.cacheSource.worksheetSource
    same("the filled pivot table's rows", (source.sheet, source.ref), ("Data", "A1:A2"))


def main(run, server, bits):
    with tempfile.TemporaryDirectory() as folder:
        windows = Windows(run, folder, bits)
        dll = windows_path(server)
        play(windows, "WScript.Echo 1")  # at its first run the script host makes entries of its own
        before = windows.classes()
        windows("regsvr32.exe", "/s", "/n", "/i:" + PROG_ID, dll)
        check_script(windows)
        # somebody else's program id is left alone, and ours goes without the server's own
        windows("regsvr32.exe", "/s", "/n", "/i:Scripting.Dictionary", dll, status=5)
        windows("regsvr32.exe", "/s", "/u", "/n", "/i:" + PROG_ID, dll)
        windows("reg.exe", "query", "HKCR\\" + PROG_ID, status=1)
        windows("reg.exe", "query", "HKCR\\vmGridViews.Workbook")
        windows("regsvr32.exe", "/s", "/n", "/i:" + PROG_ID, dll)
        windows("regsvr32.exe", "/s", "/u", dll)
        same("what has changed in the registry", windows.classes() ^ before, set())
        same("the files", sorted(os.listdir(folder)), ["Book1.xlsx", "Book2.xlsx", "fill.vbs"])
    print("1 passed, 0 failed")


if __name__ == "__main__":
    main(*sys.argv[1:])
