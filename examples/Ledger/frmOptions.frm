VERSION 5.00
Begin VB.Form frmOptions 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Options"
   ClientHeight    =   4335
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   6465
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   4335
   ScaleWidth      =   6465
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   BeginProperty Font 
      Name            =   "Tahoma"
      Size            =   8.25
      Charset         =   0
      Weight          =   400
      Underline       =   0   'False
      Italic          =   0   'False
      Strikethrough   =   0   'False
   EndProperty
   Begin VB.CommandButton cmdApply 
      Caption         =   "&Apply"
      Enabled         =   0   'False
      Height          =   345
      Left            =   5220
      TabIndex        =   19
      Top             =   3870
      Width           =   1155
   End
   Begin VB.CommandButton cmdCancel 
      Cancel          =   -1  'True
      Caption         =   "Cancel"
      Height          =   345
      Left            =   3990
      TabIndex        =   18
      Top             =   3870
      Width           =   1155
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   345
      Left            =   2760
      TabIndex        =   17
      Top             =   3870
      Width           =   1155
   End
   Begin VB.Frame fraSaving 
      Caption         =   "Saving"
      Height          =   2175
      Left            =   3240
      TabIndex        =   12
      Top             =   1560
      Width           =   3135
      Begin VB.Frame fraInterval 
         Caption         =   "Interval"
         Enabled         =   0   'False
         Height          =   1095
         Left            =   120
         TabIndex        =   14
         Top             =   690
         Width           =   2895
         Begin VB.Label lblMinutes 
            Alignment       =   2  'Center
            Caption         =   "every 10 minutes"
            Height          =   195
            Left            =   120
            TabIndex        =   16
            Top             =   720
            Width           =   2655
         End
         Begin VB.HScrollBar hscMinutes 
            Height          =   255
            LargeChange     =   5
            Left            =   120
            Max             =   60
            Min             =   1
            TabIndex        =   15
            Top             =   330
            Value           =   10
            Width           =   2655
         End
      End
      Begin VB.CheckBox chkAutoSave 
         Caption         =   "Save &by itself"
         Height          =   255
         Left            =   120
         TabIndex        =   13
         Top             =   300
         Width           =   2895
      End
   End
   Begin VB.Frame fraFolder 
      Caption         =   "&Folder"
      Height          =   2175
      Left            =   120
      TabIndex        =   9
      Top             =   1560
      Width           =   3015
      Begin VB.DirListBox dirFolder 
         Height          =   1440
         Left            =   120
         TabIndex        =   11
         Top             =   630
         Width           =   2775
      End
      Begin VB.DriveListBox drvFolder 
         Height          =   315
         Left            =   120
         TabIndex        =   10
         Top             =   240
         Width           =   2775
      End
   End
   Begin VB.Frame fraFirm 
      Caption         =   "Firm"
      Height          =   1335
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   6255
      Begin VB.ComboBox cboDecimals 
         Height          =   315
         ItemData        =   "frmOptions.frx":0000
         Left            =   4680
         List            =   "frmOptions.frx":0013
         Style           =   2  'Dropdown List
         TabIndex        =   8
         Top             =   750
         Width           =   1455
      End
      Begin VB.TextBox txtSymbol 
         Enabled         =   0   'False
         Height          =   315
         Left            =   3900
         MaxLength       =   3
         TabIndex        =   7
         Top             =   750
         Width           =   615
      End
      Begin VB.OptionButton optSymbol 
         Caption         =   "&other:"
         Height          =   255
         Index           =   2
         Left            =   3000
         TabIndex        =   6
         TabStop         =   0   'False
         Top             =   780
         Width           =   855
      End
      Begin VB.OptionButton optSymbol 
         Caption         =   "&£"
         Height          =   255
         Index           =   1
         Left            =   2160
         TabIndex        =   5
         TabStop         =   0   'False
         Top             =   780
         Width           =   735
      End
      Begin VB.OptionButton optSymbol 
         Caption         =   "&€"
         Height          =   255
         Index           =   0
         Left            =   1320
         TabIndex        =   4
         Top             =   780
         Value           =   -1  'True
         Width           =   735
      End
      Begin VB.Label lblSymbol 
         Caption         =   "Currency:"
         Height          =   195
         Left            =   120
         TabIndex        =   3
         Top             =   810
         Width           =   1095
      End
      Begin VB.TextBox txtFirm 
         Height          =   315
         Left            =   1320
         MaxLength       =   60
         TabIndex        =   2
         Text            =   "Müller & Söhne"
         Top             =   285
         Width           =   4815
      End
      Begin VB.Label lblFirm 
         Caption         =   "&Name:"
         Height          =   195
         Left            =   120
         TabIndex        =   1
         Top             =   330
         Width           =   1095
      End
   End
End
Attribute VB_Name = "frmOptions"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private mblnLoaded As Boolean

Private Sub LoadOptions()
    With gOptions
        txtFirm.Text = .FirmName
        optSymbol(0).Value = (.Symbol = CURRENCY_EURO)
        optSymbol(1).Value = (.Symbol = CURRENCY_POUND)
        optSymbol(2).Value = Not (optSymbol(0).Value Or optSymbol(1).Value)
        If optSymbol(2).Value Then txtSymbol.Text = .Symbol
        chkAutoSave.Value = Abs(.AutoSave)
        hscMinutes.Value = .SaveMinutes
        cboDecimals.ListIndex = .DecimalPlaces
        On Error Resume Next
        drvFolder.Drive = Left$(.DataFolder, 2)
        dirFolder.Path = .DataFolder
        On Error GoTo 0
    End With
    ShowMinutes
    mblnLoaded = True
    cmdApply.Enabled = False
End Sub

Private Sub ShowMinutes()
    lblMinutes.Caption = "every " & hscMinutes.Value & IIf(hscMinutes.Value = 1, " minute", " minutes")
    fraInterval.Enabled = (chkAutoSave.Value = vbChecked)
    hscMinutes.Enabled = fraInterval.Enabled
End Sub

'*  The old header style of the first version; the new one came with version 2
'*  Name: StoreOptions
'*  Takes everything over and writes it to the registry
Private Function StoreOptions() As Boolean
    Dim intSymbol As Integer, strOld As String

    If Trim$(txtFirm.Text) = "" Then
        MsgBox "Please enter the name of the firm.", vbExclamation, APP_TITLE
        txtFirm.SetFocus
        Exit Function
    End If
    For intSymbol = 0 To 2
        If optSymbol(intSymbol).Value Then Exit For
    Next intSymbol
    With gOptions
        .FirmName = Trim$(txtFirm.Text)
        .Symbol = Choose(intSymbol + 1, CURRENCY_EURO, CURRENCY_POUND, txtSymbol.Text)
        .AutoSave = (chkAutoSave.Value = vbChecked)
        .SaveMinutes = hscMinutes.Value
        .DecimalPlaces = cboDecimals.ListIndex
        .DataFolder = dirFolder.Path
    End With
    WriteOptions
    cmdApply.Enabled = False
    StoreOptions = True
End Function

Private Sub SomethingChanged()
    If mblnLoaded Then cmdApply.Enabled = True
End Sub

Private Sub cboDecimals_Click()
    SomethingChanged
End Sub

Private Sub chkAutoSave_Click()
    ShowMinutes
    SomethingChanged
End Sub

Private Sub cmdApply_Click()
    StoreOptions
End Sub

Private Sub cmdCancel_Click()
    Unload Me
End Sub

Private Sub cmdOK_Click()
    If StoreOptions() Then Unload Me
End Sub

Private Sub dirFolder_Change()
    SomethingChanged
End Sub

Private Sub drvFolder_Change()
    On Error GoTo NoDrive
    dirFolder.Path = drvFolder.Drive
    Exit Sub

NoDrive:
    If MsgBox("Drive " & drvFolder.Drive & " is not ready.", vbRetryCancel + vbExclamation, APP_TITLE) = vbRetry Then
        Resume
    End If
    drvFolder.Drive = dirFolder.Path
End Sub

Private Sub Form_Load()
    LoadOptions
End Sub

Private Sub hscMinutes_Change()
    ShowMinutes
    SomethingChanged
End Sub

Private Sub hscMinutes_Scroll()
    ShowMinutes
End Sub

Private Sub optSymbol_Click(Index As Integer)
    txtSymbol.Enabled = (Index = 2)
    SomethingChanged
End Sub

Private Sub txtFirm_Change()
    SomethingChanged
End Sub

Private Sub txtSymbol_Change()
    SomethingChanged
End Sub
