CREATE TABLE tOrder
(
	OrderNumber varchar(20) default '',
	OrderedOn datetime NULL,
	RequiredBy datetime NULL,
	State smallint default 1,
	Urgency varchar(50),
	SalesRepresentative int default 0,
	Total float default 0.00,
	DiscountRate real default 0,
	ExchangeRate float default 1,
	IsPaid bit default 0,
	CurrencyCode varchar(3) default 'EUR',
	ExternalReference image NULL,
	Notes text NULL,
	InternalRemarks text NULL,
	CreatedOn datetime NULL,
	ChangedOn datetime NULL,
	ChangedBy varchar(40) default 'system',
	OrderID INTEGER Not NULL,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tOrder PRIMARY KEY
	(
		OrderID AUTOINCREMENT
	)
);
CREATE TABLE tCustomer
(
	CompanyName varchar(80) default '',
	TaxNumber varchar(20) default '',
	CustomerSince datetime NULL,
	CreditLimit float default 1000,
	Rating smallint default 0,
	IsCompany bit default 1,
	SignedContract image NULL,
	CreatedOn datetime NULL,
	ChangedOn datetime NULL,
	ChangedBy varchar(40) default 'system',
	CustomerID INTEGER Not NULL,
	FK_OrderID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tCustomer PRIMARY KEY
	(
		CustomerID AUTOINCREMENT
	),
	CONSTRAINT "FK_tCustomer_1" FOREIGN KEY ("FK_OrderID") REFERENCES "tOrder"("OrderID")
);
CREATE TABLE tAddress2
(
	Recipient varchar(80) default '',
	Street varchar(80) default '',
	PostalCode varchar(12) default '',
	City varchar(60) default '',
	CountryCode varchar(2) default 'DE',
	Latitude float default 0,
	Longitude float default 0,
	AddressID INTEGER Not NULL,
	FK_CustomerID int default 0,
	FK_OrderID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tAddress2 PRIMARY KEY
	(
		AddressID AUTOINCREMENT
	),
	CONSTRAINT "FK_tAddress2_1" FOREIGN KEY ("FK_CustomerID") REFERENCES "tCustomer"("CustomerID"),
	CONSTRAINT "FK_tAddress2_1" FOREIGN KEY ("FK_OrderID") REFERENCES "tOrder"("OrderID")
);
CREATE TABLE tContacts
(
	ContactsID INTEGER Not NULL,
	FK_CustomerID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tContacts PRIMARY KEY
	(
		ContactsID AUTOINCREMENT
	),
	CONSTRAINT "FK_tContacts_1" FOREIGN KEY ("FK_CustomerID") REFERENCES "tCustomer"("CustomerID")
);
CREATE TABLE tContact
(
	FirstName varchar(40) default '',
	LastName varchar(40) default '',
	Email varchar(120) default '',
	Phone varchar(50) default '',
	IsMainContact bit default 0,
	ContactID INTEGER Not NULL,
	FK_ContactsID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tContact PRIMARY KEY
	(
		ContactID AUTOINCREMENT
	),
	CONSTRAINT "FK_tContact_1" FOREIGN KEY ("FK_ContactsID") REFERENCES "tContacts"("ContactsID")
);
CREATE TABLE tOrderLines
(
	NextLineNumber smallint default 1,
	OrderLinesID INTEGER Not NULL,
	FK_OrderID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tOrderLines PRIMARY KEY
	(
		OrderLinesID AUTOINCREMENT
	),
	CONSTRAINT "FK_tOrderLines_1" FOREIGN KEY ("FK_OrderID") REFERENCES "tOrder"("OrderID")
);
CREATE TABLE tOrderLine
(
	LineNumber smallint default 0,
	Quantity float default 1,
	UnitPrice float default 0,
	LineDiscount real default 0,
	TaxCode varchar(4) default 'N',
	OrderLineID INTEGER Not NULL,
	FK_OrderLinesID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tOrderLine PRIMARY KEY
	(
		OrderLineID AUTOINCREMENT
	),
	CONSTRAINT "FK_tOrderLine_1" FOREIGN KEY ("FK_OrderLinesID") REFERENCES "tOrderLines"("OrderLinesID")
);
CREATE TABLE tProduct
(
	Sku varchar(30) default '',
	Title varchar(255) default '',
	ProductText text NULL,
	Weight real default 0,
	IsActive bit default 1,
	Photo image NULL,
	CreatedOn datetime NULL,
	ChangedOn datetime NULL,
	ChangedBy varchar(40) default 'system',
	ProductID INTEGER Not NULL,
	FK_OrderLineID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tProduct PRIMARY KEY
	(
		ProductID AUTOINCREMENT
	),
	CONSTRAINT "FK_tProduct_1" FOREIGN KEY ("FK_OrderLineID") REFERENCES "tOrderLine"("OrderLineID")
);
CREATE TABLE tLineAllocations
(
	LineAllocationsID INTEGER Not NULL,
	FK_OrderLineID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tLineAllocations PRIMARY KEY
	(
		LineAllocationsID AUTOINCREMENT
	),
	CONSTRAINT "FK_tLineAllocations_1" FOREIGN KEY ("FK_OrderLineID") REFERENCES "tOrderLine"("OrderLineID")
);
CREATE TABLE tLineAllocation
(
	WarehouseCode varchar(10) default '',
	AllocatedQuantity float default 0,
	AllocatedOn datetime NULL,
	LineAllocationID INTEGER Not NULL,
	FK_LineAllocationsID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tLineAllocation PRIMARY KEY
	(
		LineAllocationID AUTOINCREMENT
	),
	CONSTRAINT "FK_tLineAllocation_1" FOREIGN KEY ("FK_LineAllocationsID") REFERENCES "tLineAllocations"("LineAllocationsID")
);
CREATE TABLE tShipments
(
	ShipmentsID INTEGER Not NULL,
	FK_OrderID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tShipments PRIMARY KEY
	(
		ShipmentsID AUTOINCREMENT
	),
	CONSTRAINT "FK_tShipments_1" FOREIGN KEY ("FK_OrderID") REFERENCES "tOrder"("OrderID")
);
CREATE TABLE tShipment
(
	Carrier varchar(40) default '',
	TrackingNumber varchar(60) default '',
	ShippedOn datetime NULL,
	ShipmentID INTEGER Not NULL,
	FK_ShipmentsID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tShipment PRIMARY KEY
	(
		ShipmentID AUTOINCREMENT
	),
	CONSTRAINT "FK_tShipment_1" FOREIGN KEY ("FK_ShipmentsID") REFERENCES "tShipments"("ShipmentsID")
);
CREATE TABLE tParcel
(
	Barcode varchar(40) default '',
	WeightKg float default 0,
	IsInsured bit default 0,
	ParcelID INTEGER Not NULL,
	FK_ShipmentID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tParcel PRIMARY KEY
	(
		ParcelID AUTOINCREMENT
	),
	CONSTRAINT "FK_tParcel_1" FOREIGN KEY ("FK_ShipmentID") REFERENCES "tShipment"("ShipmentID")
);
CREATE TABLE tPayments
(
	PaymentTerms varchar(100) default '30 days net',
	PaymentsID INTEGER Not NULL,
	FK_OrderID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tPayments PRIMARY KEY
	(
		PaymentsID AUTOINCREMENT
	),
	CONSTRAINT "FK_tPayments_1" FOREIGN KEY ("FK_OrderID") REFERENCES "tOrder"("OrderID")
);
CREATE TABLE tPayment
(
	Amount float default 0,
	PaidOn datetime NULL,
	PaymentMethod smallint default 1,
	BankReference varchar(60) default '',
	CreatedOn datetime NULL,
	ChangedOn datetime NULL,
	ChangedBy varchar(40) default 'system',
	PaymentID INTEGER Not NULL,
	FK_PaymentsID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tPayment PRIMARY KEY
	(
		PaymentID AUTOINCREMENT
	),
	CONSTRAINT "FK_tPayment_1" FOREIGN KEY ("FK_PaymentsID") REFERENCES "tPayments"("PaymentsID")
);
CREATE TABLE trnationalDeliveryInstructions
(
	geOfTheContactAtTheDestination varchar(30) default '',
	arliestHourOfDayForTheDelivery smallint default 8,
	LatestHourOfDayForTheDelivery smallint default 17,
	ionalDeliveryInstructionsID INTEGER Not NULL,
	FK_OrderID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_trnationalDeliveryInstructions PRIMARY KEY
	(
		ionalDeliveryInstructionsID AUTOINCREMENT
	),
	CONSTRAINT "ationalDeliveryInstructions_1" FOREIGN KEY ("FK_OrderID") REFERENCES "tOrder"("OrderID")
);
CREATE INDEX tCustomer1 ON tCustomer(FK_OrderID);
CREATE TRIGGER "korvex_no_parent_insert_tAddress2" AFTER INSERT ON "tAddress2" WHEN NEW."FK_CustomerID" = 0 OR NEW."FK_OrderID" = 0 BEGIN UPDATE "tAddress2" SET "FK_CustomerID" = nullif("FK_CustomerID", 0), "FK_OrderID" = nullif("FK_OrderID", 0) WHERE rowid = NEW.rowid; END;
CREATE TRIGGER "korvex_no_parent_update_tAddress2" AFTER UPDATE OF "FK_CustomerID", "FK_OrderID" ON "tAddress2" WHEN NEW."FK_CustomerID" = 0 OR NEW."FK_OrderID" = 0 BEGIN UPDATE "tAddress2" SET "FK_CustomerID" = nullif("FK_CustomerID", 0), "FK_OrderID" = nullif("FK_OrderID", 0) WHERE rowid = NEW.rowid; END;
CREATE INDEX tAddress21 ON tAddress2(FK_CustomerID);
CREATE INDEX tAddress22 ON tAddress2(FK_OrderID);
CREATE INDEX tContacts1 ON tContacts(FK_CustomerID);
CREATE INDEX tContact1 ON tContact(FK_ContactsID);
CREATE INDEX tOrderLines1 ON tOrderLines(FK_OrderID);
CREATE INDEX tOrderLine1 ON tOrderLine(FK_OrderLinesID);
CREATE INDEX tProduct1 ON tProduct(FK_OrderLineID);
CREATE INDEX tLineAllocations1 ON tLineAllocations(FK_OrderLineID);
CREATE INDEX tLineAllocation1 ON tLineAllocation(FK_LineAllocationsID);
CREATE INDEX tShipments1 ON tShipments(FK_OrderID);
CREATE INDEX tShipment1 ON tShipment(FK_ShipmentsID);
CREATE INDEX tParcel1 ON tParcel(FK_ShipmentID);
CREATE INDEX tPayments1 ON tPayments(FK_OrderID);
CREATE INDEX tPayment1 ON tPayment(FK_PaymentsID);
CREATE INDEX trnationalDeliveryInstructions1 ON trnationalDeliveryInstructions(FK_OrderID);
