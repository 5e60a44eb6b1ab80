' Makes a company, pays a month and prints the register.
'   cscript //nologo payroll_month.vbs [DATABASE [MONTH [FORMAT]]]
' DATABASE is a new file (company.db), MONTH is 2026-01, FORMAT is table, csv or json.
Option Explicit

Dim database, month, form, payroll
database = Argument(0, "company.db")
month = Argument(1, "2026-01")
form = Argument(2, "table")

Set payroll = CreateObject("KT7Database2.Payroll")
payroll.ConnectionString = "Driver=SQLite;Database=" & database
payroll.Create True

WScript.Echo payroll.Run(month, "", "", form)
If payroll.Notes <> "" Then WScript.StdErr.WriteLine payroll.Notes
WScript.Quit payroll.Failed

Function Argument(position, usual)
  Argument = usual
  If WScript.Arguments.Count > position Then Argument = WScript.Arguments(position)
End Function
