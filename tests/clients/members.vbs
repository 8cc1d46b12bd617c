' Every property and method, and what a call that fits nothing says.
Option Explicit
Dim edit, name, count

Sub Expect(what, actual, wanted)
  count = count + 1
  If actual <> wanted Then WScript.Echo "FAILED " & what & ": " & actual & ", not " & wanted
End Sub

Class Thing
  Public Name
End Class

Set edit = CreateObject("vmGridViews.vmgrEdit")
Expect "Grid at first", edit.Grid Is Nothing, True
Expect "CurrentCatalog at first", edit.CurrentCatalog Is Nothing, True
Expect "CurrentView at first", edit.CurrentView, ""
Expect "excelVisible at first", edit.excelVisible, True

Dim grid, catalog
Set grid = New Thing
grid.Name = "grid"
Set catalog = CreateObject("Scripting.Dictionary")
Set edit.Grid = grid
Set edit.CurrentCatalog = catalog
edit.CurrentView = "view"
edit.excelVisible = False
Expect "Grid", edit.Grid Is grid, True
Expect "its member", edit.Grid.Name, "grid"
Expect "CurrentCatalog", edit.CurrentCatalog Is catalog, True
Expect "CurrentView", edit.CurrentView, "view"
Expect "excelVisible", edit.excelVisible, False

edit.Font.Name = "DejaVu Sans"
edit.Font.Size = 12
edit.Font.Bold = True
Expect "Font.Size", CLng(edit.Font.Size), 12
Expect "Font.Bold", edit.Font.Bold, True
Dim other
Set other = CreateObject("StdFont")
Set edit.Font = other
Expect "Font", edit.Font Is other, True
Set edit.Font = Nothing
Expect "Font taken back", CLng(edit.Font.Size), 8

' Each opens a dialog or nothing, and answers False either way.
Expect "ShowSummary", edit.ShowSummary, False
Expect "ShowSort", edit.ShowSort(), False
Expect "ShowOther", edit.ShowOther(), False
Expect "ShowItems", edit.ShowItems(), False
Expect "ShowGroups", edit.ShowGroups(), False
Expect "ShowExcel", edit.ShowExcel(), False
Expect "ShowFormat", edit.ShowFormat(), False
Expect "ShowGeneral", edit.ShowGeneral(), False
Expect "ShowPreview", edit.ShowPreview("header", True), False
Expect "ShowPreview without arguments", edit.ShowPreview(), False
Expect "ShowPreviewX", edit.ShowPreviewX("header", , True), False
edit.ShowOther

On Error Resume Next
edit.Nothing1
Expect "an unknown member", Err.Number, 438
Err.Clear
edit.ShowOther 1
Expect "an argument too many", Err.Number, 450
Err.Clear
Set edit.Grid = Nothing
Expect "Nothing as Grid", Err.Number, 0
Set edit.CurrentCatalog = Nothing
WScript.Echo count & " expectations"
If count = 27 Then WScript.Echo "done"
