VERSION 5.00
Begin VB.Form frmPosting 
   BorderStyle     =   1  'Fixed Single
   Caption         =   "New posting"
   ClientHeight    =   5040
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   7335
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MDIChild        =   -1  'True
   ScaleHeight     =   5040
   ScaleWidth      =   7335
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "Close"
      Height          =   345
      Left            =   5520
      TabIndex        =   49
      Top             =   4530
      Width           =   1695
   End
   Begin VB.CommandButton cmdPost 
      Caption         =   "&Post"
      Default         =   -1  'True
      Enabled         =   0   'False
      Height          =   345
      Left            =   5520
      TabIndex        =   48
      Top             =   4110
      Width           =   1695
   End
   Begin VB.CommandButton cmdDiscount 
      Caption         =   "Ta&ke off"
      Enabled         =   0   'False
      Height          =   345
      Left            =   5520
      TabIndex        =   47
      Top             =   3660
      Width           =   1695
   End
   Begin Ledger.AmountBox abxDiscount 
      Height          =   330
      Left            =   5520
      TabIndex        =   46
      Top             =   3240
      Width           =   1695
      _ExtentX        =   2990
      _ExtentY        =   582
      Symbol          =   "EUR"
   End
   Begin VB.Label lblDiscount 
      Caption         =   "Di&scount, if any:"
      Height          =   195
      Left            =   5520
      TabIndex        =   45
      Top             =   3000
      Width           =   1695
   End
   Begin VB.Frame fraTotals 
      Caption         =   "Totals"
      Height          =   1455
      Left            =   120
      TabIndex        =   37
      Top             =   3420
      Width           =   5295
      Begin VB.Label lblÜbertrag 
         Alignment       =   1  'Right Justify
         BorderStyle     =   1  'Fixed Single
         Caption         =   "0,00 €"
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   8.25
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   255
         Left            =   3240
         TabIndex        =   44
         Top             =   540
         Width           =   1935
      End
      Begin VB.Label lblRest 
         Caption         =   "Difference (Übertrag):"
         Height          =   195
         Left            =   3240
         TabIndex        =   43
         Top             =   300
         Width           =   1935
      End
      Begin VB.Frame fraSides 
         Caption         =   "Sides"
         Height          =   1095
         Left            =   120
         TabIndex        =   38
         Top             =   240
         Width           =   3015
         Begin VB.Label lblCredit 
            Alignment       =   1  'Right Justify
            ForeColor       =   &H000000C0&
            Height          =   195
            Left            =   1080
            TabIndex        =   42
            Top             =   690
            Width           =   1815
         End
         Begin VB.Label lblCreditName 
            Caption         =   "Credit:"
            Height          =   195
            Left            =   120
            TabIndex        =   41
            Top             =   690
            Width           =   855
         End
         Begin VB.Label lblDebit 
            Alignment       =   1  'Right Justify
            ForeColor       =   &H00008000&
            Height          =   195
            Left            =   1080
            TabIndex        =   40
            Top             =   300
            Width           =   1815
         End
         Begin VB.Label lblDebitName 
            Caption         =   "Debit:"
            Height          =   195
            Left            =   120
            TabIndex        =   39
            Top             =   300
            Width           =   855
         End
      End
   End
   Begin VB.PictureBox picKeys 
      Height          =   2175
      Left            =   5520
      ScaleHeight     =   2115
      ScaleWidth      =   1635
      TabIndex        =   24
      TabStop         =   0   'False
      Top             =   630
      Width           =   1695
      Begin VB.CommandButton cmdClear 
         BackColor       =   &H00C0C0FF&
         Caption         =   "C"
         Height          =   450
         Left            =   1020
         Style           =   1  'Graphical
         TabIndex        =   36
         TabStop         =   0   'False
         ToolTipText     =   "Empties the field"
         Top             =   1515
         Width           =   450
      End
      Begin VB.CommandButton cmdComma 
         Caption         =   ","
         Height          =   450
         Left            =   555
         TabIndex        =   35
         TabStop         =   0   'False
         Top             =   1515
         Width           =   450
      End
      Begin VB.CommandButton cmdKey 
         Caption         =   "0"
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   9.75
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   450
         Index           =   0
         Left            =   90
         TabIndex        =   34
         TabStop         =   0   'False
         Top             =   1515
         Width           =   450
      End
      Begin VB.CommandButton cmdKey 
         Caption         =   "3"
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   9.75
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   450
         Index           =   3
         Left            =   1020
         TabIndex        =   33
         TabStop         =   0   'False
         Top             =   1050
         Width           =   450
      End
      Begin VB.CommandButton cmdKey 
         Caption         =   "2"
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   9.75
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   450
         Index           =   2
         Left            =   555
         TabIndex        =   32
         TabStop         =   0   'False
         Top             =   1050
         Width           =   450
      End
      Begin VB.CommandButton cmdKey 
         Caption         =   "1"
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   9.75
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   450
         Index           =   1
         Left            =   90
         TabIndex        =   31
         TabStop         =   0   'False
         Top             =   1050
         Width           =   450
      End
      Begin VB.CommandButton cmdKey 
         Caption         =   "6"
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   9.75
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   450
         Index           =   6
         Left            =   1020
         TabIndex        =   30
         TabStop         =   0   'False
         Top             =   585
         Width           =   450
      End
      Begin VB.CommandButton cmdKey 
         Caption         =   "5"
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   9.75
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   450
         Index           =   5
         Left            =   555
         TabIndex        =   29
         TabStop         =   0   'False
         Top             =   585
         Width           =   450
      End
      Begin VB.CommandButton cmdKey 
         Caption         =   "4"
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   9.75
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   450
         Index           =   4
         Left            =   90
         TabIndex        =   28
         TabStop         =   0   'False
         Top             =   585
         Width           =   450
      End
      Begin VB.CommandButton cmdKey 
         Caption         =   "9"
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   9.75
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   450
         Index           =   9
         Left            =   1020
         TabIndex        =   27
         TabStop         =   0   'False
         Top             =   120
         Width           =   450
      End
      Begin VB.CommandButton cmdKey 
         Caption         =   "8"
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   9.75
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   450
         Index           =   8
         Left            =   555
         TabIndex        =   26
         TabStop         =   0   'False
         Top             =   120
         Width           =   450
      End
      Begin VB.CommandButton cmdKey 
         Caption         =   "7"
         BeginProperty Font 
            Name            =   "Tahoma"
            Size            =   9.75
            Charset         =   0
            Weight          =   700
            Underline       =   0   'False
            Italic          =   0   'False
            Strikethrough   =   0   'False
         EndProperty
         Height          =   450
         Index           =   7
         Left            =   90
         TabIndex        =   25
         TabStop         =   0   'False
         Top             =   120
         Width           =   450
      End
   End
   Begin VB.Frame fraLines 
      Caption         =   "Lines"
      Height          =   2775
      Left            =   120
      TabIndex        =   5
      Top             =   540
      Width           =   5295
      Begin VB.TextBox txtAmount 
         Alignment       =   1  'Right Justify
         Height          =   315
         Index           =   5
         Left            =   3720
         MaxLength       =   16
         TabIndex        =   23
         ToolTipText     =   "Debit positive, credit negative"
         Top             =   2280
         Width           =   1455
      End
      Begin VB.ComboBox cboAccount 
         Height          =   315
         Index           =   5
         Left            =   480
         Style           =   2  'Dropdown List
         TabIndex        =   22
         Top             =   2280
         Width           =   3135
      End
      Begin VB.Label lblLine 
         Alignment       =   1  'Right Justify
         Caption         =   "6."
         Height          =   195
         Index           =   5
         Left            =   120
         TabIndex        =   21
         Top             =   2325
         Width           =   255
      End
      Begin VB.TextBox txtAmount 
         Alignment       =   1  'Right Justify
         Height          =   315
         Index           =   4
         Left            =   3720
         MaxLength       =   16
         TabIndex        =   20
         ToolTipText     =   "Debit positive, credit negative"
         Top             =   1890
         Width           =   1455
      End
      Begin VB.ComboBox cboAccount 
         Height          =   315
         Index           =   4
         Left            =   480
         Style           =   2  'Dropdown List
         TabIndex        =   19
         Top             =   1890
         Width           =   3135
      End
      Begin VB.Label lblLine 
         Alignment       =   1  'Right Justify
         Caption         =   "5."
         Height          =   195
         Index           =   4
         Left            =   120
         TabIndex        =   18
         Top             =   1935
         Width           =   255
      End
      Begin VB.TextBox txtAmount 
         Alignment       =   1  'Right Justify
         Height          =   315
         Index           =   3
         Left            =   3720
         MaxLength       =   16
         TabIndex        =   17
         ToolTipText     =   "Debit positive, credit negative"
         Top             =   1500
         Width           =   1455
      End
      Begin VB.ComboBox cboAccount 
         Height          =   315
         Index           =   3
         Left            =   480
         Style           =   2  'Dropdown List
         TabIndex        =   16
         Top             =   1500
         Width           =   3135
      End
      Begin VB.Label lblLine 
         Alignment       =   1  'Right Justify
         Caption         =   "4."
         Height          =   195
         Index           =   3
         Left            =   120
         TabIndex        =   15
         Top             =   1545
         Width           =   255
      End
      Begin VB.TextBox txtAmount 
         Alignment       =   1  'Right Justify
         Height          =   315
         Index           =   2
         Left            =   3720
         MaxLength       =   16
         TabIndex        =   14
         ToolTipText     =   "Debit positive, credit negative"
         Top             =   1110
         Width           =   1455
      End
      Begin VB.ComboBox cboAccount 
         Height          =   315
         Index           =   2
         Left            =   480
         Style           =   2  'Dropdown List
         TabIndex        =   13
         Top             =   1110
         Width           =   3135
      End
      Begin VB.Label lblLine 
         Alignment       =   1  'Right Justify
         Caption         =   "3."
         Height          =   195
         Index           =   2
         Left            =   120
         TabIndex        =   12
         Top             =   1155
         Width           =   255
      End
      Begin VB.TextBox txtAmount 
         Alignment       =   1  'Right Justify
         Height          =   315
         Index           =   1
         Left            =   3720
         MaxLength       =   16
         TabIndex        =   11
         ToolTipText     =   "Debit positive, credit negative"
         Top             =   720
         Width           =   1455
      End
      Begin VB.ComboBox cboAccount 
         Height          =   315
         Index           =   1
         Left            =   480
         Style           =   2  'Dropdown List
         TabIndex        =   10
         Top             =   720
         Width           =   3135
      End
      Begin VB.Label lblLine 
         Alignment       =   1  'Right Justify
         Caption         =   "2."
         Height          =   195
         Index           =   1
         Left            =   120
         TabIndex        =   9
         Top             =   765
         Width           =   255
      End
      Begin VB.TextBox txtAmount 
         Alignment       =   1  'Right Justify
         Height          =   315
         Index           =   0
         Left            =   3720
         MaxLength       =   16
         TabIndex        =   8
         ToolTipText     =   "Debit positive, credit negative"
         Top             =   330
         Width           =   1455
      End
      Begin VB.ComboBox cboAccount 
         Height          =   315
         Index           =   0
         Left            =   480
         Style           =   2  'Dropdown List
         TabIndex        =   7
         Top             =   330
         Width           =   3135
      End
      Begin VB.Label lblLine 
         Alignment       =   1  'Right Justify
         Caption         =   "1."
         Height          =   195
         Index           =   0
         Left            =   120
         TabIndex        =   6
         Top             =   375
         Width           =   255
      End
   End
   Begin VB.TextBox txtText 
      Height          =   315
      Left            =   2940
      MaxLength       =   80
      TabIndex        =   4
      Top             =   120
      Width           =   4275
   End
   Begin VB.Label lblText 
      Caption         =   "&Text:"
      Height          =   195
      Left            =   2400
      TabIndex        =   3
      Top             =   165
      Width           =   495
   End
   Begin VB.VScrollBar vsbDay 
      Height          =   315
      Left            =   2055
      Max             =   1
      Min             =   -1
      TabIndex        =   2
      TabStop         =   0   'False
      Top             =   120
      Width           =   195
   End
   Begin VB.TextBox txtDate 
      Height          =   315
      Left            =   840
      MaxLength       =   10
      TabIndex        =   1
      Top             =   120
      Width           =   1215
   End
   Begin VB.Label lblDate 
      Caption         =   "&Date:"
      Height          =   195
      Left            =   120
      TabIndex        =   0
      Top             =   165
      Width           =   615
   End
End
Attribute VB_Name = "frmPosting"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' One entry: date, text, up to six lines, and a number pad for the till.

Private Const LAST_LINE = 5
Private Const NO_LINE = -1

Private mintLine As Integer
Private mcurSum As Currency
Private mblnBusy As Boolean

Private Sub Form_Initialize()
    mintLine = NO_LINE
End Sub

Private Sub Form_Load()
    Dim intLine As Integer

    For intLine = 0 To LAST_LINE
        FillAccounts cboAccount(intLine)
    Next intLine
    abxDiscount.Symbol = gOptions.Symbol
    ClearEntry
End Sub

Private Sub FillAccounts(ByVal Combo As ComboBox)
    Dim objAccount As clsAccount

    Combo.Clear
    For Each objAccount In gLedger.Accounts
        If objAccount.Active Then
            Combo.AddItem PadRight$(objAccount.Number, 6) & objAccount.Name
            Combo.ItemData(Combo.NewIndex) = objAccount.Number
        End If
    Next objAccount
End Sub

'---------------------------------------------------------------------------
' Empty fields for the next entry. The date stays: people post in batches.
'---------------------------------------------------------------------------
Private Sub ClearEntry()
    Dim objControl As Control

    mblnBusy = True
    For Each objControl In Controls
        If TypeOf objControl Is TextBox Then
            If Not objControl Is txtDate Then objControl.Text = ""
        ElseIf TypeOf objControl Is ComboBox Then
            objControl.ListIndex = -1
        End If
    Next
    If Len(txtDate.Text) = 0 Then txtDate.Text = Format$(Date, "dd.mm.yyyy")
    abxDiscount.Value = 0
    mblnBusy = False
    ShowSum
End Sub

Private Sub ShowSum()
    Dim intLine As Integer
    Dim curAmount As Currency, curDebit As Currency, curCredit As Currency

    If mblnBusy Then Exit Sub
    mcurSum = 0
    For intLine = 0 To LAST_LINE
        If ParseAmount(txtAmount(intLine).Text, curAmount) Then
            mcurSum = mcurSum + curAmount
            If curAmount > 0 Then curDebit = curDebit + curAmount Else curCredit = curCredit - curAmount
        End If
    Next intLine
    lblDebit.Caption = FormatAmount(curDebit)
    lblCredit.Caption = FormatAmount(curCredit)
    lblÜbertrag.Caption = FormatAmount(mcurSum, True, gOptions.Symbol)
    lblÜbertrag.ForeColor = IIf(mcurSum = 0, COLOUR_DEBIT, COLOUR_CREDIT)
    cmdPost.Enabled = (mcurSum = 0 And curDebit > 0)
End Sub

'***************************************************************************
'*  Name         : BuildEntry
'*  Description  : Makes an entry out of the fields
'*  Parameters   : Entry - clsEntry
'*  Returns      : Boolean
'*  Author       : Ann Hallam
'*  Date         : 28 Jan 2003
'***************************************************************************

Private Function BuildEntry(Entry As clsEntry) As Boolean

On Error GoTo errHandler
    Dim dtmDay As Date
    Dim intLine As Integer
    Dim curAmount As Currency

    If Not ParseDate(txtDate.Text, dtmDay) Then
        MsgBox ErrorText(leBadDate), vbExclamation, APP_TITLE
        txtDate.SetFocus
        Exit Function
    End If

    Set Entry = New clsEntry
    Entry.EntryDate = dtmDay
    Entry.Text = txtText.Text
    For intLine = 0 To LAST_LINE
        If ParseAmount(txtAmount(intLine).Text, curAmount) Then
            With cboAccount(intLine)
                If .ListIndex < 0 Then
                    MsgBox "Line " & intLine + 1 & " has no account.", vbExclamation, APP_TITLE
                    .SetFocus
                    Exit Function
                End If
                Entry.AddLine .ItemData(.ListIndex), curAmount, txtText.Text
            End With
        End If
    Next intLine
    BuildEntry = True

Exit Function
 
errHandler:
 
    With frmVBError
        Err.Source = Err.Source & "." & TypeName(Me) & ".BuildEntry"
        Set .Error = Err
     
        .Show vbModal
        Set frmVBError = Nothing
    End With
 
End Function

Private Sub cmdPost_Click()
    Dim objEntry As clsEntry

    If Not BuildEntry(objEntry) Then Exit Sub
    If PostEntry(gLedger, objEntry) Then
        ClearEntry
        txtText.SetFocus
    End If
End Sub

Private Sub cmdClose_Click()
    Unload Me
End Sub

' Discount on the first line, its counterpart on the second
Private Sub cmdDiscount_Click()
    Dim curAmount As Currency, curShares() As Currency

    If Not ParseAmount(txtAmount(0).Text, curAmount) Then Beep: Exit Sub
    SpreadAmount curAmount - abxDiscount.Value, 1, curShares
    txtAmount(0).Text = FormatAmount(curShares(1))
    txtAmount(1).Text = FormatAmount(-curShares(1))
End Sub

Private Sub cmdKey_Click(Index As Integer)
    If mintLine = NO_LINE Then mintLine = 0
    With txtAmount(mintLine)
        .SelText = CStr(Index)
        .SetFocus
    End With
End Sub

Private Sub cmdComma_Click()
    If mintLine = NO_LINE Then Exit Sub
    If InStr(txtAmount(mintLine).Text, ",") = 0 Then txtAmount(mintLine).SelText = ","
    txtAmount(mintLine).SetFocus
End Sub

Private Sub cmdClear_Click()
    If mintLine <> NO_LINE Then txtAmount(mintLine).Text = ""
End Sub

Private Sub cboAccount_Click(Index As Integer)
    If mblnBusy Then Exit Sub
    If Len(txtAmount(Index).Text) = 0 And mcurSum <> 0 Then txtAmount(Index).Text = FormatAmount(-mcurSum)
End Sub

Private Sub cboAccount_KeyDown(Index As Integer, KeyCode As Integer, Shift As Integer)
    If KeyCode = vbKeyF4 And Shift = 0 Then DropDown cboAccount(Index): KeyCode = 0
End Sub

Private Sub txtAmount_Change(Index As Integer)
    ShowSum
End Sub

Private Sub txtAmount_GotFocus(Index As Integer)
    mintLine = Index
    With txtAmount(Index)
        .SelStart = 0
        .SelLength = Len(.Text)
    End With
End Sub

Private Sub txtAmount_KeyPress(Index As Integer, KeyAscii As Integer)
    Select Case KeyAscii
    Case vbKeyBack, vbKey0 To vbKey9, Asc("-"), Asc(","), Asc(".")
    Case vbKeyReturn
        KeyAscii = 0
        If Index < LAST_LINE Then cboAccount(Index + 1).SetFocus Else cmdPost.SetFocus
    Case Else
        KeyAscii = 0
    End Select
End Sub

Private Sub txtAmount_Validate(Index As Integer, Cancel As Boolean)
    Dim curAmount As Currency

    If Len(txtAmount(Index).Text) = 0 Then Exit Sub
    If ParseAmount(txtAmount(Index).Text, curAmount) Then
        txtAmount(Index).Text = FormatAmount(curAmount)
    Else
        Cancel = True: Beep
    End If
End Sub

Private Sub txtDate_Validate(Cancel As Boolean)
    Dim dtmDay As Date

    Cancel = Not ParseDate(txtDate.Text, dtmDay)
    If Not Cancel Then txtDate.Text = Format$(dtmDay, "dd.mm.yyyy")
End Sub

Private Sub vsbDay_Change()
    Dim dtmDay As Date

    If vsbDay.Value = 0 Then Exit Sub
    If ParseDate(txtDate.Text, dtmDay) Then txtDate.Text = Format$(dtmDay - vsbDay.Value, "dd.mm.yyyy")
    vsbDay.Value = 0
End Sub

Private Sub abxDiscount_Change()
    cmdDiscount.Enabled = (abxDiscount.Value <> 0)
End Sub

Private Sub picKeys_Paint()
    picKeys.Line (0, 0)-(picKeys.ScaleWidth, 0), vb3DHighlight
    picKeys.Line (0, 15)-Step(picKeys.ScaleWidth, 0), vb3DShadow
End Sub

Private Sub Form_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    If mcurSum <> 0 And UnloadMode = vbFormControlMenu Then
        Cancel = (MsgBox("Throw this entry away?", vbYesNo + vbQuestion, APP_TITLE) = vbNo)
    End If
End Sub
