PRAGMA foreign_keys=OFF;
BEGIN;
DROP TRIGGER IF EXISTS tCustomer_I;
DROP TRIGGER IF EXISTS tCustomer_U;
DROP INDEX IF EXISTS IX_tCustomer_FK_OrderID;
DROP TRIGGER IF EXISTS tContacts_I;
DROP TRIGGER IF EXISTS tContacts_U;
DROP INDEX IF EXISTS IX_tContacts_FK_CustomerID;
DROP TRIGGER IF EXISTS tAddress2_I;
DROP TRIGGER IF EXISTS tAddress2_U;
DROP INDEX IF EXISTS IX_tAddress2_FK_CustomerID;
DROP INDEX IF EXISTS IX_tAddress2_FK_OrderID;
DROP TRIGGER IF EXISTS tOrderLines_I;
DROP TRIGGER IF EXISTS tOrderLines_U;
DROP INDEX IF EXISTS IX_tOrderLines_FK_OrderID;
DROP TRIGGER IF EXISTS tOrderLine_I;
DROP TRIGGER IF EXISTS tOrderLine_U;
DROP TRIGGER IF EXISTS tShipments_I;
DROP TRIGGER IF EXISTS tShipments_U;
DROP INDEX IF EXISTS IX_tShipments_FK_OrderID;
DROP TRIGGER IF EXISTS tPayments_I;
DROP TRIGGER IF EXISTS tPayments_U;
DROP INDEX IF EXISTS IX_tPayments_FK_OrderID;
DROP TRIGGER IF EXISTS trnationalDeliveryInstructions_I;
DROP TRIGGER IF EXISTS trnationalDeliveryInstructions_U;
DROP INDEX IF EXISTS IX_trnationalDeliveryInstructions_FK_OrderID;
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
	BinID INTEGER CONSTRAINT PK_tBin PRIMARY KEY AUTOINCREMENT,
	FK_LineAllocationID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT FK_tBin_FK_LineAllocationID FOREIGN KEY (FK_LineAllocationID) REFERENCES tLineAllocation (LineAllocationID)
);
PRAGMA legacy_alter_table=ON;
CREATE TABLE korvex_new (
	Incoterm varchar(3) DEFAULT '',
	OrderNumber varchar(20) DEFAULT '',
	OrderedOn datetime NULL,
	RequiredBy datetime NULL,
	State smallint DEFAULT 1,
	Channel smallint DEFAULT 0,
	SalesRepresentative double DEFAULT 0,
	Total decimal(19,4) DEFAULT 0,
	DiscountRate real DEFAULT 0,
	ExchangeRate double DEFAULT 1,
	IsPaid bit DEFAULT 0,
	CurrencyCode varchar(3) DEFAULT 'EUR',
	ExternalReference blob NULL,
	Remarks varchar(2000) DEFAULT '',
	InternalRemarks text NULL,
	CreatedOn datetime NULL,
	ChangedOn datetime NULL,
	ChangedBy varchar(40) DEFAULT 'system',
	SaleID INTEGER CONSTRAINT PK_tSale PRIMARY KEY AUTOINCREMENT,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	Urgency tinyint DEFAULT 0
);
INSERT INTO korvex_new (OrderNumber, OrderedOn, RequiredBy, State, SalesRepresentative, Total, DiscountRate, ExchangeRate, IsPaid, CurrencyCode, ExternalReference, Remarks, InternalRemarks, CreatedOn, ChangedOn, ChangedBy, SaleID, QORSelectState, QORCounter, Urgency) SELECT OrderNumber, OrderedOn, RequiredBy, State, SalesRepresentative, Total, DiscountRate, ExchangeRate, IsPaid, CurrencyCode, ExternalReference, Remarks, InternalRemarks, CreatedOn, ChangedOn, ChangedBy, SaleID, QORSelectState, QORCounter, Urgency FROM tSale;
DELETE FROM sqlite_sequence WHERE name = 'korvex_new';
INSERT INTO sqlite_sequence (name, seq) SELECT 'korvex_new', seq FROM sqlite_sequence WHERE name = 'tSale' COLLATE NOCASE;
DROP TABLE tSale;
ALTER TABLE korvex_new RENAME TO tSale;
PRAGMA legacy_alter_table=OFF;
-- destructive: tSale.Total: real in place of decimal(19,4) (digits may be rounded); tSale.Remarks: varchar(200) in place of varchar(2000) (longer texts do not fit); tSale.Urgency is dropped: its values are lost
PRAGMA legacy_alter_table=ON;
CREATE TABLE korvex_new (
	Recipient varchar(80) DEFAULT '',
	Street varchar(80) DEFAULT '',
	PostalCode varchar(12) DEFAULT '',
	City varchar(60) DEFAULT '',
	CountryCode varchar(2) DEFAULT 'DE',
	Latitude double DEFAULT 0,
	Longitude double DEFAULT 0,
	AddressID INTEGER CONSTRAINT PK_tAddress PRIMARY KEY AUTOINCREMENT,
	FK_SaleID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	FK_CustomerID int NULL,
	CONSTRAINT FK_tAddress_FK_SaleID FOREIGN KEY (FK_SaleID) REFERENCES tSale (SaleID)
);
INSERT INTO korvex_new (Recipient, Street, PostalCode, City, CountryCode, Latitude, Longitude, AddressID, FK_SaleID, QORSelectState, QORCounter, FK_CustomerID) SELECT Recipient, Street, PostalCode, City, CountryCode, Latitude, Longitude, AddressID, FK_SaleID, QORSelectState, QORCounter, FK_CustomerID FROM tAddress;
DELETE FROM sqlite_sequence WHERE name = 'korvex_new';
INSERT INTO sqlite_sequence (name, seq) SELECT 'korvex_new', seq FROM sqlite_sequence WHERE name = 'tAddress' COLLATE NOCASE;
DROP TABLE tAddress;
ALTER TABLE korvex_new RENAME TO tAddress;
PRAGMA legacy_alter_table=OFF;
-- destructive: tAddress.FK_CustomerID is dropped: its values are lost
PRAGMA legacy_alter_table=ON;
CREATE TABLE korvex_new (
	LineNumber smallint DEFAULT 0,
	Quantity double DEFAULT 1,
	UnitPrice decimal(19,4) DEFAULT 0,
	LineDiscount real DEFAULT 0,
	TaxCode varchar(8) DEFAULT 'N',
	OrderLineID INTEGER CONSTRAINT PK_tOrderLine PRIMARY KEY AUTOINCREMENT,
	FK_OrderLinesID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT FK_tOrderLine_FK_OrderLinesID FOREIGN KEY (FK_OrderLinesID) REFERENCES tOrderLines (OrderLinesID)
);
INSERT INTO korvex_new (LineNumber, Quantity, UnitPrice, LineDiscount, TaxCode, OrderLineID, FK_OrderLinesID, QORSelectState, QORCounter) SELECT LineNumber, Quantity, UnitPrice, LineDiscount, TaxCode, OrderLineID, FK_OrderLinesID, QORSelectState, QORCounter FROM tOrderLine;
DELETE FROM sqlite_sequence WHERE name = 'korvex_new';
INSERT INTO sqlite_sequence (name, seq) SELECT 'korvex_new', seq FROM sqlite_sequence WHERE name = 'tOrderLine' COLLATE NOCASE;
DROP TABLE tOrderLine;
ALTER TABLE korvex_new RENAME TO tOrderLine;
PRAGMA legacy_alter_table=OFF;
CREATE INDEX IX_tClient_FK_SaleID ON tClient (FK_SaleID);
CREATE INDEX IX_tContacts_FK_ClientID ON tContacts (FK_ClientID);
CREATE INDEX IX_tAddress_FK_SaleID ON tAddress (FK_SaleID);
CREATE INDEX IX_tOrderLines_FK_SaleID ON tOrderLines (FK_SaleID);
CREATE INDEX IX_tOrderLine_FK_OrderLinesID ON tOrderLine (FK_OrderLinesID);
CREATE INDEX IX_tBin_FK_LineAllocationID ON tBin (FK_LineAllocationID);
CREATE INDEX IX_tShipments_FK_SaleID ON tShipments (FK_SaleID);
CREATE INDEX IX_tPayments_FK_SaleID ON tPayments (FK_SaleID);
CREATE INDEX IX_trnationalDeliveryInstructions_FK_SaleID ON trnationalDeliveryInstructions (FK_SaleID);
CREATE TRIGGER tClient_I AFTER INSERT ON tClient WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE tClient SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE ClientID = NEW.ClientID;
END;
CREATE TRIGGER tClient_U AFTER UPDATE OF FK_SaleID ON tClient WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE tClient SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE ClientID = NEW.ClientID;
END;
CREATE TRIGGER tContacts_I AFTER INSERT ON tContacts WHEN 0 IN (NEW.FK_ClientID) BEGIN
	UPDATE tContacts SET FK_ClientID = NULLIF(FK_ClientID, 0) WHERE ContactsID = NEW.ContactsID;
END;
CREATE TRIGGER tContacts_U AFTER UPDATE OF FK_ClientID ON tContacts WHEN 0 IN (NEW.FK_ClientID) BEGIN
	UPDATE tContacts SET FK_ClientID = NULLIF(FK_ClientID, 0) WHERE ContactsID = NEW.ContactsID;
END;
CREATE TRIGGER tAddress_I AFTER INSERT ON tAddress WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE tAddress SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE AddressID = NEW.AddressID;
END;
CREATE TRIGGER tAddress_U AFTER UPDATE OF FK_SaleID ON tAddress WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE tAddress SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE AddressID = NEW.AddressID;
END;
CREATE TRIGGER tOrderLines_I AFTER INSERT ON tOrderLines WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE tOrderLines SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE OrderLinesID = NEW.OrderLinesID;
END;
CREATE TRIGGER tOrderLines_U AFTER UPDATE OF FK_SaleID ON tOrderLines WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE tOrderLines SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE OrderLinesID = NEW.OrderLinesID;
END;
CREATE TRIGGER tOrderLine_I AFTER INSERT ON tOrderLine WHEN 0 IN (NEW.FK_OrderLinesID) BEGIN
	UPDATE tOrderLine SET FK_OrderLinesID = NULLIF(FK_OrderLinesID, 0) WHERE OrderLineID = NEW.OrderLineID;
END;
CREATE TRIGGER tOrderLine_U AFTER UPDATE OF FK_OrderLinesID ON tOrderLine WHEN 0 IN (NEW.FK_OrderLinesID) BEGIN
	UPDATE tOrderLine SET FK_OrderLinesID = NULLIF(FK_OrderLinesID, 0) WHERE OrderLineID = NEW.OrderLineID;
END;
CREATE TRIGGER tBin_I AFTER INSERT ON tBin WHEN 0 IN (NEW.FK_LineAllocationID) BEGIN
	UPDATE tBin SET FK_LineAllocationID = NULLIF(FK_LineAllocationID, 0) WHERE BinID = NEW.BinID;
END;
CREATE TRIGGER tBin_U AFTER UPDATE OF FK_LineAllocationID ON tBin WHEN 0 IN (NEW.FK_LineAllocationID) BEGIN
	UPDATE tBin SET FK_LineAllocationID = NULLIF(FK_LineAllocationID, 0) WHERE BinID = NEW.BinID;
END;
CREATE TRIGGER tShipments_I AFTER INSERT ON tShipments WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE tShipments SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE ShipmentsID = NEW.ShipmentsID;
END;
CREATE TRIGGER tShipments_U AFTER UPDATE OF FK_SaleID ON tShipments WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE tShipments SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE ShipmentsID = NEW.ShipmentsID;
END;
CREATE TRIGGER tPayments_I AFTER INSERT ON tPayments WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE tPayments SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE PaymentsID = NEW.PaymentsID;
END;
CREATE TRIGGER tPayments_U AFTER UPDATE OF FK_SaleID ON tPayments WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE tPayments SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE PaymentsID = NEW.PaymentsID;
END;
CREATE TRIGGER trnationalDeliveryInstructions_I AFTER INSERT ON trnationalDeliveryInstructions WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE trnationalDeliveryInstructions SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE ionalDeliveryInstructionsID = NEW.ionalDeliveryInstructionsID;
END;
CREATE TRIGGER trnationalDeliveryInstructions_U AFTER UPDATE OF FK_SaleID ON trnationalDeliveryInstructions WHEN 0 IN (NEW.FK_SaleID) BEGIN
	UPDATE trnationalDeliveryInstructions SET FK_SaleID = NULLIF(FK_SaleID, 0) WHERE ionalDeliveryInstructionsID = NEW.ionalDeliveryInstructionsID;
END;
PRAGMA foreign_key_check;
COMMIT;
PRAGMA foreign_keys=ON;
