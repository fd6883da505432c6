' The error numbers that a script sees.
' Argument: the target database's path as the ODBC driver takes it.
Option Explicit
Const repository = "orders.db"
Dim scripts, crud, column, objects, order, dialects, x

Sub Check(label)
    Dim text
    text = label & ": " & Err.Number
    If Err.Number <> 0 And Err.Source <> "Microsoft VBScript runtime error" Then
        text = text & ", " & Err.Source & ", " & Err.Description
    End If
    WScript.Echo text
    Err.Clear
End Sub

Sub ForEachOver(thing)
    Dim item
    For Each item In thing
    Next
End Sub

Set scripts = CreateObject("Korvex.clsCreateDb")
scripts.ScriptFilePath = "out"
Set crud = CreateObject("Korvex.clsCRUD")
Set column = CreateObject("Korvex.clsField")
Set objects = CreateObject("KorvexTest.DataObjects")
Set order = objects.Create(repository, "Orders")
On Error Resume Next

' Members and arguments.
scripts.NoSuchMember
Check "unknown member"
scripts.DbSQL = "x"
Check "read-only property"
scripts.DoScript "90"
Check "too few arguments"
scripts.DoMSsqlDb repository, "Orders", "FK_", "more"
Check "too many arguments"
column.DataType = "abc"
Check "a text for a number"
column.DataType = 3000000000
Check "a number beyond 32 bits"
x = crud.DbSaveData(scripts)
Check "another object for a data object"
Set crud.DbConn = scripts
Check "another object for a connection"
ForEachOver scripts
Check "For Each over no collection"
Set dialects = scripts.ScriptTypes
x = dialects(4)
Check "an item behind the last"
x = dialects("Oracle")
Check "an unknown key"

' The repository engine's own numbers.
scripts.DoMSsqlDb "nowhere.db", "Orders"
Check "no such file"
scripts.DoMSsqlDb "no_database.txt", "Orders"
Check "no database"
scripts.DoMSsqlDb "Driver=SQLite3;DSN=nowhere;Database=/no/such/folder/x.db", "Orders"
Check "no such data source"
scripts.DoMSsqlDb repository, "Or'ders"
Check "a quote in the storage name"
scripts.DoScript "91", "nowhere.db"
Check "no dialect of that name"
scripts.DoMSsqlDb "refusing.db", "Orders"
Check "a table that refuses rows"
scripts.ScriptFilePath = "no\such\folder"
scripts.DoMSsqlDb repository, "Orders"
Check "no such folder"
scripts.ShutDown
Check "no repository open"
x = scripts.ConnectDB("anything")
Check "ConnectDB of scripts, " & TypeName(x)

' clsCRUD reports most failures in LastResult; errors of the target database end the call.
x = crud.ConnectDB("DRIVER=SQLite3;Database=/no/such/folder/x.db")
Check "no database, " & x & " (" & crud.LastResult & ")"
x = crud.ConnectDB("DRIVER=SQLite3;FKSupport=1;Database=" & WScript.Arguments(0))
Check "connected, " & x
order.Value(order.ValueIndex("OrderNumber")) = "A-1"
order.NamedValue("Customer").Value(1) = "Ann & Co"
x = order.NamedValue("Customer").ValueIndex("FK_OrderID")
order.NamedValue("Customer").Value(x) = 99
x = "unchanged"
x = crud.DbSaveData(order.NamedValue("Customer"))
Check "a parent that is not there, " & x
x = crud.DbDeleteData(order, "1 or 1=1")
Check "a key that is no number, " & x
crud.DbConn.Execute "alter table tOrder drop column QORCounter"
x = crud.DbSaveData(order)
Check "a column that is not there"
x = order.Value(999)
Check "an error of the data object"
WScript.Echo "end of job"
