VERSION 5.00
Begin VB.Form frmAccounts 
   Caption         =   "Accounts"
   ClientHeight    =   4335
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   8280
   Icon            =   "frmAccounts.frx":0000
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   4335
   ScaleWidth      =   8280
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "Close"
      Height          =   345
      Left            =   7320
      TabIndex        =   20
      Top             =   3930
      Width           =   855
   End
   Begin VB.CommandButton cmdDelete 
      Caption         =   "&Delete"
      Height          =   345
      Left            =   6360
      TabIndex        =   19
      Top             =   3930
      Width           =   855
   End
   Begin VB.CommandButton cmdSave 
      Caption         =   "&Save"
      Default         =   -1  'True
      Enabled         =   0   'False
      Height          =   345
      Left            =   5400
      TabIndex        =   18
      Top             =   3930
      Width           =   855
   End
   Begin VB.CommandButton cmdNew 
      Caption         =   "Ne&w"
      Height          =   345
      Left            =   4440
      TabIndex        =   17
      Top             =   3930
      Width           =   855
   End
   Begin VB.Label lblBalance 
      Alignment       =   1  'Right Justify
      BackStyle       =   0  'Transparent
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
      Height          =   195
      Left            =   4440
      TabIndex        =   16
      Top             =   3675
      Width           =   3735
   End
   Begin VB.Frame fraDetails 
      Caption         =   "Account"
      Height          =   3375
      Left            =   4440
      TabIndex        =   2
      Top             =   240
      Width           =   3735
      Begin VB.TextBox txtNote 
         Height          =   555
         Left            =   1080
         MultiLine       =   -1  'True
         ScrollBars      =   2  'Vertical
         TabIndex        =   15
         Top             =   2670
         Width           =   2535
      End
      Begin VB.Label lblNote 
         Caption         =   "N&ote:"
         Height          =   195
         Left            =   120
         TabIndex        =   14
         Top             =   2715
         Width           =   855
      End
      Begin VB.CheckBox chkActive 
         Caption         =   "&Active"
         Height          =   255
         Left            =   1080
         TabIndex        =   13
         Top             =   2370
         Value           =   1  'Checked
         Width           =   2535
      End
      Begin VB.Label lblSide 
         ForeColor       =   &H80000011&
         Height          =   195
         Left            =   120
         TabIndex        =   12
         Top             =   2130
         Width           =   3495
      End
      Begin VB.Frame fraSide 
         Caption         =   "Usual side"
         Height          =   615
         Left            =   1080
         TabIndex        =   9
         Top             =   1470
         Width           =   2535
         Begin VB.OptionButton optSide 
            Caption         =   "C&redit"
            Height          =   255
            Index           =   1
            Left            =   1200
            TabIndex        =   11
            TabStop         =   0   'False
            Top             =   270
            Width           =   1095
         End
         Begin VB.OptionButton optSide 
            Caption         =   "De&bit"
            Height          =   255
            Index           =   0
            Left            =   120
            TabIndex        =   10
            Top             =   270
            Value           =   -1  'True
            Width           =   975
         End
      End
      Begin VB.ComboBox cboKind 
         Height          =   315
         ItemData        =   "frmAccounts.frx":014A
         Left            =   1080
         List            =   "frmAccounts.frx":015F
         Style           =   2  'Dropdown List
         TabIndex        =   8
         Top             =   1095
         Width           =   1695
      End
      Begin VB.Label lblKind 
         Caption         =   "&Kind:"
         Height          =   195
         Left            =   120
         TabIndex        =   7
         Top             =   1140
         Width           =   855
      End
      Begin VB.TextBox txtName 
         Height          =   315
         Left            =   1080
         MaxLength       =   40
         TabIndex        =   6
         Top             =   690
         Width           =   2535
      End
      Begin VB.Label lblName 
         Caption         =   "&Name:"
         Height          =   195
         Left            =   120
         TabIndex        =   5
         Top             =   735
         Width           =   855
      End
      Begin VB.TextBox txtNumber 
         Alignment       =   1  'Right Justify
         Height          =   315
         Left            =   1080
         MaxLength       =   5
         TabIndex        =   4
         Top             =   285
         Width           =   975
      End
      Begin VB.Label lblNumber 
         Caption         =   "N&umber:"
         Height          =   195
         Left            =   120
         TabIndex        =   3
         Top             =   330
         Width           =   855
      End
   End
   Begin VB.ListBox lstAccounts 
      Height          =   3765
      IntegralHeight  =   0   'False
      Left            =   120
      TabIndex        =   1
      Top             =   300
      Width           =   4215
   End
   Begin VB.Label lblList 
      Caption         =   "&Chart of accounts:"
      Height          =   195
      Left            =   120
      TabIndex        =   0
      Top             =   60
      Width           =   2535
   End
End
Attribute VB_Name = "frmAccounts"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
Option Compare Text

' The chart of accounts: a list on the left, the details of one account on the right.

Private mAccount As clsAccount
Private mblnFilling As Boolean, mblnChanged As Boolean

'***************************************************************************
'*  Name         : ShowAccounts
'*  Description  : Fills the list and selects an account
'*  Parameters   : Optional Selected - Long = 0
'*  Returns      : Nothing
'*  Author       : Ann Hallam
'*  Date         : 27 Jan 2003
'***************************************************************************

Public Sub ShowAccounts(Optional ByVal Selected As Long = 0)

On Error GoTo errHandler
    Dim objAccount As clsAccount
    Dim intRow As Long

    mblnFilling = True
    lstAccounts.Clear
    For Each objAccount In gLedger.Accounts
        lstAccounts.AddItem objAccount.Number & vbTab & objAccount.Name & vbTab & FormatAmount(objAccount.Balance)
        lstAccounts.ItemData(lstAccounts.NewIndex) = objAccount.Number
        If objAccount.Number = Selected Then intRow = lstAccounts.NewIndex
    Next objAccount
    mblnFilling = False
    If lstAccounts.ListCount > 0 Then lstAccounts.ListIndex = intRow

Exit Sub
 
errHandler:
 
    With frmVBError
        Err.Source = Err.Source & "." & TypeName(Me) & ".ShowAccounts"
        Set .Error = Err
     
        .Show vbModal
        Set frmVBError = Nothing
    End With
 
End Sub

Private Sub ShowDetails()
    mblnFilling = True
    With mAccount
        txtNumber.Text = .Number
        txtName.Text = .Name
        SelectKind .Kind
        optSide(0).Value = .IsDebitSide
        optSide(1).Value = Not .IsDebitSide
        chkActive.Value = IIf(.Active, vbChecked, vbUnchecked)
        txtNote.Text = .Note
        lblBalance.Caption = FormatAmount(.Balance, True, gOptions.Symbol)
        lblBalance.ForeColor = IIf(.Balance < 0, COLOUR_CREDIT, COLOUR_DEBIT)
        txtNumber.Locked = (.Postings > 0)
        cboKind.Locked = (.Postings > 0)
        cmdDelete.Enabled = (.Postings = 0)
    End With
    mblnFilling = False
    SetChanged False
End Sub

Private Sub SelectKind(ByVal Kind As AccountKind)
    Dim intItem As Integer

    For intItem = 0 To cboKind.ListCount - 1
        If cboKind.ItemData(intItem) = Kind Then cboKind.ListIndex = intItem: Exit For
    Next intItem
End Sub

Private Sub SetChanged(ByVal Value As Boolean)
    If mblnFilling Then Exit Sub
    mblnChanged = Value
    cmdSave.Enabled = Value
    cmdSave.Default = Value
End Sub

'***************************************************************************
'*  Name         : StoreDetails
'*  Description  : Takes over what stands in the fields
'*  Parameters   : None
'*  Returns      : Boolean
'*  Author       : Ann Hallam
'*  Date         : 27 Jan 2003
'***************************************************************************

Private Function StoreDetails() As Boolean

On Error GoTo errHandler
    Dim lngNumber As Long

    lngNumber = Val(txtNumber.Text)
    If Len(Trim$(txtName.Text)) = 0 Then
        MsgBox "An account needs a name.", vbExclamation, APP_TITLE
        txtName.SetFocus
        Exit Function
    End If

    If mAccount Is Nothing Then
        Set mAccount = gLedger.Accounts.Add(lngNumber, txtName.Text, cboKind.ItemData(cboKind.ListIndex))
    ElseIf mAccount.Number <> lngNumber Then
        gLedger.Accounts.Remove mAccount.Number
        Set mAccount = gLedger.Accounts.Add(lngNumber, txtName.Text, cboKind.ItemData(cboKind.ListIndex))
    End If
    With mAccount
        .Name = txtName.Text
        .Kind = cboKind.ItemData(cboKind.ListIndex)
        .Active = (chkActive.Value = vbChecked)
        .Note = txtNote.Text
    End With
    StoreDetails = True

Exit Function
 
errHandler:
 
    With frmVBError
        Err.Source = Err.Source & "." & TypeName(Me) & ".StoreDetails"
        Set .Error = Err
     
        .Show vbModal
        Set frmVBError = Nothing
    End With
 
End Function

Private Sub cboKind_Click()
    Dim strUnused As String

    If mblnFilling Then Exit Sub
    Select Case cboKind.ItemData(cboKind.ListIndex)
    Case akAsset, akExpense: optSide(0).Value = True
    Case Else: optSide(1).Value = True
    End Select
    SetChanged True
End Sub

Private Sub chkActive_Click()
    SetChanged True
End Sub

Private Sub cmdClose_Click()
    Unload Me
End Sub

Private Sub cmdDelete_Click()

On Error GoTo errHandler
    If MsgBox("Delete account " & mAccount.Name & "?", vbYesNo + vbQuestion, APP_TITLE) = vbNo Then Exit Sub
    gLedger.Accounts.Remove mAccount.Number
    ShowAccounts

Exit Sub
 
errHandler:
 
    With frmVBError
        Err.Source = Err.Source & "." & TypeName(Me) & ".cmdDelete_Click"
        Set .Error = Err
     
        .Show vbModal
        Set frmVBError = Nothing
    End With
 
End Sub

Private Sub cmdNew_Click()
    Set mAccount = Nothing
    mblnFilling = True
    txtNumber.Text = "": txtName.Text = "": txtNote.Text = ""
    txtNumber.Locked = False: cboKind.Locked = False
    cboKind.ListIndex = 0
    chkActive.Value = vbChecked
    mblnFilling = False
    txtNumber.SetFocus
End Sub

Private Sub cmdSave_Click()
    If StoreDetails() Then ShowAccounts mAccount.Number
End Sub

Private Sub Form_Activate()
    If lstAccounts.ListCount = 0 Then ShowAccounts
End Sub

Private Sub Form_Load()
    SetTabStops lstAccounts, 30, 130
    ShowAccounts
End Sub

Private Sub Form_Resize()
    Dim sngHeight As Single

    If WindowState = vbMinimized Then Exit Sub
    sngHeight = ScaleHeight - 2 * lstAccounts.Top
    If sngHeight > 1200 Then lstAccounts.Height = sngHeight
End Sub

Private Sub Form_Unload(Cancel As Integer)
    If mblnChanged Then
        Select Case MsgBox("Keep the changes to this account?", vbYesNoCancel + vbQuestion, APP_TITLE)
        Case vbYes
            Cancel = Not StoreDetails()
        Case vbCancel
            Cancel = True
        End Select
    End If
    If Cancel = 0 Then Set mAccount = Nothing
End Sub

Private Sub lstAccounts_Click()
    If mblnFilling Or lstAccounts.ListIndex < 0 Then Exit Sub
    Set mAccount = gLedger.Accounts(lstAccounts.ItemData(lstAccounts.ListIndex))
    ShowDetails
End Sub

Private Sub lstAccounts_DblClick()
    txtName.SetFocus
End Sub

Private Sub optSide_Click(Index As Integer)
    lblSide.Caption = IIf(Index = 0, "A positive balance is a debit.", "A positive balance is a credit.")
End Sub

Private Sub txtName_Change()
    SetChanged True
End Sub

Private Sub txtNote_Change()
    SetChanged True
End Sub

Private Sub txtNumber_Change()
    SetChanged True
End Sub

Private Sub txtNumber_KeyPress(KeyAscii As Integer)
    If KeyAscii >= vbKeySpace And InStr("0123456789", Chr$(KeyAscii)) = 0 Then KeyAscii = 0: Beep
End Sub

Private Sub txtNumber_Validate(Cancel As Boolean)
    If txtNumber.Locked Then Exit Sub
    If Val(txtNumber.Text) < 1 Or Val(txtNumber.Text) > 99999 Then
        MsgBox "Numbers run from 1 to 99999.", vbExclamation, APP_TITLE
        Cancel = True
    End If
End Sub
