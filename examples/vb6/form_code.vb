' The code of a form in VB6 with the control vmgrEdit1, a grid Grid1 and a menu of the user's settings.
Option Explicit

Private Sub Form_Load()
    Set vmgrEdit1.Grid = Grid1.Object
End Sub

Private Sub mnuSort_Click()
    vmgrEdit1.ShowSort
End Sub

Private Sub mnuCustomize_Click()
    vmgrEdit1.ShowSummary
End Sub

Private Sub Form_Unload(Cancel As Integer)
    Set vmgrEdit1.Grid = Nothing
End Sub
