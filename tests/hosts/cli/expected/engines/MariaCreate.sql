CREATE TABLE tOrder (
	OrderNumber varchar(20) DEFAULT '',
	OrderedOn datetime(3) NULL,
	RequiredBy datetime(3) NULL,
	State smallint DEFAULT 1,
	Urgency tinyint unsigned DEFAULT 0,
	SalesRepresentative int DEFAULT 0,
	Total decimal(19,4) DEFAULT 0,
	DiscountRate float DEFAULT 0,
	ExchangeRate double DEFAULT 1,
	IsPaid bit DEFAULT 0,
	CurrencyCode varchar(3) DEFAULT 'EUR',
	ExternalReference longblob NULL,
	Notes varchar(2000) DEFAULT '',
	InternalRemarks longtext NULL,
	CreatedOn datetime(3) NULL,
	ChangedOn datetime(3) NULL,
	ChangedBy varchar(40) DEFAULT 'system',
	OrderID int NOT NULL AUTO_INCREMENT,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT PK_tOrder PRIMARY KEY (OrderID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE TABLE tCustomer (
	CompanyName varchar(80) DEFAULT '',
	TaxNumber varchar(20) DEFAULT '',
	CustomerSince datetime(3) NULL,
	CreditLimit decimal(19,4) DEFAULT 1000,
	Rating smallint DEFAULT 0,
	IsCompany bit DEFAULT 1,
	SignedContract longblob NULL,
	CreatedOn datetime(3) NULL,
	ChangedOn datetime(3) NULL,
	ChangedBy varchar(40) DEFAULT 'system',
	CustomerID int NOT NULL AUTO_INCREMENT,
	FK_OrderID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT PK_tCustomer PRIMARY KEY (CustomerID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tCustomer_FK_OrderID ON tCustomer (FK_OrderID);
CREATE TRIGGER tCustomer_I BEFORE INSERT ON tCustomer FOR EACH ROW SET NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);
CREATE TRIGGER tCustomer_U BEFORE UPDATE ON tCustomer FOR EACH ROW SET NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);
CREATE TABLE tAddress2 (
	Recipient varchar(80) DEFAULT '',
	Street varchar(80) DEFAULT '',
	PostalCode varchar(12) DEFAULT '',
	City varchar(60) DEFAULT '',
	CountryCode varchar(2) DEFAULT 'DE',
	Latitude double DEFAULT 0,
	Longitude double DEFAULT 0,
	AddressID int NOT NULL AUTO_INCREMENT,
	FK_CustomerID int NULL,
	FK_OrderID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT PK_tAddress2 PRIMARY KEY (AddressID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tAddress2_FK_CustomerID ON tAddress2 (FK_CustomerID);
CREATE INDEX IX_tAddress2_FK_OrderID ON tAddress2 (FK_OrderID);
CREATE TRIGGER tAddress2_I BEFORE INSERT ON tAddress2 FOR EACH ROW SET NEW.FK_CustomerID = NULLIF(NEW.FK_CustomerID, 0), NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);
CREATE TRIGGER tAddress2_U BEFORE UPDATE ON tAddress2 FOR EACH ROW SET NEW.FK_CustomerID = NULLIF(NEW.FK_CustomerID, 0), NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);
CREATE TABLE tContacts (
	ContactsID int NOT NULL AUTO_INCREMENT,
	FK_CustomerID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT PK_tContacts PRIMARY KEY (ContactsID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tContacts_FK_CustomerID ON tContacts (FK_CustomerID);
CREATE TRIGGER tContacts_I BEFORE INSERT ON tContacts FOR EACH ROW SET NEW.FK_CustomerID = NULLIF(NEW.FK_CustomerID, 0);
CREATE TRIGGER tContacts_U BEFORE UPDATE ON tContacts FOR EACH ROW SET NEW.FK_CustomerID = NULLIF(NEW.FK_CustomerID, 0);
CREATE TABLE tContact (
	FirstName varchar(40) DEFAULT '',
	LastName varchar(40) DEFAULT '',
	Email varchar(120) DEFAULT '',
	Phone varchar(50) DEFAULT '',
	IsMainContact bit DEFAULT 0,
	ContactID int NOT NULL AUTO_INCREMENT,
	FK_ContactsID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT PK_tContact PRIMARY KEY (ContactID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tContact_FK_ContactsID ON tContact (FK_ContactsID);
CREATE TRIGGER tContact_I BEFORE INSERT ON tContact FOR EACH ROW SET NEW.FK_ContactsID = NULLIF(NEW.FK_ContactsID, 0);
CREATE TRIGGER tContact_U BEFORE UPDATE ON tContact FOR EACH ROW SET NEW.FK_ContactsID = NULLIF(NEW.FK_ContactsID, 0);
CREATE TABLE tOrderLines (
	NextLineNumber smallint DEFAULT 1,
	OrderLinesID int NOT NULL AUTO_INCREMENT,
	FK_OrderID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT PK_tOrderLines PRIMARY KEY (OrderLinesID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tOrderLines_FK_OrderID ON tOrderLines (FK_OrderID);
CREATE TRIGGER tOrderLines_I BEFORE INSERT ON tOrderLines FOR EACH ROW SET NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);
CREATE TRIGGER tOrderLines_U BEFORE UPDATE ON tOrderLines FOR EACH ROW SET NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);
CREATE TABLE tOrderLine (
	LineNumber smallint DEFAULT 0,
	Quantity double DEFAULT 1,
	UnitPrice decimal(19,4) DEFAULT 0,
	LineDiscount float DEFAULT 0,
	TaxCode varchar(4) DEFAULT 'N',
	OrderLineID int NOT NULL AUTO_INCREMENT,
	FK_OrderLinesID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT PK_tOrderLine PRIMARY KEY (OrderLineID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tOrderLine_FK_OrderLinesID ON tOrderLine (FK_OrderLinesID);
CREATE TRIGGER tOrderLine_I BEFORE INSERT ON tOrderLine FOR EACH ROW SET NEW.FK_OrderLinesID = NULLIF(NEW.FK_OrderLinesID, 0);
CREATE TRIGGER tOrderLine_U BEFORE UPDATE ON tOrderLine FOR EACH ROW SET NEW.FK_OrderLinesID = NULLIF(NEW.FK_OrderLinesID, 0);
CREATE TABLE tProduct (
	Sku varchar(30) DEFAULT '',
	Title varchar(255) DEFAULT '',
	ProductText varchar(4000) DEFAULT '',
	Weight float DEFAULT 0,
	IsActive bit DEFAULT 1,
	Photo longblob NULL,
	CreatedOn datetime(3) NULL,
	ChangedOn datetime(3) NULL,
	ChangedBy varchar(40) DEFAULT 'system',
	ProductID int NOT NULL AUTO_INCREMENT,
	FK_OrderLineID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT PK_tProduct PRIMARY KEY (ProductID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tProduct_FK_OrderLineID ON tProduct (FK_OrderLineID);
CREATE TRIGGER tProduct_I BEFORE INSERT ON tProduct FOR EACH ROW SET NEW.FK_OrderLineID = NULLIF(NEW.FK_OrderLineID, 0);
CREATE TRIGGER tProduct_U BEFORE UPDATE ON tProduct FOR EACH ROW SET NEW.FK_OrderLineID = NULLIF(NEW.FK_OrderLineID, 0);
CREATE TABLE tLineAllocations (
	LineAllocationsID int NOT NULL AUTO_INCREMENT,
	FK_OrderLineID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT PK_tLineAllocations PRIMARY KEY (LineAllocationsID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tLineAllocations_FK_OrderLineID ON tLineAllocations (FK_OrderLineID);
CREATE TRIGGER tLineAllocations_I BEFORE INSERT ON tLineAllocations FOR EACH ROW SET NEW.FK_OrderLineID = NULLIF(NEW.FK_OrderLineID, 0);
CREATE TRIGGER tLineAllocations_U BEFORE UPDATE ON tLineAllocations FOR EACH ROW SET NEW.FK_OrderLineID = NULLIF(NEW.FK_OrderLineID, 0);
CREATE TABLE tLineAllocation (
	WarehouseCode varchar(10) DEFAULT '',
	AllocatedQuantity double DEFAULT 0,
	AllocatedOn datetime(3) NULL,
	LineAllocationID int NOT NULL AUTO_INCREMENT,
	FK_LineAllocationsID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT PK_tLineAllocation PRIMARY KEY (LineAllocationID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tLineAllocation_FK_LineAllocationsID ON tLineAllocation (FK_LineAllocationsID);
CREATE TRIGGER tLineAllocation_I BEFORE INSERT ON tLineAllocation FOR EACH ROW SET NEW.FK_LineAllocationsID = NULLIF(NEW.FK_LineAllocationsID, 0);
CREATE TRIGGER tLineAllocation_U BEFORE UPDATE ON tLineAllocation FOR EACH ROW SET NEW.FK_LineAllocationsID = NULLIF(NEW.FK_LineAllocationsID, 0);
CREATE TABLE tShipments (
	ShipmentsID int NOT NULL AUTO_INCREMENT,
	FK_OrderID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT PK_tShipments PRIMARY KEY (ShipmentsID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tShipments_FK_OrderID ON tShipments (FK_OrderID);
CREATE TRIGGER tShipments_I BEFORE INSERT ON tShipments FOR EACH ROW SET NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);
CREATE TRIGGER tShipments_U BEFORE UPDATE ON tShipments FOR EACH ROW SET NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);
CREATE TABLE tShipment (
	Carrier varchar(40) DEFAULT '',
	TrackingNumber varchar(60) DEFAULT '',
	ShippedOn datetime(3) NULL,
	ShipmentID int NOT NULL AUTO_INCREMENT,
	FK_ShipmentsID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT PK_tShipment PRIMARY KEY (ShipmentID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tShipment_FK_ShipmentsID ON tShipment (FK_ShipmentsID);
CREATE TRIGGER tShipment_I BEFORE INSERT ON tShipment FOR EACH ROW SET NEW.FK_ShipmentsID = NULLIF(NEW.FK_ShipmentsID, 0);
CREATE TRIGGER tShipment_U BEFORE UPDATE ON tShipment FOR EACH ROW SET NEW.FK_ShipmentsID = NULLIF(NEW.FK_ShipmentsID, 0);
CREATE TABLE tParcel (
	Barcode varchar(40) DEFAULT '',
	WeightKg double DEFAULT 0,
	IsInsured bit DEFAULT 0,
	ParcelID int NOT NULL AUTO_INCREMENT,
	FK_ShipmentID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT PK_tParcel PRIMARY KEY (ParcelID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tParcel_FK_ShipmentID ON tParcel (FK_ShipmentID);
CREATE TRIGGER tParcel_I BEFORE INSERT ON tParcel FOR EACH ROW SET NEW.FK_ShipmentID = NULLIF(NEW.FK_ShipmentID, 0);
CREATE TRIGGER tParcel_U BEFORE UPDATE ON tParcel FOR EACH ROW SET NEW.FK_ShipmentID = NULLIF(NEW.FK_ShipmentID, 0);
CREATE TABLE tPayments (
	PaymentTerms varchar(100) DEFAULT '30 days net',
	PaymentsID int NOT NULL AUTO_INCREMENT,
	FK_OrderID int NULL,
	QORSelectedItem int DEFAULT 0,
	QORCounterHolder int DEFAULT 0,
	CONSTRAINT PK_tPayments PRIMARY KEY (PaymentsID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tPayments_FK_OrderID ON tPayments (FK_OrderID);
CREATE TRIGGER tPayments_I BEFORE INSERT ON tPayments FOR EACH ROW SET NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);
CREATE TRIGGER tPayments_U BEFORE UPDATE ON tPayments FOR EACH ROW SET NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);
CREATE TABLE tPayment (
	Amount decimal(19,4) DEFAULT 0,
	PaidOn datetime(3) NULL,
	PaymentMethod smallint DEFAULT 1,
	BankReference varchar(60) DEFAULT '',
	CreatedOn datetime(3) NULL,
	ChangedOn datetime(3) NULL,
	ChangedBy varchar(40) DEFAULT 'system',
	PaymentID int NOT NULL AUTO_INCREMENT,
	FK_PaymentsID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT PK_tPayment PRIMARY KEY (PaymentID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_tPayment_FK_PaymentsID ON tPayment (FK_PaymentsID);
CREATE TRIGGER tPayment_I BEFORE INSERT ON tPayment FOR EACH ROW SET NEW.FK_PaymentsID = NULLIF(NEW.FK_PaymentsID, 0);
CREATE TRIGGER tPayment_U BEFORE UPDATE ON tPayment FOR EACH ROW SET NEW.FK_PaymentsID = NULLIF(NEW.FK_PaymentsID, 0);
CREATE TABLE trnationalDeliveryInstructions (
	geOfTheContactAtTheDestination varchar(30) DEFAULT '',
	arliestHourOfDayForTheDelivery smallint DEFAULT 8,
	LatestHourOfDayForTheDelivery smallint DEFAULT 17,
	ionalDeliveryInstructionsID int NOT NULL AUTO_INCREMENT,
	FK_OrderID int NULL,
	QORSelectState int DEFAULT 0,
	QORCounter int DEFAULT 0,
	CONSTRAINT PK_trnationalDeliveryInstructions PRIMARY KEY (ionalDeliveryInstructionsID)
) ENGINE=InnoDB DEFAULT CHARACTER SET utf8mb4;
CREATE INDEX IX_trnationalDeliveryInstructions_FK_OrderID ON trnationalDeliveryInstructions (FK_OrderID);
CREATE TRIGGER trnationalDeliveryInstructions_I BEFORE INSERT ON trnationalDeliveryInstructions FOR EACH ROW SET NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);
CREATE TRIGGER trnationalDeliveryInstructions_U BEFORE UPDATE ON trnationalDeliveryInstructions FOR EACH ROW SET NEW.FK_OrderID = NULLIF(NEW.FK_OrderID, 0);

