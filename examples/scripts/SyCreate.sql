CREATE TABLE tOrder
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
	OrderID numeric(18, 0)  identity Not NULL,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tOrder PRIMARY KEY CLUSTERED
	(
		OrderID
	)
)
GO

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
	CustomerID numeric(18, 0)  identity Not NULL,
	FK_OrderID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tCustomer PRIMARY KEY CLUSTERED
	(
		CustomerID
	)
)
GO

CREATE INDEX tCustomer1 ON tCustomer(FK_OrderID)
GO

CREATE TABLE tBillingAddress
( 
	Recipient varchar(80) default '',
	Street varchar(80) default '',
	PostalCode varchar(12) default '',
	City varchar(60) default '',
	CountryCode varchar(2) default 'DE',
	Latitude float default 0,
	Longitude float default 0,
	BillingAddressID numeric(18, 0)  identity Not NULL,
	FK_CustomerID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tBillingAddress PRIMARY KEY CLUSTERED
	(
		BillingAddressID
	)
)
GO

CREATE INDEX tBillingAddress1 ON tBillingAddress(FK_CustomerID)
GO

CREATE TABLE tContacts
( 
	ContactsID numeric(18, 0)  identity Not NULL,
	FK_CustomerID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tContacts PRIMARY KEY CLUSTERED
	(
		ContactsID
	)
)
GO

CREATE INDEX tContacts1 ON tContacts(FK_CustomerID)
GO

CREATE TABLE tContact
( 
	FirstName varchar(40) default '',
	LastName varchar(40) default '',
	Email varchar(120) default '',
	Phone varchar(50) default '',
	IsMainContact bit default 0,
	ContactID numeric(18, 0)  identity Not NULL,
	FK_ContactsID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tContact PRIMARY KEY CLUSTERED
	(
		ContactID
	)
)
GO

CREATE INDEX tContact1 ON tContact(FK_ContactsID)
GO

CREATE TABLE tDeliveryAddress
( 
	Recipient varchar(80) default '',
	Street varchar(80) default '',
	PostalCode varchar(12) default '',
	City varchar(60) default '',
	CountryCode varchar(2) default 'DE',
	Latitude float default 0,
	Longitude float default 0,
	DeliveryAddressID numeric(18, 0)  identity Not NULL,
	FK_OrderID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tDeliveryAddress PRIMARY KEY CLUSTERED
	(
		DeliveryAddressID
	)
)
GO

CREATE INDEX tDeliveryAddress1 ON tDeliveryAddress(FK_OrderID)
GO

CREATE TABLE tOrderLines
( 
	NextLineNumber smallint default 1,
	OrderLinesID numeric(18, 0)  identity Not NULL,
	FK_OrderID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tOrderLines PRIMARY KEY CLUSTERED
	(
		OrderLinesID
	)
)
GO

CREATE INDEX tOrderLines1 ON tOrderLines(FK_OrderID)
GO

CREATE TABLE tOrderLine
( 
	LineNumber smallint default 0,
	Quantity float default 1,
	UnitPrice float default 0,
	LineDiscount real default 0,
	TaxCode varchar(4) default 'N',
	OrderLineID numeric(18, 0)  identity Not NULL,
	FK_OrderLinesID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tOrderLine PRIMARY KEY CLUSTERED
	(
		OrderLineID
	)
)
GO

CREATE INDEX tOrderLine1 ON tOrderLine(FK_OrderLinesID)
GO

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
	ProductID numeric(18, 0)  identity Not NULL,
	FK_OrderLineID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tProduct PRIMARY KEY CLUSTERED
	(
		ProductID
	)
)
GO

CREATE INDEX tProduct1 ON tProduct(FK_OrderLineID)
GO

CREATE TABLE tLineAllocations
( 
	LineAllocationsID numeric(18, 0)  identity Not NULL,
	FK_OrderLineID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tLineAllocations PRIMARY KEY CLUSTERED
	(
		LineAllocationsID
	)
)
GO

CREATE INDEX tLineAllocations1 ON tLineAllocations(FK_OrderLineID)
GO

CREATE TABLE tLineAllocation
( 
	WarehouseCode varchar(10) default '',
	AllocatedQuantity float default 0,
	AllocatedOn datetime NULL,
	LineAllocationID numeric(18, 0)  identity Not NULL,
	FK_LineAllocationsID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tLineAllocation PRIMARY KEY CLUSTERED
	(
		LineAllocationID
	)
)
GO

CREATE INDEX tLineAllocation1 ON tLineAllocation(FK_LineAllocationsID)
GO

CREATE TABLE tShipments
( 
	ShipmentsID numeric(18, 0)  identity Not NULL,
	FK_OrderID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tShipments PRIMARY KEY CLUSTERED
	(
		ShipmentsID
	)
)
GO

CREATE INDEX tShipments1 ON tShipments(FK_OrderID)
GO

CREATE TABLE tShipment
( 
	Carrier varchar(40) default '',
	TrackingNumber varchar(60) default '',
	ShippedOn datetime NULL,
	ShipmentID numeric(18, 0)  identity Not NULL,
	FK_ShipmentsID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tShipment PRIMARY KEY CLUSTERED
	(
		ShipmentID
	)
)
GO

CREATE INDEX tShipment1 ON tShipment(FK_ShipmentsID)
GO

CREATE TABLE tParcel
( 
	Barcode varchar(40) default '',
	WeightKg float default 0,
	IsInsured bit default 0,
	ParcelID numeric(18, 0)  identity Not NULL,
	FK_ShipmentID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tParcel PRIMARY KEY CLUSTERED
	(
		ParcelID
	)
)
GO

CREATE INDEX tParcel1 ON tParcel(FK_ShipmentID)
GO

CREATE TABLE tPayments
( 
	PaymentTerms varchar(100) default '30 days net',
	PaymentsID numeric(18, 0)  identity Not NULL,
	FK_OrderID int default 0,
	QORSelectedItem int default 0,
	QORCounterHolder int default 0,
	CONSTRAINT PK_tPayments PRIMARY KEY CLUSTERED
	(
		PaymentsID
	)
)
GO

CREATE INDEX tPayments1 ON tPayments(FK_OrderID)
GO

CREATE TABLE tPayment
( 
	Amount float default 0,
	PaidOn datetime NULL,
	PaymentMethod smallint default 1,
	BankReference varchar(60) default '',
	CreatedOn datetime NULL,
	ChangedOn datetime NULL,
	ChangedBy varchar(40) default 'system',
	PaymentID numeric(18, 0)  identity Not NULL,
	FK_PaymentsID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tPayment PRIMARY KEY CLUSTERED
	(
		PaymentID
	)
)
GO

CREATE INDEX tPayment1 ON tPayment(FK_PaymentsID)
GO

CREATE TABLE tDeliveryInstructions
( 
	SpokenLanguage varchar(30) default '',
	EarliestHour smallint default 8,
	LatestHour smallint default 17,
	DeliveryInstructionsID numeric(18, 0)  identity Not NULL,
	FK_OrderID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tDeliveryInstructions PRIMARY KEY CLUSTERED
	(
		DeliveryInstructionsID
	)
)
GO

CREATE INDEX tDeliveryInstructions1 ON tDeliveryInstructions(FK_OrderID)
GO


