ALTER TABLE tCustomer
ADD CONSTRAINT FK_tCustomer_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID); 


ALTER TABLE tBillingAddress
ADD CONSTRAINT FK_tBillingAddress_1 FOREIGN KEY (FK_CustomerID)
 REFERENCES tCustomer(CustomerID); 


ALTER TABLE tContacts
ADD CONSTRAINT FK_tContacts_1 FOREIGN KEY (FK_CustomerID)
 REFERENCES tCustomer(CustomerID); 


ALTER TABLE tContact
ADD CONSTRAINT FK_tContact_1 FOREIGN KEY (FK_ContactsID)
 REFERENCES tContacts(ContactsID); 


ALTER TABLE tDeliveryAddress
ADD CONSTRAINT FK_tDeliveryAddress_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID); 


ALTER TABLE tOrderLines
ADD CONSTRAINT FK_tOrderLines_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID); 


ALTER TABLE tOrderLine
ADD CONSTRAINT FK_tOrderLine_1 FOREIGN KEY (FK_OrderLinesID)
 REFERENCES tOrderLines(OrderLinesID); 


ALTER TABLE tProduct
ADD CONSTRAINT FK_tProduct_1 FOREIGN KEY (FK_OrderLineID)
 REFERENCES tOrderLine(OrderLineID); 


ALTER TABLE tLineAllocations
ADD CONSTRAINT FK_tLineAllocations_1 FOREIGN KEY (FK_OrderLineID)
 REFERENCES tOrderLine(OrderLineID); 


ALTER TABLE tLineAllocation
ADD CONSTRAINT FK_tLineAllocation_1 FOREIGN KEY (FK_LineAllocationsID)
 REFERENCES tLineAllocations(LineAllocationsID); 


ALTER TABLE tShipments
ADD CONSTRAINT FK_tShipments_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID); 


ALTER TABLE tShipment
ADD CONSTRAINT FK_tShipment_1 FOREIGN KEY (FK_ShipmentsID)
 REFERENCES tShipments(ShipmentsID); 


ALTER TABLE tParcel
ADD CONSTRAINT FK_tParcel_1 FOREIGN KEY (FK_ShipmentID)
 REFERENCES tShipment(ShipmentID); 


ALTER TABLE tPayments
ADD CONSTRAINT FK_tPayments_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID); 


ALTER TABLE tPayment
ADD CONSTRAINT FK_tPayment_1 FOREIGN KEY (FK_PaymentsID)
 REFERENCES tPayments(PaymentsID); 


ALTER TABLE tDeliveryInstructions
ADD CONSTRAINT FK_tDeliveryInstructions_1 FOREIGN KEY (FK_OrderID)
 REFERENCES tOrder(OrderID); 



