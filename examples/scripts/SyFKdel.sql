ALTER TABLE tCustomer
DROP CONSTRAINT FK_tCustomer_1

ALTER TABLE tBillingAddress
DROP CONSTRAINT FK_tBillingAddress_1

ALTER TABLE tContacts
DROP CONSTRAINT FK_tContacts_1

ALTER TABLE tContact
DROP CONSTRAINT FK_tContact_1

ALTER TABLE tDeliveryAddress
DROP CONSTRAINT FK_tDeliveryAddress_1

ALTER TABLE tOrderLines
DROP CONSTRAINT FK_tOrderLines_1

ALTER TABLE tOrderLine
DROP CONSTRAINT FK_tOrderLine_1

ALTER TABLE tProduct
DROP CONSTRAINT FK_tProduct_1

ALTER TABLE tLineAllocations
DROP CONSTRAINT FK_tLineAllocations_1

ALTER TABLE tLineAllocation
DROP CONSTRAINT FK_tLineAllocation_1

ALTER TABLE tShipments
DROP CONSTRAINT FK_tShipments_1

ALTER TABLE tShipment
DROP CONSTRAINT FK_tShipment_1

ALTER TABLE tParcel
DROP CONSTRAINT FK_tParcel_1

ALTER TABLE tPayments
DROP CONSTRAINT FK_tPayments_1

ALTER TABLE tPayment
DROP CONSTRAINT FK_tPayment_1

ALTER TABLE tDeliveryInstructions
DROP CONSTRAINT FK_tDeliveryInstructions_1


