if exists(select * from sysobjects where id = object_id('dbo.tOrderAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderR
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderD
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderC
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderU
GO

if exists(select * from sysobjects where id = object_id('dbo.tCustomerAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tCustomerAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tCustomerAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tCustomerAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tCustomerR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tCustomerR
GO

if exists(select * from sysobjects where id = object_id('dbo.tCustomerD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tCustomerD
GO

if exists(select * from sysobjects where id = object_id('dbo.tCustomer_FK_OrderIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tCustomer_FK_OrderIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tCustomer_FK_OrderIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tCustomer_FK_OrderIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tCustomerC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tCustomerC
GO

if exists(select * from sysobjects where id = object_id('dbo.tCustomerU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tCustomerU
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactsAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactsAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactsAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactsAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactsR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactsR
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactsD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactsD
GO

if exists(select * from sysobjects where id = object_id('dbo.tContacts_FK_CustomerIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContacts_FK_CustomerIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tContacts_FK_CustomerIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContacts_FK_CustomerIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactsC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactsC
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactsU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactsU
GO

if exists(select * from sysobjects where id = object_id('dbo.tAddress2AR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tAddress2AR
GO

if exists(select * from sysobjects where id = object_id('dbo.tAddress2AD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tAddress2AD
GO

if exists(select * from sysobjects where id = object_id('dbo.tAddress2R') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tAddress2R
GO

if exists(select * from sysobjects where id = object_id('dbo.tAddress2D') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tAddress2D
GO

if exists(select * from sysobjects where id = object_id('dbo.tAddress2_FK_CustomerIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tAddress2_FK_CustomerIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tAddress2_FK_CustomerIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tAddress2_FK_CustomerIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tAddress2_FK_OrderIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tAddress2_FK_OrderIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tAddress2_FK_OrderIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tAddress2_FK_OrderIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tAddress2C') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tAddress2C
GO

if exists(select * from sysobjects where id = object_id('dbo.tAddress2U') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tAddress2U
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLinesAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLinesAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLinesAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLinesAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLinesR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLinesR
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLinesD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLinesD
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLines_FK_OrderIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLines_FK_OrderIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLines_FK_OrderIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLines_FK_OrderIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLinesC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLinesC
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLinesU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLinesU
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLineAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLineAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLineAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLineAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLineR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLineR
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLineD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLineD
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLine_FK_OrderLinesIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLine_FK_OrderLinesIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLine_FK_OrderLinesIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLine_FK_OrderLinesIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLineC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLineC
GO

if exists(select * from sysobjects where id = object_id('dbo.tOrderLineU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tOrderLineU
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentsAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentsAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentsAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentsAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentsR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentsR
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentsD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentsD
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipments_FK_OrderIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipments_FK_OrderIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipments_FK_OrderIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipments_FK_OrderIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentsC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentsC
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentsU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentsU
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentsAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentsAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentsAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentsAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentsR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentsR
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentsD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentsD
GO

if exists(select * from sysobjects where id = object_id('dbo.tPayments_FK_OrderIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPayments_FK_OrderIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tPayments_FK_OrderIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPayments_FK_OrderIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentsC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentsC
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentsU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentsU
GO

if exists(select * from sysobjects where id = object_id('dbo.nationalDeliveryInstructionsAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.nationalDeliveryInstructionsAR
GO

if exists(select * from sysobjects where id = object_id('dbo.nationalDeliveryInstructionsAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.nationalDeliveryInstructionsAD
GO

if exists(select * from sysobjects where id = object_id('dbo.rnationalDeliveryInstructionsR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.rnationalDeliveryInstructionsR
GO

if exists(select * from sysobjects where id = object_id('dbo.rnationalDeliveryInstructionsD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.rnationalDeliveryInstructionsD
GO

if exists(select * from sysobjects where id = object_id('dbo.liveryInstructions_FK_OrderIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.liveryInstructions_FK_OrderIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.liveryInstructions_FK_OrderIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.liveryInstructions_FK_OrderIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.rnationalDeliveryInstructionsC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.rnationalDeliveryInstructionsC
GO

if exists(select * from sysobjects where id = object_id('dbo.rnationalDeliveryInstructionsU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.rnationalDeliveryInstructionsU
GO

if exists(select * from sysobjects where id = object_id('dbo.FK_tCustomer_1'))
	ALTER TABLE tCustomer DROP CONSTRAINT FK_tCustomer_1
GO

if exists(select * from sysobjects where id = object_id('dbo.FK_tContacts_1'))
	ALTER TABLE tContacts DROP CONSTRAINT FK_tContacts_1
GO

if exists(select * from sysobjects where id = object_id('dbo.FK_tAddress2_1'))
	ALTER TABLE tAddress2 DROP CONSTRAINT FK_tAddress2_1
GO

if exists(select * from sysobjects where id = object_id('dbo.FK_tOrderLines_1'))
	ALTER TABLE tOrderLines DROP CONSTRAINT FK_tOrderLines_1
GO

if exists(select * from sysobjects where id = object_id('dbo.FK_tShipments_1'))
	ALTER TABLE tShipments DROP CONSTRAINT FK_tShipments_1
GO

if exists(select * from sysobjects where id = object_id('dbo.FK_tPayments_1'))
	ALTER TABLE tPayments DROP CONSTRAINT FK_tPayments_1
GO

if exists(select * from sysobjects where id = object_id('dbo.ationalDeliveryInstructions_1'))
	ALTER TABLE trnationalDeliveryInstructions DROP CONSTRAINT ationalDeliveryInstructions_1
GO

DROP INDEX tCustomer.tCustomer1
GO

DROP INDEX tAddress2.tAddress21
GO

DROP INDEX tAddress2.tAddress22
GO

EXEC sp_rename 'tOrder', 'tSale', 'OBJECT'
GO

EXEC sp_rename 'PK_tOrder', 'PK_tSale', 'OBJECT'
GO

EXEC sp_rename 'tCustomer', 'tClient', 'OBJECT'
GO

EXEC sp_rename 'PK_tCustomer', 'PK_tClient', 'OBJECT'
GO

EXEC sp_rename 'tAddress2', 'tAddress', 'OBJECT'
GO

EXEC sp_rename 'PK_tAddress2', 'PK_tAddress', 'OBJECT'
GO

EXEC sp_rename 'tSale.Notes', 'Remarks', 'COLUMN'
GO

EXEC sp_rename 'tSale.OrderID', 'SaleID', 'COLUMN'
GO

EXEC sp_rename 'tClient.CustomerID', 'ClientID', 'COLUMN'
GO

EXEC sp_rename 'tClient.FK_OrderID', 'FK_SaleID', 'COLUMN'
GO

EXEC sp_rename 'tContacts.FK_CustomerID', 'FK_ClientID', 'COLUMN'
GO

EXEC sp_rename 'tAddress.FK_OrderID', 'FK_SaleID', 'COLUMN'
GO

EXEC sp_rename 'tOrderLines.FK_OrderID', 'FK_SaleID', 'COLUMN'
GO

EXEC sp_rename 'tShipments.FK_OrderID', 'FK_SaleID', 'COLUMN'
GO

EXEC sp_rename 'tPayments.FK_OrderID', 'FK_SaleID', 'COLUMN'
GO

EXEC sp_rename 'trnationalDeliveryInstructions.FK_OrderID', 'FK_SaleID', 'COLUMN'
GO

CREATE TABLE dbo.tBin
( 
	Shelf varchar(50) default '',
	BinID int IDENTITY (1, 1) Not NULL,
	FK_LineAllocationID int default 0,
	QORSelectState int default 0,
	QORCounter int default 0,
	CONSTRAINT PK_tBin PRIMARY KEY CLUSTERED
	(
		BinID
	)
)
GO

CREATE INDEX tBin1 ON dbo.tBin(FK_LineAllocationID)
GO

ALTER TABLE tSale ADD Incoterm varchar(3) default '' WITH VALUES
GO

ALTER TABLE tSale ADD Channel smallint default 0 WITH VALUES
GO

DECLARE @name varchar(255)
SELECT @name = object_name(cdefault) FROM syscolumns WHERE id = object_id('tSale') AND name = 'SalesRepresentative'
IF @name IS NOT NULL EXEC('ALTER TABLE tSale DROP CONSTRAINT ' + @name)
GO

ALTER TABLE tSale ALTER COLUMN SalesRepresentative float NULL
GO

ALTER TABLE tSale ADD DEFAULT 0 FOR SalesRepresentative
GO

-- lossy: tSale.Total: real in place of float (larger numbers do not fit, digits may be rounded)
-- DECLARE @name varchar(255)
-- SELECT @name = object_name(cdefault) FROM syscolumns WHERE id = object_id('tSale') AND name = 'Total'
-- IF @name IS NOT NULL EXEC('ALTER TABLE tSale DROP CONSTRAINT ' + @name)
-- GO
-- 
-- ALTER TABLE tSale ALTER COLUMN Total real NULL
-- GO
-- 
-- ALTER TABLE tSale ADD DEFAULT 0.00 FOR Total
-- GO
-- 
-- lossy: tSale.Remarks: varchar(200) in place of text (longer texts do not fit)
-- ALTER TABLE tSale ADD korvex_value varchar(200) default '' WITH VALUES
-- GO
-- 
-- UPDATE tSale SET korvex_value = CONVERT(varchar(200), Remarks)
-- GO
-- 
-- DECLARE @name varchar(255)
-- SELECT @name = object_name(cdefault) FROM syscolumns WHERE id = object_id('tSale') AND name = 'Remarks'
-- IF @name IS NOT NULL EXEC('ALTER TABLE tSale DROP CONSTRAINT ' + @name)
-- GO
-- 
-- ALTER TABLE tSale DROP COLUMN Remarks
-- GO
-- 
-- EXEC sp_rename 'tSale.korvex_value', 'Remarks', 'COLUMN'
-- GO
-- 
DECLARE @name varchar(255)
SELECT @name = object_name(cdefault) FROM syscolumns WHERE id = object_id('tOrderLine') AND name = 'TaxCode'
IF @name IS NOT NULL EXEC('ALTER TABLE tOrderLine DROP CONSTRAINT ' + @name)
GO

ALTER TABLE tOrderLine ALTER COLUMN TaxCode varchar(8) NULL
GO

ALTER TABLE tOrderLine ADD DEFAULT 'N' FOR TaxCode
GO

CREATE INDEX tClient1 ON tClient(FK_SaleID)
GO

CREATE INDEX tAddress1 ON tAddress(FK_SaleID)
GO

ALTER TABLE tClient
ADD CONSTRAINT FK_tClient_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID)
GO

ALTER TABLE tContacts
ADD CONSTRAINT FK_tContacts_1 FOREIGN KEY (FK_ClientID)
 REFERENCES tClient(ClientID)
GO

UPDATE tAddress SET FK_SaleID = NULL WHERE FK_SaleID = 0
GO

ALTER TABLE tAddress
ADD CONSTRAINT FK_tAddress_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID)
GO

ALTER TABLE tOrderLines
ADD CONSTRAINT FK_tOrderLines_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID)
GO

ALTER TABLE tBin
ADD CONSTRAINT FK_tBin_1 FOREIGN KEY (FK_LineAllocationID)
 REFERENCES tLineAllocation(LineAllocationID)
GO

ALTER TABLE tShipments
ADD CONSTRAINT FK_tShipments_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID)
GO

ALTER TABLE tPayments
ADD CONSTRAINT FK_tPayments_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID)
GO

ALTER TABLE trnationalDeliveryInstructions
ADD CONSTRAINT ationalDeliveryInstructions_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID)
GO

CREATE PROCEDURE tSaleAR
AS
	SELECT *  FROM tSale
GO

CREATE PROCEDURE tSaleAD
AS
	DELETE  FROM tSale
GO

CREATE PROCEDURE tSaleR
(@SaleID	int)
AS
	SELECT *  FROM tSale WHERE SaleID = @SaleID
GO

CREATE PROCEDURE tSaleD
(@SaleID	int)
AS
	DELETE  FROM tSale WHERE SaleID = @SaleID
GO

CREATE PROCEDURE tSaleC
(@Incoterm	varchar(3),
@OrderNumber	varchar(20),
@OrderedOn	datetime,
@RequiredBy	datetime,
@State	smallint,
@Channel	smallint,
@SalesRepresentative	float,
@Total	real,
@DiscountRate	real,
@ExchangeRate	float,
@IsPaid	bit,
@CurrencyCode	varchar(3),
@ExternalReference	image,
@Remarks	varchar(200),
@InternalRemarks	text,
@CreatedOn	datetime,
@ChangedOn	datetime,
@ChangedBy	varchar(40),
@QORSelectState	int,
@QORCounter	int,
@SaleID	int OUTPUT)
AS
BEGIN
	INSERT INTO tSale
	(Incoterm,
	OrderNumber,
	OrderedOn,
	RequiredBy,
	State,
	Channel,
	SalesRepresentative,
	Total,
	DiscountRate,
	ExchangeRate,
	IsPaid,
	CurrencyCode,
	ExternalReference,
	Remarks,
	InternalRemarks,
	CreatedOn,
	ChangedOn,
	ChangedBy,
	QORSelectState,
	QORCounter)
	VALUES 
	(@Incoterm,
	@OrderNumber,
	@OrderedOn,
	@RequiredBy,
	@State,
	@Channel,
	@SalesRepresentative,
	@Total,
	@DiscountRate,
	@ExchangeRate,
	@IsPaid,
	@CurrencyCode,
	@ExternalReference,
	@Remarks,
	@InternalRemarks,
	@CreatedOn,
	@ChangedOn,
	@ChangedBy,
	@QORSelectState,
	@QORCounter)

	SELECT @SaleID=max(SaleID) FROM tSale
END
GO

CREATE PROCEDURE tSaleU
(@Incoterm	varchar(3),
@OrderNumber	varchar(20),
@OrderedOn	datetime,
@RequiredBy	datetime,
@State	smallint,
@Channel	smallint,
@SalesRepresentative	float,
@Total	real,
@DiscountRate	real,
@ExchangeRate	float,
@IsPaid	bit,
@CurrencyCode	varchar(3),
@ExternalReference	image,
@Remarks	varchar(200),
@InternalRemarks	text,
@CreatedOn	datetime,
@ChangedOn	datetime,
@ChangedBy	varchar(40),
@SaleID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tSale SET
		Incoterm=@Incoterm,
		OrderNumber=@OrderNumber,
		OrderedOn=@OrderedOn,
		RequiredBy=@RequiredBy,
		State=@State,
		Channel=@Channel,
		SalesRepresentative=@SalesRepresentative,
		Total=@Total,
		DiscountRate=@DiscountRate,
		ExchangeRate=@ExchangeRate,
		IsPaid=@IsPaid,
		CurrencyCode=@CurrencyCode,
		ExternalReference=@ExternalReference,
		Remarks=@Remarks,
		InternalRemarks=@InternalRemarks,
		CreatedOn=@CreatedOn,
		ChangedOn=@ChangedOn,
		ChangedBy=@ChangedBy,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE SaleID=@SaleID
END
GO

CREATE PROCEDURE tClientAR
AS
	SELECT *  FROM tClient
GO

CREATE PROCEDURE tClientAD
AS
	DELETE  FROM tClient
GO

CREATE PROCEDURE tClientR
(@ClientID	int)
AS
	SELECT *  FROM tClient WHERE ClientID = @ClientID
GO

CREATE PROCEDURE tClientD
(@ClientID	int)
AS
	DELETE  FROM tClient WHERE ClientID = @ClientID
GO

CREATE PROCEDURE tClient_FK_SaleIDR
(@FK_SaleID	int)
AS
	SELECT *  FROM tClient WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE tClient_FK_SaleIDD
(@FK_SaleID	int)
AS
	DELETE  FROM tClient WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE tClientC
(@CompanyName	varchar(80),
@TaxNumber	varchar(20),
@CustomerSince	datetime,
@CreditLimit	float,
@Rating	smallint,
@IsCompany	bit,
@SignedContract	image,
@CreatedOn	datetime,
@ChangedOn	datetime,
@ChangedBy	varchar(40),
@FK_SaleID	int,
@QORSelectState	int,
@QORCounter	int,
@ClientID	int OUTPUT)
AS
BEGIN
	INSERT INTO tClient
	(CompanyName,
	TaxNumber,
	CustomerSince,
	CreditLimit,
	Rating,
	IsCompany,
	SignedContract,
	CreatedOn,
	ChangedOn,
	ChangedBy,
	FK_SaleID,
	QORSelectState,
	QORCounter)
	VALUES 
	(@CompanyName,
	@TaxNumber,
	@CustomerSince,
	@CreditLimit,
	@Rating,
	@IsCompany,
	@SignedContract,
	@CreatedOn,
	@ChangedOn,
	@ChangedBy,
	@FK_SaleID,
	@QORSelectState,
	@QORCounter)

	SELECT @ClientID=max(ClientID) FROM tClient
END
GO

CREATE PROCEDURE tClientU
(@CompanyName	varchar(80),
@TaxNumber	varchar(20),
@CustomerSince	datetime,
@CreditLimit	float,
@Rating	smallint,
@IsCompany	bit,
@SignedContract	image,
@CreatedOn	datetime,
@ChangedOn	datetime,
@ChangedBy	varchar(40),
@ClientID	int,
@FK_SaleID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tClient SET
		CompanyName=@CompanyName,
		TaxNumber=@TaxNumber,
		CustomerSince=@CustomerSince,
		CreditLimit=@CreditLimit,
		Rating=@Rating,
		IsCompany=@IsCompany,
		SignedContract=@SignedContract,
		CreatedOn=@CreatedOn,
		ChangedOn=@ChangedOn,
		ChangedBy=@ChangedBy,
		FK_SaleID=@FK_SaleID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE ClientID=@ClientID
END
GO

CREATE PROCEDURE tContactsAR
AS
	SELECT *  FROM tContacts
GO

CREATE PROCEDURE tContactsAD
AS
	DELETE  FROM tContacts
GO

CREATE PROCEDURE tContactsR
(@ContactsID	int)
AS
	SELECT *  FROM tContacts WHERE ContactsID = @ContactsID
GO

CREATE PROCEDURE tContactsD
(@ContactsID	int)
AS
	DELETE  FROM tContacts WHERE ContactsID = @ContactsID
GO

CREATE PROCEDURE tContacts_FK_ClientIDR
(@FK_ClientID	int)
AS
	SELECT *  FROM tContacts WHERE FK_ClientID = @FK_ClientID
GO

CREATE PROCEDURE tContacts_FK_ClientIDD
(@FK_ClientID	int)
AS
	DELETE  FROM tContacts WHERE FK_ClientID = @FK_ClientID
GO

CREATE PROCEDURE tContactsC
(@FK_ClientID	int,
@QORSelectedItem	int,
@QORCounterHolder	int,
@ContactsID	int OUTPUT)
AS
BEGIN
	INSERT INTO tContacts
	(FK_ClientID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(@FK_ClientID,
	@QORSelectedItem,
	@QORCounterHolder)

	SELECT @ContactsID=max(ContactsID) FROM tContacts
END
GO

CREATE PROCEDURE tContactsU
(@ContactsID	int,
@FK_ClientID	int,
@QORSelectedItem	int,
@QORCounterHolder	int)
AS
BEGIN
	UPDATE tContacts SET
		FK_ClientID=@FK_ClientID,
		QORSelectedItem=@QORSelectedItem,
		QORCounterHolder=@QORCounterHolder
	 WHERE ContactsID=@ContactsID
END
GO

CREATE PROCEDURE tAddressAR
AS
	SELECT *  FROM tAddress
GO

CREATE PROCEDURE tAddressAD
AS
	DELETE  FROM tAddress
GO

CREATE PROCEDURE tAddressR
(@AddressID	int)
AS
	SELECT *  FROM tAddress WHERE AddressID = @AddressID
GO

CREATE PROCEDURE tAddressD
(@AddressID	int)
AS
	DELETE  FROM tAddress WHERE AddressID = @AddressID
GO

CREATE PROCEDURE tAddress_FK_SaleIDR
(@FK_SaleID	int)
AS
	SELECT *  FROM tAddress WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE tAddress_FK_SaleIDD
(@FK_SaleID	int)
AS
	DELETE  FROM tAddress WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE tAddressC
(@Recipient	varchar(80),
@Street	varchar(80),
@PostalCode	varchar(12),
@City	varchar(60),
@CountryCode	varchar(2),
@Latitude	float,
@Longitude	float,
@FK_SaleID	int,
@QORSelectState	int,
@QORCounter	int,
@AddressID	int OUTPUT)
AS
BEGIN
	INSERT INTO tAddress
	(Recipient,
	Street,
	PostalCode,
	City,
	CountryCode,
	Latitude,
	Longitude,
	FK_SaleID,
	QORSelectState,
	QORCounter)
	VALUES 
	(@Recipient,
	@Street,
	@PostalCode,
	@City,
	@CountryCode,
	@Latitude,
	@Longitude,
	@FK_SaleID,
	@QORSelectState,
	@QORCounter)

	SELECT @AddressID=max(AddressID) FROM tAddress
END
GO

CREATE PROCEDURE tAddressU
(@Recipient	varchar(80),
@Street	varchar(80),
@PostalCode	varchar(12),
@City	varchar(60),
@CountryCode	varchar(2),
@Latitude	float,
@Longitude	float,
@AddressID	int,
@FK_SaleID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tAddress SET
		Recipient=@Recipient,
		Street=@Street,
		PostalCode=@PostalCode,
		City=@City,
		CountryCode=@CountryCode,
		Latitude=@Latitude,
		Longitude=@Longitude,
		FK_SaleID=@FK_SaleID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE AddressID=@AddressID
END
GO

CREATE PROCEDURE tOrderLinesAR
AS
	SELECT *  FROM tOrderLines
GO

CREATE PROCEDURE tOrderLinesAD
AS
	DELETE  FROM tOrderLines
GO

CREATE PROCEDURE tOrderLinesR
(@OrderLinesID	int)
AS
	SELECT *  FROM tOrderLines WHERE OrderLinesID = @OrderLinesID
GO

CREATE PROCEDURE tOrderLinesD
(@OrderLinesID	int)
AS
	DELETE  FROM tOrderLines WHERE OrderLinesID = @OrderLinesID
GO

CREATE PROCEDURE tOrderLines_FK_SaleIDR
(@FK_SaleID	int)
AS
	SELECT *  FROM tOrderLines WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE tOrderLines_FK_SaleIDD
(@FK_SaleID	int)
AS
	DELETE  FROM tOrderLines WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE tOrderLinesC
(@NextLineNumber	smallint,
@FK_SaleID	int,
@QORSelectedItem	int,
@QORCounterHolder	int,
@OrderLinesID	int OUTPUT)
AS
BEGIN
	INSERT INTO tOrderLines
	(NextLineNumber,
	FK_SaleID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(@NextLineNumber,
	@FK_SaleID,
	@QORSelectedItem,
	@QORCounterHolder)

	SELECT @OrderLinesID=max(OrderLinesID) FROM tOrderLines
END
GO

CREATE PROCEDURE tOrderLinesU
(@NextLineNumber	smallint,
@OrderLinesID	int,
@FK_SaleID	int,
@QORSelectedItem	int,
@QORCounterHolder	int)
AS
BEGIN
	UPDATE tOrderLines SET
		NextLineNumber=@NextLineNumber,
		FK_SaleID=@FK_SaleID,
		QORSelectedItem=@QORSelectedItem,
		QORCounterHolder=@QORCounterHolder
	 WHERE OrderLinesID=@OrderLinesID
END
GO

CREATE PROCEDURE tOrderLineAR
AS
	SELECT *  FROM tOrderLine
GO

CREATE PROCEDURE tOrderLineAD
AS
	DELETE  FROM tOrderLine
GO

CREATE PROCEDURE tOrderLineR
(@OrderLineID	int)
AS
	SELECT *  FROM tOrderLine WHERE OrderLineID = @OrderLineID
GO

CREATE PROCEDURE tOrderLineD
(@OrderLineID	int)
AS
	DELETE  FROM tOrderLine WHERE OrderLineID = @OrderLineID
GO

CREATE PROCEDURE tOrderLine_FK_OrderLinesIDR
(@FK_OrderLinesID	int)
AS
	SELECT *  FROM tOrderLine WHERE FK_OrderLinesID = @FK_OrderLinesID
GO

CREATE PROCEDURE tOrderLine_FK_OrderLinesIDD
(@FK_OrderLinesID	int)
AS
	DELETE  FROM tOrderLine WHERE FK_OrderLinesID = @FK_OrderLinesID
GO

CREATE PROCEDURE tOrderLineC
(@LineNumber	smallint,
@Quantity	float,
@UnitPrice	float,
@LineDiscount	real,
@TaxCode	varchar(8),
@FK_OrderLinesID	int,
@QORSelectState	int,
@QORCounter	int,
@OrderLineID	int OUTPUT)
AS
BEGIN
	INSERT INTO tOrderLine
	(LineNumber,
	Quantity,
	UnitPrice,
	LineDiscount,
	TaxCode,
	FK_OrderLinesID,
	QORSelectState,
	QORCounter)
	VALUES 
	(@LineNumber,
	@Quantity,
	@UnitPrice,
	@LineDiscount,
	@TaxCode,
	@FK_OrderLinesID,
	@QORSelectState,
	@QORCounter)

	SELECT @OrderLineID=max(OrderLineID) FROM tOrderLine
END
GO

CREATE PROCEDURE tOrderLineU
(@LineNumber	smallint,
@Quantity	float,
@UnitPrice	float,
@LineDiscount	real,
@TaxCode	varchar(8),
@OrderLineID	int,
@FK_OrderLinesID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tOrderLine SET
		LineNumber=@LineNumber,
		Quantity=@Quantity,
		UnitPrice=@UnitPrice,
		LineDiscount=@LineDiscount,
		TaxCode=@TaxCode,
		FK_OrderLinesID=@FK_OrderLinesID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE OrderLineID=@OrderLineID
END
GO

CREATE PROCEDURE tBinAR
AS
	SELECT *  FROM tBin
GO

CREATE PROCEDURE tBinAD
AS
	DELETE  FROM tBin
GO

CREATE PROCEDURE tBinR
(@BinID	int)
AS
	SELECT *  FROM tBin WHERE BinID = @BinID
GO

CREATE PROCEDURE tBinD
(@BinID	int)
AS
	DELETE  FROM tBin WHERE BinID = @BinID
GO

CREATE PROCEDURE tBin_FK_LineAllocationIDR
(@FK_LineAllocationID	int)
AS
	SELECT *  FROM tBin WHERE FK_LineAllocationID = @FK_LineAllocationID
GO

CREATE PROCEDURE tBin_FK_LineAllocationIDD
(@FK_LineAllocationID	int)
AS
	DELETE  FROM tBin WHERE FK_LineAllocationID = @FK_LineAllocationID
GO

CREATE PROCEDURE tBinC
(@Shelf	varchar(50),
@FK_LineAllocationID	int,
@QORSelectState	int,
@QORCounter	int,
@BinID	int OUTPUT)
AS
BEGIN
	INSERT INTO tBin
	(Shelf,
	FK_LineAllocationID,
	QORSelectState,
	QORCounter)
	VALUES 
	(@Shelf,
	@FK_LineAllocationID,
	@QORSelectState,
	@QORCounter)

	SELECT @BinID=max(BinID) FROM tBin
END
GO

CREATE PROCEDURE tBinU
(@Shelf	varchar(50),
@BinID	int,
@FK_LineAllocationID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tBin SET
		Shelf=@Shelf,
		FK_LineAllocationID=@FK_LineAllocationID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE BinID=@BinID
END
GO

CREATE PROCEDURE tShipmentsAR
AS
	SELECT *  FROM tShipments
GO

CREATE PROCEDURE tShipmentsAD
AS
	DELETE  FROM tShipments
GO

CREATE PROCEDURE tShipmentsR
(@ShipmentsID	int)
AS
	SELECT *  FROM tShipments WHERE ShipmentsID = @ShipmentsID
GO

CREATE PROCEDURE tShipmentsD
(@ShipmentsID	int)
AS
	DELETE  FROM tShipments WHERE ShipmentsID = @ShipmentsID
GO

CREATE PROCEDURE tShipments_FK_SaleIDR
(@FK_SaleID	int)
AS
	SELECT *  FROM tShipments WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE tShipments_FK_SaleIDD
(@FK_SaleID	int)
AS
	DELETE  FROM tShipments WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE tShipmentsC
(@FK_SaleID	int,
@QORSelectedItem	int,
@QORCounterHolder	int,
@ShipmentsID	int OUTPUT)
AS
BEGIN
	INSERT INTO tShipments
	(FK_SaleID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(@FK_SaleID,
	@QORSelectedItem,
	@QORCounterHolder)

	SELECT @ShipmentsID=max(ShipmentsID) FROM tShipments
END
GO

CREATE PROCEDURE tShipmentsU
(@ShipmentsID	int,
@FK_SaleID	int,
@QORSelectedItem	int,
@QORCounterHolder	int)
AS
BEGIN
	UPDATE tShipments SET
		FK_SaleID=@FK_SaleID,
		QORSelectedItem=@QORSelectedItem,
		QORCounterHolder=@QORCounterHolder
	 WHERE ShipmentsID=@ShipmentsID
END
GO

CREATE PROCEDURE tPaymentsAR
AS
	SELECT *  FROM tPayments
GO

CREATE PROCEDURE tPaymentsAD
AS
	DELETE  FROM tPayments
GO

CREATE PROCEDURE tPaymentsR
(@PaymentsID	int)
AS
	SELECT *  FROM tPayments WHERE PaymentsID = @PaymentsID
GO

CREATE PROCEDURE tPaymentsD
(@PaymentsID	int)
AS
	DELETE  FROM tPayments WHERE PaymentsID = @PaymentsID
GO

CREATE PROCEDURE tPayments_FK_SaleIDR
(@FK_SaleID	int)
AS
	SELECT *  FROM tPayments WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE tPayments_FK_SaleIDD
(@FK_SaleID	int)
AS
	DELETE  FROM tPayments WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE tPaymentsC
(@PaymentTerms	varchar(100),
@FK_SaleID	int,
@QORSelectedItem	int,
@QORCounterHolder	int,
@PaymentsID	int OUTPUT)
AS
BEGIN
	INSERT INTO tPayments
	(PaymentTerms,
	FK_SaleID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(@PaymentTerms,
	@FK_SaleID,
	@QORSelectedItem,
	@QORCounterHolder)

	SELECT @PaymentsID=max(PaymentsID) FROM tPayments
END
GO

CREATE PROCEDURE tPaymentsU
(@PaymentTerms	varchar(100),
@PaymentsID	int,
@FK_SaleID	int,
@QORSelectedItem	int,
@QORCounterHolder	int)
AS
BEGIN
	UPDATE tPayments SET
		PaymentTerms=@PaymentTerms,
		FK_SaleID=@FK_SaleID,
		QORSelectedItem=@QORSelectedItem,
		QORCounterHolder=@QORCounterHolder
	 WHERE PaymentsID=@PaymentsID
END
GO

CREATE PROCEDURE nationalDeliveryInstructionsAR
AS
	SELECT *  FROM trnationalDeliveryInstructions
GO

CREATE PROCEDURE nationalDeliveryInstructionsAD
AS
	DELETE  FROM trnationalDeliveryInstructions
GO

CREATE PROCEDURE rnationalDeliveryInstructionsR
(@ionalDeliveryInstructionsID	int)
AS
	SELECT *  FROM trnationalDeliveryInstructions WHERE ionalDeliveryInstructionsID = @ionalDeliveryInstructionsID
GO

CREATE PROCEDURE rnationalDeliveryInstructionsD
(@ionalDeliveryInstructionsID	int)
AS
	DELETE  FROM trnationalDeliveryInstructions WHERE ionalDeliveryInstructionsID = @ionalDeliveryInstructionsID
GO

CREATE PROCEDURE eliveryInstructions_FK_SaleIDR
(@FK_SaleID	int)
AS
	SELECT *  FROM trnationalDeliveryInstructions WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE eliveryInstructions_FK_SaleIDD
(@FK_SaleID	int)
AS
	DELETE  FROM trnationalDeliveryInstructions WHERE FK_SaleID = @FK_SaleID
GO

CREATE PROCEDURE rnationalDeliveryInstructionsC
(@geOfTheContactAtTheDestination	varchar(30),
@arliestHourOfDayForTheDelivery	smallint,
@LatestHourOfDayForTheDelivery	smallint,
@FK_SaleID	int,
@QORSelectState	int,
@QORCounter	int,
@ionalDeliveryInstructionsID	int OUTPUT)
AS
BEGIN
	INSERT INTO trnationalDeliveryInstructions
	(geOfTheContactAtTheDestination,
	arliestHourOfDayForTheDelivery,
	LatestHourOfDayForTheDelivery,
	FK_SaleID,
	QORSelectState,
	QORCounter)
	VALUES 
	(@geOfTheContactAtTheDestination,
	@arliestHourOfDayForTheDelivery,
	@LatestHourOfDayForTheDelivery,
	@FK_SaleID,
	@QORSelectState,
	@QORCounter)

	SELECT @ionalDeliveryInstructionsID=max(ionalDeliveryInstructionsID) FROM trnationalDeliveryInstructions
END
GO

CREATE PROCEDURE rnationalDeliveryInstructionsU
(@geOfTheContactAtTheDestination	varchar(30),
@arliestHourOfDayForTheDelivery	smallint,
@LatestHourOfDayForTheDelivery	smallint,
@ionalDeliveryInstructionsID	int,
@FK_SaleID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE trnationalDeliveryInstructions SET
		geOfTheContactAtTheDestination=@geOfTheContactAtTheDestination,
		arliestHourOfDayForTheDelivery=@arliestHourOfDayForTheDelivery,
		LatestHourOfDayForTheDelivery=@LatestHourOfDayForTheDelivery,
		FK_SaleID=@FK_SaleID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE ionalDeliveryInstructionsID=@ionalDeliveryInstructionsID
END
GO

-- destructive: tSale.Urgency is dropped: its values are lost
-- DECLARE @name varchar(255)
-- SELECT @name = object_name(cdefault) FROM syscolumns WHERE id = object_id('tSale') AND name = 'Urgency'
-- IF @name IS NOT NULL EXEC('ALTER TABLE tSale DROP CONSTRAINT ' + @name)
-- GO
-- 
-- ALTER TABLE tSale DROP COLUMN Urgency
-- GO
-- 
-- destructive: tAddress.FK_CustomerID is dropped: its values are lost
-- DECLARE @name varchar(255)
-- SELECT @name = object_name(cdefault) FROM syscolumns WHERE id = object_id('tAddress') AND name = 'FK_CustomerID'
-- IF @name IS NOT NULL EXEC('ALTER TABLE tAddress DROP CONSTRAINT ' + @name)
-- GO
-- 
-- ALTER TABLE tAddress DROP COLUMN FK_CustomerID
-- GO
-- 
