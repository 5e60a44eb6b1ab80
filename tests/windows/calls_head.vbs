' What the comparing script stands on beside its checks: the objects and the texts. The calls follow.
Dim texts, hr, employee, data, app, client, v
texts = Split(CreateObject("Scripting.FileSystemObject").OpenTextFile("texts.txt", 1, False, -1).ReadAll, vbCrLf)
Set hr = CreateObject("KT7HRLib.HRObject")
Set data = CreateObject("KT7Database2.DataObj")
Set app = CreateObject("KT7Database2.AppObj")
Set client = CreateObject("KT7Database2.ClientObj")
data.ConnectionString = "Driver=SQLite;Database=company.db"
app.AppDatabaseConnectionString = "Driver=SQLite;Database=company.db"
client.CurrentUserID = 7
client.CurrentBranchCode = "BR01"
client.PickerAnswer = "E0001,E0002"
data.OpenConnection
On Error Resume Next
