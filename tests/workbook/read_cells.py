"""read_cells.py FILE: the cells of the first sheet as openpyxl reads them, one a line: name, type, format, value."""
import sys

import openpyxl

sheet = openpyxl.load_workbook(sys.argv[1]).worksheets[0]
for row in sheet.iter_rows():
    for cell in row:
        if cell.value is not None:
            print(cell.coordinate, type(cell.value).__name__, cell.number_format, ascii(cell.value), sep="|")
for merged in sheet.merged_cells.ranges:
    print("merged", merged.coord, sep="|")
