Public Sub Calculate(a As Long, ByVal b As Long)
    '--------------------------------------------------
    ' Procedure : Calculate
    ' Author    : Ann Smith (AS)
    ' Date      : 11/21/2026
    ' Purpose   : Adds up the order.
    '--------------------------------------------------

End Sub
