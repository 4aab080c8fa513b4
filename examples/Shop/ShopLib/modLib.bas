Attribute VB_Name = "modLib"
Option Explicit

Private Const VB_MODULE_NAME = ".modLib" '* Used in Error Handling
Private Const LOG_NAME = "ShopLib.log"

Public Const ERR_BASE As Long = vbObjectError + 1024
Public Const ERR_QUANTITY = ERR_BASE + 1, ERR_STATE = ERR_BASE + 2, ERR_RULE = ERR_BASE + 3

#Const WRITE_LOG = False

' One number for each order of this process; &H7FFFFFFF is enough for everybody.
Public Static Function NextOrderNumber&()
    Dim lngLast As Long

    If lngLast = &H7FFFFFFF Then lngLast = 0
    lngLast = lngLast + 1
    NextOrderNumber = lngLast
End Function

'***************************************************************************
'*  Name         : Cents
'*  Description  : Rounds to cents, away from zero
'*  Parameters   : Amount - Double
'*  Returns      : Currency
'*  Author       : René Dubois
'*  Date         : 06 Sep 2004
'***************************************************************************

Public Function Cents(ByVal Amount As Double) As Currency

On Error GoTo errHandler
    Cents = CCur(Fix(Amount * 100# + Sgn(Amount) * 0.5) / 100#)

Exit Function
 
errHandler:
 
    Err.Source = Err.Source & VB_MODULE_NAME & ".Cents"

    Err.Raise Err.Number, Err.Source, Err.Description
 
End Function

Public Sub WriteLog(ByVal Text As String)
#If WRITE_LOG Then
    Dim intFile As Integer

    intFile = FreeFile
    Open App.Path & "\" & LOG_NAME For Append As #intFile
    Print #intFile, Now; " "; Text
    Close #intFile
#Else
    Debug.Print Text
#End If
End Sub

Public Function VatOf(ByVal Code As String) As Double
    Select Case Left$(Code & "1", 1)
        Case "0": VatOf = 0#
        Case "2": VatOf = 0.07
        Case Else: VatOf = 0.16
    End Select
End Function
