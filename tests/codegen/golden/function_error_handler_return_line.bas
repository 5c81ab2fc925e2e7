Public Function Calculate(a As Long, ByVal b As Long) As Currency
    On Error GoTo HandleError

    Calculate = Empty
HandleExit:
    Exit Function

HandleError:
    ErrorHandle "basMath", "Calculate"
    Resume HandleExit
End Function
