CREATE PROCEDURE tOrderAR
AS
	SELECT *  FROM tOrder
GO

CREATE PROCEDURE tOrderAD
AS
	DELETE  FROM tOrder
GO

CREATE PROCEDURE tOrderR
(@OrderID	int)
AS
	SELECT *  FROM tOrder WHERE OrderID = @OrderID
GO

CREATE PROCEDURE tOrderD
(@OrderID	int)
AS
	DELETE  FROM tOrder WHERE OrderID = @OrderID
GO

CREATE PROCEDURE tOrderC
(@OrderNumber	varchar(20),
@OrderedOn	datetime,
@RequiredBy	datetime,
@State	smallint,
@Urgency	varchar(50),
@SalesRepresentative	int,
@Total	float,
@DiscountRate	real,
@ExchangeRate	float,
@IsPaid	bit,
@CurrencyCode	varchar(3),
@ExternalReference	image,
@Notes	text,
@InternalRemarks	text,
@CreatedOn	datetime,
@ChangedOn	datetime,
@ChangedBy	varchar(40),
@QORSelectState	int,
@QORCounter	int,
@OrderID	int OUTPUT)
AS
BEGIN
	INSERT INTO tOrder
	(OrderNumber,
	OrderedOn,
	RequiredBy,
	State,
	Urgency,
	SalesRepresentative,
	Total,
	DiscountRate,
	ExchangeRate,
	IsPaid,
	CurrencyCode,
	ExternalReference,
	Notes,
	InternalRemarks,
	CreatedOn,
	ChangedOn,
	ChangedBy,
	QORSelectState,
	QORCounter)
	VALUES 
	(@OrderNumber,
	@OrderedOn,
	@RequiredBy,
	@State,
	@Urgency,
	@SalesRepresentative,
	@Total,
	@DiscountRate,
	@ExchangeRate,
	@IsPaid,
	@CurrencyCode,
	@ExternalReference,
	@Notes,
	@InternalRemarks,
	@CreatedOn,
	@ChangedOn,
	@ChangedBy,
	@QORSelectState,
	@QORCounter)

	SELECT @OrderID=max(OrderID) FROM tOrder
END
GO

CREATE PROCEDURE tOrderU
(@OrderNumber	varchar(20),
@OrderedOn	datetime,
@RequiredBy	datetime,
@State	smallint,
@Urgency	varchar(50),
@SalesRepresentative	int,
@Total	float,
@DiscountRate	real,
@ExchangeRate	float,
@IsPaid	bit,
@CurrencyCode	varchar(3),
@ExternalReference	image,
@Notes	text,
@InternalRemarks	text,
@CreatedOn	datetime,
@ChangedOn	datetime,
@ChangedBy	varchar(40),
@OrderID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tOrder SET
		OrderNumber=@OrderNumber,
		OrderedOn=@OrderedOn,
		RequiredBy=@RequiredBy,
		State=@State,
		Urgency=@Urgency,
		SalesRepresentative=@SalesRepresentative,
		Total=@Total,
		DiscountRate=@DiscountRate,
		ExchangeRate=@ExchangeRate,
		IsPaid=@IsPaid,
		CurrencyCode=@CurrencyCode,
		ExternalReference=@ExternalReference,
		Notes=@Notes,
		InternalRemarks=@InternalRemarks,
		CreatedOn=@CreatedOn,
		ChangedOn=@ChangedOn,
		ChangedBy=@ChangedBy,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE OrderID=@OrderID
END
GO

CREATE PROCEDURE tCustomerAR
AS
	SELECT *  FROM tCustomer
GO

CREATE PROCEDURE tCustomerAD
AS
	DELETE  FROM tCustomer
GO

CREATE PROCEDURE tCustomerR
(@CustomerID	int)
AS
	SELECT *  FROM tCustomer WHERE CustomerID = @CustomerID
GO

CREATE PROCEDURE tCustomerD
(@CustomerID	int)
AS
	DELETE  FROM tCustomer WHERE CustomerID = @CustomerID
GO

CREATE PROCEDURE tCustomer_FK_OrderIDR
(@FK_OrderID	int)
AS
	SELECT *  FROM tCustomer WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tCustomer_FK_OrderIDD
(@FK_OrderID	int)
AS
	DELETE  FROM tCustomer WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tCustomerC
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
@FK_OrderID	int,
@QORSelectState	int,
@QORCounter	int,
@CustomerID	int OUTPUT)
AS
BEGIN
	INSERT INTO tCustomer
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
	FK_OrderID,
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
	@FK_OrderID,
	@QORSelectState,
	@QORCounter)

	SELECT @CustomerID=max(CustomerID) FROM tCustomer
END
GO

CREATE PROCEDURE tCustomerU
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
@CustomerID	int,
@FK_OrderID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tCustomer SET
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
		FK_OrderID=@FK_OrderID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE CustomerID=@CustomerID
END
GO

CREATE PROCEDURE tAddress2AR
AS
	SELECT *  FROM tAddress2
GO

CREATE PROCEDURE tAddress2AD
AS
	DELETE  FROM tAddress2
GO

CREATE PROCEDURE tAddress2R
(@AddressID	int)
AS
	SELECT *  FROM tAddress2 WHERE AddressID = @AddressID
GO

CREATE PROCEDURE tAddress2D
(@AddressID	int)
AS
	DELETE  FROM tAddress2 WHERE AddressID = @AddressID
GO

CREATE PROCEDURE tAddress2_FK_CustomerIDR
(@FK_CustomerID	int)
AS
	SELECT *  FROM tAddress2 WHERE FK_CustomerID = @FK_CustomerID
GO

CREATE PROCEDURE tAddress2_FK_CustomerIDD
(@FK_CustomerID	int)
AS
	DELETE  FROM tAddress2 WHERE FK_CustomerID = @FK_CustomerID
GO

CREATE PROCEDURE tAddress2_FK_OrderIDR
(@FK_OrderID	int)
AS
	SELECT *  FROM tAddress2 WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tAddress2_FK_OrderIDD
(@FK_OrderID	int)
AS
	DELETE  FROM tAddress2 WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tAddress2C
(@Recipient	varchar(80),
@Street	varchar(80),
@PostalCode	varchar(12),
@City	varchar(60),
@CountryCode	varchar(2),
@Latitude	float,
@Longitude	float,
@FK_CustomerID	int,
@FK_OrderID	int,
@QORSelectState	int,
@QORCounter	int,
@AddressID	int OUTPUT)
AS
BEGIN
	INSERT INTO tAddress2
	(Recipient,
	Street,
	PostalCode,
	City,
	CountryCode,
	Latitude,
	Longitude,
	FK_CustomerID,
	FK_OrderID,
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
	@FK_CustomerID,
	@FK_OrderID,
	@QORSelectState,
	@QORCounter)

	SELECT @AddressID=max(AddressID) FROM tAddress2
END
GO

CREATE PROCEDURE tAddress2U
(@Recipient	varchar(80),
@Street	varchar(80),
@PostalCode	varchar(12),
@City	varchar(60),
@CountryCode	varchar(2),
@Latitude	float,
@Longitude	float,
@AddressID	int,
@FK_CustomerID	int,
@FK_OrderID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tAddress2 SET
		Recipient=@Recipient,
		Street=@Street,
		PostalCode=@PostalCode,
		City=@City,
		CountryCode=@CountryCode,
		Latitude=@Latitude,
		Longitude=@Longitude,
		FK_CustomerID=@FK_CustomerID,
		FK_OrderID=@FK_OrderID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE AddressID=@AddressID
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

CREATE PROCEDURE tContacts_FK_CustomerIDR
(@FK_CustomerID	int)
AS
	SELECT *  FROM tContacts WHERE FK_CustomerID = @FK_CustomerID
GO

CREATE PROCEDURE tContacts_FK_CustomerIDD
(@FK_CustomerID	int)
AS
	DELETE  FROM tContacts WHERE FK_CustomerID = @FK_CustomerID
GO

CREATE PROCEDURE tContactsC
(@FK_CustomerID	int,
@QORSelectedItem	int,
@QORCounterHolder	int,
@ContactsID	int OUTPUT)
AS
BEGIN
	INSERT INTO tContacts
	(FK_CustomerID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(@FK_CustomerID,
	@QORSelectedItem,
	@QORCounterHolder)

	SELECT @ContactsID=max(ContactsID) FROM tContacts
END
GO

CREATE PROCEDURE tContactsU
(@ContactsID	int,
@FK_CustomerID	int,
@QORSelectedItem	int,
@QORCounterHolder	int)
AS
BEGIN
	UPDATE tContacts SET
		FK_CustomerID=@FK_CustomerID,
		QORSelectedItem=@QORSelectedItem,
		QORCounterHolder=@QORCounterHolder
	 WHERE ContactsID=@ContactsID
END
GO

CREATE PROCEDURE tContactAR
AS
	SELECT *  FROM tContact
GO

CREATE PROCEDURE tContactAD
AS
	DELETE  FROM tContact
GO

CREATE PROCEDURE tContactR
(@ContactID	int)
AS
	SELECT *  FROM tContact WHERE ContactID = @ContactID
GO

CREATE PROCEDURE tContactD
(@ContactID	int)
AS
	DELETE  FROM tContact WHERE ContactID = @ContactID
GO

CREATE PROCEDURE tContact_FK_ContactsIDR
(@FK_ContactsID	int)
AS
	SELECT *  FROM tContact WHERE FK_ContactsID = @FK_ContactsID
GO

CREATE PROCEDURE tContact_FK_ContactsIDD
(@FK_ContactsID	int)
AS
	DELETE  FROM tContact WHERE FK_ContactsID = @FK_ContactsID
GO

CREATE PROCEDURE tContactC
(@FirstName	varchar(40),
@LastName	varchar(40),
@Email	varchar(120),
@Phone	varchar(50),
@IsMainContact	bit,
@FK_ContactsID	int,
@QORSelectState	int,
@QORCounter	int,
@ContactID	int OUTPUT)
AS
BEGIN
	INSERT INTO tContact
	(FirstName,
	LastName,
	Email,
	Phone,
	IsMainContact,
	FK_ContactsID,
	QORSelectState,
	QORCounter)
	VALUES 
	(@FirstName,
	@LastName,
	@Email,
	@Phone,
	@IsMainContact,
	@FK_ContactsID,
	@QORSelectState,
	@QORCounter)

	SELECT @ContactID=max(ContactID) FROM tContact
END
GO

CREATE PROCEDURE tContactU
(@FirstName	varchar(40),
@LastName	varchar(40),
@Email	varchar(120),
@Phone	varchar(50),
@IsMainContact	bit,
@ContactID	int,
@FK_ContactsID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tContact SET
		FirstName=@FirstName,
		LastName=@LastName,
		Email=@Email,
		Phone=@Phone,
		IsMainContact=@IsMainContact,
		FK_ContactsID=@FK_ContactsID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE ContactID=@ContactID
END
GO

CREATE PROCEDURE tAddress2AR
AS
	SELECT *  FROM tAddress2
GO

CREATE PROCEDURE tAddress2AD
AS
	DELETE  FROM tAddress2
GO

CREATE PROCEDURE tAddress2R
(@AddressID	int)
AS
	SELECT *  FROM tAddress2 WHERE AddressID = @AddressID
GO

CREATE PROCEDURE tAddress2D
(@AddressID	int)
AS
	DELETE  FROM tAddress2 WHERE AddressID = @AddressID
GO

CREATE PROCEDURE tAddress2_FK_CustomerIDR
(@FK_CustomerID	int)
AS
	SELECT *  FROM tAddress2 WHERE FK_CustomerID = @FK_CustomerID
GO

CREATE PROCEDURE tAddress2_FK_CustomerIDD
(@FK_CustomerID	int)
AS
	DELETE  FROM tAddress2 WHERE FK_CustomerID = @FK_CustomerID
GO

CREATE PROCEDURE tAddress2_FK_OrderIDR
(@FK_OrderID	int)
AS
	SELECT *  FROM tAddress2 WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tAddress2_FK_OrderIDD
(@FK_OrderID	int)
AS
	DELETE  FROM tAddress2 WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tAddress2C
(@Recipient	varchar(80),
@Street	varchar(80),
@PostalCode	varchar(12),
@City	varchar(60),
@CountryCode	varchar(2),
@Latitude	float,
@Longitude	float,
@FK_CustomerID	int,
@FK_OrderID	int,
@QORSelectState	int,
@QORCounter	int,
@AddressID	int OUTPUT)
AS
BEGIN
	INSERT INTO tAddress2
	(Recipient,
	Street,
	PostalCode,
	City,
	CountryCode,
	Latitude,
	Longitude,
	FK_CustomerID,
	FK_OrderID,
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
	@FK_CustomerID,
	@FK_OrderID,
	@QORSelectState,
	@QORCounter)

	SELECT @AddressID=max(AddressID) FROM tAddress2
END
GO

CREATE PROCEDURE tAddress2U
(@Recipient	varchar(80),
@Street	varchar(80),
@PostalCode	varchar(12),
@City	varchar(60),
@CountryCode	varchar(2),
@Latitude	float,
@Longitude	float,
@AddressID	int,
@FK_CustomerID	int,
@FK_OrderID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tAddress2 SET
		Recipient=@Recipient,
		Street=@Street,
		PostalCode=@PostalCode,
		City=@City,
		CountryCode=@CountryCode,
		Latitude=@Latitude,
		Longitude=@Longitude,
		FK_CustomerID=@FK_CustomerID,
		FK_OrderID=@FK_OrderID,
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

CREATE PROCEDURE tOrderLines_FK_OrderIDR
(@FK_OrderID	int)
AS
	SELECT *  FROM tOrderLines WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tOrderLines_FK_OrderIDD
(@FK_OrderID	int)
AS
	DELETE  FROM tOrderLines WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tOrderLinesC
(@NextLineNumber	smallint,
@FK_OrderID	int,
@QORSelectedItem	int,
@QORCounterHolder	int,
@OrderLinesID	int OUTPUT)
AS
BEGIN
	INSERT INTO tOrderLines
	(NextLineNumber,
	FK_OrderID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(@NextLineNumber,
	@FK_OrderID,
	@QORSelectedItem,
	@QORCounterHolder)

	SELECT @OrderLinesID=max(OrderLinesID) FROM tOrderLines
END
GO

CREATE PROCEDURE tOrderLinesU
(@NextLineNumber	smallint,
@OrderLinesID	int,
@FK_OrderID	int,
@QORSelectedItem	int,
@QORCounterHolder	int)
AS
BEGIN
	UPDATE tOrderLines SET
		NextLineNumber=@NextLineNumber,
		FK_OrderID=@FK_OrderID,
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
@TaxCode	varchar(4),
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
@TaxCode	varchar(4),
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

CREATE PROCEDURE tProductAR
AS
	SELECT *  FROM tProduct
GO

CREATE PROCEDURE tProductAD
AS
	DELETE  FROM tProduct
GO

CREATE PROCEDURE tProductR
(@ProductID	int)
AS
	SELECT *  FROM tProduct WHERE ProductID = @ProductID
GO

CREATE PROCEDURE tProductD
(@ProductID	int)
AS
	DELETE  FROM tProduct WHERE ProductID = @ProductID
GO

CREATE PROCEDURE tProduct_FK_OrderLineIDR
(@FK_OrderLineID	int)
AS
	SELECT *  FROM tProduct WHERE FK_OrderLineID = @FK_OrderLineID
GO

CREATE PROCEDURE tProduct_FK_OrderLineIDD
(@FK_OrderLineID	int)
AS
	DELETE  FROM tProduct WHERE FK_OrderLineID = @FK_OrderLineID
GO

CREATE PROCEDURE tProductC
(@Sku	varchar(30),
@Title	varchar(255),
@ProductText	text,
@Weight	real,
@IsActive	bit,
@Photo	image,
@CreatedOn	datetime,
@ChangedOn	datetime,
@ChangedBy	varchar(40),
@FK_OrderLineID	int,
@QORSelectState	int,
@QORCounter	int,
@ProductID	int OUTPUT)
AS
BEGIN
	INSERT INTO tProduct
	(Sku,
	Title,
	ProductText,
	Weight,
	IsActive,
	Photo,
	CreatedOn,
	ChangedOn,
	ChangedBy,
	FK_OrderLineID,
	QORSelectState,
	QORCounter)
	VALUES 
	(@Sku,
	@Title,
	@ProductText,
	@Weight,
	@IsActive,
	@Photo,
	@CreatedOn,
	@ChangedOn,
	@ChangedBy,
	@FK_OrderLineID,
	@QORSelectState,
	@QORCounter)

	SELECT @ProductID=max(ProductID) FROM tProduct
END
GO

CREATE PROCEDURE tProductU
(@Sku	varchar(30),
@Title	varchar(255),
@ProductText	text,
@Weight	real,
@IsActive	bit,
@Photo	image,
@CreatedOn	datetime,
@ChangedOn	datetime,
@ChangedBy	varchar(40),
@ProductID	int,
@FK_OrderLineID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tProduct SET
		Sku=@Sku,
		Title=@Title,
		ProductText=@ProductText,
		Weight=@Weight,
		IsActive=@IsActive,
		Photo=@Photo,
		CreatedOn=@CreatedOn,
		ChangedOn=@ChangedOn,
		ChangedBy=@ChangedBy,
		FK_OrderLineID=@FK_OrderLineID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE ProductID=@ProductID
END
GO

CREATE PROCEDURE tLineAllocationsAR
AS
	SELECT *  FROM tLineAllocations
GO

CREATE PROCEDURE tLineAllocationsAD
AS
	DELETE  FROM tLineAllocations
GO

CREATE PROCEDURE tLineAllocationsR
(@LineAllocationsID	int)
AS
	SELECT *  FROM tLineAllocations WHERE LineAllocationsID = @LineAllocationsID
GO

CREATE PROCEDURE tLineAllocationsD
(@LineAllocationsID	int)
AS
	DELETE  FROM tLineAllocations WHERE LineAllocationsID = @LineAllocationsID
GO

CREATE PROCEDURE ineAllocations_FK_OrderLineIDR
(@FK_OrderLineID	int)
AS
	SELECT *  FROM tLineAllocations WHERE FK_OrderLineID = @FK_OrderLineID
GO

CREATE PROCEDURE ineAllocations_FK_OrderLineIDD
(@FK_OrderLineID	int)
AS
	DELETE  FROM tLineAllocations WHERE FK_OrderLineID = @FK_OrderLineID
GO

CREATE PROCEDURE tLineAllocationsC
(@FK_OrderLineID	int,
@QORSelectedItem	int,
@QORCounterHolder	int,
@LineAllocationsID	int OUTPUT)
AS
BEGIN
	INSERT INTO tLineAllocations
	(FK_OrderLineID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(@FK_OrderLineID,
	@QORSelectedItem,
	@QORCounterHolder)

	SELECT @LineAllocationsID=max(LineAllocationsID) FROM tLineAllocations
END
GO

CREATE PROCEDURE tLineAllocationsU
(@LineAllocationsID	int,
@FK_OrderLineID	int,
@QORSelectedItem	int,
@QORCounterHolder	int)
AS
BEGIN
	UPDATE tLineAllocations SET
		FK_OrderLineID=@FK_OrderLineID,
		QORSelectedItem=@QORSelectedItem,
		QORCounterHolder=@QORCounterHolder
	 WHERE LineAllocationsID=@LineAllocationsID
END
GO

CREATE PROCEDURE tLineAllocationAR
AS
	SELECT *  FROM tLineAllocation
GO

CREATE PROCEDURE tLineAllocationAD
AS
	DELETE  FROM tLineAllocation
GO

CREATE PROCEDURE tLineAllocationR
(@LineAllocationID	int)
AS
	SELECT *  FROM tLineAllocation WHERE LineAllocationID = @LineAllocationID
GO

CREATE PROCEDURE tLineAllocationD
(@LineAllocationID	int)
AS
	DELETE  FROM tLineAllocation WHERE LineAllocationID = @LineAllocationID
GO

CREATE PROCEDURE location_FK_LineAllocationsIDR
(@FK_LineAllocationsID	int)
AS
	SELECT *  FROM tLineAllocation WHERE FK_LineAllocationsID = @FK_LineAllocationsID
GO

CREATE PROCEDURE location_FK_LineAllocationsIDD
(@FK_LineAllocationsID	int)
AS
	DELETE  FROM tLineAllocation WHERE FK_LineAllocationsID = @FK_LineAllocationsID
GO

CREATE PROCEDURE tLineAllocationC
(@WarehouseCode	varchar(10),
@AllocatedQuantity	float,
@AllocatedOn	datetime,
@FK_LineAllocationsID	int,
@QORSelectState	int,
@QORCounter	int,
@LineAllocationID	int OUTPUT)
AS
BEGIN
	INSERT INTO tLineAllocation
	(WarehouseCode,
	AllocatedQuantity,
	AllocatedOn,
	FK_LineAllocationsID,
	QORSelectState,
	QORCounter)
	VALUES 
	(@WarehouseCode,
	@AllocatedQuantity,
	@AllocatedOn,
	@FK_LineAllocationsID,
	@QORSelectState,
	@QORCounter)

	SELECT @LineAllocationID=max(LineAllocationID) FROM tLineAllocation
END
GO

CREATE PROCEDURE tLineAllocationU
(@WarehouseCode	varchar(10),
@AllocatedQuantity	float,
@AllocatedOn	datetime,
@LineAllocationID	int,
@FK_LineAllocationsID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tLineAllocation SET
		WarehouseCode=@WarehouseCode,
		AllocatedQuantity=@AllocatedQuantity,
		AllocatedOn=@AllocatedOn,
		FK_LineAllocationsID=@FK_LineAllocationsID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE LineAllocationID=@LineAllocationID
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

CREATE PROCEDURE tShipments_FK_OrderIDR
(@FK_OrderID	int)
AS
	SELECT *  FROM tShipments WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tShipments_FK_OrderIDD
(@FK_OrderID	int)
AS
	DELETE  FROM tShipments WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tShipmentsC
(@FK_OrderID	int,
@QORSelectedItem	int,
@QORCounterHolder	int,
@ShipmentsID	int OUTPUT)
AS
BEGIN
	INSERT INTO tShipments
	(FK_OrderID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(@FK_OrderID,
	@QORSelectedItem,
	@QORCounterHolder)

	SELECT @ShipmentsID=max(ShipmentsID) FROM tShipments
END
GO

CREATE PROCEDURE tShipmentsU
(@ShipmentsID	int,
@FK_OrderID	int,
@QORSelectedItem	int,
@QORCounterHolder	int)
AS
BEGIN
	UPDATE tShipments SET
		FK_OrderID=@FK_OrderID,
		QORSelectedItem=@QORSelectedItem,
		QORCounterHolder=@QORCounterHolder
	 WHERE ShipmentsID=@ShipmentsID
END
GO

CREATE PROCEDURE tShipmentAR
AS
	SELECT *  FROM tShipment
GO

CREATE PROCEDURE tShipmentAD
AS
	DELETE  FROM tShipment
GO

CREATE PROCEDURE tShipmentR
(@ShipmentID	int)
AS
	SELECT *  FROM tShipment WHERE ShipmentID = @ShipmentID
GO

CREATE PROCEDURE tShipmentD
(@ShipmentID	int)
AS
	DELETE  FROM tShipment WHERE ShipmentID = @ShipmentID
GO

CREATE PROCEDURE tShipment_FK_ShipmentsIDR
(@FK_ShipmentsID	int)
AS
	SELECT *  FROM tShipment WHERE FK_ShipmentsID = @FK_ShipmentsID
GO

CREATE PROCEDURE tShipment_FK_ShipmentsIDD
(@FK_ShipmentsID	int)
AS
	DELETE  FROM tShipment WHERE FK_ShipmentsID = @FK_ShipmentsID
GO

CREATE PROCEDURE tShipmentC
(@Carrier	varchar(40),
@TrackingNumber	varchar(60),
@ShippedOn	datetime,
@FK_ShipmentsID	int,
@QORSelectedItem	int,
@QORCounterHolder	int,
@ShipmentID	int OUTPUT)
AS
BEGIN
	INSERT INTO tShipment
	(Carrier,
	TrackingNumber,
	ShippedOn,
	FK_ShipmentsID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(@Carrier,
	@TrackingNumber,
	@ShippedOn,
	@FK_ShipmentsID,
	@QORSelectedItem,
	@QORCounterHolder)

	SELECT @ShipmentID=max(ShipmentID) FROM tShipment
END
GO

CREATE PROCEDURE tShipmentU
(@Carrier	varchar(40),
@TrackingNumber	varchar(60),
@ShippedOn	datetime,
@ShipmentID	int,
@FK_ShipmentsID	int,
@QORSelectedItem	int,
@QORCounterHolder	int)
AS
BEGIN
	UPDATE tShipment SET
		Carrier=@Carrier,
		TrackingNumber=@TrackingNumber,
		ShippedOn=@ShippedOn,
		FK_ShipmentsID=@FK_ShipmentsID,
		QORSelectedItem=@QORSelectedItem,
		QORCounterHolder=@QORCounterHolder
	 WHERE ShipmentID=@ShipmentID
END
GO

CREATE PROCEDURE tParcelAR
AS
	SELECT *  FROM tParcel
GO

CREATE PROCEDURE tParcelAD
AS
	DELETE  FROM tParcel
GO

CREATE PROCEDURE tParcelR
(@ParcelID	int)
AS
	SELECT *  FROM tParcel WHERE ParcelID = @ParcelID
GO

CREATE PROCEDURE tParcelD
(@ParcelID	int)
AS
	DELETE  FROM tParcel WHERE ParcelID = @ParcelID
GO

CREATE PROCEDURE tParcel_FK_ShipmentIDR
(@FK_ShipmentID	int)
AS
	SELECT *  FROM tParcel WHERE FK_ShipmentID = @FK_ShipmentID
GO

CREATE PROCEDURE tParcel_FK_ShipmentIDD
(@FK_ShipmentID	int)
AS
	DELETE  FROM tParcel WHERE FK_ShipmentID = @FK_ShipmentID
GO

CREATE PROCEDURE tParcelC
(@Barcode	varchar(40),
@WeightKg	float,
@IsInsured	bit,
@FK_ShipmentID	int,
@QORSelectState	int,
@QORCounter	int,
@ParcelID	int OUTPUT)
AS
BEGIN
	INSERT INTO tParcel
	(Barcode,
	WeightKg,
	IsInsured,
	FK_ShipmentID,
	QORSelectState,
	QORCounter)
	VALUES 
	(@Barcode,
	@WeightKg,
	@IsInsured,
	@FK_ShipmentID,
	@QORSelectState,
	@QORCounter)

	SELECT @ParcelID=max(ParcelID) FROM tParcel
END
GO

CREATE PROCEDURE tParcelU
(@Barcode	varchar(40),
@WeightKg	float,
@IsInsured	bit,
@ParcelID	int,
@FK_ShipmentID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tParcel SET
		Barcode=@Barcode,
		WeightKg=@WeightKg,
		IsInsured=@IsInsured,
		FK_ShipmentID=@FK_ShipmentID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE ParcelID=@ParcelID
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

CREATE PROCEDURE tPayments_FK_OrderIDR
(@FK_OrderID	int)
AS
	SELECT *  FROM tPayments WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tPayments_FK_OrderIDD
(@FK_OrderID	int)
AS
	DELETE  FROM tPayments WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE tPaymentsC
(@PaymentTerms	varchar(100),
@FK_OrderID	int,
@QORSelectedItem	int,
@QORCounterHolder	int,
@PaymentsID	int OUTPUT)
AS
BEGIN
	INSERT INTO tPayments
	(PaymentTerms,
	FK_OrderID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(@PaymentTerms,
	@FK_OrderID,
	@QORSelectedItem,
	@QORCounterHolder)

	SELECT @PaymentsID=max(PaymentsID) FROM tPayments
END
GO

CREATE PROCEDURE tPaymentsU
(@PaymentTerms	varchar(100),
@PaymentsID	int,
@FK_OrderID	int,
@QORSelectedItem	int,
@QORCounterHolder	int)
AS
BEGIN
	UPDATE tPayments SET
		PaymentTerms=@PaymentTerms,
		FK_OrderID=@FK_OrderID,
		QORSelectedItem=@QORSelectedItem,
		QORCounterHolder=@QORCounterHolder
	 WHERE PaymentsID=@PaymentsID
END
GO

CREATE PROCEDURE tPaymentAR
AS
	SELECT *  FROM tPayment
GO

CREATE PROCEDURE tPaymentAD
AS
	DELETE  FROM tPayment
GO

CREATE PROCEDURE tPaymentR
(@PaymentID	int)
AS
	SELECT *  FROM tPayment WHERE PaymentID = @PaymentID
GO

CREATE PROCEDURE tPaymentD
(@PaymentID	int)
AS
	DELETE  FROM tPayment WHERE PaymentID = @PaymentID
GO

CREATE PROCEDURE tPayment_FK_PaymentsIDR
(@FK_PaymentsID	int)
AS
	SELECT *  FROM tPayment WHERE FK_PaymentsID = @FK_PaymentsID
GO

CREATE PROCEDURE tPayment_FK_PaymentsIDD
(@FK_PaymentsID	int)
AS
	DELETE  FROM tPayment WHERE FK_PaymentsID = @FK_PaymentsID
GO

CREATE PROCEDURE tPaymentC
(@Amount	float,
@PaidOn	datetime,
@PaymentMethod	smallint,
@BankReference	varchar(60),
@CreatedOn	datetime,
@ChangedOn	datetime,
@ChangedBy	varchar(40),
@FK_PaymentsID	int,
@QORSelectState	int,
@QORCounter	int,
@PaymentID	int OUTPUT)
AS
BEGIN
	INSERT INTO tPayment
	(Amount,
	PaidOn,
	PaymentMethod,
	BankReference,
	CreatedOn,
	ChangedOn,
	ChangedBy,
	FK_PaymentsID,
	QORSelectState,
	QORCounter)
	VALUES 
	(@Amount,
	@PaidOn,
	@PaymentMethod,
	@BankReference,
	@CreatedOn,
	@ChangedOn,
	@ChangedBy,
	@FK_PaymentsID,
	@QORSelectState,
	@QORCounter)

	SELECT @PaymentID=max(PaymentID) FROM tPayment
END
GO

CREATE PROCEDURE tPaymentU
(@Amount	float,
@PaidOn	datetime,
@PaymentMethod	smallint,
@BankReference	varchar(60),
@CreatedOn	datetime,
@ChangedOn	datetime,
@ChangedBy	varchar(40),
@PaymentID	int,
@FK_PaymentsID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE tPayment SET
		Amount=@Amount,
		PaidOn=@PaidOn,
		PaymentMethod=@PaymentMethod,
		BankReference=@BankReference,
		CreatedOn=@CreatedOn,
		ChangedOn=@ChangedOn,
		ChangedBy=@ChangedBy,
		FK_PaymentsID=@FK_PaymentsID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE PaymentID=@PaymentID
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

CREATE PROCEDURE liveryInstructions_FK_OrderIDR
(@FK_OrderID	int)
AS
	SELECT *  FROM trnationalDeliveryInstructions WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE liveryInstructions_FK_OrderIDD
(@FK_OrderID	int)
AS
	DELETE  FROM trnationalDeliveryInstructions WHERE FK_OrderID = @FK_OrderID
GO

CREATE PROCEDURE rnationalDeliveryInstructionsC
(@geOfTheContactAtTheDestination	varchar(30),
@arliestHourOfDayForTheDelivery	smallint,
@LatestHourOfDayForTheDelivery	smallint,
@FK_OrderID	int,
@QORSelectState	int,
@QORCounter	int,
@ionalDeliveryInstructionsID	int OUTPUT)
AS
BEGIN
	INSERT INTO trnationalDeliveryInstructions
	(geOfTheContactAtTheDestination,
	arliestHourOfDayForTheDelivery,
	LatestHourOfDayForTheDelivery,
	FK_OrderID,
	QORSelectState,
	QORCounter)
	VALUES 
	(@geOfTheContactAtTheDestination,
	@arliestHourOfDayForTheDelivery,
	@LatestHourOfDayForTheDelivery,
	@FK_OrderID,
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
@FK_OrderID	int,
@QORSelectState	int,
@QORCounter	int)
AS
BEGIN
	UPDATE trnationalDeliveryInstructions SET
		geOfTheContactAtTheDestination=@geOfTheContactAtTheDestination,
		arliestHourOfDayForTheDelivery=@arliestHourOfDayForTheDelivery,
		LatestHourOfDayForTheDelivery=@LatestHourOfDayForTheDelivery,
		FK_OrderID=@FK_OrderID,
		QORSelectState=@QORSelectState,
		QORCounter=@QORCounter
	 WHERE ionalDeliveryInstructionsID=@ionalDeliveryInstructionsID
END
GO


