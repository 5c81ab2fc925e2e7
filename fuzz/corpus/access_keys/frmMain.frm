VERSION 5.00
Object = "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}#1.1#0"; "TABCTL32.OCX"
Begin VB.Form frmMain 
   Caption         =   "Inventory"
   ClientHeight    =   4935
   ClientLeft      =   165
   ClientTop       =   855
   ClientWidth     =   7215
   LinkTopic       =   "Form1"
   ScaleHeight     =   4935
   ScaleWidth      =   7215
   StartUpPosition =   3  'Windows Default
   Begin TabDlg.SSTab tabPages 
      Height          =   3255
      Left            =   120
      TabIndex        =   5
      Top             =   1080
      Width           =   6975
      _ExtentX        =   12303
      _ExtentY        =   5741
      _Version        =   393216
      Tabs            =   3
      Tab             =   1
      TabHeight       =   520
      TabCaption(0)   =   "&General"
      TabPicture(0)   =   "frmMain.frx":0000
      Tab(0).ControlEnabled=   0   'False
      Tab(0).ControlCount=   0
      TabCaption(1)   =   "&Stock"
      TabPicture(1)   =   "frmMain.frx":001C
      Tab(1).ControlEnabled=   -1  'True
      Tab(1).Control(0)=   "lstItems"
      Tab(1).ControlCount=   1
      TabCaption(2)   =   "&Prices"
      TabPicture(2)   =   "frmMain.frx":0038
      Tab(2).ControlEnabled=   0   'False
      Tab(2).ControlCount=   0
      Begin VB.ListBox lstItems 
         Height          =   2595
         Left            =   120
         TabIndex        =   6
         Top             =   480
         Width           =   6735
      End
   End
   Begin VB.Frame fraSearch 
      Caption         =   "Search"
      Height          =   855
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   6975
      Begin VB.TextBox txtSearch 
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   8.25
            Charset         =   0
            Weight          =   400
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   315
         Left            =   960
         TabIndex        =   2
         Top             =   360
         Width           =   3735
      End
      Begin VB.CommandButton cmdFind 
         Caption         =   "&Find"
         Default         =   -1  'True
         Height          =   375
         Left            =   4920
         TabIndex        =   3
         Top             =   330
         Width           =   1095
      End
      Begin VB.Label lblSearch 
         Caption         =   "&Look for:"
         Height          =   255
         Left            =   120
         TabIndex        =   1
         Top             =   390
         Width           =   855
      End
   End
   Begin VB.CommandButton cmdAction 
      Caption         =   "&Open"
      Height          =   375
      Index           =   0
      Left            =   120
      TabIndex        =   7
      Top             =   4440
      Width           =   1215
   End
   Begin VB.CommandButton cmdAction 
      Caption         =   "&Options"
      Height          =   375
      Index           =   1
      Left            =   1440
      TabIndex        =   8
      Top             =   4440
      Width           =   1215
   End
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "&Close"
      Height          =   375
      Left            =   5880
      TabIndex        =   9
      Top             =   4440
      Width           =   1215
   End
   Begin VB.Label lblStatus 
      Caption         =   "Ready - Café mode"
      Height          =   255
      Left            =   2760
      TabIndex        =   4
      Top             =   4500
      Width           =   3015
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileOpen 
         Caption         =   "&Open..."
         Shortcut        =   ^O
      End
      Begin VB.Menu mnuFileSep 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuHelp 
      Caption         =   "&Help"
      Begin VB.Menu mnuHelpAbout 
         Caption         =   "&About Inventory..."
      End
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub cmdAction_Click(Index As Integer)
    Select Case Index
        Case 0
            mnuFileOpen_Click
        Case 1
            MsgBox "There aren't any options yet.", vbInformation, APP_TITLE
    End Select
End Sub

Private Sub cmdClose_Click()
    Unload Me
End Sub

Private Sub cmdFind_Click()
    Dim i As Long

    For i = 0 To lstItems.ListCount - 1
        If InStr(1, lstItems.List(i), txtSearch.Text, vbTextCompare) > 0 Then
            lstItems.ListIndex = i
            Exit Sub
        End If
    Next i
    lblStatus.Caption = "Not found: """ & txtSearch.Text & """"
End Sub

Private Sub Form_Load()
    Dim Item As clsStockItem

    For Each Item In gItems
        lstItems.AddItem Item.ToString
    Next Item
    lblStatus.Caption = gItems.Count & " items, " & Format$(StockValue(), "Currency")
End Sub

Private Sub mnuFileExit_Click()
    Unload Me
End Sub

Private Sub mnuFileOpen_Click()
    If LoadStock(App.Path & "\stock.txt") Then Form_Load
End Sub

Private Sub mnuHelpAbout_Click()
    frmAbout.Show vbModal, Me
End Sub
