Public Sub Calculate(a As Long, ByVal b As Long)
    Const cstrProcedure = "Calculate"

End Sub
