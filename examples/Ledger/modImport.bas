Attribute VB_Name = "modImport"
Option Explicit

' Bank statements. Written in one night, and it looks like it.

Private Const VB_MODULE_NAME = ".modImport" '* Used in Error Handling
Private Const FIELD_DATE = 0, FIELD_TEXT = 1, FIELD_AMOUNT = 2
Public Const IMPORT_FILTER = "Bank statements (*.csv;*.txt)|*.csv;*.txt|All files|*.*"

Dim mlngSkipped As Long
Dim mcolRule As Collection

Public Function ImportStatement(ByVal Ledger As clsLedger, ByVal FileName As String, ByVal BankAccount As Long) As Long
  Dim intFile As Integer
  Dim strLine As String
    Dim strField() As String
      Dim datDay As Date
  Dim curAmount As Currency
  Dim objEntry As clsEntry

  On Error GoTo Failed
  mlngSkipped = 0
  intFile = FreeFile
  Open FileName For Input As #intFile
  While Not EOF(intFile)
  Line Input #intFile, strLine
    If Len(Trim$(strLine)) > 0 Then
      strField = SplitQuoted(strLine, ";")
        If UBound(strField) >= FIELD_AMOUNT Then
     If ParseDate(strField(FIELD_DATE), datDay) And ParseAmount(strField(FIELD_AMOUNT), curAmount) Then
         Set objEntry = New clsEntry
         With objEntry
             .EntryDate = datDay
         .Text = strField(FIELD_TEXT)
         .AddLine BankAccount, curAmount, strField(FIELD_TEXT)
             .AddLine AccountFor(strField(FIELD_TEXT), curAmount), -curAmount, strField(FIELD_TEXT)
         End With
            If PostEntry(Ledger, objEntry, True) Then
      ImportStatement = ImportStatement + 1
            Else
            mlngSkipped = mlngSkipped + 1
            End If
          Else
         mlngSkipped = mlngSkipped + 1
     End If
        End If
    End If
  Wend
  Close #intFile
  Exit Function

Failed:
  LogError VB_MODULE_NAME & ".ImportStatement", Err.Number, Err.Description
  If intFile <> 0 Then Close #intFile
  MsgBox "The statement could not be read." & vbCrLf & vbCrLf & Err.Description, vbExclamation, APP_TITLE
End Function

' the account on the other side: a rule, else receivables or payables
Private Function AccountFor(ByVal Text As String, ByVal Amount As Currency) As Long
  Dim varRule As Variant
    Dim lngPos As Long

    If mcolRule Is Nothing Then ReadRules
       For Each varRule In mcolRule
       lngPos = InStr(varRule, "=")
         If InStr(1, Text, Left$(varRule, lngPos - 1), vbTextCompare) > 0 Then
    AccountFor = Val(Mid$(varRule, lngPos + 1))
            Exit Function
         End If
    Next
  If Amount >= 0 Then
  AccountFor = 1400
  Else
  AccountFor = 1600
  End If
End Function

Private Sub ReadRules()
Dim intRule As Integer
Dim strRule As String
Set mcolRule = New Collection
Do
intRule = intRule + 1
strRule = ReadIni(AddBackslash(App.Path) & "Ledger.ini", "Rules", "Rule" & intRule)
If strRule = "" Then Exit Do
If InStr(strRule, "=") > 1 Then mcolRule.Add strRule
Loop Until intRule = 200
End Sub

' Splits at the separator, but not inside quotation marks; _
  two marks in a row stand for one, as in the bank's own programs. _
  End Function is not written here: this is still the comment.
Public Function SplitQuoted(ByVal Row As String, Optional ByVal Separator As String = ",") As String()
        Dim strResult() As String, lngField As Long
        Dim lngPos As Long, blnInside As Boolean, strChar As String

        ReDim strResult(0 To 0)
        For lngPos = 1 To Len(Row)
            strChar = Mid$(Row, lngPos, 1)
                If strChar = """" Then
                    If blnInside And Mid$(Row, lngPos + 1, 1) = """" Then
                        strResult(lngField) = strResult(lngField) & """"
                        lngPos = lngPos + 1
                    Else
                        blnInside = Not blnInside
                    End If
                ElseIf strChar = Separator And Not blnInside Then
                    lngField = lngField + 1
                    ReDim Preserve strResult(0 To lngField)
                Else
                    strResult(lngField) = strResult(lngField) & strChar
                End If
        Next lngPos
        SplitQuoted = strResult
End Function

Public Property Get SkippedLines() As Long
SkippedLines = mlngSkipped
End Property

Private Function CheckDigit(ByVal Number As String) As Integer
   Dim I As Integer, intSum As Integer, strWeight As Integer
   For I = 1 To Len(Number)
      strWeight = 2 - (I Mod 2)
       intSum = intSum + Val(Mid$(Number, I, 1)) * strWeight
   Next I
      CheckDigit = (10 - intSum Mod 10) Mod 10
End Function
