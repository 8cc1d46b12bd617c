' A grid written in the script: the sort dialog lists its columns and writes its sort keys. The host chooses
' English for its process with one line.
Option Explicit
Dim edit, grid

Class Column
  Public Caption
End Class

Class ColumnList
  Public Property Get Count
    Count = 3
  End Property
  Public Default Property Get Item(index)
    Set Item = New Column
    Item.Caption = "column " & index
  End Property
End Class

Class KeyList
  Public Text
  Public Property Get Count
    Count = 0
  End Property
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
  Public Redraw
  Private Sub Class_Initialize
    Set Columns = New ColumnList
    Set SortKeys = New KeyList
  End Sub
End Class

Sub Expect(what, actual, wanted)
  If actual <> wanted Then WScript.Echo "FAILED " & what & ": " & actual & ", not " & wanted
End Sub

CreateObject("vmGridViewsStrings.MlStringService").Language = 1033
Set grid = New GridClass
Set edit = CreateObject("vmGridViews.vmgrEdit")
Set edit.Grid = grid
Expect "ShowSort with OK", edit.ShowSort, False
Expect "the keys", grid.SortKeys.Text, "cleared, 2 -1"
Expect "Redraw", grid.Redraw, True
grid.SortKeys.Text = "as before"
Expect "ShowSort with Esc", edit.ShowSort, False
Expect "the keys after Esc", grid.SortKeys.Text, "as before"
WScript.Echo "done"
