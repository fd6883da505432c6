' Saves, loads, updates and deletes a data object.
'     cscript persistence.vbs "Provider=SQLOLEDB;Data Source=server;Initial Catalog=Orders;..." Your.DataObjects
' A script cannot implement QORObject, whose members are called through their slots: the data objects come from a component
' of yours. Here its class has a member Create(repository, storage) that gives an empty one.
Option Explicit
Dim crud, factory, order, loaded, key

Sub Check(what)
    If crud.LastResult <> 0 Then
        WScript.Echo what & " failed: " & crud.LastResult
        WScript.Quit 1
    End If
    WScript.Echo what
End Sub

Function NewOrder()
    Set NewOrder = factory.Create("orders.db", "Orders")
End Function

Function OrderNumber(data)
    OrderNumber = data.Value(data.ValueIndex("OrderNumber"))
End Function

Set crud = CreateObject("Korvex.clsCRUD")
If Not crud.ConnectDB(WScript.Arguments(0)) Then Check "connect"
Set factory = CreateObject(WScript.Arguments(1))

Set order = NewOrder()
order.Value(order.ValueIndex("OrderNumber")) = "A-1"
key = crud.DbSaveData(order)
Check "saved as " & key

Set loaded = NewOrder()
crud.DbGetData loaded, key
Check "loaded " & OrderNumber(loaded)

loaded.Value(loaded.ValueIndex("OrderNumber")) = "A-2"
crud.DbUpdateData loaded, key
Check "updated"
Set loaded = NewOrder()
crud.DbGetData loaded, key
Check "loaded " & OrderNumber(loaded)

crud.DbDeleteData loaded, key
Check "deleted"
WScript.Echo "still there: " & crud.DbDataExists(loaded, key)
crud.DisconnectDB
