Public Sub Calculate(a As Long, ByVal b As Long)
    Application.Cursor=xlWait

    Application.Cursor=xlDefault
End Sub
