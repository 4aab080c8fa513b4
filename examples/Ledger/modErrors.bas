Attribute VB_Name = "modErrors"
Option Explicit

Public Enum LedgerError
    leFirst = vbObjectError + 512
    leUnbalanced
    leTooFewLines
    leBadDate
    leNoAccount
    leNoEntry
    leDuplicate
    leBadFile
    leLocked
    leInUse
End Enum

#If LEDGER_TRACE Then
Private mintDepth As Integer
#End If

Public Function ErrorText(ByVal Number As LedgerError) As String
    Select Case Number
        Case leUnbalanced:   ErrorText = "The entry does not balance."
        Case leTooFewLines:  ErrorText = "An entry needs two lines at least."
        Case leBadDate:      ErrorText = "The date lies outside the ledger."
        Case leNoAccount:    ErrorText = "There is no such account."
        Case leNoEntry:      ErrorText = "There is no such entry."
        Case leDuplicate:    ErrorText = "This number is in use already."
        Case leBadFile:      ErrorText = "This is no ledger file, or it is damaged."
        Case leLocked:       ErrorText = "The period is closed."
        Case leInUse:        ErrorText = "The account holds postings and cannot be deleted."
        Case Else:           ErrorText = "Unknown error " & Number & "."
    End Select
End Function

'***************************************************************************
'*  Name         : RaiseError
'*  Description  : Raises one of the ledger's own errors
'*  Parameters   : Number - LedgerError, Source - String,
'*               : Optional Detail - Variant
'*  Returns      : Nothing
'*  Author       : Ann Hallam
'*  Date         : 15 Jan 2003
'***************************************************************************

Public Sub RaiseError(ByVal Number As LedgerError, ByVal Source As String, Optional ByVal Detail As Variant)
    Dim strText As String

    strText = ErrorText(Number)
    If Not IsMissing(Detail) Then strText = strText & " (" & Detail & ")"
    Err.Raise Number, APP_TITLE & "." & Source, strText
End Sub

' Never fails: a log that cannot be written is no reason to stop.
Public Sub LogError(ByVal Source As String, Optional ByVal Number As Long, Optional ByVal Text As String)
    Dim intFile As Integer

    On Error Resume Next
    intFile = FreeFile
    Open LogFile() For Append As #intFile
    Print #intFile, Format$(Now, "yyyy-mm-dd hh:nn:ss"); Tab(22); Source; Tab(52); Number; " "; Text
    Close #intFile
End Sub

#If LEDGER_TRACE Then
Public Sub TraceIn(ByVal Name As String, Optional ByVal Detail As String)
    mintDepth = mintDepth + 1
    Debug.Print Space$(mintDepth * 2); Name; " "; Detail
End Sub

Public Sub TraceOut(ByVal Name As String)
    If mintDepth > 0 Then mintDepth = mintDepth - 1
    Debug.Print Space$(mintDepth * 2); "("; Name; ")"
End Sub
#Else
Public Sub TraceIn(ByVal Name As String, Optional ByVal Detail As String)
End Sub

Public Sub TraceOut(ByVal Name As String)
End Sub
#End If

' The evaluation copy stops at fifty accounts.
#If LEDGER_EVAL Then
Public Function MayAddAccount(ByVal Count As Integer) As Boolean
#Else
Public Function MayAddAccount(ByVal Count As Long) As Boolean
#End If
#If LEDGER_EVAL Then
    MayAddAccount = (Count < 50)
#Else
    MayAddAccount = (Count < 99999)
#End If
End Function

Private Sub NotCalledAnyMore()
    Dim lngA As Long, lngB As Long
    lngA = lngB
    Rem LogError "old", lngA
End Sub
