' Opens workbooks in Excel and tells whether it takes them as they are:
'   cscript //nologo check-excel.vbs FILE ...
' For each file: a repair that Excel had to make, cells with errors, and what its pivot tables add up to after a refresh.
' The exit status is 1 where anything was repaired, failed or shows an error.
Option Explicit

Const kErrorCells = 16     ' xlErrors
Const kConstants = 2       ' xlCellTypeConstants
Const kFormulas = -4123    ' xlCellTypeFormulas

Dim files, excel, faults, i
Set files = CreateObject("Scripting.FileSystemObject")
faults = 0
If WScript.Arguments.Count = 0 Then
  WScript.Echo "usage: cscript //nologo check-excel.vbs FILE ..."
  WScript.Quit 2
End If
On Error Resume Next
Set excel = CreateObject("Excel.Application")
If Err.Number <> 0 Then
  WScript.Echo "Excel cannot be started: " & Err.Description
  WScript.Quit 2
End If
On Error GoTo 0
excel.DisplayAlerts = False
For i = 0 To WScript.Arguments.Count - 1
  Check files.GetAbsolutePathName(WScript.Arguments(i))
Next
excel.Quit
If faults > 0 Then WScript.Quit 1

Sub Fault(text)
  WScript.Echo "  FAULT: " & text
  faults = faults + 1
End Sub

' Excel leaves an error*.xml in the folder for passing files for each workbook that it repairs.
Function RepairLogs()
  Dim file
  RepairLogs = 0
  For Each file In files.GetSpecialFolder(2).Files
    If LCase(Left(file.Name, 5)) = "error" And LCase(Right(file.Name, 4)) = ".xml" Then RepairLogs = RepairLogs + 1
  Next
End Function

Function ErrorCells(sheet, kind)
  On Error Resume Next  ' there are none
  ErrorCells = 0
  ErrorCells = sheet.UsedRange.SpecialCells(kind, kErrorCells).Count
End Function

Sub Check(path)
  Dim before, book, sheet, pivot, count
  WScript.Echo path
  before = RepairLogs()
  On Error Resume Next
  Set book = excel.Workbooks.Open(path, 0, True)
  If Err.Number <> 0 Then
    Fault "it does not open: " & Err.Description
    Exit Sub
  End If
  On Error GoTo 0
  If RepairLogs() > before Then Fault "Excel has repaired it"
  For Each sheet In book.Worksheets
    WScript.Echo "  " & sheet.Name & ": " & sheet.UsedRange.Address(False, False)
    count = ErrorCells(sheet, kConstants) + ErrorCells(sheet, kFormulas)
    If count > 0 Then Fault count & " cells show an error"
    For Each pivot In sheet.PivotTables
      CheckPivot pivot
    Next
  Next
  book.Close False
End Sub

Sub CheckPivot(pivot)
  Dim cells
  On Error Resume Next
  pivot.PivotCache.Refresh
  If Err.Number <> 0 Then
    Fault "the pivot table " & pivot.Name & " cannot be refreshed: " & Err.Description
    Exit Sub
  End If
  Set cells = pivot.TableRange1
  WScript.Echo "    pivot table " & pivot.Name & " over " & pivot.SourceData & ": " & cells.Rows.Count & " lines, total " & _
               cells.Cells(cells.Rows.Count, cells.Columns.Count).Value
End Sub
