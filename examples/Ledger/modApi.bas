Attribute VB_Name = "modApi"
Option Explicit

' What comes from Windows itself. Nobody else calls the API directly,
' except for GetTickCount, which everybody may use.

Private Const MAX_NAME = 255
Private Const LB_SETTABSTOPS As Long = &H192, LB_SETHORIZONTALEXTENT As Long = &H194
Private Const CB_SHOWDROPDOWN As Long = &H14F
Private Const SW_SHOWNORMAL = 1&
Private Const ERROR_LIMIT As Long = 32

Private Type SYSTEMTIME
    wYear As Integer
    wMonth As Integer
    wDayOfWeek As Integer
    wDay As Integer
    wHour As Integer
    wMinute As Integer
    wSecond As Integer
    wMilliseconds As Integer
End Type

Private Type RECT
    Left As Long
    Top As Long
    Right As Long
    Bottom As Long
End Type

Public Declare Function GetTickCount Lib "kernel32" () As Long
Private Declare Sub Sleep Lib "kernel32" (ByVal dwMilliseconds As Long)
Private Declare Sub GetLocalTime Lib "kernel32" (lpSystemTime As SYSTEMTIME)
Private Declare Function GetUserName Lib "advapi32.dll" Alias "GetUserNameA" (ByVal lpBuffer As String, nSize As Long) As Long
Private Declare Function SendMessageArray Lib "user32" Alias "SendMessageA" (ByVal hWnd As Long, _
    ByVal wMsg As Long, ByVal wParam As Long, lParam As Any) As Long
Private Declare Function SendMessageLong& Lib "user32" Alias "SendMessageA" (ByVal hWnd As Long, _
    ByVal wMsg As Long, ByVal wParam As Long, ByVal lParam As Long)
Private Declare Function ShellExecute Lib "shell32.dll" Alias "ShellExecuteA" (ByVal hWnd As Long, _
    ByVal lpOperation As String, ByVal lpFile As String, ByVal lpParameters As String, _
    ByVal lpDirectory As String, ByVal nShowCmd As Long) As Long
Private Declare Function GetClientRect Lib "user32" (ByVal hWnd As Long, lpRect As RECT) As Long
Private Declare Function GetPrivateProfileString Lib "kernel32" Alias "GetPrivateProfileStringA" _
    (ByVal lpApplicationName As String, ByVal lpKeyName As String, ByVal lpDefault As String, _
    ByVal lpReturnedString As String, ByVal nSize As Long, ByVal lpFileName As String) As Long

Public Function CurrentUser() As String
    Dim strName As String, lngSize As Long

    strName = Space$(MAX_NAME)
    lngSize = MAX_NAME
    If GetUserName(strName, lngSize) <> 0 Then CurrentUser = Left$(strName, lngSize - 1)
End Function

Public Sub SetTabStops(ByVal List As ListBox, ParamArray Stops() As Variant)
    Dim lngStops() As Long
    Dim intStop As Integer

    ReDim lngStops(0 To UBound(Stops))
    For intStop = 0 To UBound(Stops)
        lngStops(intStop) = Stops(intStop)
    Next
    SendMessageArray List.hWnd, LB_SETTABSTOPS, UBound(Stops) + 1, lngStops(0)
    SendMessageLong List.hWnd, LB_SETHORIZONTALEXTENT, 800, 0
End Sub

Public Sub DropDown(ByVal Combo As ComboBox)
    Call SendMessageLong(Combo.hWnd, CB_SHOWDROPDOWN, 1&, 0&)
End Sub

'***************************************************************************
'*  Name         : OpenDocument
'*  Description  : Opens a document with the program that is registered for it
'*  Parameters   : hWnd - Long, FileName - String
'*  Returns      : Boolean
'*  Author       : Ann Hallam
'*  Date         : 05 Feb 2003
'***************************************************************************

Public Function OpenDocument(ByVal hWnd As Long, ByVal FileName As String) As Boolean
    OpenDocument = ShellExecute(hWnd, "open", FileName, vbNullString, vbNullString, SW_SHOWNORMAL) > ERROR_LIMIT
End Function

Public Sub Wait(ByVal Milliseconds As Long)
    Dim lngUntil As Long

    lngUntil = GetTickCount() + Milliseconds
    Do While GetTickCount() < lngUntil
        DoEvents
        Sleep 20
    Loop
End Sub

Public Function ReadIni(ByVal FileName As String, ByVal Section As String, ByVal Key As String, Optional ByVal Default As String = "") As String
    Dim strValue As String * 255
    Dim lngLen&

    lngLen& = GetPrivateProfileString(Section, Key, Default, strValue, Len(strValue), FileName)
    ReadIni = Left$(strValue, lngLen&)
End Function

Public Function ClientWidth(ByVal hWnd As Long) As Long
    Dim udtRect As RECT

    GetClientRect hWnd, udtRect
    ClientWidth = udtRect.Right - udtRect.Left
End Function

' Local time to the millisecond, for the trace
Public Function PreciseTime() As String
    Dim udtNow As SYSTEMTIME
    GetLocalTime udtNow
    With udtNow
        PreciseTime = Format$(.wHour, "00") & ":" & Format$(.wMinute, "00") & ":" & _
            Format$(.wSecond, "00") & "." & Format$(.wMilliseconds, "000")
    End With
End Function
