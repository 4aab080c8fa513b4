VERSION 5.00
Begin VB.Form frmAbout 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "About Ledger"
   ClientHeight    =   4380
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   5655
   KeyPreview      =   -1  'True
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   4380
   ScaleWidth      =   5655
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.CommandButton cmdOK 
      Cancel          =   -1  'True
      Caption         =   "OK"
      Default         =   -1  'True
      Height          =   345
      Left            =   4380
      TabIndex        =   4
      Top             =   3900
      Width           =   1155
   End
   Begin VB.Timer tmrSplash 
      Enabled         =   0   'False
      Interval        =   1500
      Left            =   120
      Top             =   3840
   End
   Begin VB.Label lblWarning 
      Caption         =   $"frmAbout.frx":0301
      ForeColor       =   &H000000C0&
      Height          =   615
      Left            =   120
      TabIndex        =   3
      Top             =   3120
      Width           =   5415
      WordWrap        =   -1  'True
   End
   Begin VB.Line linSeparator 
      BorderColor     =   &H80000014&
      Index           =   1
      X1              =   120
      X2              =   5520
      Y1              =   2985
      Y2              =   2985
   End
   Begin VB.Line linSeparator 
      BorderColor     =   &H80000010&
      Index           =   0
      X1              =   120
      X2              =   5520
      Y1              =   2970
      Y2              =   2970
   End
   Begin VB.TextBox txtLicence 
      BackColor       =   &H8000000F&
      Height          =   1815
      Left            =   120
      Locked          =   -1  'True
      MultiLine       =   -1  'True
      ScrollBars      =   2  'Vertical
      TabIndex        =   2
      Text            =   "frmAbout.frx":0102
      Top             =   1020
      Width           =   5415
   End
   Begin VB.Label lblVersion 
      Caption         =   "Version"
      Height          =   255
      Left            =   1080
      TabIndex        =   1
      Top             =   570
      Width           =   4455
   End
   Begin VB.Label lblTitle 
      Caption         =   "Ledger"
      BeginProperty Font 
         Name            =   "Times New Roman"
         Size            =   15.75
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   -1  'True
         Strikethrough   =   0   'False
      EndProperty
      Height          =   375
      Left            =   1080
      TabIndex        =   0
      Top             =   120
      UseMnemonic     =   0   'False
      Width           =   4455
   End
   Begin VB.Image imgLogo 
      Height          =   480
      Left            =   240
      Picture         =   "frmAbout.frx":0000
      Stretch         =   -1  'True
      Top             =   240
      Width           =   480
   End
   Begin VB.Shape shpBorder 
      BackColor       =   &H00FFFFFF&
      BackStyle       =   1  'Opaque
      Height          =   735
      Left            =   120
      Shape           =   4  'Rounded Rectangle
      Top             =   120
      Width           =   735
   End
End
Attribute VB_Name = "frmAbout"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private mblnSplash As Boolean

' Shows the window without its button for some time, while the rest of the program loads
Public Sub ShowAsSplash(ByVal Milliseconds As Long)
    mblnSplash = True
    cmdOK.Visible = False
    tmrSplash.Interval = Milliseconds
    tmrSplash.Enabled = True
    Me.Show vbModeless
    Me.Refresh
    Wait Milliseconds \ 2
End Sub

Private Sub cmdOK_Click()
    Unload Me
End Sub

Private Sub Form_KeyPress(KeyAscii As Integer)
    If KeyAscii = vbKeyEscape Then Unload Me
End Sub

Private Sub Form_Load()
    lblVersion.Caption = "Version " & App.Major & "." & App.Minor & "." & App.Revision
    Caption = "About " & APP_TITLE
End Sub

Private Sub imgLogo_DblClick()
    Rem a small present for the people at the Café
    MsgBox "Guten Tag, " & CurrentUser() & "! Running since " & (GetTickCount() - glngStarted) \ 1000 & " s.", , APP_TITLE
End Sub

Private Sub tmrSplash_Timer()
    tmrSplash.Enabled = False
    If mblnSplash Then Unload Me
End Sub
