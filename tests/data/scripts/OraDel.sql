DROP SEQUENCE SEQ_tOrder; 

DROP TABLE tOrder; 

DROP SEQUENCE SEQ_tCustomer; 

DROP TABLE tCustomer; 

DROP SEQUENCE SEQ_tAddress2; 

DROP TABLE tAddress2; 

DROP SEQUENCE SEQ_tContacts; 

DROP TABLE tContacts; 

DROP SEQUENCE SEQ_tContact; 

DROP TABLE tContact; 

DROP SEQUENCE SEQ_tAddress2; 

DROP TABLE tAddress2; 

DROP SEQUENCE SEQ_tOrderLines; 

DROP TABLE tOrderLines; 

DROP SEQUENCE SEQ_tOrderLine; 

DROP TABLE tOrderLine; 

DROP SEQUENCE SEQ_tProduct; 

DROP TABLE tProduct; 

DROP SEQUENCE SEQ_tLineAllocations; 

DROP TABLE tLineAllocations; 

DROP SEQUENCE SEQ_tLineAllocation; 

DROP TABLE tLineAllocation; 

DROP SEQUENCE SEQ_tShipments; 

DROP TABLE tShipments; 

DROP SEQUENCE SEQ_tShipment; 

DROP TABLE tShipment; 

DROP SEQUENCE SEQ_tParcel; 

DROP TABLE tParcel; 

DROP SEQUENCE SEQ_tPayments; 

DROP TABLE tPayments; 

DROP SEQUENCE SEQ_tPayment; 

DROP TABLE tPayment; 

DROP SEQUENCE SEQ_trnationalDeliveryInstructions; 

DROP TABLE trnationalDeliveryInstructions; 


