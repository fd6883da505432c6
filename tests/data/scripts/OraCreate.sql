
rem  ***** Creating table tOrder

create sequence SEQ_tOrder increment by 1 start with 1; 


CREATE TABLE tOrder
( 
	OrderNumber VARCHAR2(20) default '',
	OrderedOn DATE NULL,
	RequiredBy DATE NULL,
	State NUMBER(5) default 1,
	Urgency VARCHAR2(50) default ,
	SalesRepresentative NUMBER(11) default 0,
	Total NUMBER(15, 2) default 0.00,
	DiscountRate NUMBER(12,2) default 0,
	ExchangeRate NUMBER(38,2) default 1,
	IsPaid NUMBER(1) default 0,
	CurrencyCode VARCHAR2(3) default 'EUR',
	ExternalReference RAW(64) NULL,
	Notes VARCHAR2(2000) default '',
	InternalRemarks LONG NULL,
	CreatedOn DATE NULL,
	ChangedOn DATE NULL,
	ChangedBy VARCHAR2(40) default 'system',
	OrderID NUMBER(11) Not NULL,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_tOrder PRIMARY KEY 
	(
		OrderID
	)
); 


/
CREATE TRIGGER TR_tOrder BEFORE INSERT ON tOrder FOR EACH ROW 
DECLARE
	iCounter tOrder.OrderID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tOrder.NEXTVAL INTO iCounter FROM Dual; 
		:new.OrderID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.OrderID = :old.OrderID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tCustomer

create sequence SEQ_tCustomer increment by 1 start with 1; 


CREATE TABLE tCustomer
( 
	CompanyName VARCHAR2(80) default '',
	TaxNumber VARCHAR2(20) default '',
	CustomerSince DATE NULL,
	CreditLimit NUMBER(15, 2) default 1000,
	Rating NUMBER(5) default 0,
	IsCompany NUMBER(1) default 1,
	SignedContract LONG RAW NULL,
	CreatedOn DATE NULL,
	ChangedOn DATE NULL,
	ChangedBy VARCHAR2(40) default 'system',
	CustomerID NUMBER(11) Not NULL,
	FK_OrderID NUMBER(11) default 0,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_tCustomer PRIMARY KEY 
	(
		CustomerID
	)
); 

CREATE INDEX tCustomer1 ON tCustomer(FK_OrderID); 


/
CREATE TRIGGER TR_tCustomer BEFORE INSERT ON tCustomer FOR EACH ROW 
DECLARE
	iCounter tCustomer.CustomerID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tCustomer.NEXTVAL INTO iCounter FROM Dual; 
		:new.CustomerID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.CustomerID = :old.CustomerID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tAddress2

create sequence SEQ_tAddress2 increment by 1 start with 1; 


CREATE TABLE tAddress2
( 
	Recipient VARCHAR2(80) default '',
	Street VARCHAR2(80) default '',
	PostalCode VARCHAR2(12) default '',
	City VARCHAR2(60) default '',
	CountryCode VARCHAR2(2) default 'DE',
	Latitude NUMBER(38,2) default 0,
	Longitude NUMBER(38,2) default 0,
	AddressID NUMBER(11) Not NULL,
	FK_CustomerID NUMBER(11) default 0,
	FK_OrderID NUMBER(11) default 0,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_tAddress2 PRIMARY KEY 
	(
		AddressID
	)
); 

CREATE INDEX tAddress21 ON tAddress2(FK_CustomerID); 

CREATE INDEX tAddress22 ON tAddress2(FK_OrderID); 


/
CREATE TRIGGER TR_tAddress2 BEFORE INSERT ON tAddress2 FOR EACH ROW 
DECLARE
	iCounter tAddress2.AddressID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tAddress2.NEXTVAL INTO iCounter FROM Dual; 
		:new.AddressID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.AddressID = :old.AddressID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tContacts

create sequence SEQ_tContacts increment by 1 start with 1; 


CREATE TABLE tContacts
( 
	ContactsID NUMBER(11) Not NULL,
	FK_CustomerID NUMBER(11) default 0,
	QORSelectedItem NUMBER(11) default 0,
	QORCounterHolder NUMBER(11) default 0,
	CONSTRAINT PK_tContacts PRIMARY KEY 
	(
		ContactsID
	)
); 

CREATE INDEX tContacts1 ON tContacts(FK_CustomerID); 


/
CREATE TRIGGER TR_tContacts BEFORE INSERT ON tContacts FOR EACH ROW 
DECLARE
	iCounter tContacts.ContactsID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tContacts.NEXTVAL INTO iCounter FROM Dual; 
		:new.ContactsID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.ContactsID = :old.ContactsID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tContact

create sequence SEQ_tContact increment by 1 start with 1; 


CREATE TABLE tContact
( 
	FirstName VARCHAR2(40) default '',
	LastName VARCHAR2(40) default '',
	Email VARCHAR2(120) default '',
	Phone VARCHAR2(50) default '',
	IsMainContact NUMBER(1) default 0,
	ContactID NUMBER(11) Not NULL,
	FK_ContactsID NUMBER(11) default 0,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_tContact PRIMARY KEY 
	(
		ContactID
	)
); 

CREATE INDEX tContact1 ON tContact(FK_ContactsID); 


/
CREATE TRIGGER TR_tContact BEFORE INSERT ON tContact FOR EACH ROW 
DECLARE
	iCounter tContact.ContactID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tContact.NEXTVAL INTO iCounter FROM Dual; 
		:new.ContactID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.ContactID = :old.ContactID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tAddress2

create sequence SEQ_tAddress2 increment by 1 start with 1; 


CREATE TABLE tAddress2
( 
	Recipient VARCHAR2(80) default '',
	Street VARCHAR2(80) default '',
	PostalCode VARCHAR2(12) default '',
	City VARCHAR2(60) default '',
	CountryCode VARCHAR2(2) default 'DE',
	Latitude NUMBER(38,2) default 0,
	Longitude NUMBER(38,2) default 0,
	AddressID NUMBER(11) Not NULL,
	FK_CustomerID NUMBER(11) default 0,
	FK_OrderID NUMBER(11) default 0,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_tAddress2 PRIMARY KEY 
	(
		AddressID
	)
); 

CREATE INDEX tAddress21 ON tAddress2(FK_CustomerID); 

CREATE INDEX tAddress22 ON tAddress2(FK_OrderID); 


/
CREATE TRIGGER TR_tAddress2 BEFORE INSERT ON tAddress2 FOR EACH ROW 
DECLARE
	iCounter tAddress2.AddressID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tAddress2.NEXTVAL INTO iCounter FROM Dual; 
		:new.AddressID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.AddressID = :old.AddressID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tOrderLines

create sequence SEQ_tOrderLines increment by 1 start with 1; 


CREATE TABLE tOrderLines
( 
	NextLineNumber NUMBER(5) default 1,
	OrderLinesID NUMBER(11) Not NULL,
	FK_OrderID NUMBER(11) default 0,
	QORSelectedItem NUMBER(11) default 0,
	QORCounterHolder NUMBER(11) default 0,
	CONSTRAINT PK_tOrderLines PRIMARY KEY 
	(
		OrderLinesID
	)
); 

CREATE INDEX tOrderLines1 ON tOrderLines(FK_OrderID); 


/
CREATE TRIGGER TR_tOrderLines BEFORE INSERT ON tOrderLines FOR EACH ROW 
DECLARE
	iCounter tOrderLines.OrderLinesID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tOrderLines.NEXTVAL INTO iCounter FROM Dual; 
		:new.OrderLinesID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.OrderLinesID = :old.OrderLinesID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tOrderLine

create sequence SEQ_tOrderLine increment by 1 start with 1; 


CREATE TABLE tOrderLine
( 
	LineNumber NUMBER(5) default 0,
	Quantity NUMBER(38,2) default 1,
	UnitPrice NUMBER(15, 2) default 0,
	LineDiscount NUMBER(12,2) default 0,
	TaxCode VARCHAR2(4) default 'N',
	OrderLineID NUMBER(11) Not NULL,
	FK_OrderLinesID NUMBER(11) default 0,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_tOrderLine PRIMARY KEY 
	(
		OrderLineID
	)
); 

CREATE INDEX tOrderLine1 ON tOrderLine(FK_OrderLinesID); 


/
CREATE TRIGGER TR_tOrderLine BEFORE INSERT ON tOrderLine FOR EACH ROW 
DECLARE
	iCounter tOrderLine.OrderLineID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tOrderLine.NEXTVAL INTO iCounter FROM Dual; 
		:new.OrderLineID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.OrderLineID = :old.OrderLineID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tProduct

create sequence SEQ_tProduct increment by 1 start with 1; 


CREATE TABLE tProduct
( 
	Sku VARCHAR2(30) default '',
	Title VARCHAR2(255) default '',
	ProductText VARCHAR2(4000) default '',
	Weight NUMBER(12,2) default 0,
	IsActive NUMBER(1) default 1,
	Photo LONG RAW NULL,
	CreatedOn DATE NULL,
	ChangedOn DATE NULL,
	ChangedBy VARCHAR2(40) default 'system',
	ProductID NUMBER(11) Not NULL,
	FK_OrderLineID NUMBER(11) default 0,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_tProduct PRIMARY KEY 
	(
		ProductID
	)
); 

CREATE INDEX tProduct1 ON tProduct(FK_OrderLineID); 


/
CREATE TRIGGER TR_tProduct BEFORE INSERT ON tProduct FOR EACH ROW 
DECLARE
	iCounter tProduct.ProductID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tProduct.NEXTVAL INTO iCounter FROM Dual; 
		:new.ProductID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.ProductID = :old.ProductID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tLineAllocations

create sequence SEQ_tLineAllocations increment by 1 start with 1; 


CREATE TABLE tLineAllocations
( 
	LineAllocationsID NUMBER(11) Not NULL,
	FK_OrderLineID NUMBER(11) default 0,
	QORSelectedItem NUMBER(11) default 0,
	QORCounterHolder NUMBER(11) default 0,
	CONSTRAINT PK_tLineAllocations PRIMARY KEY 
	(
		LineAllocationsID
	)
); 

CREATE INDEX tLineAllocations1 ON tLineAllocations(FK_OrderLineID); 


/
CREATE TRIGGER TR_tLineAllocations BEFORE INSERT ON tLineAllocations FOR EACH ROW 
DECLARE
	iCounter tLineAllocations.LineAllocationsID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tLineAllocations.NEXTVAL INTO iCounter FROM Dual; 
		:new.LineAllocationsID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.LineAllocationsID = :old.LineAllocationsID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tLineAllocation

create sequence SEQ_tLineAllocation increment by 1 start with 1; 


CREATE TABLE tLineAllocation
( 
	WarehouseCode VARCHAR2(10) default '',
	AllocatedQuantity NUMBER(38,2) default 0,
	AllocatedOn DATE NULL,
	LineAllocationID NUMBER(11) Not NULL,
	FK_LineAllocationsID NUMBER(11) default 0,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_tLineAllocation PRIMARY KEY 
	(
		LineAllocationID
	)
); 

CREATE INDEX tLineAllocation1 ON tLineAllocation(FK_LineAllocationsID); 


/
CREATE TRIGGER TR_tLineAllocation BEFORE INSERT ON tLineAllocation FOR EACH ROW 
DECLARE
	iCounter tLineAllocation.LineAllocationID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tLineAllocation.NEXTVAL INTO iCounter FROM Dual; 
		:new.LineAllocationID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.LineAllocationID = :old.LineAllocationID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tShipments

create sequence SEQ_tShipments increment by 1 start with 1; 


CREATE TABLE tShipments
( 
	ShipmentsID NUMBER(11) Not NULL,
	FK_OrderID NUMBER(11) default 0,
	QORSelectedItem NUMBER(11) default 0,
	QORCounterHolder NUMBER(11) default 0,
	CONSTRAINT PK_tShipments PRIMARY KEY 
	(
		ShipmentsID
	)
); 

CREATE INDEX tShipments1 ON tShipments(FK_OrderID); 


/
CREATE TRIGGER TR_tShipments BEFORE INSERT ON tShipments FOR EACH ROW 
DECLARE
	iCounter tShipments.ShipmentsID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tShipments.NEXTVAL INTO iCounter FROM Dual; 
		:new.ShipmentsID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.ShipmentsID = :old.ShipmentsID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tShipment

create sequence SEQ_tShipment increment by 1 start with 1; 


CREATE TABLE tShipment
( 
	Carrier VARCHAR2(40) default '',
	TrackingNumber VARCHAR2(60) default '',
	ShippedOn DATE NULL,
	ShipmentID NUMBER(11) Not NULL,
	FK_ShipmentsID NUMBER(11) default 0,
	QORSelectedItem NUMBER(11) default 0,
	QORCounterHolder NUMBER(11) default 0,
	CONSTRAINT PK_tShipment PRIMARY KEY 
	(
		ShipmentID
	)
); 

CREATE INDEX tShipment1 ON tShipment(FK_ShipmentsID); 


/
CREATE TRIGGER TR_tShipment BEFORE INSERT ON tShipment FOR EACH ROW 
DECLARE
	iCounter tShipment.ShipmentID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tShipment.NEXTVAL INTO iCounter FROM Dual; 
		:new.ShipmentID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.ShipmentID = :old.ShipmentID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tParcel

create sequence SEQ_tParcel increment by 1 start with 1; 


CREATE TABLE tParcel
( 
	Barcode VARCHAR2(40) default '',
	WeightKg NUMBER(38,2) default 0,
	IsInsured NUMBER(1) default 0,
	ParcelID NUMBER(11) Not NULL,
	FK_ShipmentID NUMBER(11) default 0,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_tParcel PRIMARY KEY 
	(
		ParcelID
	)
); 

CREATE INDEX tParcel1 ON tParcel(FK_ShipmentID); 


/
CREATE TRIGGER TR_tParcel BEFORE INSERT ON tParcel FOR EACH ROW 
DECLARE
	iCounter tParcel.ParcelID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tParcel.NEXTVAL INTO iCounter FROM Dual; 
		:new.ParcelID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.ParcelID = :old.ParcelID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tPayments

create sequence SEQ_tPayments increment by 1 start with 1; 


CREATE TABLE tPayments
( 
	PaymentTerms VARCHAR2(100) default '30 days net',
	PaymentsID NUMBER(11) Not NULL,
	FK_OrderID NUMBER(11) default 0,
	QORSelectedItem NUMBER(11) default 0,
	QORCounterHolder NUMBER(11) default 0,
	CONSTRAINT PK_tPayments PRIMARY KEY 
	(
		PaymentsID
	)
); 

CREATE INDEX tPayments1 ON tPayments(FK_OrderID); 


/
CREATE TRIGGER TR_tPayments BEFORE INSERT ON tPayments FOR EACH ROW 
DECLARE
	iCounter tPayments.PaymentsID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tPayments.NEXTVAL INTO iCounter FROM Dual; 
		:new.PaymentsID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.PaymentsID = :old.PaymentsID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table tPayment

create sequence SEQ_tPayment increment by 1 start with 1; 


CREATE TABLE tPayment
( 
	Amount NUMBER(15, 2) default 0,
	PaidOn DATE NULL,
	PaymentMethod NUMBER(5) default 1,
	BankReference VARCHAR2(60) default '',
	CreatedOn DATE NULL,
	ChangedOn DATE NULL,
	ChangedBy VARCHAR2(40) default 'system',
	PaymentID NUMBER(11) Not NULL,
	FK_PaymentsID NUMBER(11) default 0,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_tPayment PRIMARY KEY 
	(
		PaymentID
	)
); 

CREATE INDEX tPayment1 ON tPayment(FK_PaymentsID); 


/
CREATE TRIGGER TR_tPayment BEFORE INSERT ON tPayment FOR EACH ROW 
DECLARE
	iCounter tPayment.PaymentID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tPayment.NEXTVAL INTO iCounter FROM Dual; 
		:new.PaymentID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.PaymentID = :old.PaymentID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


rem  ***** Creating table trnationalDeliveryInstructions

create sequence SEQ_trnationalDeliveryInstructions increment by 1 start with 1; 


CREATE TABLE trnationalDeliveryInstructions
( 
	geOfTheContactAtTheDestination VARCHAR2(30) default '',
	arliestHourOfDayForTheDelivery NUMBER(5) default 8,
	LatestHourOfDayForTheDelivery NUMBER(5) default 17,
	ionalDeliveryInstructionsID NUMBER(11) Not NULL,
	FK_OrderID NUMBER(11) default 0,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_trnationalDeliveryInstructions PRIMARY KEY 
	(
		ionalDeliveryInstructionsID
	)
); 

CREATE INDEX trnationalDeliveryInstructions1 ON trnationalDeliveryInstructions(FK_OrderID); 


/
CREATE TRIGGER TR_trnationalDeliveryInstructions BEFORE INSERT ON trnationalDeliveryInstructions FOR EACH ROW 
DECLARE
	iCounter trnationalDeliveryInstructions.ionalDeliveryInstructionsID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_trnationalDeliveryInstructions.NEXTVAL INTO iCounter FROM Dual; 
		:new.ionalDeliveryInstructionsID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.ionalDeliveryInstructionsID = :old.ionalDeliveryInstructionsID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/


