Public Sub Calculate(a As Long, ByVal b As Long)
    On Error GoTo HandleError

HandleExit:
    Exit Sub

HandleError:
    ErrorHandle "basMath", "Calculate"
    Resume HandleExit
End Sub
