ALTER TABLE tCustomer
ADD CONSTRAINT FK_tCustomer_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID)
GO

ALTER TABLE tAddress2
ADD CONSTRAINT FK_tAddress2_1 FOREIGN KEY (FK_CustomerID)
 REFERENCES tCustomer(CustomerID)
GO

ALTER TABLE tAddress2
ADD CONSTRAINT FK_tAddress2_1 FOREIGN KEY (FK_CustomerID)
 REFERENCES tCustomer(CustomerID)
GO
ALTER TABLE tAddress2
ADD CONSTRAINT FK_tAddress2_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID)
GO

ALTER TABLE tContacts
ADD CONSTRAINT FK_tContacts_1 FOREIGN KEY (FK_CustomerID)
 REFERENCES tCustomer(CustomerID)
GO

ALTER TABLE tContact
ADD CONSTRAINT FK_tContact_1 FOREIGN KEY (FK_ContactsID)
 REFERENCES tContacts(ContactsID)
GO

ALTER TABLE tAddress2
ADD CONSTRAINT FK_tAddress2_1 FOREIGN KEY (FK_CustomerID)
 REFERENCES tCustomer(CustomerID)
GO

ALTER TABLE tAddress2
ADD CONSTRAINT FK_tAddress2_1 FOREIGN KEY (FK_CustomerID)
 REFERENCES tCustomer(CustomerID)
GO
ALTER TABLE tAddress2
ADD CONSTRAINT FK_tAddress2_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID)
GO

ALTER TABLE tOrderLines
ADD CONSTRAINT FK_tOrderLines_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID)
GO

ALTER TABLE tOrderLine
ADD CONSTRAINT FK_tOrderLine_1 FOREIGN KEY (FK_OrderLinesID)
 REFERENCES tOrderLines(OrderLinesID)
GO

ALTER TABLE tProduct
ADD CONSTRAINT FK_tProduct_1 FOREIGN KEY (FK_OrderLineID)
 REFERENCES tOrderLine(OrderLineID)
GO

ALTER TABLE tLineAllocations
ADD CONSTRAINT FK_tLineAllocations_1 FOREIGN KEY (FK_OrderLineID)
 REFERENCES tOrderLine(OrderLineID)
GO

ALTER TABLE tLineAllocation
ADD CONSTRAINT FK_tLineAllocation_1 FOREIGN KEY (FK_LineAllocationsID)
 REFERENCES tLineAllocations(LineAllocationsID)
GO

ALTER TABLE tShipments
ADD CONSTRAINT FK_tShipments_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID)
GO

ALTER TABLE tShipment
ADD CONSTRAINT FK_tShipment_1 FOREIGN KEY (FK_ShipmentsID)
 REFERENCES tShipments(ShipmentsID)
GO

ALTER TABLE tParcel
ADD CONSTRAINT FK_tParcel_1 FOREIGN KEY (FK_ShipmentID)
 REFERENCES tShipment(ShipmentID)
GO

ALTER TABLE tPayments
ADD CONSTRAINT FK_tPayments_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID)
GO

ALTER TABLE tPayment
ADD CONSTRAINT FK_tPayment_1 FOREIGN KEY (FK_PaymentsID)
 REFERENCES tPayments(PaymentsID)
GO

ALTER TABLE trnationalDeliveryInstructions
ADD CONSTRAINT ationalDeliveryInstructions_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID)
GO


