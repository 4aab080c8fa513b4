VERSION 5.00
Begin VB.Form frmReport 
   Caption         =   "Reports"
   ClientHeight    =   5670
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   8520
   KeyPreview      =   -1  'True
   LinkTopic       =   "Form1"
   MDIChild        =   -1  'True
   ScaleHeight     =   5670
   ScaleWidth      =   8520
   Begin VB.PictureBox picPage 
      AutoRedraw      =   -1  'True
      BackColor       =   &H80000005&
      BeginProperty Font 
         Name            =   "Courier New"
         Size            =   9
         Charset         =   0
         Weight          =   400
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
      ForeColor       =   &H80000008&
      Height          =   4695
      Left            =   60
      ScaleHeight     =   4635
      ScaleWidth      =   8055
      TabIndex        =   0
      Top             =   900
      Width           =   8115
   End
   Begin VB.VScrollBar vsbPage 
      Height          =   4695
      LargeChange     =   20
      Left            =   8220
      Max             =   0
      TabIndex        =   1
      Top             =   900
      Width           =   255
   End
   Begin VB.Frame fraReport 
      Caption         =   "Report"
      Height          =   735
      Left            =   60
      TabIndex        =   2
      Top             =   60
      Width           =   4335
      Begin VB.OptionButton optReport 
         Caption         =   "&Trial balance"
         Height          =   255
         Index           =   0
         Left            =   120
         TabIndex        =   3
         Top             =   300
         Value           =   -1  'True
         Width           =   1335
      End
      Begin VB.OptionButton optReport 
         Caption         =   "&Journal"
         Height          =   255
         Index           =   1
         Left            =   1560
         TabIndex        =   4
         TabStop         =   0   'False
         Top             =   300
         Width           =   1095
      End
      Begin VB.OptionButton optReport 
         Caption         =   "&Profit && loss"
         Height          =   255
         Index           =   2
         Left            =   2760
         TabIndex        =   5
         TabStop         =   0   'False
         Top             =   300
         Width           =   1455
      End
   End
   Begin VB.CheckBox chkPeriod 
      Caption         =   "&Month only:"
      Enabled         =   0   'False
      Height          =   255
      Left            =   4500
      TabIndex        =   6
      Top             =   90
      Width           =   1215
   End
   Begin VB.ComboBox cboPeriod 
      Enabled         =   0   'False
      Height          =   315
      Left            =   4500
      Style           =   2  'Dropdown List
      TabIndex        =   7
      Top             =   405
      Width           =   1575
   End
   Begin VB.CommandButton cmdRefresh 
      Caption         =   "&Refresh"
      Height          =   315
      Left            =   6180
      TabIndex        =   8
      Top             =   90
      Width           =   1095
   End
   Begin VB.CommandButton cmdPrint 
      Caption         =   "Pr&int"
      Height          =   315
      Left            =   6180
      TabIndex        =   9
      Top             =   450
      Width           =   1095
   End
   Begin VB.CommandButton cmdCopy 
      Caption         =   "&Copy"
      Height          =   315
      Left            =   7380
      TabIndex        =   10
      Top             =   90
      Width           =   1095
   End
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "Close"
      Height          =   315
      Left            =   7380
      TabIndex        =   11
      Top             =   450
      Width           =   1095
   End
   Begin VB.Label lblRows 
      Alignment       =   1  'Right Justify
      Height          =   195
      Left            =   4500
      TabIndex        =   12
      Top             =   720
      Width           =   1575
   End
   Begin VB.Line linTop 
      BorderColor     =   &H80000010&
      Index           =   0
      X1              =   0
      X2              =   8520
      Y1              =   0
      Y2              =   0
   End
   Begin VB.Line linTop 
      BorderColor     =   &H80000014&
      Index           =   1
      X1              =   0
      X2              =   8520
      Y1              =   15
      Y2              =   15
   End
End
Attribute VB_Name = "frmReport"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Implements IExporter

' Reports on the screen and on paper. The form takes the rows itself: see IExporter.

Private Const MARGIN_LEFT = 120!, LINE_FEED = 1.25!

Private mstrTitle As String
Private mvarColumns As Variant
Private mcolRows As Collection
Private mobjDevice As Object
Private msngTab(0 To 9) As Single

Private Sub IExporter_StartReport(ByVal Title As String, ByVal Columns As Variant)
    mstrTitle = Title
    mvarColumns = Columns
    Set mcolRows = New Collection
End Sub

Private Sub IExporter_AddRow(ByVal Cells As Variant, Optional ByVal Bold As Boolean = False)
    mcolRows.Add Array(Cells, Bold)
End Sub

Private Function IExporter_Finish() As Long
    IExporter_Finish = mcolRows.Count
End Function

Private Property Let IExporter_Target(ByVal Value As String)
    Tag = Value
End Property

Private Property Get IExporter_Target() As String
    IExporter_Target = Tag
End Property

'***************************************************************************
'*  Name         : RefreshReport
'*  Description  : Builds the chosen report and shows it
'*  Parameters   : None
'*  Returns      : Nothing
'*  Author       : Jˆrg Weiﬂ
'*  Date         : 11 Feb 2003
'***************************************************************************

Public Sub RefreshReport()

On Error GoTo errHandler
    Dim lngRows As Long

    lngRows = WriteReport(ChosenReport(), gLedger, Me, IIf(chkPeriod.Value = vbChecked, cboPeriod.ListIndex + 1, 0))
    lblRows.Caption = lngRows & " rows"
    vsbPage.Max = IIf(lngRows > 20, lngRows - 20, 0)
    picPage.Cls
    DrawReport picPage, vsbPage.Value + 1
    picPage.Refresh

Exit Sub
 
errHandler:
 
    With frmVBError
        Err.Source = Err.Source & "." & TypeName(Me) & ".RefreshReport"
        Set .Error = Err
     
        .Show vbModal
        Set frmVBError = Nothing
    End With
 
End Sub

'***************************************************************************
'*  Name         : PrintReport
'*  Description  : The report on the printer
'*  Parameters   : None
'*  Returns      : Nothing
'*  Author       : Jˆrg Weiﬂ
'*  Date         : 11 Feb 2003
'***************************************************************************

Public Sub PrintReport()

On Error GoTo errHandler
    If mcolRows Is Nothing Then RefreshReport
    DrawReport Printer, 1
    Printer.EndDoc

Exit Sub
 
errHandler:
 
    With frmVBError
        Err.Source = Err.Source & "." & TypeName(Me) & ".PrintReport"
        Set .Error = Err
     
        .Show vbModal
        Set frmVBError = Nothing
    End With
 
End Sub

Private Function ChosenReport() As ReportKind
    Dim intReport As Integer

    For intReport = optReport.LBound To optReport.UBound
        If optReport(intReport).Value Then ChosenReport = intReport
    Next intReport
End Function

' Draws the rows from FirstRow on, as many as there is room for.
' Device is a picture box or the printer: both know CurrentX, Print and Line.
Private Sub DrawReport(ByVal Device As Object, ByVal FirstRow As Long)
    Dim lngRow As Long
    Dim cur‹bertrag As Currency
    Dim sngLine As Single

    Set mobjDevice = Device
    SetColumns
    Device.FontBold = True
    Device.CurrentX = MARGIN_LEFT
    Device.CurrentY = MARGIN_LEFT
    Device.Print gOptions.FirmName & ": " & mstrTitle
    sngLine = Device.TextHeight("ƒg") * LINE_FEED
    Device.CurrentY = MARGIN_LEFT + 2 * sngLine
    DrawCells mvarColumns
    Device.Line (MARGIN_LEFT, Device.CurrentY)-(Device.ScaleWidth - MARGIN_LEFT, Device.CurrentY)

    For lngRow = FirstRow To mcolRows.Count
        If Device.CurrentY > Device.ScaleHeight - 2 * sngLine Then
            If Not TypeOf Device Is PictureBox Then
                Device.NewPage
            Else
                Exit For
            End If
        End If
        Device.FontBold = mcolRows(lngRow)(1)
        DrawCells mcolRows(lngRow)(0)
        If VarType(mcolRows(lngRow)(0)(UBound(mvarColumns))) = vbCurrency Then
            cur‹bertrag = cur‹bertrag + mcolRows(lngRow)(0)(UBound(mvarColumns))
        End If
    Next lngRow
    Device.FontBold = False
    If lngRow <= mcolRows.Count Then
        Device.CurrentX = MARGIN_LEFT
        Device.Print "Carried forward: " & FormatAmount(cur‹bertrag)
    End If
End Sub

Private Sub SetColumns()
    Dim intColumn As Integer, sngWidth As Single

    sngWidth = mobjDevice.ScaleWidth - 2 * MARGIN_LEFT
    msngTab(0) = MARGIN_LEFT
    For intColumn = 1 To UBound(mvarColumns)
        Select Case UBound(mvarColumns)
        Case 2, 3
            msngTab(intColumn) = MARGIN_LEFT + sngWidth * Choose(intColumn, 0.12, 0.55, 0.78)
        Case Else
            msngTab(intColumn) = MARGIN_LEFT + sngWidth * Choose(intColumn, 0.1, 0.25, 0.38, 0.8)
        End Select
    Next intColumn
End Sub

Private Sub DrawCells(ByVal Cells As Variant)
    Dim intCell As Integer, strText As String, sngY As Single

    sngY = mobjDevice.CurrentY
    For intCell = LBound(Cells) To UBound(Cells)
        Select Case VarType(Cells(intCell))
            Case vbCurrency: strText = PadLeft$(FormatAmount(Cells(intCell)), 14)
            Case vbDate: strText = Format$(Cells(intCell), "dd.mm.yy")
            Case Else: strText = Cells(intCell) & ""
        End Select
        mobjDevice.CurrentY = sngY
        mobjDevice.CurrentX = msngTab(intCell)
        mobjDevice.Print strText;
    Next intCell
    mobjDevice.Print
End Sub

Private Sub cmdClose_Click()
    Unload Me
End Sub

Private Sub cmdCopy_Click()
    Clipboard.Clear
    Clipboard.SetData picPage.Image, vbCFBitmap
End Sub

Private Sub cmdPrint_Click()
    PrintReport
End Sub

Private Sub cmdRefresh_Click()
    RefreshReport
End Sub

Private Sub optReport_Click(Index As Integer)
    chkPeriod.Enabled = (Index = rkJournal)
    cboPeriod.Enabled = chkPeriod.Enabled
    If Visible Then RefreshReport
End Sub

Private Sub cboPeriod_Click()
    If Visible And chkPeriod.Value = vbChecked Then RefreshReport
End Sub

Private Sub vsbPage_Change()
    If mcolRows Is Nothing Then Exit Sub
    picPage.Cls
    DrawReport picPage, vsbPage.Value + 1
End Sub

Private Sub vsbPage_Scroll()
    vsbPage_Change
End Sub

Private Sub Form_Load()
    Dim intPeriod As Integer

    For intPeriod = 1 To 12
        cboPeriod.AddItem PeriodName(intPeriod)
    Next
    cboPeriod.ListIndex = gLedger.Period - 1
    optReport(rkTrialBalance).Value = True
End Sub

Private Sub Form_Resize()
    If WindowState = vbMinimized Then Exit Sub
    On Error Resume Next
    picPage.Move picPage.Left, picPage.Top, ScaleWidth - picPage.Left - vsbPage.Width - 60, ScaleHeight - picPage.Top - 60
    vsbPage.Move picPage.Left + picPage.Width, picPage.Top, vsbPage.Width, picPage.Height
    linTop(0).X2 = ScaleWidth: linTop(1).X2 = ScaleWidth
    RefreshReport
End Sub

Private Sub Form_KeyDown(KeyCode As Integer, Shift As Integer)
    If KeyCode = vbKeyF5 Then RefreshReport
End Sub

Private Sub Form_Unload(Cancel As Integer)
    Set mcolRows = Nothing: Set mobjDevice = Nothing
End Sub
