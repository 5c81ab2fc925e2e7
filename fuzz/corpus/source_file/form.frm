VERSION 5.00
Begin VB.Form Form1 
   Caption         =   "Form1"
   Begin VB.CommandButton cmdOpen 
      Caption         =   "&Open"
      Index           =   0
   End
End
Attribute VB_Name = "Form1"
Private Sub cmdOpen_Click(Index As Integer)
End Sub
