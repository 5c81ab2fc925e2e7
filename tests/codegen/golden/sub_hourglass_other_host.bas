Public Sub Calculate(a As Long, ByVal b As Long)



End Sub
