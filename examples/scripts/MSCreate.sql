CREATE TABLE dbo.tOrder
( 
	OrderNumber varchar(20) default '',
	OrderedOn datetime NULL,
	RequiredBy datetime NULL,
	State smallint default 1,
	Urgency smallint default 0,
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
	OrderID int IDENTITY (1, 1) Not NULL,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tOrder PRIMARY KEY CLUSTERED
	(
		OrderID
	)
)
GO

CREATE TABLE dbo.tCustomer
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
	CustomerID int IDENTITY (1, 1) Not NULL,
	FK_OrderID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tCustomer PRIMARY KEY CLUSTERED
	(
		CustomerID
	)
)
GO

CREATE INDEX tCustomer1 ON dbo.tCustomer(FK_OrderID)
GO

CREATE TABLE dbo.tBillingAddress
( 
	Recipient varchar(80) default '',
	Street varchar(80) default '',
	PostalCode varchar(12) default '',
	City varchar(60) default '',
	CountryCode varchar(2) default 'DE',
	Latitude float default 0,
	Longitude float default 0,
	BillingAddressID int IDENTITY (1, 1) Not NULL,
	FK_CustomerID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tBillingAddress PRIMARY KEY CLUSTERED
	(
		BillingAddressID
	)
)
GO

CREATE INDEX tBillingAddress1 ON dbo.tBillingAddress(FK_CustomerID)
GO

CREATE TABLE dbo.tContacts
( 
	ContactsID int IDENTITY (1, 1) Not NULL,
	FK_CustomerID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tContacts PRIMARY KEY CLUSTERED
	(
		ContactsID
	)
)
GO

CREATE INDEX tContacts1 ON dbo.tContacts(FK_CustomerID)
GO

CREATE TABLE dbo.tContact
( 
	FirstName varchar(40) default '',
	LastName varchar(40) default '',
	Email varchar(120) default '',
	Phone varchar(50) default '',
	IsMainContact bit default 0,
	ContactID int IDENTITY (1, 1) Not NULL,
	FK_ContactsID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tContact PRIMARY KEY CLUSTERED
	(
		ContactID
	)
)
GO

CREATE INDEX tContact1 ON dbo.tContact(FK_ContactsID)
GO

CREATE TABLE dbo.tDeliveryAddress
( 
	Recipient varchar(80) default '',
	Street varchar(80) default '',
	PostalCode varchar(12) default '',
	City varchar(60) default '',
	CountryCode varchar(2) default 'DE',
	Latitude float default 0,
	Longitude float default 0,
	DeliveryAddressID int IDENTITY (1, 1) Not NULL,
	FK_OrderID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tDeliveryAddress PRIMARY KEY CLUSTERED
	(
		DeliveryAddressID
	)
)
GO

CREATE INDEX tDeliveryAddress1 ON dbo.tDeliveryAddress(FK_OrderID)
GO

CREATE TABLE dbo.tOrderLines
( 
	NextLineNumber smallint default 1,
	OrderLinesID int IDENTITY (1, 1) Not NULL,
	FK_OrderID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tOrderLines PRIMARY KEY CLUSTERED
	(
		OrderLinesID
	)
)
GO

CREATE INDEX tOrderLines1 ON dbo.tOrderLines(FK_OrderID)
GO

CREATE TABLE dbo.tOrderLine
( 
	LineNumber smallint default 0,
	Quantity float default 1,
	UnitPrice float default 0,
	LineDiscount real default 0,
	TaxCode varchar(4) default 'N',
	OrderLineID int IDENTITY (1, 1) Not NULL,
	FK_OrderLinesID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tOrderLine PRIMARY KEY CLUSTERED
	(
		OrderLineID
	)
)
GO

CREATE INDEX tOrderLine1 ON dbo.tOrderLine(FK_OrderLinesID)
GO

CREATE TABLE dbo.tProduct
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
	ProductID int IDENTITY (1, 1) Not NULL,
	FK_OrderLineID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tProduct PRIMARY KEY CLUSTERED
	(
		ProductID
	)
)
GO

CREATE INDEX tProduct1 ON dbo.tProduct(FK_OrderLineID)
GO

CREATE TABLE dbo.tLineAllocations
( 
	LineAllocationsID int IDENTITY (1, 1) Not NULL,
	FK_OrderLineID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tLineAllocations PRIMARY KEY CLUSTERED
	(
		LineAllocationsID
	)
)
GO

CREATE INDEX tLineAllocations1 ON dbo.tLineAllocations(FK_OrderLineID)
GO

CREATE TABLE dbo.tLineAllocation
( 
	WarehouseCode varchar(10) default '',
	AllocatedQuantity float default 0,
	AllocatedOn datetime NULL,
	LineAllocationID int IDENTITY (1, 1) Not NULL,
	FK_LineAllocationsID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tLineAllocation PRIMARY KEY CLUSTERED
	(
		LineAllocationID
	)
)
GO

CREATE INDEX tLineAllocation1 ON dbo.tLineAllocation(FK_LineAllocationsID)
GO

CREATE TABLE dbo.tShipments
( 
	ShipmentsID int IDENTITY (1, 1) Not NULL,
	FK_OrderID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tShipments PRIMARY KEY CLUSTERED
	(
		ShipmentsID
	)
)
GO

CREATE INDEX tShipments1 ON dbo.tShipments(FK_OrderID)
GO

CREATE TABLE dbo.tShipment
( 
	Carrier varchar(40) default '',
	TrackingNumber varchar(60) default '',
	ShippedOn datetime NULL,
	ShipmentID int IDENTITY (1, 1) Not NULL,
	FK_ShipmentsID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tShipment PRIMARY KEY CLUSTERED
	(
		ShipmentID
	)
)
GO

CREATE INDEX tShipment1 ON dbo.tShipment(FK_ShipmentsID)
GO

CREATE TABLE dbo.tParcel
( 
	Barcode varchar(40) default '',
	WeightKg float default 0,
	IsInsured bit default 0,
	ParcelID int IDENTITY (1, 1) Not NULL,
	FK_ShipmentID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tParcel PRIMARY KEY CLUSTERED
	(
		ParcelID
	)
)
GO

CREATE INDEX tParcel1 ON dbo.tParcel(FK_ShipmentID)
GO

CREATE TABLE dbo.tPayments
( 
	PaymentTerms varchar(100) default '30 days net',
	PaymentsID int IDENTITY (1, 1) Not NULL,
	FK_OrderID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tPayments PRIMARY KEY CLUSTERED
	(
		PaymentsID
	)
)
GO

CREATE INDEX tPayments1 ON dbo.tPayments(FK_OrderID)
GO

CREATE TABLE dbo.tPayment
( 
	Amount float default 0,
	PaidOn datetime NULL,
	PaymentMethod smallint default 1,
	BankReference varchar(60) default '',
	CreatedOn datetime NULL,
	ChangedOn datetime NULL,
	ChangedBy varchar(40) default 'system',
	PaymentID int IDENTITY (1, 1) Not NULL,
	FK_PaymentsID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tPayment PRIMARY KEY CLUSTERED
	(
		PaymentID
	)
)
GO

CREATE INDEX tPayment1 ON dbo.tPayment(FK_PaymentsID)
GO

CREATE TABLE dbo.tDeliveryInstructions
( 
	SpokenLanguage varchar(30) default '',
	EarliestHour smallint default 8,
	LatestHour smallint default 17,
	DeliveryInstructionsID int IDENTITY (1, 1) Not NULL,
	FK_OrderID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tDeliveryInstructions PRIMARY KEY CLUSTERED
	(
		DeliveryInstructionsID
	)
)
GO

CREATE INDEX tDeliveryInstructions1 ON dbo.tDeliveryInstructions(FK_OrderID)
GO


