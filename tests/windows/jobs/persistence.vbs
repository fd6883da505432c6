' A whole tree: saved, found, loaded, updated and deleted, with the result of every call.
' Arguments: the target database's path as the ODBC driver takes it, and the tree as JSON.
Option Explicit
Const repository = "orders.db"
Dim crud, objects, order, loaded, key, lines, line, customer, value

Sub Show(label, value)
    WScript.Echo label & ": " & value & " (" & crud.LastResult & ")"
End Sub

Function ReadFile(path)
    ReadFile = CreateObject("Scripting.FileSystemObject").OpenTextFile(path).ReadAll
End Function

' The value of a data object in the column of that name.
Function Column(data, columnName)
    Column = data.Value(data.ValueIndex(columnName))
End Function

Sub SetColumn(data, columnName, newValue)
    data.Value(data.ValueIndex(columnName)) = newValue
End Sub

' JSON text without what was never set: Null in the loaded object, nothing at all in the one that was saved.
Function WithoutNulls(text)
    Dim lines, n
    lines = Split(text, vbLf)
    For n = 0 To UBound(lines)
        If InStr(lines(n), ": null") = 0 Then WithoutNulls = WithoutNulls & lines(n) & vbLf
    Next
End Function

Sub ShowLines(lines)
    Dim line
    For Each line In lines
        WScript.Echo "  line " & Column(line, "OrderLineID") & ": number " & Column(line, "LineNumber") & ", " & _
            Column(line, "Quantity") & " of " & Column(line.NamedValue("Product"), "Sku")
    Next
End Sub

Set crud = CreateObject("Korvex.clsCRUD")
Set objects = CreateObject("KorvexTest.DataObjects")
Set order = objects.FromJson(repository, "Orders", ReadFile(WScript.Arguments(1)))
objects.ApplyJson order, "{""Customer"": {""CompanyName"": ""M\u00fcller & \u0416\ud83d\ude00""}}"
Show "fresh", crud.FKPrefix
Show "save without a connection", crud.DbSaveData(order)
Show "connect", crud.ConnectDB("DRIVER=SQLite3;FKSupport=1;Database=" & WScript.Arguments(0))
Show "prefix", crud.FKPrefix
Show "table", crud.GetTableName(order.DataDef)
Show "own key", crud.GetPrimaryKeyFieldName(order.DataDef)
Show "foreign key", crud.GetForeignKeyFieldName(order.NamedValue("Customer").DataDef)

' Save.
Show "modified", order.Modified
key = crud.DbSaveData(order)
Show "saved", key
Show "modified", order.Modified
Show "exists", crud.DbDataExists(order)
Show "exists 99", crud.DbDataExists(order, 99)
Set customer = order.NamedValue("Customer")
Show "keys", Column(order, "OrderID") & ", " & Column(customer, "CustomerID") & ", " & Column(customer, "FK_OrderID")
ShowLines order.NamedValue("Lines")

' Load.
Set loaded = objects.Create(repository, "Orders")
Show "loaded", crud.DbGetData(loaded, key)
Show "loaded as saved", (WithoutNulls(objects.ToJson(loaded)) = WithoutNulls(objects.ToJson(order)))
Show "load 99", crud.DbGetData(objects.Create(repository, "Orders"), 99)
Show "load nothing", crud.DbGetData(objects.Create(repository, "Orders"), Empty)
Set loaded = objects.Create(repository, "Orders").NamedValue("Customer")
Show "child by its parent's key", crud.DbGetData(loaded, key, "FK_OrderID")
Show "company", Column(loaded, "CompanyName") = Column(customer, "CompanyName")

' Single fields.
value = "as it was"
Show "field", crud.DbGetField(key, "OrderID", "tOrder", "State", value)
Show "value", TypeName(value) & " " & value
Show "unknown field", crud.DbGetField(key, "OrderID", "tOrder", "Nope", value)
Show "unknown record", crud.DbGetField(99, "OrderID", "tOrder", "State", value)
Show "unknown table", crud.DbGetField(key, "OrderID", "tNope", "State", value)
Show "no column", crud.DbGetField(key, "OrderID", "tOrder", "", value)
Show "value", value
Show "save field", crud.DbSaveField(key, "OrderID", "tOrder", "CurrencyCode", "CHF")
crud.DbGetField key, "OrderID", "tOrder", "CurrencyCode", value
Show "value", value

' Update: one value, one line more, one line less.
Show "nothing to update", crud.DbUpdateData(order)
SetColumn order, "State", 4
Set lines = order.NamedValue("Lines")
Set line = lines.AddItem()
SetColumn line, "LineNumber", 9
SetColumn line, "Quantity", 2.5
SetColumn line.NamedValue("Product"), "Sku", "NEW-9"
Show "updated", crud.DbUpdateData(order)
Set loaded = objects.Create(repository, "Orders")
crud.DbGetData loaded, key
Show "state", Column(loaded, "State")
ShowLines loaded.NamedValue("Lines")
Show "currency", Column(loaded, "CurrencyCode")
objects.ApplyJson loaded, "{""Lines"": {""$items"": [{""OrderLineID"": 1, ""Quantity"": 7}]}}"
Show "updated", crud.DbUpdateData(loaded, key)
Set loaded = objects.Create(repository, "Orders")
crud.DbGetData loaded, key
ShowLines loaded.NamedValue("Lines")
Show "all but the root anew", crud.DbUpdateDataRetainRoot(loaded, key)
ShowLines loaded.NamedValue("Lines")

' Delete, beside a second order.
Show "saved", crud.DbSaveData(objects.FromJson(repository, "Orders", objects.ToJson(loaded)))
Show "delete 99", crud.DbDeleteData(order, 99)
Show "deleted", crud.DbDeleteData(order, key)
Show "with objects of the host's own class", (objects.WorkingObjects > 0)
Show "exists", crud.DbDataExists(order, key)
Show "disconnected", TypeName(crud.DisconnectDB)
Show "exists", crud.DbDataExists(order, key)
WScript.Echo "end of job"
