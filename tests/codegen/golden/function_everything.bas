Public Function Calculate(a As Long, _
                          ByVal b As Long) As Currency
    '--------------------------------------------------
    ' Procedure : Calculate
    ' Author    : Ann Smith (AS)
    ' Date      : 11/21/2026
    ' Purpose   : Adds up the order.
    '--------------------------------------------------
    Const cstrProcedure = "Calculate"
    On Error GoTo HandleError
    Screen.MousePointer = 11

    Calculate = Empty
HandleExit:
    Screen.MousePointer = 0
    Exit Function

HandleError:
    ErrorHandle "basMath", "Calculate"
    Resume HandleExit
End Function
