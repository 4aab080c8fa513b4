Attribute VB_Name = "modMain"
Option Explicit
'
' Ledger: double-entry bookkeeping for small firms.
' Start-up, settings and everything that the other modules share.
'
' Jörg Weiß, Ann Hallam. First version for Café Zoé, Köln, in 1999.
'

#Const USE_SPLASH = False

Public Const APP_TITLE As String = "Ledger", APP_KEY As String = "HallamLedger"
Public Const MAX_RECENT = 4
Public Const COLOUR_DEBIT As Long = &H8000&
Public Const COLOUR_CREDIT As Long = &HC0&
Public Const FIRST_DAY As Date = #1/1/1999#
Public Const NEW_NAME = "Unnamed"

Private Const SECTION_GENERAL = "General"
Private Const SECTION_FILES = "Files"

Public Enum AccountKind
    akAsset = 1
    akLiability
    akEquity
    akIncome = 10
    akExpense
    [_akLast] = akExpense
End Enum

Public Enum ReportKind
    rkTrialBalance
    rkJournal
    rkProfitLoss
End Enum

Public Type PostingLine
    AccountNo As Long
    Amount As Currency
    VatCode As String * 2
    Text As String
End Type

Public Type LedgerOptions
    FirmName As String
    Symbol As String
    DataFolder As String
    DecimalPlaces As Byte
    AutoSave As Boolean
    SaveMinutes As Integer
    RecentFile(1 To MAX_RECENT) As String
End Type

Public gLedger As clsLedger
Public gOptions As LedgerOptions
Public gblnQuiet As Boolean, glngStarted As Long
Global gstrCommand As String
Dim mstrLogFile As String   ' never handed out, see LogFile

'***************************************************************************
'*  Name         : Main
'*  Description  : Entry point: one instance only, options, ledger, main window
'*  Parameters   : None
'*  Returns      : Nothing
'*  Author       : Ann Hallam
'*  Date         : 14 Jan 2003
'***************************************************************************

Public Sub Main()
    Dim strFile As String
    Dim blnOld As Boolean

    If App.PrevInstance Then
        MsgBox "Ledger is already running.", vbInformation, APP_TITLE
        Exit Sub
    End If

    glngStarted = GetTickCount()
    gstrCommand = Trim$(Command$)
    ReadOptions
    Set gLedger = New clsLedger

#If USE_SPLASH Then
    frmAbout.ShowAsSplash 1500
#End If

    If Len(gstrCommand) > 0 Then
        gblnQuiet = (InStr(1, gstrCommand, "/quiet", vbTextCompare) > 0)
        strFile = FileFromCommand(gstrCommand)
    End If

    Load frmMain
    If Len(strFile) > 0 Then frmMain.OpenLedger strFile
    frmMain.Show
End Sub

'***************************************************************************
'*  Name         : ReadOptions
'*  Description  : Reads all options from the registry
'*  Parameters   : None
'*  Returns      : Nothing
'*  Author       : Ann Hallam
'*  Date         : 14 Jan 2003
'***************************************************************************

Public Sub ReadOptions()
    Dim intFile As Integer

    With gOptions
        .FirmName = GetSetting(APP_KEY, SECTION_GENERAL, "Firm", "Müller & Söhne")
        .Symbol = GetSetting(APP_KEY, SECTION_GENERAL, "Symbol", CURRENCY_EURO)
        .DataFolder = GetSetting(APP_KEY, SECTION_GENERAL, "Folder", App.Path)
        .DecimalPlaces = CByte(Val(GetSetting(APP_KEY, SECTION_GENERAL, "Decimals", "2")))
        .AutoSave = CBool(GetSetting(APP_KEY, SECTION_GENERAL, "AutoSave", "0"))
        .SaveMinutes = CInt(GetSetting(APP_KEY, SECTION_GENERAL, "Minutes", "10"))
        If .SaveMinutes < 1 Then .SaveMinutes = 1
        If .SaveMinutes > 60 Then .SaveMinutes = 60
        For intFile = 1 To MAX_RECENT
            .RecentFile(intFile) = GetSetting(APP_KEY, SECTION_FILES, "File" & intFile, "")
        Next intFile
    End With
End Sub

'***************************************************************************
'*  Name         : WriteOptions
'*  Description  : Writes all options to the registry
'*  Parameters   : None
'*  Returns      : Nothing
'*  Author       : Ann Hallam
'*  Date         : 14 Jan 2003
'***************************************************************************

Public Sub WriteOptions()
    Dim intFile As Integer

    With gOptions
        SaveSetting APP_KEY, SECTION_GENERAL, "Firm", .FirmName
        SaveSetting APP_KEY, SECTION_GENERAL, "Symbol", .Symbol
        SaveSetting APP_KEY, SECTION_GENERAL, "Folder", .DataFolder
        SaveSetting APP_KEY, SECTION_GENERAL, "Decimals", CStr(.DecimalPlaces)
        SaveSetting APP_KEY, SECTION_GENERAL, "AutoSave", CStr(CInt(.AutoSave))
        SaveSetting APP_KEY, SECTION_GENERAL, "Minutes", CStr(.SaveMinutes)
        For intFile = 1 To MAX_RECENT
            SaveSetting APP_KEY, SECTION_FILES, "File" & intFile, .RecentFile(intFile)
        Next intFile
    End With
End Sub

' Puts a file on top of the list of recent files. A file that is already
' in the list moves up, the last one drops out.
Public Sub RememberFile(ByVal FileName As String)
    Dim intFrom As Integer, intTo As Integer

    intFrom = MAX_RECENT
    For intTo = 1 To MAX_RECENT
        If StrComp(gOptions.RecentFile(intTo), FileName, vbTextCompare) = 0 Then
            intFrom = intTo
            Exit For
        End If
    Next intTo

    For intTo = intFrom To 2 Step -1
        gOptions.RecentFile(intTo) = gOptions.RecentFile(intTo - 1)
    Next intTo
    gOptions.RecentFile(1) = FileName
End Sub

Public Function LogFile() As String
    If Len(mstrLogFile) = 0 Then mstrLogFile = AddBackslash(App.Path) & "Ledger.log"
    LogFile = mstrLogFile
End Function

Public Function AddBackslash(ByVal Path As String) As String
    AddBackslash = Path
    If Right$(Path, 1) <> "\" Then AddBackslash = Path & "\"
End Function

' The command line may hold switches (/quiet, /log) and one file, in quotes or not.
Private Function FileFromCommand(ByVal Text As String) As String
    Dim varPart As Variant
    Dim strPart As String

    For Each varPart In Split(Text, " ")
        strPart = Replace(varPart, """", "")
        If Left$(strPart, 1) <> "/" And Len(strPart) > 0 Then
            If Len(Dir$(strPart)) > 0 Then FileFromCommand = strPart: Exit Function
        End If
    Next varPart
End Function

Public Function KindName(ByVal Kind As AccountKind) As String
    Select Case Kind
    Case akAsset: KindName = "Asset"
    Case akLiability: KindName = "Liability"
    Case akEquity: KindName = "Equity"
    Case akIncome
        KindName = "Income"
    Case akExpense
        KindName = "Expense"
    Case Else
        KindName = "?"
    End Select
End Function
