Attribute VB_Name = "GridEditor"
' Lets the user reshape a grid of the application's, from VBA or VB6.
'
' VB6: put the control on the form from the toolbox (Components, vmGridViews) and call it there:
'
'   Private Sub Form_Load()
'       Set vmgrEdit1.Grid = Grid1.Object
'   End Sub
'   Private Sub mnuSort_Click()
'       vmgrEdit1.ShowSort
'   End Sub
'
' VBA, and VB6 without the toolbox: import this module and call EditGrid from a button,
'
'   EditGrid UserForm1.Grid1.Object, "ShowSort"
'
' with the name of any of the control's Show methods.
Option Explicit

Private Const LANGUAGE_ENGLISH As Integer = 1033  ' Greek is 1032, and the default

Private editor As Object

Public Sub EditGrid(ByVal grid As Object, ByVal showMethod As String)
    If editor Is Nothing Then
        CreateObject("vmGridViewsStrings.MlStringService").Language = LANGUAGE_ENGLISH
        Set editor = CreateObject("vmGridViews.vmgrEdit")
    End If
    Set editor.Grid = grid
    CallByName editor, showMethod, VbMethod
    Set editor.Grid = Nothing  ' or the grid would outlive its form
End Sub
