' Asks for the rates and the month's tax of every employee who is paid by the month, one line each,
' as a macro in a workbook would fill its rows.
'   cscript //nologo rates_and_tax.vbs [DATABASE]
Option Explicit

Dim hr, data, rows, database
database = "company.db"
If WScript.Arguments.Count > 0 Then database = WScript.Arguments(0)

Set hr = CreateObject("KT7HRLib.HRObject")
Set data = CreateObject("KT7Database2.DataObj")
data.ConnectionString = "Driver=SQLite;Database=" & database

data.OpenConnection
Set rows = CreateObject("KT7Database2.Recordset")
rows.Open "SELECT TEmpCode,TEmpSalary,TEmpSignDate FROM KT7TEmployee WHERE TEmpTEmTCode='M1' ORDER BY TEmpCode", data.Connection

WScript.Echo "employee,day rate,hour rate,tax"
Do Until rows.EOF
  Dim code, salary
  code = rows.Fields("TEmpCode").Value
  salary = rows.Fields("TEmpSalary").Value
  WScript.Echo code & "," & CCur(hr.GETDAYRATE(code, data)) & "," & _
      CCur(hr.GETHOURRATE(code, data)) & "," & Tax(salary, rows.Fields("TEmpSignDate").Value)
  rows.MoveNext
Loop
rows.Close
data.CloseConnection

' The tax of January 2026 on a salary, with the personal allowance alone. The operation changes the
' arguments that stand in variables; their values afterwards are of no interest here.
Function Tax(salary, signDate)
  Dim months, reduce, studySupport, donation, waived, fixed
  months = 12
  reduce = 60000
  studySupport = 0
  donation = 0
  waived = 0
  fixed = False
  Tax = hr.CalcPTAX4(data, salary, 0, signDate, 0, 0, months, reduce, 0, studySupport, donation, _
      waived, salary, fixed, CDate(46053), 875)
End Function
