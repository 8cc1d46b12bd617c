' A host of the installed libraries.
Option Explicit
Dim editor, grid
CreateObject("vmGridViewsStrings.MlStringService").Language = 1033
Set editor = CreateObject("vmGridViews.vmgrEdit")
Set grid = CreateObject("Scripting.Dictionary")
Set editor.Grid = grid
If editor.Grid Is grid And Not editor.ShowOther And CreateObject("vmGridViews.Workbook").Workbooks.Count = 0 Then WScript.Echo "done"
