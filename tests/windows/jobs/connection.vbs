' The ADO connection and recordsets that a host shares with clsCRUD.
' Argument: the target database's path as the ODBC driver takes it.
Option Explicit
Dim crud, own, other, rows, connectionString

Sub Show(label, value)
    WScript.Echo label & ": " & value & " (" & crud.LastResult & ")"
End Sub

connectionString = "DRIVER=SQLite3;Database=" & WScript.Arguments(0)
Set crud = CreateObject("Korvex.clsCRUD")
Show "no connection", (crud.DbConn Is Nothing)
Show "unopened recordset", crud.OpenRecordset("select 1").State

' A host's own connection is taken as it is and given back as it is, but used only after a ConnectDB.
Set own = CreateObject("ADODB.Connection")
own.Open connectionString
Set crud.DbConn = own
Show "given back", (crud.DbConn Is own)
Show "not used yet", crud.OpenRecordset("select * from tPayment").State
Show "connected", crud.ConnectDB(connectionString, "")
Show "prefix", "<" & crud.FKPrefix & ">"
Show "another one", Not (crud.DbConn Is own)
Set other = crud.DbConn
Show "state", other.State
crud.DbConn = own
Show "given back", (crud.DbConn Is own)
Show "reconnected", crud.ConnectDB(connectionString)
Show "closed with it", own.State
Show "not closed", other.State

' Recordsets are the engine's own.
Set own = crud.DbConn
Set rows = crud.OpenRecordset("select * from tCustomer")
Show "open", rows.State & ", cursor " & rows.CursorType & ", lock " & rows.LockType
rows.Close
Show "bad statement", (crud.OpenRecordset("select * from tNope") Is Nothing)
crud.DisconnectDB
Show "closed", own.State
WScript.Echo "end of job"
