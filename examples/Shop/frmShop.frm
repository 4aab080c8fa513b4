VERSION 5.00
Begin VB.Form frmShop 
   BorderStyle     =   1  'Fixed Single
   Caption         =   "Shop"
   ClientHeight    =   5640
   ClientLeft      =   150
   ClientTop       =   720
   ClientWidth     =   9060
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   ScaleHeight     =   5640
   ScaleWidth      =   9060
   StartUpPosition =   2  'CenterScreen
   BeginProperty Font 
      Name            =   "Tahoma"
      Size            =   8.25
      Charset         =   0
      Weight          =   400
      Underline       =   0   'False
      Italic          =   0   'False
      Strikethrough   =   0   'False
   EndProperty
   Begin VB.Timer tmrFind 
      Enabled         =   0   'False
      Interval        =   300
      Left            =   4320
      Top             =   4770
   End
   Begin VB.Label lblState 
      Caption         =   "open"
      Height          =   195
      Left            =   120
      TabIndex        =   17
      Top             =   5280
      Width           =   8835
   End
   Begin VB.CommandButton cmdOrder 
      Caption         =   "&Order"
      Enabled         =   0   'False
      Height          =   345
      Left            =   7740
      TabIndex        =   16
      Top             =   4770
      Width           =   1215
   End
   Begin VB.CommandButton cmdRemove 
      Caption         =   "&Remove"
      Enabled         =   0   'False
      Height          =   345
      Left            =   5160
      TabIndex        =   15
      Top             =   4770
      Width           =   1215
   End
   Begin VB.CommandButton cmdAdd 
      Caption         =   "&Add"
      Default         =   -1  'True
      Height          =   345
      Left            =   1080
      TabIndex        =   14
      Top             =   4770
      Width           =   1215
   End
   Begin VB.VScrollBar vsbQuantity 
      Height          =   375
      Left            =   660
      Max             =   1
      Min             =   99
      TabIndex        =   13
      Top             =   4755
      Value           =   1
      Width           =   255
   End
   Begin VB.Label lblQuantity 
      Alignment       =   2  'Center
      BorderStyle     =   1  'Fixed Single
      Caption         =   "1"
      Height          =   195
      Left            =   120
      TabIndex        =   12
      Top             =   4830
      Width           =   495
   End
   Begin VB.Frame fraBasket 
      Caption         =   "Basket"
      Height          =   4455
      Left            =   5160
      TabIndex        =   4
      Top             =   120
      Width           =   3795
      Begin VB.TextBox txtVoucher 
         Height          =   315
         Left            =   1440
         MaxLength       =   12
         TabIndex        =   11
         Top             =   3960
         Visible         =   0   'False
         Width           =   2235
      End
      Begin VB.CheckBox chkVoucher 
         Caption         =   "&Voucher:"
         Height          =   255
         Left            =   120
         TabIndex        =   10
         Top             =   3990
         Width           =   1215
      End
      Begin VB.Frame fraPay 
         Caption         =   "Payment"
         Height          =   795
         Left            =   120
         TabIndex        =   7
         Top             =   3060
         Width           =   3555
         Begin VB.OptionButton optPay 
            Caption         =   "&Invoice"
            Height          =   255
            Index           =   1
            Left            =   1320
            TabIndex        =   9
            TabStop         =   0   'False
            Top             =   300
            Width           =   1215
         End
         Begin VB.OptionButton optPay 
            Caption         =   "&Cash"
            Height          =   255
            Index           =   0
            Left            =   120
            TabIndex        =   8
            Top             =   300
            Value           =   -1  'True
            Width           =   1095
         End
      End
      Begin VB.Label lblTotal 
         Alignment       =   1  'Right Justify
         Caption         =   "0 pieces"
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
         Left            =   120
         TabIndex        =   6
         Top             =   2760
         Width           =   3555
      End
      Begin VB.ListBox lstBasket 
         Height          =   2400
         Left            =   120
         TabIndex        =   5
         Top             =   300
         Width           =   3555
      End
   End
   Begin VB.ListBox lstArticles 
      Height          =   4080
      Left            =   120
      Sorted          =   -1  'True
      TabIndex        =   3
      ToolTipText     =   "Double click to add"
      Top             =   540
      Width           =   4875
   End
   Begin VB.Label lblArticles 
      Alignment       =   1  'Right Justify
      ForeColor       =   &H80000011&
      Height          =   195
      Left            =   3180
      TabIndex        =   2
      Top             =   165
      Width           =   1815
   End
   Begin VB.TextBox txtFind 
      Height          =   315
      Left            =   780
      TabIndex        =   1
      Top             =   120
      Width           =   2295
   End
   Begin VB.Label lblFind 
      Caption         =   "&Find:"
      Height          =   195
      Left            =   120
      TabIndex        =   0
      Top             =   165
      Width           =   615
   End
   Begin VB.Menu mnuShop 
      Caption         =   "&Shop"
      Begin VB.Menu mnuShopNew 
         Caption         =   "&New order"
         Shortcut        =   ^N
      End
      Begin VB.Menu mnuShopBar 
         Caption         =   "-"
      End
      Begin VB.Menu mnuShopExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuArticle 
      Caption         =   "Article"
      Visible         =   0   'False
      Begin VB.Menu mnuArticleAdd 
         Caption         =   "&Add to the basket"
      End
      Begin VB.Menu mnuArticlePrice 
         Caption         =   "Change &price..."
      End
   End
End
Attribute VB_Name = "frmShop"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private WithEvents mBasket As clsBasket
Attribute mBasket.VB_VarHelpID = -1
Private WithEvents mOrder As clsOrder
Attribute mOrder.VB_VarHelpID = -1

Private mlngShown As Long

'***************************************************************************
'*  Name         : ShowArticles
'*  Description  : Fills the list, with the articles that hold the text only
'*  Parameters   : Optional Find - String
'*  Returns      : Nothing
'*  Author       : René Dubois
'*  Date         : 15 Sep 2004
'***************************************************************************

Private Sub ShowArticles(Optional ByVal Find As String)

On Error GoTo errHandler
    Dim objArticle As clsArticle
    Dim strHits As Integer

    lstArticles.Clear
    For Each objArticle In gcolArticles
        If Len(Find) = 0 Or InStr(1, objArticle.Name, Find, vbTextCompare) > 0 Then
            lstArticles.AddItem ArticleText(objArticle)
        End If
    Next objArticle
    mlngShown = lstArticles.ListCount
    lblArticles.Caption = mlngShown & " of " & gcolArticles.Count & " articles"

Exit Sub
 
errHandler:
 
    Err.Source = Err.Source & "." & TypeName(Me) & ".ShowArticles"

    Err.Raise Err.Number, Err.Source, Err.Description
 
End Sub

Private Sub ShowBasket()
    Dim objLine As clsOrderLine

    lstBasket.Clear
    For Each objLine In mOrder.Lines
        lstBasket.AddItem objLine.Article.Number & vbTab & objLine.Quantity & " x " & objLine.Article.Name & vbTab & PriceText(objLine.Amount)
    Next
    cmdOrder.Enabled = (lstBasket.ListCount > 0)
    cmdRemove.Enabled = False
End Sub

Private Function Chosen(ByVal List As ListBox) As clsArticle
    If List.ListIndex < 0 Then Exit Function
    Set Chosen = gcolArticles(Field(List.List(List.ListIndex), 1, vbTab))
End Function

Private Sub chkVoucher_Click()
    txtVoucher.Visible = (chkVoucher.Value = vbChecked)
End Sub

Private Sub cmdAdd_Click()
    Dim objArticle As clsArticle

    Set objArticle = Chosen(lstArticles)
    If objArticle Is Nothing Then Beep: Exit Sub
    If mBasket.PutIn(objArticle, vsbQuantity.Value) > 0 Then vsbQuantity.Value = 1
    ShowArticles txtFind.Text
End Sub

Private Sub cmdOrder_Click()
    On Error GoTo OrderFailed
    If chkVoucher.Value = vbChecked And Not IsBlank(txtVoucher.Text) Then mOrder.AddRule NewVoucher(txtVoucher.Text, 5)
    If Not frmCustomer.Ask(mOrder) Then GoTo LeaveHere
    mOrder.State = osOrdered
    If optPay(0).Value Then mOrder.State = osPaid
    PrintReceipt mOrder, 2
    NewOrder
LeaveHere:
    Unload frmCustomer
    Exit Sub
OrderFailed:
    MsgBox Err.Description, vbExclamation, SHOP_NAME
    Resume LeaveHere
End Sub

Private Sub NewOrder()
    Set mOrder = New clsOrder
    Set mBasket.Order = mOrder
    mOrder.AddRule NewQuantityRule(10, 0.05)
    ShowBasket
End Sub

Private Sub cmdRemove_Click()
    Dim objArticle As clsArticle

    Set objArticle = Chosen(lstBasket)
    If Not objArticle Is Nothing Then mBasket.TakeOut objArticle.Number
    ShowBasket
    ShowArticles txtFind.Text
End Sub

Private Sub Form_Load()
    Set mBasket = gBasket
    Set mOrder = gBasket.Order
    Caption = SHOP_NAME
    ShowArticles
    ShowBasket
    vsbQuantity_Change
End Sub

Private Sub Form_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    If lstBasket.ListCount = 0 Then Exit Sub
    If MsgBox("There is something in the basket. Leave?", vbYesNo + vbQuestion, SHOP_NAME) = vbNo Then Cancel = True
End Sub

Private Sub Form_Unload(Cancel As Integer)
    Set mOrder = Nothing: Set mBasket = Nothing
    Set gBasket = Nothing: Set gcolArticles = Nothing
End Sub

Private Sub lstArticles_DblClick()
    cmdAdd_Click
End Sub

Private Sub lstArticles_MouseUp(Button As Integer, Shift As Integer, X As Single, Y As Single)
    If Button = vbRightButton Then PopupMenu mnuArticle, , , , mnuArticleAdd
End Sub

Private Sub lstBasket_Click()
    cmdRemove.Enabled = (lstBasket.ListIndex >= 0)
End Sub

Private Sub mBasket_Changed(ByVal Total As Currency, ByVal Pieces As Long)
    lblTotal.Caption = Pieces & " pieces, " & Trim$(PriceText(Total))
    ShowBasket
End Sub

Private Sub mBasket_OutOfStock(ByVal Article As clsArticle, Quantity As Long)
    If Article.Stock < 1 Then
        MsgBox Article.Name & " is sold out.", vbInformation, SHOP_NAME
        Quantity = 0
    ElseIf MsgBox("Only " & Article.Stock & " left. Take these?", vbYesNo + vbQuestion, SHOP_NAME) = vbYes Then
        Quantity = Article.Stock
    Else
        Quantity = 0
    End If
End Sub

Private Sub mnuArticleAdd_Click()
    cmdAdd_Click
End Sub

Private Sub mnuArticlePrice_Click()
    Dim objArticle As clsArticle, strPrice As String

    Set objArticle = Chosen(lstArticles)
    If objArticle Is Nothing Then Exit Sub
    strPrice = InputBox("New price in €:", SHOP_NAME, objArticle.Price)
    If IsNumeric(strPrice) Then objArticle.Price = CCur(strPrice)
    ShowArticles txtFind.Text
End Sub

Private Sub mnuShopExit_Click()
    Unload Me
End Sub

Private Sub mnuShopNew_Click()
    NewOrder
End Sub

Private Sub mOrder_StateChanged(ByVal NewState As OrderState, ByVal OldState As OrderState)
    Static intOrders As Integer

    If NewState = osOrdered Then intOrders = intOrders + 1
    lblState.Caption = Choose(NewState + 1, "open", "ordered", "paid") & ", " & intOrders & " today"
End Sub

Private Sub tmrFind_Timer()
    tmrFind.Enabled = False
    ShowArticles txtFind.Text
End Sub

Private Sub txtFind_Change()
    ' wait until nobody types any more
    tmrFind.Enabled = False
    tmrFind.Enabled = True
End Sub

Private Sub vsbQuantity_Change()
    lblQuantity.Caption = CStr(vsbQuantity.Value)
End Sub
