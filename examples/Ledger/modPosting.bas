Attribute VB_Name = "modPosting"
Option Explicit

Private Const VB_MODULE_NAME = ".modPosting" '* Used in Error Handling
Private Const MAX_DIFFERENCE As Currency = 0.005

Public Function EntryBalances(ByVal Entry As clsEntry, _
        Optional ByVal Tolerance As Currency = MAX_DIFFERENCE) As Boolean
    Dim curSum As Currency
    Dim lngLine As Long

    For lngLine = 1 To Entry.LineCount
        curSum = curSum + Entry.LineAmount(lngLine)
    Next lngLine
    EntryBalances = (Abs(curSum) <= Tolerance)
End Function

'***************************************************************************
'*  Name         : PostEntry
'*  Description  : Checks an entry and puts it into the ledger
'*  Parameters   : Ledger - clsLedger, Entry - clsEntry,
'*               : Optional Silent - Boolean = False
'*  Returns      : Boolean
'*  Author       : Ann Hallam
'*  Date         : 12 Mar 2003
'***************************************************************************

Public Function PostEntry(ByVal Ledger As clsLedger, ByVal Entry As clsEntry, _
        Optional ByVal Silent As Boolean = False) As Boolean

On Error GoTo errHandler
    Dim strReason As String
    Dim strCount As Long

    strReason = ReasonNotToPost(Ledger, Entry)
    If Len(strReason) > 0 Then
        If Not Silent Then MsgBox strReason, vbExclamation, APP_TITLE
        Exit Function
    End If

    Entry.Number = NextNumber(Ledger.LastNumber)
    Ledger.Post Entry
    strCount = Entry.LineCount
    PostEntry = True

Exit Function
 
errHandler:
 
    With frmVBError
        Err.Source = Err.Source & VB_MODULE_NAME & ".PostEntry"
        Set .Error = Err
     
        .Show vbModal
        Set frmVBError = Nothing
    End With
 
End Function

'***************************************************************************
'*  Name         : ReasonNotToPost
'*  Description  : The first thing that is wrong with an entry, or the empty text
'*  Parameters   : Ledger - clsLedger, Entry - clsEntry
'*  Returns      : String
'*  Author       : Ann Hallam
'*  Date         : 12 Mar 2003
'***************************************************************************

Private Function ReasonNotToPost(ByVal Ledger As clsLedger, ByVal Entry As clsEntry) As String
    Dim lngLine As Long
    Dim intZero As Integer

    If Entry.LineCount < 2 Then
        ReasonNotToPost = ErrorText(leTooFewLines)
    ElseIf Entry.EntryDate < FIRST_DAY Or Entry.EntryDate > DateAdd("yyyy", 1, Date) Then
        ReasonNotToPost = ErrorText(leBadDate)
    ElseIf Not EntryBalances(Entry) Then
        ReasonNotToPost = ErrorText(leUnbalanced)
    Else
        For lngLine = 1 To Entry.LineCount
            If Not Ledger.Accounts.Exists(Entry.LineAccount(lngLine)) Then
                ReasonNotToPost = ErrorText(leNoAccount) & " (" & Entry.LineAccount(lngLine) & ")"
                Exit For
            End If
        Next lngLine
    End If
End Function

' Numbers run through the whole ledger, not through the period.
' The highest number seen is kept, so that a number never comes twice in one session,
' even when the last entry was taken back.
Private Static Function NextNumber(ByVal LastNumber As Long) As Long
    Dim lngHighest As Long

    If LastNumber > lngHighest Then lngHighest = LastNumber
    lngHighest = lngHighest + 1
    NextNumber = lngHighest
End Function

'***************************************************************************
'*  Name         : ReverseEntry
'*  Description  : Posts the mirror image of an entry
'*  Parameters   : Ledger - clsLedger, Number - Long,
'*               : Optional OnDate - Date
'*  Returns      : clsEntry
'*  Author       : Jörg Weiß
'*  Date         : 02 Apr 2003
'***************************************************************************

Public Function ReverseEntry(ByVal Ledger As clsLedger, ByVal Number As Long, Optional ByVal OnDate As Date) As clsEntry

On Error GoTo errHandler
    Dim objOld As clsEntry
    Dim objNew As clsEntry
    Dim lngLine As Long

    Set objOld = Ledger.Entries.Find(Number)
    If objOld Is Nothing Then RaiseError leNoEntry, "ReverseEntry", Number

    Set objNew = New clsEntry
    With objNew
        .EntryDate = IIf(OnDate = 0, Date, OnDate)
        .Text = "Reversal of " & objOld.Number & ": " & objOld.Text
        For lngLine = 1 To objOld.LineCount
            .AddLine objOld.LineAccount(lngLine), -objOld.LineAmount(lngLine), objOld.LineText(lngLine)
        Next lngLine
    End With

    If PostEntry(Ledger, objNew, True) Then Set ReverseEntry = objNew

Exit Function
 
errHandler:
 
    Err.Source = Err.Source & VB_MODULE_NAME & ".ReverseEntry"

    Err.Raise Err.Number, Err.Source, Err.Description
 
End Function

'***************************************************************************
'*  Name         : SplitVat
'*  Description  : Takes the VAT out of an amount
'*  Parameters   : Gross - Currency what the customer pays, Code - String
'*  Returns      : Nothing
'*  Author       : Jörg Weiß
'*  Date         : 19 Mar 2003
'***************************************************************************

Public Sub SplitVat(ByVal Gross As Currency, ByVal Code As String, Net As Currency, Vat As Currency)
    Dim dblRate As Double

    dblRate = VatRate(Code, Date)
    Net = CCur(RoundCents(Gross / (1# + dblRate)))
    Vat = Gross - Net
End Sub

' Rates as they were on the given day. A code is a country letter and a digit:
' 0 free, 1 full, 2 reduced.
Public Function VatRate(ByVal Code As String, ByVal OnDate As Date) As Double
    Dim intDigit As Integer

    intDigit = Val(Mid$(Code, 2, 1))
    Select Case UCase$(Left$(Code, 1))
    Case "D"
        Select Case intDigit
        Case 1
            If OnDate < #4/1/1998# Then
                VatRate = 0.15
            ElseIf OnDate < #1/1/2007# Then
                VatRate = 0.16
            Else
                VatRate = 0.19
            End If
        Case 2
            VatRate = 0.07
        End Select
    Case "G"
        Select Case intDigit
            Case 1: VatRate = 0.175
            Case 2: VatRate = 0.05
            Case Else: VatRate = 0
        End Select
    Case "F", "B", "L"
        ' no branch there yet
        VatRate = Choose(intDigit + 1, 0#, 0.196, 0.055)
    Case "0" To "9"
        VatRate = 0
    End Select
End Function

' Spreads an amount over n lines without losing a cent: the last one takes the rest
Public Sub SpreadAmount(ByVal Total As Currency, ByVal Parts As Long, Shares() As Currency)
    Dim lngPart As Long, curShare As Currency, curLeft As Currency

    If Parts < 1 Then Exit Sub
    ReDim Shares(1 To Parts)
    curShare = CCur(RoundCents(Total / Parts))
    curLeft = Total
    For lngPart = LBound(Shares) To UBound(Shares) - 1
        Shares(lngPart) = curShare: curLeft = curLeft - curShare
    Next lngPart
    Shares(Parts) = curLeft
End Sub

'***************************************************************************
'*  Name         : QuickPost
'*  Description  : Builds and posts an entry out of account numbers and amounts
'*  Parameters   : Ledger - clsLedger, Text - String,
'*               : ParamArray Pairs() - Variant
'*  Returns      : Boolean
'*  Author       : Jörg Weiß
'*  Date         : 02 Apr 2003
'***************************************************************************

Public Function QuickPost(ByVal Ledger As clsLedger, ByVal Text As String, ParamArray Pairs() As Variant) As Boolean

On Error GoTo errHandler
    Dim objEntry As New clsEntry
    Dim lngPair As Long

    If (UBound(Pairs) - LBound(Pairs) + 1) Mod 2 <> 0 Then RaiseError leTooFewLines, "QuickPost"
    objEntry.EntryDate = Date
    objEntry.Text = Text
    For lngPair = LBound(Pairs) To UBound(Pairs) Step 2
        objEntry.AddLine CLng(Pairs(lngPair)), CCur(Pairs(lngPair + 1)), Text
    Next lngPair
    QuickPost = PostEntry(Ledger, objEntry, True)

Exit Function
 
errHandler:
 
    Err.Source = Err.Source & VB_MODULE_NAME & ".QuickPost"

    Err.Raise Err.Number, Err.Source, Err.Description
 
End Function

'***************************************************************************
'*  Name         : ClosePeriod
'*  Description  : Moves the profit or loss of a period to equity and locks the period
'*  Parameters   : Ledger - clsLedger, EquityAccount - Long
'*  Returns      : Nothing
'*  Author       : Ann Hallam
'*  Date         : 30 Jun 2003
'***************************************************************************

Public Sub ClosePeriod(ByVal Ledger As clsLedger, ByVal EquityAccount As Long)

On Error GoTo errHandler
    Dim objAccount As clsAccount
    Dim objEntry As clsEntry
    Dim curResult As Currency
    Dim lngLines As Long

    Set objEntry = New clsEntry
    objEntry.EntryDate = Date
    objEntry.Text = "Closing of period " & Ledger.Period

    For Each objAccount In Ledger.Accounts
        Select Case objAccount.Kind
        Case akIncome, akExpense
            If objAccount.Balance <> 0 Then
                objEntry.AddLine objAccount.Number, -objAccount.Balance, objEntry.Text
                curResult = curResult + objAccount.Balance
                lngLines = lngLines + 1
            End If
        End Select
    Next objAccount

    If lngLines > 0 Then
        objEntry.AddLine EquityAccount, curResult, objEntry.Text
        If Not PostEntry(Ledger, objEntry) Then Exit Sub
    End If
    Ledger.LockPeriod curResult

Exit Sub
 
errHandler:
 
    With frmVBError
        Err.Source = Err.Source & VB_MODULE_NAME & ".ClosePeriod"
        Set .Error = Err
     
        .Show vbModal
        Set frmVBError = Nothing
    End With
 
End Sub

Private Function IsMonthEnd(ByVal OnDate As Date) As Boolean
    IsMonthEnd = (Day(OnDate + 1) = 1)
End Function

Function RoundCents(ByVal Amount As Double) As Double
    ' Round() rounds 0.125 to 0.12, and an auditor does not
    RoundCents = Fix(Amount * 100# + Sgn(Amount) * 0.5) / 100#
End Function
