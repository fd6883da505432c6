' The ADO connection and recordsets that a host shares with clsCRUD.
' Argument: the target database's path as the ODBC driver takes it.
Option Explicit
Dim crud, own, other, rows, field, connectionString

Sub Show(label, value)
    WScript.Echo label & ": " & value & " (" & crud.LastResult & ")"
End Sub

Sub ShowRows(sql)
    Dim rows, text, field
    Set rows = crud.OpenRecordset(sql)
    Do Until rows.EOF
        text = ""
        For Each field In rows.Fields
            text = text & " " & field.Name & "=" & field.Value
        Next
        WScript.Echo " " & text
        rows.MoveNext
    Loop
    rows.Close
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
For Each field In rows.Fields
    WScript.Echo "  " & field.Name & ": type " & field.Type & ", size " & field.DefinedSize
Next
own.BeginTrans
rows.AddNew
rows.Fields("CompanyName").Value = "Ann & Co"
rows.Fields("CreditLimit").Value = 1250.5
rows.Update
rows.AddNew
rows("CompanyName") = "Ben Ltd"
rows("IsCompany") = True
rows.Update
rows.Close
ShowRows "select CustomerID, CompanyName, CreditLimit, IsCompany, Rating from tCustomer"
own.RollbackTrans
ShowRows "select count(*) as n from tCustomer"
Set rows = own.Execute("insert into tCustomer (CompanyName) values ('Cid')", field)
Show "affected", field
Show "bad statement", (crud.OpenRecordset("select * from tNope") Is Nothing)
ShowRows "select CustomerID, CompanyName from tCustomer"
crud.DisconnectDB
Show "closed", own.State
WScript.Echo "end of job"
