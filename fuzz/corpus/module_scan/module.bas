Option Explicit
Private m As Long, s$
Public Enum e
  a = 1
End Enum
Sub A(ByVal x%, _
  y)
  Dim i: Static j&
L1: i = 1
End Sub
Function F$()
Sub G()
