VERSION 5.00
Begin VB.Form frmVBError 
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Application Error"
   ClientHeight    =   3375
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   5640
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   ScaleHeight     =   3375
   ScaleWidth      =   5640
   ShowInTaskbar   =   0   'False
   StartUpPosition =   1  'CenterOwner
   Begin VB.CommandButton cmdClose 
      Cancel          =   -1  'True
      Caption         =   "&Close"
      Default         =   -1  'True
      Height          =   345
      Left            =   4320
      TabIndex        =   7
      Top             =   2910
      Width           =   1215
   End
   Begin VB.TextBox txtDescription 
      Height          =   735
      Left            =   120
      Locked          =   -1  'True
      MultiLine       =   -1  'True
      ScrollBars      =   2  'Vertical
      TabIndex        =   6
      Top             =   2040
      Width           =   5415
   End
   Begin VB.Label lblDescription 
      Caption         =   "Description:"
      Height          =   195
      Left            =   120
      TabIndex        =   5
      Top             =   1800
      Width           =   1215
   End
   Begin VB.TextBox txtSource 
      Height          =   315
      Left            =   120
      Locked          =   -1  'True
      TabIndex        =   4
      Top             =   1380
      Width           =   5415
   End
   Begin VB.Label lblSource 
      Caption         =   "Source:"
      Height          =   195
      Left            =   120
      TabIndex        =   3
      Top             =   1140
      Width           =   1215
   End
   Begin VB.TextBox txtErrorNo 
      Height          =   315
      Left            =   120
      Locked          =   -1  'True
      TabIndex        =   2
      Top             =   720
      Width           =   1575
   End
   Begin VB.Label lblErrorNo 
      Caption         =   "Number:"
      Height          =   195
      Left            =   120
      TabIndex        =   1
      Top             =   480
      Width           =   1215
   End
   Begin VB.Label lblMessage 
      Caption         =   "The application has generated an error."
      Height          =   255
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   5415
   End
End
Attribute VB_Name = "frmVBError"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private mError As ErrObject

Public Property Set Error(ByVal Value As ErrObject)
    Set mError = Value
End Property

Private Sub cmdClose_Click()
    Unload Me
End Sub

Private Sub Form_Load()
    txtErrorNo.Text = mError.Number
    txtSource.Text = mError.Source
    txtDescription.Text = mError.Description
End Sub

Private Sub Form_Unload(Cancel As Integer)
    Set mError = Nothing
End Sub
