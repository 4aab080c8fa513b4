VERSION 5.00
Begin VB.Form frmCustomer 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Customer"
   ClientHeight    =   2475
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4590
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   2475
   ScaleWidth      =   4590
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.CommandButton cmdCancel 
      Cancel          =   -1  'True
      Caption         =   "Cancel"
      Height          =   345
      Left            =   3300
      TabIndex        =   8
      Top             =   2010
      Width           =   1155
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   345
      Left            =   1980
      TabIndex        =   7
      Top             =   2010
      Width           =   1155
   End
   Begin VB.Label lblTotal 
      Alignment       =   1  'Right Justify
      Caption         =   "To pay: 0,00 €"
      BeginProperty Font 
         Name            =   "MS Sans Serif"
         Size            =   8.25
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      Height          =   195
      Left            =   120
      TabIndex        =   6
      Top             =   1560
      Width           =   4335
   End
   Begin VB.TextBox txtCustomer 
      Height          =   315
      Index           =   2
      Left            =   1200
      MaxLength       =   50
      TabIndex        =   5
      Top             =   1035
      Width           =   3255
   End
   Begin VB.Label lblCustomer 
      Caption         =   "&Town:"
      Height          =   195
      Index           =   2
      Left            =   120
      TabIndex        =   4
      Top             =   1080
      Width           =   975
   End
   Begin VB.TextBox txtCustomer 
      Height          =   315
      Index           =   1
      Left            =   1200
      MaxLength       =   50
      TabIndex        =   3
      Top             =   585
      Width           =   3255
   End
   Begin VB.Label lblCustomer 
      Caption         =   "&Street:"
      Height          =   195
      Index           =   1
      Left            =   120
      TabIndex        =   2
      Top             =   630
      Width           =   975
   End
   Begin VB.TextBox txtCustomer 
      Height          =   315
      Index           =   0
      Left            =   1200
      MaxLength       =   50
      TabIndex        =   1
      Top             =   135
      Width           =   3255
   End
   Begin VB.Label lblCustomer 
      Caption         =   "&Name:"
      Height          =   195
      Index           =   0
      Left            =   120
      TabIndex        =   0
      Top             =   180
      Width           =   975
   End
End
Attribute VB_Name = "frmCustomer"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private mblnOK As Boolean

Private Enum CustomerField
    cfName
    cfStreet
    cfTown
    cfLast = cfTown
End Enum

'***************************************************************************
'*  Name         : Ask
'*  Description  : Asks for name and address, and writes them to the order
'*  Parameters   : Order - clsOrder
'*  Returns      : Boolean
'*  Author       : René Dubois
'*  Date         : 16 Sep 2004
'***************************************************************************

Public Function Ask(ByVal Order As clsOrder) As Boolean

On Error GoTo errHandler
    Dim intField As Integer

    mblnOK = False
    lblTotal.Caption = "To pay: " & Trim$(PriceText(Order.Total))
    Me.Show vbModal
    If mblnOK Then
        Order.Customer = ""
        For intField = cfName To cfLast
            Order.Customer = Order.Customer & ProperName(Trim$(txtCustomer(intField).Text)) & vbCrLf
        Next intField
    End If
    Ask = mblnOK

Exit Function
 
errHandler:
 
    Err.Source = Err.Source & "." & TypeName(Me) & ".Ask"

    Err.Raise Err.Number, Err.Source, Err.Description
 
End Function

Private Sub cmdCancel_Click()
    Hide
End Sub

Private Sub cmdOK_Click()
    Dim intField As Integer

    For intField = cfName To cfLast
        If IsBlank(txtCustomer(intField).Text) Then
            MsgBox "Please fill in " & Listed("name", "street", "town") & ".", vbExclamation, SHOP_NAME
            txtCustomer(intField).SetFocus
            Exit Sub
        End If
    Next
    mblnOK = True
    Hide
End Sub

Private Sub txtCustomer_GotFocus(Index As Integer)
    txtCustomer(Index).SelStart = 0: txtCustomer(Index).SelLength = Len(txtCustomer(Index).Text)
End Sub

Private Sub txtCustomer_Validate(Index As Integer, Cancel As Boolean)
    If Index = cfTown Then Cancel = Not IsBlank(txtCustomer(Index).Text) And Not txtCustomer(Index).Text Like "##### *"
End Sub
