Attribute VB_Name = "basMain"
' Inventory: start-up and shared helpers.
' Keeps the stock list of the Café Lumière shop in a simple text file.
Option Explicit

Public Const APP_TITLE As String = "Inventory"
Private Const STOCK_FILE As String = "stock.txt"

Private Declare Function GetTickCount Lib "kernel32" () As Long
Private Declare Function GetPrivateProfileString Lib "kernel32" _
    Alias "GetPrivateProfileStringA" (ByVal lpApplicationName As String, _
    ByVal lpKeyName As Any, ByVal lpDefault As String, _
    ByVal lpReturnedString As String, ByVal nSize As Long, _
    ByVal lpFileName As String) As Long

Public gItems As Collection
Private mLastError As String

' Entry point: loads the stock and shows the main form.
Public Sub Main()
    Set gItems = New Collection
    If Not LoadStock(App.Path & "\" & STOCK_FILE) Then
        MsgBox "Can't read the stock file: " & mLastError, vbExclamation, APP_TITLE
    End If
    frmMain.Show
End Sub

' Reads one item per line: "code;name;quantity;price".
' Returns False when the file can't be opened.
Public Function LoadStock(ByVal FileName As String) As Boolean
    Dim FileNo As Integer
    Dim TextLine As String
    Dim Item As clsStockItem

    On Error GoTo LoadStock_Error

    FileNo = FreeFile
    Open FileName For Input As #FileNo
    Do While Not EOF(FileNo)
        Line Input #FileNo, TextLine
        If Len(Trim$(TextLine)) > 0 And Left$(TextLine, 1) <> "'" Then
            Set Item = ParseItem(TextLine)
            If Not Item Is Nothing Then gItems.Add Item, Item.Code
        End If
    Loop
    Close #FileNo
    LoadStock = True

LoadStock_Exit:
    Exit Function

LoadStock_Error:
    mLastError = Err.Description
    LoadStock = False
    Resume LoadStock_Exit
End Function

' Turns "code;name;quantity;price" into an item; Nothing for a bad line.
Private Function ParseItem(ByVal TextLine As String) As clsStockItem
    Dim Fields() As String
    Dim Item As clsStockItem

    Fields = Split(TextLine, ";")
    If UBound(Fields) < 3 Then Exit Function
    Set Item = New clsStockItem
    With Item
        .Code = Trim$(Fields(0))
        .Description = Trim$(Fields(1))
        .Quantity = Val(Fields(2))
        .Price = CCur(Val(Fields(3)))
    End With
    Set ParseItem = Item
End Function

' A short word for the stock level, for the status bar.
Public Function StockLevel(ByVal Quantity As Long) As String
    Select Case Quantity
        Case Is <= 0
            StockLevel = "Sold out"
        Case 1 To 9
            StockLevel = "Low"
        Case 10 To 99
            StockLevel = "OK"
        Case Else
            StockLevel = "Plenty"
    End Select
End Function

' Value of the whole stock; numbered lines so that Erl tells where it failed.
Public Function StockValue() As Currency
    Dim Item As clsStockItem
    Dim Total As Currency

10  On Error GoTo StockValue_Error
20  For Each Item In gItems
30      Total = Total + Item.Quantity * Item.Price
40  Next Item
50  StockValue = Total
60  Exit Function

StockValue_Error:
    MsgBox "Error " & Err.Number & " in line " & Erl & ": " & Err.Description, _
        vbCritical, APP_TITLE
End Function

' Milliseconds since start-up, for the "It's taking long" message.
Public Function Elapsed(ByVal Since As Long) As Long
    Elapsed = GetTickCount() - Since
End Function

