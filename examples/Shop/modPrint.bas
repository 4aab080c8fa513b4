Attribute VB_Name = "modPrint"
Option Explicit

' The receipt

Private Const RECEIPT_WIDTH = 40
Private Const RULE_CHAR = "-"

#If Win32 Then
Private Declare Function MessageBeep Lib "user32" (ByVal wType As Long) As Long
#Else
Private Declare Function MessageBeep Lib "User" (ByVal wType As Integer) As Integer
#End If

Public Function Receipt(ByVal Order As clsOrder) As String
    Dim objLine As clsOrderLine
    Dim strText As String, strName As String

    strText = Centred(SHOP_NAME) & vbCrLf & Centred("Breite Straße 12, 50667 Köln") & vbCrLf & _
        String$(RECEIPT_WIDTH, RULE_CHAR) & vbCrLf
    For Each objLine In Order.Lines
        strName = objLine.Quantity & " x " & objLine.Article.Name
        strText = strText & PadRight(strName, RECEIPT_WIDTH - 12) & PriceText(objLine.Amount) & vbCrLf
        If objLine.Discount > 0# Then strText = strText & "    less " & Format$(objLine.Discount, "0 %") & vbCrLf
    Next objLine
    strText = strText & String$(RECEIPT_WIDTH, RULE_CHAR) & vbCrLf & _
        PadRight("Total", RECEIPT_WIDTH - 12) & PriceText(Order.Total) & vbCrLf & _
        PadRight("VAT in it", RECEIPT_WIDTH - 12) & PriceText(Order.Vat) & vbCrLf
    If Order.Saved > 0 Then strText = strText & PadRight("You saved", RECEIPT_WIDTH - 12) & PriceText(Order.Saved) & vbCrLf
    Receipt = strText
End Function

' No printer is no reason to lose the order: the text goes to the clipboard then
Public Sub PrintReceipt(ByVal Order As clsOrder, Optional ByVal Copies As Integer = 1)
    Dim intCopy As Integer, sngOld!, varRow

    On Error Resume Next
    sngOld! = Printer.FontSize
    Printer.FontName = "Courier New": Printer.FontSize = 9
    If Err.Number <> 0 Then
        Clipboard.Clear: Clipboard.SetText Receipt(Order)
        MessageBeep 0
        Exit Sub
    End If
    For intCopy = 1 To Copies
        For Each varRow In Split(Receipt(Order), vbCrLf)
            Printer.Print Tab(5); varRow
        Next
        If intCopy < Copies Then Printer.NewPage
    Next intCopy
    Printer.FontSize = sngOld!
    Printer.EndDoc
End Sub

Private Function Centred$(ByVal Text As String)
    Centred$ = Space$((RECEIPT_WIDTH - Len(Text)) \ 2) & Text
End Function
