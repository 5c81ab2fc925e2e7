Public Sub Calculate(a As Long, ByVal b As Long)
    Screen.MousePointer = 11

    Screen.MousePointer = 0
End Sub
