VERSION 5.00
Begin VB.UserControl AmountBox 
   ClientHeight    =   330
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   1695
   PropertyPages   =   "AmountBox.ctx":0000
   ScaleHeight     =   330
   ScaleWidth      =   1695
   ToolboxBitmap   =   "AmountBox.ctx":000F
   Begin VB.Label lblSymbol 
      AutoSize        =   -1  'True
      Caption         =   "€"
      Height          =   195
      Left            =   1410
      TabIndex        =   3
      Top             =   60
      Width           =   225
   End
   Begin VB.CommandButton cmdStep 
      Caption         =   "-"
      Height          =   165
      Index           =   1
      Left            =   1110
      TabIndex        =   2
      TabStop         =   0   'False
      Top             =   165
      Width           =   240
   End
   Begin VB.CommandButton cmdStep 
      Caption         =   "+"
      Height          =   165
      Index           =   0
      Left            =   1110
      TabIndex        =   1
      TabStop         =   0   'False
      Top             =   0
      Width           =   240
   End
   Begin VB.TextBox txtValue 
      Alignment       =   1  'Right Justify
      Height          =   330
      Left            =   0
      TabIndex        =   0
      Top             =   0
      Width           =   1095
   End
End
Attribute VB_Name = "AmountBox"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = False
Attribute VB_Description = "An amount with its currency symbol."
Attribute VB_Ext_KEY = "PropPageWizardRun" ,"Yes"
Option Explicit

' A text box for amounts: right aligned, with the currency symbol beside it, and two small
' buttons that step by one. The value is a Currency, whatever the text looks like.

Private Const DEF_SYMBOL = "€", DEF_DECIMALS = 2
Private Const STEP_UP = 0, STEP_DOWN = 1

Public Event Change()
Attribute Change.VB_Description = "Raised when the value changes."
Attribute Change.VB_MemberFlags = "200"
Public Event SymbolClick(ByVal Symbol As String)

Private mcurValue As Currency
Private mstrSymbol As String
Private mbytDecimals As Byte
Private mblnReadOnly As Boolean, mblnInside As Boolean

'***************************************************************************
'*
'*  Name         : Value
'*  Description  : The amount itself
'*
'***************************************************************************

Public Property Get Value() As Currency
Attribute Value.VB_Description = "The amount itself."
Attribute Value.VB_ProcData.VB_Invoke_Property = "ppgAmount;Data"
Attribute Value.VB_UserMemId = 0
Attribute Value.VB_MemberFlags = "124"

    Value = mcurValue
End Property

'***************************************************************************
'*
'*  Name         : Value
'*  Description  : The amount itself
'*
'***************************************************************************

Public Property Let Value(ByVal NewValue As Currency)

    If NewValue = mcurValue And Len(txtValue.Text) > 0 Then Exit Property
    mcurValue = NewValue
    ShowValue
    PropertyChanged "Value"
    RaiseEvent Change
End Property

Public Property Get Symbol() As String
Attribute Symbol.VB_Description = "The text beside the amount."
Attribute Symbol.VB_ProcData.VB_Invoke_Property = "ppgAmount;Appearance"
    Symbol = mstrSymbol
End Property

Public Property Let Symbol(ByVal NewValue As String)
    mstrSymbol = NewValue
    lblSymbol.Caption = mstrSymbol
    UserControl_Resize
    PropertyChanged "Symbol"
End Property

Public Property Get Decimals() As Byte
Attribute Decimals.VB_Description = "Digits behind the comma, 0 to 4."
Attribute Decimals.VB_ProcData.VB_Invoke_Property = "ppgAmount;Behavior"
    Decimals = mbytDecimals
End Property

Public Property Let Decimals(ByVal NewValue As Byte)
Attribute Decimals.VB_ProcData.VB_Invoke_PropertyPut = "ppgAmount;Behavior"
    If NewValue > 4 Then Err.Raise 380
    mbytDecimals = NewValue
    ShowValue
    PropertyChanged "Decimals"
End Property

Public Property Get ReadOnly() As Boolean
Attribute ReadOnly.VB_ProcData.VB_Invoke_Property = "ppgAmount;Behavior"
    ReadOnly = mblnReadOnly
End Property

Public Property Let ReadOnly(ByVal NewValue As Boolean)
    mblnReadOnly = NewValue
    txtValue.Locked = NewValue
    cmdStep(STEP_UP).Enabled = Not NewValue
    cmdStep(STEP_DOWN).Enabled = Not NewValue
    PropertyChanged "ReadOnly"
End Property

Public Property Get Enabled() As Boolean
Attribute Enabled.VB_ProcData.VB_Invoke_Property = ";Behavior"
Attribute Enabled.VB_UserMemId = -514
    Enabled = UserControl.Enabled
End Property

Public Property Let Enabled(ByVal NewValue As Boolean)
    UserControl.Enabled = NewValue
    txtValue.Enabled = NewValue
    PropertyChanged "Enabled"
End Property

Public Property Get Font() As StdFont
Attribute Font.VB_UserMemId = -512
    Set Font = txtValue.Font
End Property

Public Property Set Font(ByVal NewValue As StdFont)
    Set txtValue.Font = NewValue
    PropertyChanged "Font"
End Property

Public Property Get hWnd() As Long
Attribute hWnd.VB_UserMemId = -515
    hWnd = UserControl.hWnd
End Property

Public Sub Clear()
Attribute Clear.VB_Description = "Sets the amount to nothing."
    Value = 0
End Sub

Private Sub ShowValue()
    Dim strMask As String

    strMask = "#,##0"
    If mbytDecimals > 0 Then strMask = strMask & "." & String$(mbytDecimals, "0")
    mblnInside = True
    txtValue.Text = Format$(mcurValue, strMask)
    mblnInside = False
End Sub

Private Sub cmdStep_Click(Index As Integer)
    Select Case Index
    Case STEP_UP: Value = mcurValue + 1
    Case STEP_DOWN: Value = mcurValue - 1
    End Select
End Sub

Private Sub lblSymbol_Click()
    RaiseEvent SymbolClick(mstrSymbol)
End Sub

Private Sub txtValue_Change()
    Dim curNew As Currency

    If mblnInside Then Exit Sub
    If ParseAmount(txtValue.Text, curNew) Then
        If curNew <> mcurValue Then
            mcurValue = curNew
            PropertyChanged "Value"
            RaiseEvent Change
        End If
    End If
End Sub

Private Sub txtValue_KeyPress(KeyAscii As Integer)
    If KeyAscii > vbKeySpace Then
        If Not Chr$(KeyAscii) Like "[0-9,.-]" Then KeyAscii = 0
    End If
End Sub

Private Sub txtValue_LostFocus()
    ShowValue
End Sub

Private Sub UserControl_AmbientChanged(PropertyName As String)
    If PropertyName = "BackColor" Then UserControl.BackColor = Ambient.BackColor
End Sub

Private Sub UserControl_InitProperties()
    mstrSymbol = DEF_SYMBOL
    mbytDecimals = DEF_DECIMALS
    Set Font = Ambient.Font
    lblSymbol.Caption = mstrSymbol
    ShowValue
End Sub

Private Sub UserControl_ReadProperties(PropBag As PropertyBag)
    With PropBag
        mbytDecimals = .ReadProperty("Decimals", DEF_DECIMALS)
        Symbol = .ReadProperty("Symbol", DEF_SYMBOL)
        ReadOnly = .ReadProperty("ReadOnly", False)
        Enabled = .ReadProperty("Enabled", True)
        Set Font = .ReadProperty("Font", Ambient.Font)
        Value = .ReadProperty("Value", 0)
    End With
    ShowValue
End Sub

Private Sub UserControl_Resize()
    Dim sngRight As Single

    On Error Resume Next
    sngRight = ScaleWidth - lblSymbol.Width - 30
    lblSymbol.Left = sngRight + 15
    cmdStep(STEP_UP).Move sngRight - 255, 0, 240, ScaleHeight / 2
    cmdStep(STEP_DOWN).Move sngRight - 255, ScaleHeight / 2, 240, ScaleHeight / 2
    txtValue.Move 0, 0, sngRight - 270, ScaleHeight
End Sub

Private Sub UserControl_WriteProperties(PropBag As PropertyBag)
    With PropBag
        .WriteProperty "Decimals", mbytDecimals, DEF_DECIMALS
        .WriteProperty "Symbol", mstrSymbol, DEF_SYMBOL
        .WriteProperty "ReadOnly", mblnReadOnly, False
        .WriteProperty "Enabled", UserControl.Enabled, True
        .WriteProperty "Font", Font, Ambient.Font
        .WriteProperty "Value", mcurValue, 0
    End With
End Sub
