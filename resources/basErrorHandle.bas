Option Explicit

' Reports a trapped run-time error to the user. Call it first thing in an
' error handler: Err still holds the error then. A caller that has already
' cleared Err passes the number and description it saved.
Public Sub ErrorHandle(ByVal ModuleName As String, ByVal ProcedureName As String, _
                       Optional ByVal ErrorNumber As Long = 0, _
                       Optional ByVal ErrorDescription As String = "")
    Dim lngNumber As Long
    Dim strDescription As String
    Dim strMessage As String

    If ErrorNumber = 0 Then
        lngNumber = Err.Number
        strDescription = Err.Description
    Else
        lngNumber = ErrorNumber
        strDescription = ErrorDescription
    End If

    strMessage = "Error " & CStr(lngNumber) & ": " & strDescription & vbCrLf & vbCrLf _
               & "Module: " & ModuleName & vbCrLf _
               & "Procedure: " & ProcedureName

    MsgBox strMessage, vbCritical Or vbOKOnly, "Error in " & ProcedureName
End Sub
