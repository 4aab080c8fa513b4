Attribute VB_Name = "modReport"
Option Explicit

Private Const VB_MODULE_NAME = ".modReport" '* Used in Error Handling

Private Type ReportSum
    Debit As Currency
    Credit As Currency
    Rows As Long
End Type

Private mudtSum As ReportSum

'***************************************************************************
'*  Name         : WriteReport
'*  Description  : Writes one of the reports to whatever takes rows
'*  Parameters   : Kind - ReportKind, Ledger - clsLedger,
'*               : Exporter - IExporter, Optional Period - Integer = 0
'*  Returns      : Long
'*  Author       : Jörg Weiß
'*  Date         : 10 Feb 2003
'***************************************************************************

Public Function WriteReport(ByVal Kind As ReportKind, ByVal Ledger As clsLedger, _
        ByVal Exporter As IExporter, Optional ByVal Period As Integer = 0) As Long

On Error GoTo errHandler
    Dim udtEmpty As ReportSum

    mudtSum = udtEmpty
    Select Case Kind
        Case rkTrialBalance
            WriteTrialBalance Ledger, Exporter
        Case rkJournal
            WriteJournal Ledger, Exporter, Period
        Case rkProfitLoss
            WriteProfitLoss Ledger, Exporter
        Case Else
            Exit Function
    End Select
    WriteReport = Exporter.Finish()

Exit Function
 
errHandler:
 
    With frmVBError
        Err.Source = Err.Source & VB_MODULE_NAME & ".WriteReport"
        Set .Error = Err
     
        .Show vbModal
        Set frmVBError = Nothing
    End With
 
End Function

Private Sub WriteTrialBalance(ByVal Ledger As clsLedger, ByVal Exporter As IExporter)
    Dim objAccount As clsAccount
    Dim curDebit As Currency, curCredit As Currency

    Exporter.StartReport "Trial balance", Array("No.", "Account", "Debit", "Credit")
    For Each objAccount In Ledger.Accounts
        With objAccount
            curDebit = 0: curCredit = 0
            If .Balance > 0 Then curDebit = .Balance Else curCredit = -.Balance
            If .Active Or .Balance <> 0 Then
                Exporter.AddRow Array(.Number, .Name, curDebit, curCredit)
                CountRow curDebit, curCredit
            End If
        End With
    Next objAccount
    Exporter.AddRow Array("", "Sum", mudtSum.Debit, mudtSum.Credit), Bold:=True
    If mudtSum.Debit <> mudtSum.Credit Then
        Exporter.AddRow Array("", "Difference!", Empty, mudtSum.Debit - mudtSum.Credit), Bold:=True
    End If
End Sub

Private Sub WriteJournal(ByVal Ledger As clsLedger, ByVal Exporter As IExporter, ByVal Period As Integer)
    Dim objEntry As clsEntry
    Dim lngLine As Long, intUnused As Integer

    Exporter.StartReport "Journal" & IIf(Period > 0, " " & PeriodName(Period), ""), _
        Array("No.", "Date", "Account", "Text", "Amount")
    For Each objEntry In Ledger.Entries
        If Period = 0 Or Month(objEntry.EntryDate) = Period Then
            For lngLine = 1 To objEntry.LineCount
                If lngLine = 1 Then
                    Exporter.AddRow Array(objEntry.Number, objEntry.EntryDate, objEntry.LineAccount(1), objEntry.Text, objEntry.LineAmount(1))
                Else
                    Exporter.AddRow Array("", "", objEntry.LineAccount(lngLine), objEntry.LineText(lngLine), objEntry.LineAmount(lngLine))
                End If
            Next lngLine
        End If
    Next objEntry
End Sub

' Income is a credit, so the signs turn round here: what people see as profit is positive.
Private Sub WriteProfitLoss(ByVal Ledger As clsLedger, ByVal Exporter As IExporter)
    Dim objAccount As clsAccount
    Dim varKind As Variant
    Dim curSum As Currency

    Exporter.StartReport "Profit and loss", Array("No.", "Account", "Amount")
    For Each varKind In Array(akIncome, akExpense)
        curSum = 0@
        For Each objAccount In Ledger.Accounts
            If objAccount.Kind = varKind And objAccount.Balance <> 0 Then
                Exporter.AddRow Array(objAccount.Number, objAccount.Name, -objAccount.Balance)
                curSum = curSum - objAccount.Balance
            End If
        Next
        Exporter.AddRow Array("", KindName(varKind), curSum), True
    Next
    Exporter.AddRow Array("", "Result", -Ledger.SumOfKind(akIncome) - Ledger.SumOfKind(akExpense)), True
End Sub

Private Sub CountRow(ByVal Debit As Currency, ByVal Credit As Currency)
    mudtSum.Debit = mudtSum.Debit + Debit
    mudtSum.Credit = mudtSum.Credit + Credit
    mudtSum.Rows = mudtSum.Rows + 1
End Sub
