ALTER TABLE tCustomer ADD CONSTRAINT FK_tCustomer_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID);
ALTER TABLE tAddress2 ADD CONSTRAINT FK_tAddress2_FK_CustomerID FOREIGN KEY (FK_CustomerID) REFERENCES tCustomer (CustomerID);
ALTER TABLE tAddress2 ADD CONSTRAINT FK_tAddress2_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID);
ALTER TABLE tContacts ADD CONSTRAINT FK_tContacts_FK_CustomerID FOREIGN KEY (FK_CustomerID) REFERENCES tCustomer (CustomerID);
ALTER TABLE tContact ADD CONSTRAINT FK_tContact_FK_ContactsID FOREIGN KEY (FK_ContactsID) REFERENCES tContacts (ContactsID);
ALTER TABLE tOrderLines ADD CONSTRAINT FK_tOrderLines_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID);
ALTER TABLE tOrderLine ADD CONSTRAINT FK_tOrderLine_FK_OrderLinesID FOREIGN KEY (FK_OrderLinesID) REFERENCES tOrderLines (OrderLinesID);
ALTER TABLE tProduct ADD CONSTRAINT FK_tProduct_FK_OrderLineID FOREIGN KEY (FK_OrderLineID) REFERENCES tOrderLine (OrderLineID);
ALTER TABLE tLineAllocations ADD CONSTRAINT FK_tLineAllocations_FK_OrderLineID FOREIGN KEY (FK_OrderLineID) REFERENCES tOrderLine (OrderLineID);
ALTER TABLE tLineAllocation ADD CONSTRAINT FK_tLineAllocation_FK_LineAllocationsID FOREIGN KEY (FK_LineAllocationsID) REFERENCES tLineAllocations (LineAllocationsID);
ALTER TABLE tShipments ADD CONSTRAINT FK_tShipments_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID);
ALTER TABLE tShipment ADD CONSTRAINT FK_tShipment_FK_ShipmentsID FOREIGN KEY (FK_ShipmentsID) REFERENCES tShipments (ShipmentsID);
ALTER TABLE tParcel ADD CONSTRAINT FK_tParcel_FK_ShipmentID FOREIGN KEY (FK_ShipmentID) REFERENCES tShipment (ShipmentID);
ALTER TABLE tPayments ADD CONSTRAINT FK_tPayments_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID);
ALTER TABLE tPayment ADD CONSTRAINT FK_tPayment_FK_PaymentsID FOREIGN KEY (FK_PaymentsID) REFERENCES tPayments (PaymentsID);
ALTER TABLE trnationalDeliveryInstructions ADD CONSTRAINT FK_trnationalDeliveryInstructions_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID);

