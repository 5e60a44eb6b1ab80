' Checks of the test scripts: each counts itself; the script ends with the line of both counts.
Dim passed, failed
passed = 0
failed = 0

Sub Note(ok, name, got, wanted)
  If ok Then
    passed = passed + 1
  Else
    failed = failed + 1
    WScript.Echo "FAILED " & name & ": got " & TypeName(got) & " " & got & ", wanted " & wanted
  End If
End Sub

Function Same(got, wanted)
  Same = False
  Select Case VarType(wanted)
    Case vbEmpty
      Same = IsEmpty(got)
    Case vbNull
      Same = IsNull(got)
    Case vbString, vbBoolean
      If VarType(got) = VarType(wanted) Then Same = (got = wanted)
    Case Else
      If VarType(got) = vbSingle Then
        Same = (got = CSng(wanted))
      ElseIf VarType(got) <> vbString And VarType(got) <> vbEmpty And VarType(got) <> vbNull Then
        Same = (Abs(CDbl(got) - CDbl(wanted)) <= 0.000000001 * (1 + Abs(CDbl(wanted))))
      End If
  End Select
End Function

Sub Answered(name, got, wanted)
  If Err.Number <> 0 Then
    Note False, name, "error " & Err.Number & " " & Err.Description, wanted
  Else
    Note Same(got, wanted), name, got, wanted
  End If
End Sub

Sub Holds(name, got, wanted)
  Note Same(got, wanted), name, got, wanted
End Sub

' A script host shows a published number with or without the platform's facility.
Sub Refused(name, number, text)
  Dim shown
  shown = Err.Number
  If (shown And &HFFFF0000) = &H800A0000 Then shown = shown And 65535
  Note shown = number And Err.Description = text, name, shown & " " & Err.Description, number & " " & text
End Sub
