Public Sub Calculate(a As Long, _
                     ByVal b As Long)

End Sub
