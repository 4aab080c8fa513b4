Attribute VB_Name = "modShop"
Option Explicit

' Start-up of the shop window, and the list of articles

Public Const SHOP_NAME = "Teeladen Grünwald", ARTICLE_FILE = "Articles.txt"
Public Const MAX_ARTICLES = 500

Public gcolArticles As Collection
Public gBasket As clsBasket
Private mblnDemo As Boolean

Public Sub Main()
    On Error GoTo Problem

    Set gcolArticles = New Collection
    Set gBasket = New clsBasket
    mblnDemo = SameText(Trim$(Command$), "/demo")
    If Not LoadArticles(App.Path & "\" & ARTICLE_FILE) Or mblnDemo Then LoadDemo
    gBasket.Order.AddRule NewQuantityRule(10, 0.05)
    gBasket.Order.AddRule NewVoucher("TEE2004", 5)
    frmShop.Show
    Exit Sub

Problem:
    MsgBox "The shop cannot open: " & Err.Description & " (" & Hex$(Err.Number) & ")", vbCritical, SHOP_NAME
End Sub

'***************************************************************************
'*  Name         : LoadArticles
'*  Description  : Reads the articles; lines that are no articles are counted and left out
'*  Parameters   : FileName - String
'*  Returns      : Boolean
'*  Author       : René Dubois
'*  Date         : 14 Sep 2004
'***************************************************************************

Public Function LoadArticles(ByVal FileName As String) As Boolean
    Dim objArticle As clsArticle
    Dim intFile As Integer, strRow As String, lngBad As Long

    If Len(Dir$(FileName)) = 0 Then Exit Function
    intFile = FreeFile
    Open FileName For Input As #intFile
    Do Until EOF(intFile) Or gcolArticles.Count >= MAX_ARTICLES
        Line Input #intFile, strRow
        If Left$(strRow, 1) <> "#" Then
            Set objArticle = New clsArticle
            If objArticle.Parse(strRow) Then
                gcolArticles.Add objArticle, objArticle.Number
            Else
                lngBad = lngBad + 1
            End If
        End If
    Loop
    Close #intFile
    LoadArticles = (gcolArticles.Count > 0)
End Function

Private Sub LoadDemo()
    Dim varRow As Variant, objArticle As clsArticle

    For Each varRow In Array("D01;Darjeeling, first flush;8.90;40;2", "A07;Assam Tüte 250 g;5.40;25;2", _
            "E11;Earl Grey;4.20;12;2", "K02;Teekanne groß;19.95;3;1", "S05;Sieb;3.10;7;1")
        Set objArticle = New clsArticle
        If objArticle.Parse(varRow) Then
            ' the same number twice: the first one stays
            On Error Resume Next
            gcolArticles.Add objArticle, objArticle.Number
            On Error GoTo 0
        End If
    Next varRow
End Sub

Public Function ArticleText(ByVal Article As clsArticle) As String
    With Article
        ArticleText = .Number & vbTab & PadRight(.Name, 28) & vbTab & PriceText(.Price)
        If .Stock < 1 Then ArticleText = ArticleText & "  (sold out)"
    End With
End Function
