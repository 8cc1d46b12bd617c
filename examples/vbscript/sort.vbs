' Lets the user sort a small grid that is written here. cscript //nologo sort.vbs
Option Explicit

Class Column
  Public Caption
End Class

Class SortKey
  Public ColIndex
  Public SortOrder
End Class

' Items from 1, in the order in which they were put in.
Class List
  Private items_
  Private Sub Class_Initialize
    Clear
  End Sub
  Public Sub Clear
    Set items_ = CreateObject("Scripting.Dictionary")
  End Sub
  Public Sub Append(item)
    items_.Add items_.Count + 1, item
  End Sub
  Public Property Get Count
    Count = items_.Count
  End Property
  Public Default Property Get Item(index)
    Set Item = items_(CLng(index))
  End Property
  Public Sub Add(column, order)
    Dim key
    Set key = New SortKey
    key.ColIndex = column
    key.SortOrder = order
    Append key
  End Sub
End Class

Class CityGrid
  Public Columns
  Public SortKeys
  Public Redraw
  Private Sub Class_Initialize
    Dim name, column
    Set Columns = New List
    Set SortKeys = New List
    For Each name In Array("Country", "City", "Founded")
      Set column = New Column
      column.Caption = name
      Columns.Append column
    Next
  End Sub
End Class

Dim table, editor, key, i, direction
Set table = New CityGrid
table.SortKeys.Add 1, 1  ' by country, ascending

CreateObject("vmGridViewsStrings.MlStringService").Language = 1033  ' English; Greek without this line
Set editor = CreateObject("vmGridViews.vmgrEdit")
Set editor.Grid = table
editor.ShowSort

For i = 1 To table.SortKeys.Count
  Set key = table.SortKeys.Item(i)
  direction = "ascending"
  If key.SortOrder < 0 Then direction = "descending"
  WScript.Echo i & ". " & table.Columns.Item(key.ColIndex).Caption & ", " & direction
Next
