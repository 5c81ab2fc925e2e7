Public Sub Calculate(a As Long, ByVal b As Long)
    System.Cursor=wdCursorWait

    System.Cursor=wdCursorNormal
End Sub
