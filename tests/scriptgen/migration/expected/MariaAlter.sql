ALTER TABLE tCustomer DROP FOREIGN KEY IF EXISTS FK_tCustomer_FK_OrderID;
ALTER TABLE tContacts DROP FOREIGN KEY IF EXISTS FK_tContacts_FK_CustomerID;
ALTER TABLE tAddress2 DROP FOREIGN KEY IF EXISTS FK_tAddress2_FK_CustomerID;
ALTER TABLE tAddress2 DROP FOREIGN KEY IF EXISTS FK_tAddress2_FK_OrderID;
ALTER TABLE tOrderLines DROP FOREIGN KEY IF EXISTS FK_tOrderLines_FK_OrderID;
ALTER TABLE tShipments DROP FOREIGN KEY IF EXISTS FK_tShipments_FK_OrderID;
ALTER TABLE tPayments DROP FOREIGN KEY IF EXISTS FK_tPayments_FK_OrderID;
ALTER TABLE trnationalDeliveryInstructions DROP FOREIGN KEY IF EXISTS FK_trnationalDeliveryInstructions_FK_OrderID;
DROP TRIGGER IF EXISTS tCustomer_I;
DROP TRIGGER IF EXISTS tCustomer_U;
DROP INDEX IF EXISTS IX_tCustomer_FK_OrderID ON tCustomer;
DROP TRIGGER IF EXISTS tContacts_I;
DROP TRIGGER IF EXISTS tContacts_U;
DROP INDEX IF EXISTS IX_tContacts_FK_CustomerID ON tContacts;
DROP TRIGGER IF EXISTS tAddress2_I;
DROP TRIGGER IF EXISTS tAddress2_U;
DROP INDEX IF EXISTS IX_tAddress2_FK_CustomerID ON tAddress2;
DROP INDEX IF EXISTS IX_tAddress2_FK_OrderID ON tAddress2;
DROP TRIGGER IF EXISTS tOrderLines_I;
DROP TRIGGER IF EXISTS tOrderLines_U;
DROP INDEX IF EXISTS IX_tOrderLines_FK_OrderID ON tOrderLines;
DROP TRIGGER IF EXISTS tShipments_I;
DROP TRIGGER IF EXISTS tShipments_U;
DROP INDEX IF EXISTS IX_tShipments_FK_OrderID ON tShipments;
DROP TRIGGER IF EXISTS tPayments_I;
DROP TRIGGER IF EXISTS tPayments_U;
DROP INDEX IF EXISTS IX_tPayments_FK_OrderID ON tPayments;
DROP TRIGGER IF EXISTS trnationalDeliveryInstructions_I;
DROP TRIGGER IF EXISTS trnationalDeliveryInstructions_U;
DROP INDEX IF EXISTS IX_trnationalDeliveryInstructions_FK_OrderID ON trnationalDeliveryInstructions;
ALTER TABLE tOrder RENAME TO tSale;
ALTER TABLE tCustomer RENAME TO tClient;
ALTER TABLE tAddress2 RENAME TO tAddress;
ALTER TABLE tSale RENAME COLUMN Notes TO Remarks;
ALTER TABLE tSale RENAME COLUMN OrderID TO SaleID;
ALTER TABLE tClient RENAME COLUMN CustomerID TO ClientID;
ALTER TABLE tClient RENAME COLUMN FK_OrderID TO FK_SaleID;
ALTER TABLE tContacts RENAME COLUMN FK_CustomerID TO FK_ClientID;
ALTER TABLE tAddress RENAME COLUMN FK_OrderID TO FK_SaleID;
ALTER TABLE tOrderLines RENAME COLUMN FK_OrderID TO FK_SaleID;
ALTER TABLE tShipments RENAME COLUMN FK_OrderID TO FK_SaleID;
ALTER TABLE tPayments RENAME COLUMN FK_OrderID TO FK_SaleID;
ALTER TABLE trnationalDeliveryInstructions RENAME COLUMN FK_OrderID TO FK_SaleID;
CREATE TABLE tBin (
	Shelf varchar(50) DEFAULT '',
	BinID int NOT NULL AUTO_INCREMENT,
	FK_LineAllocationID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT PK_tBin PRIMARY KEY (BinID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
ALTER TABLE tSale ADD COLUMN Incoterm varchar(3) DEFAULT '';
ALTER TABLE tSale ADD COLUMN Channel smallint DEFAULT 0;
ALTER TABLE tSale MODIFY COLUMN SalesRepresentative double DEFAULT 0;
-- lossy: tSale.Total: float in place of decimal(19,4) (digits may be rounded)
-- ALTER TABLE tSale MODIFY COLUMN Total float DEFAULT 0;
-- lossy: tSale.Remarks: varchar(200) in place of varchar(2000) (longer texts do not fit)
-- ALTER TABLE tSale MODIFY COLUMN Remarks varchar(200) DEFAULT '';
ALTER TABLE tOrderLine MODIFY COLUMN TaxCode varchar(8) DEFAULT 'N';
CREATE INDEX IX_tClient_FK_SaleID ON tClient (FK_SaleID);
CREATE INDEX IX_tContacts_FK_ClientID ON tContacts (FK_ClientID);
CREATE INDEX IX_tAddress_FK_SaleID ON tAddress (FK_SaleID);
CREATE INDEX IX_tOrderLines_FK_SaleID ON tOrderLines (FK_SaleID);
CREATE INDEX IX_tBin_FK_LineAllocationID ON tBin (FK_LineAllocationID);
CREATE INDEX IX_tShipments_FK_SaleID ON tShipments (FK_SaleID);
CREATE INDEX IX_tPayments_FK_SaleID ON tPayments (FK_SaleID);
CREATE INDEX IX_trnationalDeliveryInstructions_FK_SaleID ON trnationalDeliveryInstructions (FK_SaleID);
ALTER TABLE tClient ADD CONSTRAINT FK_tClient_FK_SaleID FOREIGN KEY (FK_SaleID) REFERENCES tSale (SaleID);
ALTER TABLE tContacts ADD CONSTRAINT FK_tContacts_FK_ClientID FOREIGN KEY (FK_ClientID) REFERENCES tClient (ClientID);
ALTER TABLE tAddress ADD CONSTRAINT FK_tAddress_FK_SaleID FOREIGN KEY (FK_SaleID) REFERENCES tSale (SaleID);
ALTER TABLE tOrderLines ADD CONSTRAINT FK_tOrderLines_FK_SaleID FOREIGN KEY (FK_SaleID) REFERENCES tSale (SaleID);
ALTER TABLE tBin ADD CONSTRAINT FK_tBin_FK_LineAllocationID FOREIGN KEY (FK_LineAllocationID) REFERENCES tLineAllocation (LineAllocationID);
ALTER TABLE tShipments ADD CONSTRAINT FK_tShipments_FK_SaleID FOREIGN KEY (FK_SaleID) REFERENCES tSale (SaleID);
ALTER TABLE tPayments ADD CONSTRAINT FK_tPayments_FK_SaleID FOREIGN KEY (FK_SaleID) REFERENCES tSale (SaleID);
ALTER TABLE trnationalDeliveryInstructions ADD CONSTRAINT FK_trnationalDeliveryInstructions_FK_SaleID FOREIGN KEY (FK_SaleID) REFERENCES tSale (SaleID);
CREATE TRIGGER tClient_I BEFORE INSERT ON tClient FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
CREATE TRIGGER tClient_U BEFORE UPDATE ON tClient FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
CREATE TRIGGER tContacts_I BEFORE INSERT ON tContacts FOR EACH ROW SET NEW.FK_ClientID = NULLIF(NEW.FK_ClientID, 0);
CREATE TRIGGER tContacts_U BEFORE UPDATE ON tContacts FOR EACH ROW SET NEW.FK_ClientID = NULLIF(NEW.FK_ClientID, 0);
CREATE TRIGGER tAddress_I BEFORE INSERT ON tAddress FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
CREATE TRIGGER tAddress_U BEFORE UPDATE ON tAddress FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
CREATE TRIGGER tOrderLines_I BEFORE INSERT ON tOrderLines FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
CREATE TRIGGER tOrderLines_U BEFORE UPDATE ON tOrderLines FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
CREATE TRIGGER tBin_I BEFORE INSERT ON tBin FOR EACH ROW SET NEW.FK_LineAllocationID = NULLIF(NEW.FK_LineAllocationID, 0);
CREATE TRIGGER tBin_U BEFORE UPDATE ON tBin FOR EACH ROW SET NEW.FK_LineAllocationID = NULLIF(NEW.FK_LineAllocationID, 0);
CREATE TRIGGER tShipments_I BEFORE INSERT ON tShipments FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
CREATE TRIGGER tShipments_U BEFORE UPDATE ON tShipments FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
CREATE TRIGGER tPayments_I BEFORE INSERT ON tPayments FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
CREATE TRIGGER tPayments_U BEFORE UPDATE ON tPayments FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
CREATE TRIGGER trnationalDeliveryInstructions_I BEFORE INSERT ON trnationalDeliveryInstructions FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
CREATE TRIGGER trnationalDeliveryInstructions_U BEFORE UPDATE ON trnationalDeliveryInstructions FOR EACH ROW SET NEW.FK_SaleID = NULLIF(NEW.FK_SaleID, 0);
-- destructive: tSale.Urgency is dropped: its values are lost
-- ALTER TABLE tSale DROP COLUMN Urgency;
-- destructive: tAddress.FK_CustomerID is dropped: its values are lost
-- ALTER TABLE tAddress DROP COLUMN FK_CustomerID;
