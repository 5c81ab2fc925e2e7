Public Function Calculate(a As Long, ByVal b As Long) As Currency
    On Error GoTo HandleError
    Application.Cursor=xlWait

HandleExit:
    Application.Cursor=xlDefault
    Exit Function

HandleError:
    ErrorHandle "basMath", "Calculate"
    Resume HandleExit
End Function
