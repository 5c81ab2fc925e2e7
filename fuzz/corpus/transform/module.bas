Attribute VB_Name = "Module1"
Private Sub A()
    x = "it's <b>" ' note
100:  y = 1
Rem old <i>
ErrHandler:
    If a Then _
        b
End Sub
