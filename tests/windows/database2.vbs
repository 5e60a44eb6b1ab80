' The data object, connection, recordset and pay run of KT7Database2 on a company in settings.db.
Dim data, connection, rows, payroll, v
Const kOpenStatic = 3
Const kOptimistic = 3

On Error Resume Next
Set data = CreateObject("KT7Database2.DataObj")
Err.Clear : data.OpenConnection
Refused "a data object without a database", 440, "the data object has no ConnectionString: set it first, such as ""Driver=SQLite;Database=company.db"""
data.ConnectionString = "Driver=SQLite;Database=settings.db"
Err.Clear : v = data.DatabaseType
Answered "the kind of the database", v, "SQLITE"
Err.Clear : v = data.Connection.State
Refused "the connection before it is open", 440, "the data object's connection is closed: call OpenConnection first"
data.OpenConnection
Err.Clear : v = data.Connection.State
Answered "the connection's state", v, 1
Err.Clear : data.ConnectionString = "Driver=SQLite;Database=other.db"
Refused "another database while it is open", 440, "the data object's connection is open: close it before naming another database"

' Written in a transaction that is taken back, then in one that stays.
Set rows = CreateObject("KT7Database2.Recordset")
data.BeginTransaction
rows.Open "SELECT * FROM KT7TSetting WHERE TSetKey='New'", data.Connection, kOpenStatic, kOptimistic, -1
Err.Clear : v = rows.EOF
Answered "no row before", v, True
rows.AddNew
rows.Fields("TSetKey").Value = "New"
rows("TSetNumber") = 12.5
rows.Update
rows.Close
Err.Clear : v = data.Connection.Execute("SELECT TSetNumber n FROM KT7TSetting WHERE TSetKey='New'").Fields.Item("n").Value
Answered "the row that was added", v, 12.5
data.RollbackTransaction
Err.Clear : v = data.Connection.Execute("SELECT 1 FROM KT7TSetting WHERE TSetKey='New'").EOF
Answered "taken back", v, True
data.BeginTransaction
data.ExecuteSql "INSERT INTO KT7TSetting(TSetKey,TSetNumber) VALUES('New',3)"
data.CommitTransaction
data.CloseConnection

Set connection = CreateObject("KT7Database2.Connection")
Err.Clear : v = connection.State
Answered "a connection that is closed", v, 0
connection.CursorLocation = 3
connection.Open "Driver=SQLite;Database=settings.db"
rows.Open "SELECT * FROM KT7TSetting WHERE TSetKey='New'", connection, kOpenStatic, kOptimistic
Err.Clear : v = rows.Fields("TSetText").Value
Answered "a null", v, Null
rows.Fields("TSetText").Value = "changed"
rows.Update
rows.MoveNext
Err.Clear : v = rows.EOF
Answered "past the last row", v, True
Err.Clear : v = rows.Fields("TSetText").Value
Refused "a field past the last row", -2147217900, "the recordset has no current row"
rows.Close
Err.Clear : v = connection.Execute("SELECT TSetText FROM KT7TSetting WHERE TSetKey='New'")("TSetText").Value
Answered "the row that was changed", v, "changed"
Err.Clear : rows.Open "SELECT TSetKey FROM KT7TSetting", connection
v = rows.Fields("Nothing").Value
Refused "a column that is not there", -2147217900, "the result has no column 'Nothing'"
rows.Close
Err.Clear : connection.Execute "DELETE FROM Missing"
Refused "a statement that fails", -2147217900, "no such table: Missing"
connection.Close

' By a connection string, and somebody else's object in its place.
rows.Open "SELECT TSetNumber FROM KT7TSetting WHERE TSetKey='New'", "Driver=SQLite;Database=settings.db"
Err.Clear : v = rows.Fields("TSetNumber").Value
Answered "read by a connection string", v, 3
rows.Close
Err.Clear : rows.Open "SELECT 1", CreateObject("Scripting.Dictionary")
Refused "somebody else's connection", 13, "Type mismatch: the connection is neither a text nor a KT7Database2.Connection"
Err.Clear : v = data.Nonsense
Note Err.Number <> 0, "a member that is not there", Err.Number, "an error"

' A month paid twice gives the same register, with what was typed in for it.
Set payroll = CreateObject("KT7Database2.Payroll")
payroll.ConnectionString = "Driver=SQLite;Database=settings.db"
Err.Clear : payroll.Create
Refused "a company where there is one", 440, "Driver=SQLite;Database=settings.db holds a company already: nothing was changed"
Err.Clear : v = payroll.Run("2026-02", "", "", "csv")
Answered "a month paid twice", payroll.Run("2026-02", "", "", "csv"), v
Answered "its failures", payroll.Failed, 0
Answered "the register of the last run", payroll.Register, v
Note payroll.Paid > 50, "its slips", payroll.Paid, "more than 50"
Err.Clear : v = payroll.Run("February")
Refused "a month that is none", 440, "'February' is no month; write 2026-01"
Err.Clear : v = payroll.Import("KT7TPosition", "positions.csv")
Answered "imported rows", v, 2
Err.Clear : v = payroll.Import("KT7TPosition", "positions.csv")
Note Err.Number = -2147217900 Or (Err.Number And 65535) = 440, "the same rows again", Err.Number & " " & Err.Description, "an error"

' A run that an error ends on its way keeps what was paid.
connection.Open "Driver=SQLite;Database=settings.db"
connection.Execute "UPDATE KT7TEmployee SET TEmpSalary='abc' WHERE TEmpCode='E0026'"
connection.Close
Err.Clear : v = payroll.Run("2026-02", "", "", "csv")
Refused "a row that cannot be read", 13, "Type mismatch: 'abc' is not a number"
Note payroll.Paid > 0, "who was paid before it", payroll.Paid, "more than 0"
Err.Clear : v = payroll.Register
Answered "their register", UBound(Split(v, vbLf)), payroll.Paid + 1
WScript.Echo passed & " passed, " & failed & " failed"
