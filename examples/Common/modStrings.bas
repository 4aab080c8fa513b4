Attribute VB_Name = "modStrings"
Option Explicit
Option Compare Binary

' Texts. Shared by the shop and its library: change it in one place, build both.
' Nothing in here shows a message or keeps a state.

Private Const BLANKS As String = " " & vbTab, QUOTE = """"

Public Function IsBlank(ByVal Text As String) As Boolean
    IsBlank = (Len(Trim$(Replace(Text, vbTab, " "))) = 0)
End Function

'***************************************************************************
'*  Name         : PadRight
'*  Description  : Left aligned, cut or filled up to the width
'*  Parameters   : Text - String, Width - Long,
'*               : Optional Filler - String = " "
'*  Returns      : String
'*  Author       : René Dubois
'*  Date         : 03 Sep 2004
'***************************************************************************

Public Function PadRight(ByVal Text As String, ByVal Width As Long, Optional ByVal Filler As String = " ") As String
    If Len(Text) >= Width Then
        PadRight = Left$(Text, Width)
    Else
        PadRight = Text & String$(Width - Len(Text), Filler)
    End If
End Function

'***************************************************************************
'*  Name         : PadLeft
'*  Description  : Right aligned, never cut
'*  Parameters   : Text - String, Width - Long,
'*               : Optional Filler - String = " "
'*  Returns      : String
'*  Author       : René Dubois
'*  Date         : 03 Sep 2004
'***************************************************************************

Public Function PadLeft(ByVal Text As String, ByVal Width As Long, Optional ByVal Filler As String = " ") As String
    If Len(Text) < Width Then Text = String$(Width - Len(Text), Filler) & Text
    PadLeft = Text
End Function

' How often Find stands in Text
Public Function CountOf(ByVal Text As String, ByVal Find As String) As Long
    Dim lngPos As Long

    If Len(Find) = 0 Then Exit Function
    lngPos = InStr(Text, Find)
    Do Until lngPos = 0
        CountOf = CountOf + 1
        lngPos = InStr(lngPos + Len(Find), Text, Find)
    Loop
End Function

' "straße 12b" -> "Straße 12b". A letter is big at the start and behind a blank or a hyphen.
Public Function ProperName(ByVal Text As String) As String
    Dim lngPos As Long, blnStart As Boolean
    Dim strChar As String * 1

    blnStart = True
    For lngPos = 1 To Len(Text)
        strChar = Mid$(Text, lngPos, 1)
        If blnStart Then Mid$(Text, lngPos, 1) = UCase$(strChar)
        blnStart = (InStr(BLANKS & "-", strChar) > 0)
    Next lngPos
    ProperName = Text
End Function

Public Function Quoted(ByVal Text As String) As String
    Quoted = QUOTE & Replace(Text, QUOTE, QUOTE & QUOTE) & QUOTE
End Function

Public Function Field(ByVal Text As String, ByVal Number As Long, Optional ByVal Separator As String = ";") As String
    Dim strField() As String

    strField = Split(Text, Separator)
    If Number >= 1 And Number - 1 <= UBound(strField) Then Field = Trim$(strField(Number - 1))
End Function

' Join for people: a, b and c
Public Function Listed(ParamArray Words() As Variant) As String
    Dim lngWord As Long

    For lngWord = LBound(Words) To UBound(Words)
        If lngWord > LBound(Words) Then
            Listed = Listed & IIf(lngWord = UBound(Words), " and ", ", ")
        End If
        Listed = Listed & Words(lngWord)
    Next lngWord
End Function

Private Function Reversed(ByVal Text As String) As String
    Reversed = StrReverse(Text)
End Function

Public Function SameText(ByVal First As String, ByVal Second As String) As Boolean
    SameText = (StrComp(First, Second, vbTextCompare) = 0)
End Function
