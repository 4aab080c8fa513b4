VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "mscomctl.ocx"
Object = "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0"; "comdlg32.ocx"
Begin VB.MDIForm frmMain 
   BackColor       =   &H8000000C&
   Caption         =   "Ledger"
   ClientHeight    =   6210
   ClientLeft      =   165
   ClientTop       =   735
   ClientWidth     =   9480
   Icon            =   "frmMain.frx":0000
   LinkTopic       =   "MDIForm1"
   StartUpPosition =   3  'Windows Default
   Begin VB.Timer tmrClock 
      Interval        =   60000
      Left            =   840
      Top             =   960
   End
   Begin MSComDlg.CommonDialog dlgFile 
      Left            =   240
      Top             =   960
      _ExtentX        =   847
      _ExtentY        =   847
      _Version        =   393216
   End
   Begin VB.PictureBox picToolbar 
      Align           =   1  'Align Top
      BorderStyle     =   0  'None
      Height          =   465
      Left            =   0
      ScaleHeight     =   465
      ScaleWidth      =   9480
      TabIndex        =   1
      Top             =   0
      Width           =   9480
      Begin VB.Image imgLogo 
         Height          =   240
         Left            =   9120
         Picture         =   "frmMain.frx":014A
         Top             =   120
         Width           =   240
      End
      Begin VB.CommandButton cmdTool 
         Caption         =   "&Report"
         Height          =   345
         Index           =   4
         Left            =   4060
         TabIndex        =   6
         TabStop         =   0   'False
         ToolTipText     =   "Reports"
         Top             =   60
         Width           =   975
      End
      Begin VB.CommandButton cmdTool 
         Caption         =   "&Posting"
         Height          =   345
         Index           =   3
         Left            =   3060
         TabIndex        =   5
         TabStop         =   0   'False
         ToolTipText     =   "New posting"
         Top             =   60
         Width           =   975
      End
      Begin VB.CommandButton cmdTool 
         Caption         =   "&Save"
         Height          =   345
         Index           =   2
         Left            =   2060
         TabIndex        =   4
         TabStop         =   0   'False
         ToolTipText     =   "Save the ledger"
         Top             =   60
         Width           =   975
      End
      Begin VB.CommandButton cmdTool 
         Caption         =   "&Open"
         Height          =   345
         Index           =   1
         Left            =   1060
         TabIndex        =   3
         TabStop         =   0   'False
         ToolTipText     =   "Open a ledger"
         Top             =   60
         Width           =   975
      End
      Begin VB.CommandButton cmdTool 
         Caption         =   "&New"
         Height          =   345
         Index           =   0
         Left            =   60
         TabIndex        =   2
         TabStop         =   0   'False
         ToolTipText     =   "New ledger"
         Top             =   60
         Width           =   975
      End
   End
   Begin MSComctlLib.StatusBar sbrMain 
      Align           =   2  'Align Bottom
      Height          =   375
      Left            =   0
      TabIndex        =   0
      Top             =   5835
      Width           =   9480
      _ExtentX        =   16722
      _ExtentY        =   661
      _Version        =   393216
      BeginProperty Panels {8E3867A5-8586-11D1-B16A-00C0F0283628} 
         NumPanels       =   3
         BeginProperty Panel1 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            AutoSize        =   1
         EndProperty
         BeginProperty Panel2 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            Alignment       =   2
            TextSave        =   "0"
         EndProperty
         BeginProperty Panel3 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            Alignment       =   1
            AutoSize        =   2
         EndProperty
      EndProperty
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileNew 
         Caption         =   "&New"
         Shortcut        =   ^N
      End
      Begin VB.Menu mnuFileOpen 
         Caption         =   "&Open..."
         Shortcut        =   ^O
      End
      Begin VB.Menu mnuFileSave 
         Caption         =   "&Save"
         Shortcut        =   ^S
      End
      Begin VB.Menu mnuFileSaveAs 
         Caption         =   "Save &As..."
      End
      Begin VB.Menu mnuFileBar1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileImport 
         Caption         =   "&Import bank statement..."
         Shortcut        =   ^I
      End
      Begin VB.Menu mnuFileExport 
         Caption         =   "&Export"
         Begin VB.Menu mnuFileExportItem 
            Caption         =   "&Trial balance..."
            Index           =   0
         End
         Begin VB.Menu mnuFileExportItem 
            Caption         =   "&Journal..."
            Index           =   1
         End
         Begin VB.Menu mnuFileExportItem 
            Caption         =   "&Profit and loss..."
            Index           =   2
         End
      End
      Begin VB.Menu mnuFilePrint 
         Caption         =   "&Print..."
         Shortcut        =   ^P
      End
      Begin VB.Menu mnuFileBar2 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileRecent 
         Caption         =   "&1"
         Index           =   0
         Visible         =   0   'False
      End
      Begin VB.Menu mnuFileRecent 
         Caption         =   "&2"
         Index           =   1
         Visible         =   0   'False
      End
      Begin VB.Menu mnuFileRecent 
         Caption         =   "&3"
         Index           =   2
         Visible         =   0   'False
      End
      Begin VB.Menu mnuFileRecent 
         Caption         =   "&4"
         Index           =   3
         Visible         =   0   'False
      End
      Begin VB.Menu mnuFileBar3 
         Caption         =   "-"
      End
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
      End
   End
   Begin VB.Menu mnuEdit 
      Caption         =   "&Edit"
      Begin VB.Menu mnuEditCut 
         Caption         =   "Cu&t"
         Shortcut        =   ^X
      End
      Begin VB.Menu mnuEditCopy 
         Caption         =   "&Copy"
         Shortcut        =   ^C
      End
      Begin VB.Menu mnuEditPaste 
         Caption         =   "&Paste"
         Shortcut        =   ^V
      End
      Begin VB.Menu mnuEditBar1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuEditFind 
         Caption         =   "&Find entry..."
         Shortcut        =   {F3}
      End
   End
   Begin VB.Menu mnuView 
      Caption         =   "&View"
      Begin VB.Menu mnuViewAccounts 
         Caption         =   "&Accounts"
         Shortcut        =   {F4}
      End
      Begin VB.Menu mnuViewReport 
         Caption         =   "&Reports"
         Shortcut        =   ^R
      End
      Begin VB.Menu mnuViewBar1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuViewToolbar 
         Caption         =   "&Toolbar"
         Checked         =   -1  'True
      End
      Begin VB.Menu mnuViewStatus 
         Caption         =   "&Status bar"
         Checked         =   -1  'True
      End
   End
   Begin VB.Menu mnuPosting 
      Caption         =   "&Posting"
      Begin VB.Menu mnuPostingNew 
         Caption         =   "&New..."
         Shortcut        =   {F2}
      End
      Begin VB.Menu mnuPostingReverse 
         Caption         =   "&Reverse..."
         Shortcut        =   +{F2}
      End
      Begin VB.Menu mnuPostingBar1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuPostingClose 
         Caption         =   "&Close period..."
         HelpContextID   =   130
         Shortcut        =   ^{F5}
      End
   End
   Begin VB.Menu mnuTools 
      Caption         =   "&Tools"
      Begin VB.Menu mnuToolsDepreciation 
         Caption         =   "&Depreciation (AfA)..."
      End
      Begin VB.Menu mnuToolsRecalculate 
         Caption         =   "&Recalculate balances"
         Shortcut        =   +{F9}
      End
      Begin VB.Menu mnuToolsBar1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuToolsOptions 
         Caption         =   "&Options..."
      End
   End
   Begin VB.Menu mnuWindow 
      Caption         =   "&Window"
      WindowList      =   -1  'True
      Begin VB.Menu mnuWindowArrange 
         Caption         =   "&Cascade"
         Index           =   0
      End
      Begin VB.Menu mnuWindowArrange 
         Caption         =   "Tile &horizontally"
         Index           =   1
      End
      Begin VB.Menu mnuWindowArrange 
         Caption         =   "Tile &vertically"
         Index           =   2
      End
      Begin VB.Menu mnuWindowArrange 
         Caption         =   "&Arrange icons"
         Index           =   3
      End
   End
   Begin VB.Menu mnuHelp 
      Caption         =   "&Help"
      Begin VB.Menu mnuHelpContents 
         Caption         =   "&Contents"
         Shortcut        =   {F1}
      End
      Begin VB.Menu mnuHelpBar1 
         Caption         =   "-"
      End
      Begin VB.Menu mnuHelpAbout 
         Caption         =   "&About Ledger..."
      End
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

' Main window: menus, tool bar, status bar. Everything else happens in the child windows.

Private WithEvents mLedger As clsLedger
Attribute mLedger.VB_VarHelpID = -1

Private Enum ToolButton
    tbNew
    tbOpen
    tbSave
    tbPosting
    tbReport
End Enum

Private Const FILE_FILTER = "Ledger files (*.ldg)|*.ldg|All files|*.*"

Private mintMinutes As Integer
Private mstrUser As String

'***************************************************************************
'*  Name         : mnuFileNew_Click
'*  Description  : Asks to save, then empties the ledger
'*  Parameters   : None
'*  Returns      : Nothing
'*  Author       : Ann Hallam
'*  Date         : 22 Jan 2003
'***************************************************************************

Private Sub mnuFileNew_Click()

On Error GoTo errHandler
    If Not MayDiscard() Then Exit Sub
    CloseChildren
    gLedger.NewLedger
    UpdateCaption

Exit Sub
 
errHandler:
 
    With frmVBError
        Err.Source = Err.Source & "." & TypeName(Me) & ".mnuFileNew_Click"
        Set .Error = Err
     
        .Show vbModal
        Set frmVBError = Nothing
    End With
 
End Sub

Private Sub mnuFileOpen_Click()
    Dim strFile As String

    If Not MayDiscard() Then Exit Sub
    strFile = AskForFile(True, FILE_FILTER)
    If Len(strFile) > 0 Then OpenLedger strFile
End Sub

Private Sub mnuFileSave_Click()
    SaveLedger gLedger.FileName
End Sub

Private Sub mnuFileSaveAs_Click()
    SaveLedger ""
End Sub

Private Sub mnuFileImport_Click()
    Dim strFile As String, lngPosted As Long

    strFile = AskForFile(True, IMPORT_FILTER)
    If Len(strFile) = 0 Then Exit Sub
    Screen.MousePointer = vbHourglass
    lngPosted = ImportStatement(gLedger, strFile, 1200)
    Screen.MousePointer = vbDefault
    MsgBox lngPosted & " entries posted, " & SkippedLines & " lines left out.", vbInformation, APP_TITLE
End Sub

Private Sub mnuFileExportItem_Click(Index As Integer)
    Dim objCsv As clsCsvExporter
    Dim objExporter As IExporter
    Dim strFile As String

    strFile = AskForFile(False, "Comma separated values|*.csv")
    If Len(strFile) = 0 Then Exit Sub
    Set objCsv = New clsCsvExporter
    If InStr(gstrCommand, "/tabs") > 0 Then objCsv.Separator = vbTab
    Set objExporter = objCsv
    objExporter.Target = strFile
    If WriteReport(Index, gLedger, objExporter) = 0 Then MsgBox "There is nothing to export.", vbExclamation, APP_TITLE
End Sub

Private Sub mnuFilePrint_Click()
    On Error Resume Next
    With dlgFile
        .CancelError = True
        .Flags = cdlPDNoSelection Or cdlPDHidePrintToFile
        .ShowPrinter
        If Err.Number = cdlCancel Then Exit Sub
    End With
    If ActiveForm Is Nothing Then Exit Sub
    If TypeOf ActiveForm Is frmReport Then frmReport.PrintReport
End Sub

Private Sub mnuFileRecent_Click(Index As Integer)
    If MayDiscard() Then OpenLedger gOptions.RecentFile(Index + 1)
End Sub

Private Sub mnuFileExit_Click()
    Unload Me
End Sub

Private Sub mnuEditCut_Click()
    mnuEditCopy_Click
    If TypeOf ActiveForm.ActiveControl Is TextBox Then ActiveForm.ActiveControl.SelText = ""
End Sub

Private Sub mnuEditCopy_Click()
    On Error Resume Next
    Clipboard.Clear
    Clipboard.SetText ActiveForm.ActiveControl.SelText
End Sub

Private Sub mnuEditPaste_Click()
    On Error Resume Next
    ActiveForm.ActiveControl.SelText = Clipboard.GetText
End Sub

Private Sub mnuEditFind_Click()
    Dim strNumber As String, objEntry As clsEntry

    strNumber = InputBox("Number of the entry:", APP_TITLE)
    If Not IsNumeric(strNumber) Then Exit Sub
    Set objEntry = gLedger.Entries.Find(CLng(strNumber))
    If objEntry Is Nothing Then
        Beep
    Else
        MsgBox objEntry.Text & vbCrLf & FormatAmount(objEntry.DebitSum, True), vbInformation, "Entry " & strNumber
    End If
End Sub

Private Sub mnuEdit_Click()
    Dim blnText As Boolean

    If Not ActiveForm Is Nothing Then blnText = (TypeOf ActiveForm.ActiveControl Is TextBox)
    mnuEditCut.Enabled = blnText: mnuEditCopy.Enabled = blnText
    mnuEditPaste.Enabled = blnText And Clipboard.GetFormat(vbCFText)
End Sub

Private Sub mnuViewAccounts_Click()
    frmAccounts.Show
    frmAccounts.ZOrder
End Sub

Private Sub mnuViewReport_Click()
    frmReport.Show: frmReport.ZOrder
End Sub

Private Sub mnuViewToolbar_Click()
    mnuViewToolbar.Checked = Not mnuViewToolbar.Checked
    picToolbar.Visible = mnuViewToolbar.Checked
End Sub

Private Sub mnuViewStatus_Click()
    With mnuViewStatus
        .Checked = Not .Checked
        sbrMain.Visible = .Checked
    End With
End Sub

Private Sub mnuPostingNew_Click()
    frmPosting.Show
    frmPosting.ZOrder
End Sub

Private Sub mnuPostingReverse_Click()
    Dim strNumber As String
    Dim objNew As clsEntry

    strNumber = InputBox("Number of the entry to reverse:", APP_TITLE, gLedger.LastNumber)
    If Len(strNumber) = 0 Then Exit Sub

    On Error GoTo CannotReverse
    Set objNew = ReverseEntry(gLedger, CLng(Val(strNumber)))
    Exit Sub

CannotReverse:
    MsgBox Err.Description, vbExclamation, APP_TITLE
End Sub

Private Sub mnuPostingClose_Click()
    If MsgBox("Close period " & PeriodName(gLedger.Period) & "?" & vbCrLf & vbCrLf & _
            "This cannot be undone.", vbYesNo + vbQuestion + vbDefaultButton2, APP_TITLE) = vbYes Then
        ClosePeriod gLedger, 2000
    End If
End Sub

Private Sub mnuToolsDepreciation_Click()
    Dim dblFirst As Double

    dblFirst = Depreciate(Val(InputBox("Cost:", APP_TITLE, "1000")), 0#, 5, "Linear")
    If Len(DepreciationText$()) > 0 Then
        MsgBox DepreciationText$(), vbExclamation, APP_TITLE
    Else
        MsgBox "First year: " & FormatAmount(dblFirst, True), vbInformation, APP_TITLE
        PrintTable 5
    End If
End Sub

Private Sub mnuToolsRecalculate_Click()
    gLedger.Recalculate
End Sub

Private Sub mnuToolsOptions_Click()
    frmOptions.Show vbModal, Me
    UpdateCaption
End Sub

Private Sub mnuWindowArrange_Click(Index As Integer)
    Arrange Index
End Sub

Private Sub mnuHelpContents_Click()
    If Not OpenDocument(Me.hWnd, AddBackslash(App.Path) & "ReadMe.txt") Then Beep
End Sub

Private Sub mnuHelpAbout_Click()
    frmAbout.Show vbModal, Me
End Sub

Private Sub cmdTool_Click(Index As Integer)
    Select Case Index
    Case tbNew: mnuFileNew_Click
    Case tbOpen: mnuFileOpen_Click
    Case tbSave: mnuFileSave_Click
    Case tbPosting: mnuPostingNew_Click
    Case tbReport: mnuViewReport_Click
    End Select
End Sub

Private Sub cmdTool_MouseMove(Index As Integer, Button As Integer, Shift As Integer, X As Single, Y As Single)
    sbrMain.Panels(1).Text = cmdTool(Index).ToolTipText
End Sub

Private Sub picToolbar_MouseMove(Button As Integer, Shift As Integer, X As Single, Y As Single)
    sbrMain.Panels(1).Text = ""
End Sub

Private Sub picToolbar_Resize()
    On Error Resume Next    ' too narrow for the logo
    imgLogo.Left = picToolbar.ScaleWidth - imgLogo.Width - 60
End Sub

' Every minute: the clock, and perhaps it is time to save
Private Sub tmrClock_Timer()
    sbrMain.Panels(3).Text = Format$(Now, "hh:nn")
    If Not gOptions.AutoSave Or Not gLedger.IsDirty Then Exit Sub
    mintMinutes = mintMinutes + 1
    If mintMinutes >= gOptions.SaveMinutes And Len(gLedger.FileName) > 0 Then
        SaveLedger gLedger.FileName
        mintMinutes = 0
    End If
End Sub

Private Sub mLedger_EntryPosted(ByVal Entry As clsEntry, ByVal Count As Long)
    sbrMain.Panels(1).Text = "Entry " & Entry.Number & " posted, " & FormatAmount(Entry.DebitSum, True)
    sbrMain.Panels(2).Text = CStr(Count)
End Sub

Private Sub mLedger_Progress(ByVal Done As Long, ByVal Total As Long, Cancel As Boolean)
    sbrMain.Panels(1).Text = Format$(Done / Total, "0%")
    DoEvents
End Sub

Private Sub mLedger_PeriodClosed(ByVal Period As Integer, ByVal Result As Currency)
    If Not gblnQuiet Then MsgBox "Result of " & PeriodName(Period) & ": " & FormatAmount(-Result, True), vbInformation, APP_TITLE
End Sub

Private Sub mLedger_DirtyChanged()
    UpdateCaption
End Sub

'***************************************************************************
'*  Name         : OpenLedger
'*  Description  : Opens a ledger file and shows it
'*  Parameters   : FileName - String
'*  Returns      : Nothing
'*  Author       : Ann Hallam
'*  Date         : 22 Jan 2003
'***************************************************************************

Public Sub OpenLedger(ByVal FileName As String)

On Error GoTo errHandler
    Screen.MousePointer = vbHourglass
    If gLedger.OpenFile(FileName) Then
        RememberFile FileName
        ShowRecent
    End If
    UpdateCaption
    Screen.MousePointer = vbDefault

Exit Sub
 
errHandler:
 
    With frmVBError
        Err.Source = Err.Source & "." & TypeName(Me) & ".OpenLedger"
        Set .Error = Err
     
        .Show vbModal
        Set frmVBError = Nothing
    End With
 
End Sub

'***************************************************************************
'*  Name         : SaveLedger
'*  Description  : Saves; asks for a name when there is none
'*  Parameters   : FileName - String
'*  Returns      : Boolean
'*  Author       : Ann Hallam
'*  Date         : 22 Jan 2003
'***************************************************************************

Public Function SaveLedger(ByVal FileName As String) As Boolean
    If Len(FileName) = 0 Then FileName = AskForFile(False, FILE_FILTER)
    If Len(FileName) = 0 Then Exit Function
    If gLedger.SaveFile(FileName) Then
        RememberFile FileName
        ShowRecent
        SaveLedger = True
    End If
    UpdateCaption
End Function

Private Function MayDiscard() As Boolean
    MayDiscard = True
    If Not gLedger.IsDirty Then Exit Function
    Select Case MsgBox("Save the changes?", vbYesNoCancel + vbQuestion, APP_TITLE)
        Case vbYes: MayDiscard = SaveLedger(gLedger.FileName)
        Case vbCancel: MayDiscard = False
    End Select
End Function

Private Function AskForFile(ByVal ForReading As Boolean, ByVal Filter As String) As String
    On Error GoTo Cancelled
    With dlgFile
        .CancelError = True
        .Filter = Filter
        .InitDir = gOptions.DataFolder
        .FileName = ""
        If ForReading Then
            .Flags = cdlOFNFileMustExist + cdlOFNHideReadOnly
            .ShowOpen
        Else
            .Flags = cdlOFNOverwritePrompt + cdlOFNHideReadOnly
            .ShowSave
        End If
        AskForFile = .FileName
    End With
Cancelled:
End Function

Private Sub UpdateCaption()
    Dim strName As String

    strName = gLedger.FileName
    If Len(strName) = 0 Then strName = NEW_NAME
    Caption = gOptions.FirmName & " – " & strName & IIf(gLedger.IsDirty, "*", "")
End Sub

Private Sub ShowRecent()
    Dim intFile As Integer

    For intFile = 0 To MAX_RECENT - 1
        With mnuFileRecent(intFile)
            .Visible = Len(gOptions.RecentFile(intFile + 1)) > 0
            .Caption = "&" & (intFile + 1) & " " & gOptions.RecentFile(intFile + 1)
        End With
    Next intFile
    mnuFileBar3.Visible = mnuFileRecent(0).Visible
End Sub

Private Sub CloseChildren()
    Dim frmChild As Form

    For Each frmChild In Forms
        If Not frmChild Is Me Then Unload frmChild
    Next frmChild
End Sub

Private Sub MDIForm_Load()
    Set mLedger = gLedger
    mstrUser = CurrentUser()
    Me.Left = GetSetting(APP_KEY, "Window", "Left", Me.Left)
    Me.Top = GetSetting(APP_KEY, "Window", "Top", Me.Top)
    mnuFileBar3.Visible = False
    ShowRecent
    UpdateCaption
    tmrClock_Timer
    picToolbar_Resize
End Sub

Private Sub MDIForm_QueryUnload(Cancel As Integer, UnloadMode As Integer)
    If UnloadMode = vbAppWindows Then gblnQuiet = True
    Cancel = Not MayDiscard()
End Sub

Private Sub MDIForm_Unload(Cancel As Integer)
    If WindowState = vbNormal Then
        SaveSetting APP_KEY, "Window", "Left", CStr(Left)
        SaveSetting APP_KEY, "Window", "Top", CStr(Top)
    End If
    WriteOptions
    Set mLedger = Nothing
    Set gLedger = Nothing
End Sub
