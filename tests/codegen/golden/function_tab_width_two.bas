Function Total() As Long
  Const cstrProcedure = "Total"
  On Error GoTo HandleError
  Screen.MousePointer = 11

  Total = Empty
HandleExit:
  Screen.MousePointer = 0
  Exit Function

HandleError:
  ErrorHandle "", "Total"
  Resume HandleExit
End Function
