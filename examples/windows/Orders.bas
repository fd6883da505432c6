Attribute VB_Name = "Orders"
' Saves and loads a customer with the class DataObject. References: Korvex.
' Written for VBA, and not run by the tests.
Option Explicit

' A value with a column of the same name. The key is filled by the database.
Private Function NewValue(ByVal column As String, ByVal index As Long, Optional ByVal isKey As Boolean) As DataObject
    Set NewValue = New DataObject
    NewValue.SetAttribute attName, column
    NewValue.SetAttribute attFieldName, column
    NewValue.SetAttribute attValueIndex, index
    NewValue.SetAttribute attIsIncluded, True
    NewValue.SetAttribute attIsAutoNumber, isKey
End Function

Private Function CustomerDefinition() As DataObject
    Dim values As New DataObject, keys As New DataObject, foreignKeys As New DataObject, key As New DataObject
    values.AddEntry NewValue("CustomerID", 0, True)
    values.AddEntry NewValue("CompanyName", 1)
    key.SetAttribute attName, "CustomerID"
    keys.AddEntry key
    Set CustomerDefinition = New DataObject
    CustomerDefinition.SetAttribute attTableName, "tCustomer"
    CustomerDefinition.SetAttribute attIsIncluded, True
    CustomerDefinition.SetAttribute attValues, values
    CustomerDefinition.SetAttribute attPrimaryKeys, keys
    CustomerDefinition.SetAttribute attForeignKeys, foreignKeys
End Function

Public Sub SaveAndLoad(ByVal connection As String)
    Dim crud As New Korvex.clsCRUD, customer As New DataObject, data As QORObject, key As Variant
    If Not crud.ConnectDB(connection) Then
        MsgBox "Not connected: " & crud.LastResult
        Exit Sub
    End If
    customer.Define CustomerDefinition()
    Set data = customer
    data.Value(data.ValueIndex("CompanyName")) = "Ann & Co"
    key = crud.DbSaveData(data)
    If crud.LastResult <> dbNoError Then MsgBox "Not saved: " & crud.LastResult: Exit Sub

    Set customer = New DataObject
    customer.Define CustomerDefinition()
    Set data = customer
    crud.DbGetData data, key
    MsgBox "Customer " & key & " is " & data.Value(data.ValueIndex("CompanyName"))
    crud.DbDeleteData data, key
    crud.DisconnectDB
End Sub
