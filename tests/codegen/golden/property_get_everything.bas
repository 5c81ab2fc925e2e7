Public Property Get Calculate() As Long
    '--------------------------------------------------
    ' Procedure : Calculate
    ' Author    : Ann Smith (AS)
    ' Date      : 11/21/2026
    ' Purpose   : Adds up the order.
    '--------------------------------------------------
    Const cstrProcedure = "Calculate"
    On Error GoTo HandleError
    System.Cursor=wdCursorWait

    Calculate = Empty
HandleExit:
    System.Cursor=wdCursorNormal
    Exit Property

HandleError:
    ErrorHandle "basMath", "Calculate"
    Resume HandleExit
End Property
