Attribute VB_Name = "GridEditor"
' Lets the user reshape a grid of the application's, from VBA, or VB6 without the control on a form. Import this module
' and call EditGrid from a button,
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
