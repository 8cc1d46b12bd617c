' A grid written in the script, and every property and method. The host chooses English for its process with
' one line.
Option Explicit
Dim edit, grid, catalog, font

Class Column
  Public Caption
End Class

Class ColumnList
  Public Count
  Public Default Property Get Item(index)
    Set Item = New Column
    Item.Caption = "column " & index
  End Property
End Class

Class KeyList
  Public Text
  Public Count
  Public Sub Clear
    Text = "cleared"
  End Sub
  Public Sub Add(column, order)
    Text = Text & ", " & column & " " & order
  End Sub
End Class

Class GridClass
  Public Columns
  Public SortKeys
  Private Sub Class_Initialize
    Set Columns = New ColumnList
    Set SortKeys = New KeyList
    SortKeys.Count = 0
    Columns.Count = 3
  End Sub
End Class

Sub Expect(what, actual, wanted)
  If actual <> wanted Then WScript.Echo "FAILED " & what & ": " & actual & ", not " & wanted
End Sub

CreateObject("vmGridViewsStrings.MlStringService").Language = 1033
Set edit = CreateObject("vmGridViews.vmgrEdit")
Expect "Grid at first", edit.Grid Is Nothing, True
Expect "CurrentCatalog at first", edit.CurrentCatalog Is Nothing, True
Expect "CurrentView at first", edit.CurrentView, ""
Expect "excelVisible at first", edit.excelVisible, True

Set grid = New GridClass
Set edit.Grid = grid
Expect "ShowSort with OK", edit.ShowSort, False
Expect "the keys", grid.SortKeys.Text, "cleared, 2 -1"
grid.SortKeys.Text = "as before"
Expect "ShowSort with Esc", edit.ShowSort, False
Expect "the keys after Esc", grid.SortKeys.Text, "as before"

Set catalog = CreateObject("Scripting.Dictionary")
Set edit.CurrentCatalog = catalog
edit.CURRENTVIEW = 1
edit.excelVisible = "False"
Expect "Grid", edit.Grid Is grid, True
Expect "CurrentCatalog", edit.CurrentCatalog Is catalog, True
Expect "CurrentView", edit.CurrentView, "1"
Expect "excelVisible", edit.excelVisible, False
Set font = CreateObject("StdFont")
Set edit.Font = font
Expect "Font", edit.Font Is font, True
Set edit.Font = Nothing
Expect "Font taken back", CLng(edit.Font.Size), 8

' Each opens a dialog or nothing, and answers False either way, here of an object that is no grid.
Set edit.Grid = New Column
Expect "ShowSummary", edit.ShowSummary, False
Expect "ShowSort", edit.ShowSort(), False
Expect "ShowOther", edit.ShowOther(), False
Expect "ShowItems", edit.ShowItems(), False
Expect "ShowGroups", edit.ShowGroups(), False
Expect "ShowExcel", edit.ShowExcel(), False
Expect "ShowGeneral", edit.ShowGeneral(), False
Expect "ShowPreview", edit.ShowPreview("header", True), False
Expect "ShowPreviewX", edit.ShowPreviewX("header", , True), False
edit.ShowOther

On Error Resume Next
edit.ShowFormat ' the one that tells its host what went wrong
Expect "ShowFormat without conditions", Err.Number <> 0, True
Err.Clear
edit.Nothing1
Expect "an unknown member", Err.Number, 438
Err.Clear
edit.ShowOther 1
Expect "an argument too many", Err.Number, 450
WScript.Echo "done"
