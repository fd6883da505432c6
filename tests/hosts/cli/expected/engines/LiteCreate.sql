CREATE TABLE tOrder (
	OrderNumber varchar(20) DEFAULT '',
	OrderedOn datetime NULL,
	RequiredBy datetime NULL,
	State smallint DEFAULT 1,
	Urgency tinyint DEFAULT 0,
	SalesRepresentative int DEFAULT 0,
	Total decimal(19,4) DEFAULT 0,
	DiscountRate real DEFAULT 0,
	ExchangeRate double DEFAULT 1,
	IsPaid bit DEFAULT 0,
	CurrencyCode varchar(3) DEFAULT 'EUR',
	ExternalReference blob NULL,
	Notes varchar(2000) DEFAULT '',
	InternalRemarks text NULL,
	CreatedOn datetime NULL,
	ChangedOn datetime NULL,
	ChangedBy varchar(40) DEFAULT 'system',
	OrderID INTEGER CONSTRAINT PK_tOrder PRIMARY KEY AUTOINCREMENT,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0
);
CREATE TABLE tCustomer (
	CompanyName varchar(80) DEFAULT '',
	TaxNumber varchar(20) DEFAULT '',
	CustomerSince datetime NULL,
	CreditLimit decimal(19,4) DEFAULT 1000,
	Rating smallint DEFAULT 0,
	IsCompany bit DEFAULT 1,
	SignedContract blob NULL,
	CreatedOn datetime NULL,
	ChangedOn datetime NULL,
	ChangedBy varchar(40) DEFAULT 'system',
	CustomerID INTEGER CONSTRAINT PK_tCustomer PRIMARY KEY AUTOINCREMENT,
	FK_OrderID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT FK_tCustomer_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID)
);
CREATE INDEX IX_tCustomer_FK_OrderID ON tCustomer (FK_OrderID);
CREATE TRIGGER tCustomer_I AFTER INSERT ON tCustomer WHEN 0 IN (NEW.FK_OrderID) BEGIN
	UPDATE tCustomer SET FK_OrderID = NULLIF(FK_OrderID, 0) WHERE CustomerID = NEW.CustomerID;
END;
CREATE TRIGGER tCustomer_U AFTER UPDATE OF FK_OrderID ON tCustomer WHEN 0 IN (NEW.FK_OrderID) BEGIN
	UPDATE tCustomer SET FK_OrderID = NULLIF(FK_OrderID, 0) WHERE CustomerID = NEW.CustomerID;
END;
CREATE TABLE tAddress2 (
	Recipient varchar(80) DEFAULT '',
	Street varchar(80) DEFAULT '',
	PostalCode varchar(12) DEFAULT '',
	City varchar(60) DEFAULT '',
	CountryCode varchar(2) DEFAULT 'DE',
	Latitude double DEFAULT 0,
	Longitude double DEFAULT 0,
	AddressID INTEGER CONSTRAINT PK_tAddress2 PRIMARY KEY AUTOINCREMENT,
	FK_CustomerID int NULL,
	FK_OrderID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT FK_tAddress2_FK_CustomerID FOREIGN KEY (FK_CustomerID) REFERENCES tCustomer (CustomerID),
	CONSTRAINT FK_tAddress2_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID)
);
CREATE INDEX IX_tAddress2_FK_CustomerID ON tAddress2 (FK_CustomerID);
CREATE INDEX IX_tAddress2_FK_OrderID ON tAddress2 (FK_OrderID);
CREATE TRIGGER tAddress2_I AFTER INSERT ON tAddress2 WHEN 0 IN (NEW.FK_CustomerID, NEW.FK_OrderID) BEGIN
	UPDATE tAddress2 SET FK_CustomerID = NULLIF(FK_CustomerID, 0), FK_OrderID = NULLIF(FK_OrderID, 0) WHERE AddressID = NEW.AddressID;
END;
CREATE TRIGGER tAddress2_U AFTER UPDATE OF FK_CustomerID, FK_OrderID ON tAddress2 WHEN 0 IN (NEW.FK_CustomerID, NEW.FK_OrderID) BEGIN
	UPDATE tAddress2 SET FK_CustomerID = NULLIF(FK_CustomerID, 0), FK_OrderID = NULLIF(FK_OrderID, 0) WHERE AddressID = NEW.AddressID;
END;
CREATE TABLE tContacts (
	ContactsID INTEGER CONSTRAINT PK_tContacts PRIMARY KEY AUTOINCREMENT,
	FK_CustomerID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT FK_tContacts_FK_CustomerID FOREIGN KEY (FK_CustomerID) REFERENCES tCustomer (CustomerID)
);
CREATE INDEX IX_tContacts_FK_CustomerID ON tContacts (FK_CustomerID);
CREATE TRIGGER tContacts_I AFTER INSERT ON tContacts WHEN 0 IN (NEW.FK_CustomerID) BEGIN
	UPDATE tContacts SET FK_CustomerID = NULLIF(FK_CustomerID, 0) WHERE ContactsID = NEW.ContactsID;
END;
CREATE TRIGGER tContacts_U AFTER UPDATE OF FK_CustomerID ON tContacts WHEN 0 IN (NEW.FK_CustomerID) BEGIN
	UPDATE tContacts SET FK_CustomerID = NULLIF(FK_CustomerID, 0) WHERE ContactsID = NEW.ContactsID;
END;
CREATE TABLE tContact (
	FirstName varchar(40) DEFAULT '',
	LastName varchar(40) DEFAULT '',
	Email varchar(120) DEFAULT '',
	Phone varchar(50) DEFAULT '',
	IsMainContact bit DEFAULT 0,
	ContactID INTEGER CONSTRAINT PK_tContact PRIMARY KEY AUTOINCREMENT,
	FK_ContactsID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT FK_tContact_FK_ContactsID FOREIGN KEY (FK_ContactsID) REFERENCES tContacts (ContactsID)
);
CREATE INDEX IX_tContact_FK_ContactsID ON tContact (FK_ContactsID);
CREATE TRIGGER tContact_I AFTER INSERT ON tContact WHEN 0 IN (NEW.FK_ContactsID) BEGIN
	UPDATE tContact SET FK_ContactsID = NULLIF(FK_ContactsID, 0) WHERE ContactID = NEW.ContactID;
END;
CREATE TRIGGER tContact_U AFTER UPDATE OF FK_ContactsID ON tContact WHEN 0 IN (NEW.FK_ContactsID) BEGIN
	UPDATE tContact SET FK_ContactsID = NULLIF(FK_ContactsID, 0) WHERE ContactID = NEW.ContactID;
END;
CREATE TABLE tOrderLines (
	NextLineNumber smallint DEFAULT 1,
	OrderLinesID INTEGER CONSTRAINT PK_tOrderLines PRIMARY KEY AUTOINCREMENT,
	FK_OrderID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT FK_tOrderLines_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID)
);
CREATE INDEX IX_tOrderLines_FK_OrderID ON tOrderLines (FK_OrderID);
CREATE TRIGGER tOrderLines_I AFTER INSERT ON tOrderLines WHEN 0 IN (NEW.FK_OrderID) BEGIN
	UPDATE tOrderLines SET FK_OrderID = NULLIF(FK_OrderID, 0) WHERE OrderLinesID = NEW.OrderLinesID;
END;
CREATE TRIGGER tOrderLines_U AFTER UPDATE OF FK_OrderID ON tOrderLines WHEN 0 IN (NEW.FK_OrderID) BEGIN
	UPDATE tOrderLines SET FK_OrderID = NULLIF(FK_OrderID, 0) WHERE OrderLinesID = NEW.OrderLinesID;
END;
CREATE TABLE tOrderLine (
	LineNumber smallint DEFAULT 0,
	Quantity double DEFAULT 1,
	UnitPrice decimal(19,4) DEFAULT 0,
	LineDiscount real DEFAULT 0,
	TaxCode varchar(4) DEFAULT 'N',
	OrderLineID INTEGER CONSTRAINT PK_tOrderLine PRIMARY KEY AUTOINCREMENT,
	FK_OrderLinesID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT FK_tOrderLine_FK_OrderLinesID FOREIGN KEY (FK_OrderLinesID) REFERENCES tOrderLines (OrderLinesID)
);
CREATE INDEX IX_tOrderLine_FK_OrderLinesID ON tOrderLine (FK_OrderLinesID);
CREATE TRIGGER tOrderLine_I AFTER INSERT ON tOrderLine WHEN 0 IN (NEW.FK_OrderLinesID) BEGIN
	UPDATE tOrderLine SET FK_OrderLinesID = NULLIF(FK_OrderLinesID, 0) WHERE OrderLineID = NEW.OrderLineID;
END;
CREATE TRIGGER tOrderLine_U AFTER UPDATE OF FK_OrderLinesID ON tOrderLine WHEN 0 IN (NEW.FK_OrderLinesID) BEGIN
	UPDATE tOrderLine SET FK_OrderLinesID = NULLIF(FK_OrderLinesID, 0) WHERE OrderLineID = NEW.OrderLineID;
END;
CREATE TABLE tProduct (
	Sku varchar(30) DEFAULT '',
	Title varchar(255) DEFAULT '',
	ProductText varchar(4000) DEFAULT '',
	Weight real DEFAULT 0,
	IsActive bit DEFAULT 1,
	Photo blob NULL,
	CreatedOn datetime NULL,
	ChangedOn datetime NULL,
	ChangedBy varchar(40) DEFAULT 'system',
	ProductID INTEGER CONSTRAINT PK_tProduct PRIMARY KEY AUTOINCREMENT,
	FK_OrderLineID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT FK_tProduct_FK_OrderLineID FOREIGN KEY (FK_OrderLineID) REFERENCES tOrderLine (OrderLineID)
);
CREATE INDEX IX_tProduct_FK_OrderLineID ON tProduct (FK_OrderLineID);
CREATE TRIGGER tProduct_I AFTER INSERT ON tProduct WHEN 0 IN (NEW.FK_OrderLineID) BEGIN
	UPDATE tProduct SET FK_OrderLineID = NULLIF(FK_OrderLineID, 0) WHERE ProductID = NEW.ProductID;
END;
CREATE TRIGGER tProduct_U AFTER UPDATE OF FK_OrderLineID ON tProduct WHEN 0 IN (NEW.FK_OrderLineID) BEGIN
	UPDATE tProduct SET FK_OrderLineID = NULLIF(FK_OrderLineID, 0) WHERE ProductID = NEW.ProductID;
END;
CREATE TABLE tLineAllocations (
	LineAllocationsID INTEGER CONSTRAINT PK_tLineAllocations PRIMARY KEY AUTOINCREMENT,
	FK_OrderLineID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT FK_tLineAllocations_FK_OrderLineID FOREIGN KEY (FK_OrderLineID) REFERENCES tOrderLine (OrderLineID)
);
CREATE INDEX IX_tLineAllocations_FK_OrderLineID ON tLineAllocations (FK_OrderLineID);
CREATE TRIGGER tLineAllocations_I AFTER INSERT ON tLineAllocations WHEN 0 IN (NEW.FK_OrderLineID) BEGIN
	UPDATE tLineAllocations SET FK_OrderLineID = NULLIF(FK_OrderLineID, 0) WHERE LineAllocationsID = NEW.LineAllocationsID;
END;
CREATE TRIGGER tLineAllocations_U AFTER UPDATE OF FK_OrderLineID ON tLineAllocations WHEN 0 IN (NEW.FK_OrderLineID) BEGIN
	UPDATE tLineAllocations SET FK_OrderLineID = NULLIF(FK_OrderLineID, 0) WHERE LineAllocationsID = NEW.LineAllocationsID;
END;
CREATE TABLE tLineAllocation (
	WarehouseCode varchar(10) DEFAULT '',
	AllocatedQuantity double DEFAULT 0,
	AllocatedOn datetime NULL,
	LineAllocationID INTEGER CONSTRAINT PK_tLineAllocation PRIMARY KEY AUTOINCREMENT,
	FK_LineAllocationsID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT FK_tLineAllocation_FK_LineAllocationsID FOREIGN KEY (FK_LineAllocationsID) REFERENCES tLineAllocations (LineAllocationsID)
);
CREATE INDEX IX_tLineAllocation_FK_LineAllocationsID ON tLineAllocation (FK_LineAllocationsID);
CREATE TRIGGER tLineAllocation_I AFTER INSERT ON tLineAllocation WHEN 0 IN (NEW.FK_LineAllocationsID) BEGIN
	UPDATE tLineAllocation SET FK_LineAllocationsID = NULLIF(FK_LineAllocationsID, 0) WHERE LineAllocationID = NEW.LineAllocationID;
END;
CREATE TRIGGER tLineAllocation_U AFTER UPDATE OF FK_LineAllocationsID ON tLineAllocation WHEN 0 IN (NEW.FK_LineAllocationsID) BEGIN
	UPDATE tLineAllocation SET FK_LineAllocationsID = NULLIF(FK_LineAllocationsID, 0) WHERE LineAllocationID = NEW.LineAllocationID;
END;
CREATE TABLE tShipments (
	ShipmentsID INTEGER CONSTRAINT PK_tShipments PRIMARY KEY AUTOINCREMENT,
	FK_OrderID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT FK_tShipments_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID)
);
CREATE INDEX IX_tShipments_FK_OrderID ON tShipments (FK_OrderID);
CREATE TRIGGER tShipments_I AFTER INSERT ON tShipments WHEN 0 IN (NEW.FK_OrderID) BEGIN
	UPDATE tShipments SET FK_OrderID = NULLIF(FK_OrderID, 0) WHERE ShipmentsID = NEW.ShipmentsID;
END;
CREATE TRIGGER tShipments_U AFTER UPDATE OF FK_OrderID ON tShipments WHEN 0 IN (NEW.FK_OrderID) BEGIN
	UPDATE tShipments SET FK_OrderID = NULLIF(FK_OrderID, 0) WHERE ShipmentsID = NEW.ShipmentsID;
END;
CREATE TABLE tShipment (
	Carrier varchar(40) DEFAULT '',
	TrackingNumber varchar(60) DEFAULT '',
	ShippedOn datetime NULL,
	ShipmentID INTEGER CONSTRAINT PK_tShipment PRIMARY KEY AUTOINCREMENT,
	FK_ShipmentsID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT FK_tShipment_FK_ShipmentsID FOREIGN KEY (FK_ShipmentsID) REFERENCES tShipments (ShipmentsID)
);
CREATE INDEX IX_tShipment_FK_ShipmentsID ON tShipment (FK_ShipmentsID);
CREATE TRIGGER tShipment_I AFTER INSERT ON tShipment WHEN 0 IN (NEW.FK_ShipmentsID) BEGIN
	UPDATE tShipment SET FK_ShipmentsID = NULLIF(FK_ShipmentsID, 0) WHERE ShipmentID = NEW.ShipmentID;
END;
CREATE TRIGGER tShipment_U AFTER UPDATE OF FK_ShipmentsID ON tShipment WHEN 0 IN (NEW.FK_ShipmentsID) BEGIN
	UPDATE tShipment SET FK_ShipmentsID = NULLIF(FK_ShipmentsID, 0) WHERE ShipmentID = NEW.ShipmentID;
END;
CREATE TABLE tParcel (
	Barcode varchar(40) DEFAULT '',
	WeightKg double DEFAULT 0,
	IsInsured bit DEFAULT 0,
	ParcelID INTEGER CONSTRAINT PK_tParcel PRIMARY KEY AUTOINCREMENT,
	FK_ShipmentID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT FK_tParcel_FK_ShipmentID FOREIGN KEY (FK_ShipmentID) REFERENCES tShipment (ShipmentID)
);
CREATE INDEX IX_tParcel_FK_ShipmentID ON tParcel (FK_ShipmentID);
CREATE TRIGGER tParcel_I AFTER INSERT ON tParcel WHEN 0 IN (NEW.FK_ShipmentID) BEGIN
	UPDATE tParcel SET FK_ShipmentID = NULLIF(FK_ShipmentID, 0) WHERE ParcelID = NEW.ParcelID;
END;
CREATE TRIGGER tParcel_U AFTER UPDATE OF FK_ShipmentID ON tParcel WHEN 0 IN (NEW.FK_ShipmentID) BEGIN
	UPDATE tParcel SET FK_ShipmentID = NULLIF(FK_ShipmentID, 0) WHERE ParcelID = NEW.ParcelID;
END;
CREATE TABLE tPayments (
	PaymentTerms varchar(100) DEFAULT '30 days net',
	PaymentsID INTEGER CONSTRAINT PK_tPayments PRIMARY KEY AUTOINCREMENT,
	FK_OrderID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT FK_tPayments_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID)
);
CREATE INDEX IX_tPayments_FK_OrderID ON tPayments (FK_OrderID);
CREATE TRIGGER tPayments_I AFTER INSERT ON tPayments WHEN 0 IN (NEW.FK_OrderID) BEGIN
	UPDATE tPayments SET FK_OrderID = NULLIF(FK_OrderID, 0) WHERE PaymentsID = NEW.PaymentsID;
END;
CREATE TRIGGER tPayments_U AFTER UPDATE OF FK_OrderID ON tPayments WHEN 0 IN (NEW.FK_OrderID) BEGIN
	UPDATE tPayments SET FK_OrderID = NULLIF(FK_OrderID, 0) WHERE PaymentsID = NEW.PaymentsID;
END;
CREATE TABLE tPayment (
	Amount decimal(19,4) DEFAULT 0,
	PaidOn datetime NULL,
	PaymentMethod smallint DEFAULT 1,
	BankReference varchar(60) DEFAULT '',
	CreatedOn datetime NULL,
	ChangedOn datetime NULL,
	ChangedBy varchar(40) DEFAULT 'system',
	PaymentID INTEGER CONSTRAINT PK_tPayment PRIMARY KEY AUTOINCREMENT,
	FK_PaymentsID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT FK_tPayment_FK_PaymentsID FOREIGN KEY (FK_PaymentsID) REFERENCES tPayments (PaymentsID)
);
CREATE INDEX IX_tPayment_FK_PaymentsID ON tPayment (FK_PaymentsID);
CREATE TRIGGER tPayment_I AFTER INSERT ON tPayment WHEN 0 IN (NEW.FK_PaymentsID) BEGIN
	UPDATE tPayment SET FK_PaymentsID = NULLIF(FK_PaymentsID, 0) WHERE PaymentID = NEW.PaymentID;
END;
CREATE TRIGGER tPayment_U AFTER UPDATE OF FK_PaymentsID ON tPayment WHEN 0 IN (NEW.FK_PaymentsID) BEGIN
	UPDATE tPayment SET FK_PaymentsID = NULLIF(FK_PaymentsID, 0) WHERE PaymentID = NEW.PaymentID;
END;
CREATE TABLE trnationalDeliveryInstructions (
	geOfTheContactAtTheDestination varchar(30) DEFAULT '',
	arliestHourOfDayForTheDelivery smallint DEFAULT 8,
	LatestHourOfDayForTheDelivery smallint DEFAULT 17,
	ionalDeliveryInstructionsID INTEGER CONSTRAINT PK_trnationalDeliveryInstructions PRIMARY KEY AUTOINCREMENT,
	FK_OrderID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT FK_trnationalDeliveryInstructions_FK_OrderID FOREIGN KEY (FK_OrderID) REFERENCES tOrder (OrderID)
);
CREATE INDEX IX_trnationalDeliveryInstructions_FK_OrderID ON trnationalDeliveryInstructions (FK_OrderID);
CREATE TRIGGER trnationalDeliveryInstructions_I AFTER INSERT ON trnationalDeliveryInstructions WHEN 0 IN (NEW.FK_OrderID) BEGIN
	UPDATE trnationalDeliveryInstructions SET FK_OrderID = NULLIF(FK_OrderID, 0) WHERE ionalDeliveryInstructionsID = NEW.ionalDeliveryInstructionsID;
END;
CREATE TRIGGER trnationalDeliveryInstructions_U AFTER UPDATE OF FK_OrderID ON trnationalDeliveryInstructions WHEN 0 IN (NEW.FK_OrderID) BEGIN
	UPDATE trnationalDeliveryInstructions SET FK_OrderID = NULLIF(FK_OrderID, 0) WHERE ionalDeliveryInstructionsID = NEW.ionalDeliveryInstructionsID;
END;

