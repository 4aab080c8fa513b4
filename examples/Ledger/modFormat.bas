Attribute VB_Name = "modFormat"
Option Explicit
Option Compare Text
Option Private Module

' Numbers, dates and texts as people read them. The files hold something else: see clsLedger.

Public Const CURRENCY_EURO = "€", CURRENCY_POUND = "£"
Private Const WÄHRUNG As String = CURRENCY_EURO
Private Const GROUP_MARK = ".", DECIMAL_MARK = ","

'***************************************************************************
'*  Name         : FormatAmount
'*  Description  : An amount with separators and the currency symbol
'*  Parameters   : Amount - Currency, Optional WithSymbol - Boolean = False,
'*               : Optional Symbol - String = WÄHRUNG
'*  Returns      : String
'*  Author       : Jörg Weiß
'*  Date         : 21 Jan 2003
'***************************************************************************

Public Function FormatAmount(ByVal Amount As Currency, Optional ByVal WithSymbol As Boolean = False, _
        Optional ByVal Symbol As String = WÄHRUNG) As String
    Dim strText As String
    Dim strCents As String

    strText = Format$(Abs(Amount), "#,##0." & String$(gOptions.DecimalPlaces, "0"))
    If Right$(strText, 1) = "." Or Right$(strText, 1) = "," Then strText = Left$(strText, Len(strText) - 1)
    If Amount < 0 Then strText = "-" & strText
    If WithSymbol Then
        If Symbol = CURRENCY_POUND Then
            strText = Symbol & strText
        Else
            strText = strText & " " & Symbol
        End If
    End If
    FormatAmount = strText
End Function

'***************************************************************************
'*  Name         : ParseAmount
'*  Description  : Reads an amount as people type it: 1.234,50 or 1,234.50 or 12,5-
'*  Parameters   : Text - String, Amount - Currency
'*  Returns      : Boolean
'*  Author       : Jörg Weiß
'*  Date         : 21 Jan 2003
'***************************************************************************

Public Function ParseAmount(ByVal Text As String, Amount As Currency) As Boolean
    Dim lngComma As Long, lngPoint As Long
    Dim blnMinus As Boolean

    On Error Resume Next
    Text = Trim$(Replace(Replace(Text, CURRENCY_EURO, ""), CURRENCY_POUND, ""))
    If Len(Text) = 0 Then Exit Function
    If Right$(Text, 1) = "-" Then blnMinus = True: Text = Left$(Text, Len(Text) - 1)

    lngComma = InStrRev(Text, DECIMAL_MARK)
    lngPoint = InStrRev(Text, GROUP_MARK)
    If lngComma > lngPoint Then
        Text = Replace(Replace(Text, GROUP_MARK, ""), DECIMAL_MARK, ".")
    Else
        Text = Replace(Text, DECIMAL_MARK, "")
    End If
    If Not Text Like "*[!0-9.+-]*" Then
        Err.Clear
        Amount = CCur(Val(Text))
        If blnMinus Then Amount = -Amount
        ParseAmount = (Err.Number = 0)
    End If
    On Error GoTo 0
End Function

Public Function PadRight$(ByVal Text As String, ByVal Width As Integer)
    PadRight$ = Left$(Text & Space$(Width), Width)
End Function

Public Function PadLeft$(ByVal Text As String, ByVal Width As Integer)
    If Len(Text) >= Width Then PadLeft$ = Text: Exit Function
    PadLeft$ = Space$(Width - Len(Text)) & Text
End Function

'*****************************************************
' Reads a date in one of these forms:
'   12.3.2003   12/3/2003   12-3-03   12.3.  (this year)
' Day first, always.
'*****************************************************
Public Function ParseDate(ByVal Text As String, Result As Date) As Boolean
    Dim strPart() As String, intYear As Integer

    On Error GoTo NotADate
    Text = Replace(Replace(Trim$(Text), "/", "."), "-", ".")
    If Right$(Text, 1) = "." Then Text = Left$(Text, Len(Text) - 1)
    strPart = Split(Text, ".")
    Select Case UBound(strPart)
    Case 1
        intYear = Year(Now)
    Case 2
        intYear = Val(strPart(2))
        If intYear < 50 Then
            intYear = intYear + 2000
        ElseIf intYear < 100 Then
            intYear = intYear + 1900
        End If
    Case Else
        Exit Function
    End Select
    Result = DateSerial(intYear, Val(strPart(1)), Val(strPart(0)))
    ' DateSerial takes the 31st of February for the 3rd of March
    ParseDate = (Day(Result) = Val(strPart(0)) And Month(Result) = Val(strPart(1)))
    Exit Function

NotADate:
    ParseDate = False
End Function

Public Function FormatIso(ByVal OnDate As Date) As String
    FormatIso = Format$(OnDate, "yyyy-mm-dd")
End Function

Public Function ParseIso(ByVal Text As String) As Date
    ParseIso = DateSerial(Val(Left$(Text, 4)), Val(Mid$(Text, 6, 2)), Val(Mid$(Text, 9, 2)))
End Function

Public Function PeriodName(ByVal Period As Integer) As String
    Select Case Period
    Case 1 To 12
        PeriodName = Format$(DateSerial(2000, Period, 1), "mmmm")
    Case 13
        PeriodName = "Closing"
    Case Else
        PeriodName = "Opening"
    End Select
End Function

Private Function OldPeriodName(ByVal Period As Integer) As String
    OldPeriodName = Mid$("JanFebMarAprMayJunJulAugSepOctNovDec", Period * 3 - 2, 3)
End Function

' Umlauts and accents as plain letters, for the bank's format
Public Function PlainLetters(ByVal Text As String) As String
    Const FROM_LETTERS = "ÀÂÉÈÊÇÔÛàâéèêçôû"
    Const TO_LETTERS = "AAEEECOUaaeeecou"
    Dim lngPos As Long

    Text = Replace(Text, "ä", "ae", , , vbBinaryCompare)
    Text = Replace(Text, "ö", "oe", , , vbBinaryCompare)
    Text = Replace(Text, "ü", "ue", , , vbBinaryCompare)
    Text = Replace(Text, "Ä", "Ae", , , vbBinaryCompare)
    Text = Replace(Text, "Ö", "Oe", , , vbBinaryCompare)
    Text = Replace(Text, "Ü", "Ue", , , vbBinaryCompare)
    Text = Replace(Text, "ß", "ss", , , vbBinaryCompare)
    For lngPos = 1 To Len(FROM_LETTERS)
        Text = Replace(Text, Mid$(FROM_LETTERS, lngPos, 1), Mid$(TO_LETTERS, lngPos, 1), , , vbBinaryCompare)
    Next lngPos
    PlainLetters = Text
End Function
