rem  ***** Altering tables

DROP PROCEDURE tOrderAD;
DROP PROCEDURE tOrderAR;
DROP PROCEDURE tOrderC;
DROP PROCEDURE tOrderD;
DROP PROCEDURE tOrderR;
DROP PROCEDURE tOrderU;
DROP PROCEDURE tCustomerAD;
DROP PROCEDURE tCustomerAR;
DROP PROCEDURE tCustomerC;
DROP PROCEDURE tCustomerD;
DROP PROCEDURE tCustomerR;
DROP PROCEDURE tCustomerU;
DROP PROCEDURE tCustomer_FK_OrderIDD;
DROP PROCEDURE tCustomer_FK_OrderIDR;
DROP PROCEDURE tContacts_FK_CustomerIDD;
DROP PROCEDURE tContacts_FK_CustomerIDR;
DROP PROCEDURE tAddress2AD;
DROP PROCEDURE tAddress2AR;
DROP PROCEDURE tAddress2C;
DROP PROCEDURE tAddress2D;
DROP PROCEDURE tAddress2R;
DROP PROCEDURE tAddress2U;
DROP PROCEDURE tAddress2_FK_CustomerIDD;
DROP PROCEDURE tAddress2_FK_CustomerIDR;
DROP PROCEDURE tAddress2_FK_OrderIDD;
DROP PROCEDURE tAddress2_FK_OrderIDR;
DROP PROCEDURE tOrderLines_FK_OrderIDD;
DROP PROCEDURE tOrderLines_FK_OrderIDR;
DROP PROCEDURE tShipments_FK_OrderIDD;
DROP PROCEDURE tShipments_FK_OrderIDR;
DROP PROCEDURE tPayments_FK_OrderIDD;
DROP PROCEDURE tPayments_FK_OrderIDR;
DROP PROCEDURE liveryInstructions_FK_OrderIDD;
DROP PROCEDURE liveryInstructions_FK_OrderIDR;
ALTER TABLE tCustomer DROP CONSTRAINT FK_tCustomer_1;
ALTER TABLE tContacts DROP CONSTRAINT FK_tContacts_1;
ALTER TABLE tAddress2 DROP CONSTRAINT FK_tAddress2_1;
ALTER TABLE tOrderLines DROP CONSTRAINT FK_tOrderLines_1;
ALTER TABLE tShipments DROP CONSTRAINT FK_tShipments_1;
ALTER TABLE tPayments DROP CONSTRAINT FK_tPayments_1;
ALTER TABLE trnationalDeliveryInstructions DROP CONSTRAINT ationalDeliveryInstructions_1;
DROP TRIGGER TR_tOrder;
DROP TRIGGER TR_tCustomer;
DROP INDEX tCustomer1;
DROP TRIGGER TR_tContacts;
DROP TRIGGER TR_tAddress2;
DROP INDEX tAddress21;
DROP INDEX tAddress22;
DROP TRIGGER TR_tOrderLines;
DROP TRIGGER TR_tShipments;
DROP TRIGGER TR_tPayments;
DROP TRIGGER TR_trnationalDeliveryInstructions;
ALTER TABLE tOrder RENAME TO tSale;
ALTER TABLE tSale RENAME CONSTRAINT PK_tOrder TO PK_tSale;
RENAME SEQ_tOrder TO SEQ_tSale;
ALTER TABLE tCustomer RENAME TO tClient;
ALTER TABLE tClient RENAME CONSTRAINT PK_tCustomer TO PK_tClient;
RENAME SEQ_tCustomer TO SEQ_tClient;
ALTER TABLE tAddress2 RENAME TO tAddress;
ALTER TABLE tAddress RENAME CONSTRAINT PK_tAddress2 TO PK_tAddress;
RENAME SEQ_tAddress2 TO SEQ_tAddress;
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

rem  ***** Creating table tBin

create sequence SEQ_tBin increment by 1 start with 1; 


CREATE TABLE tBin
( 
	Shelf VARCHAR2(50) default '',
	BinID NUMBER(11) Not NULL,
	FK_LineAllocationID NUMBER(11) default 0,
	QORSelectState NUMBER(11) default 0,
	QORCounter NUMBER(11) default 0,
	CONSTRAINT PK_tBin PRIMARY KEY 
	(
		BinID
	)
); 

CREATE INDEX tBin1 ON tBin(FK_LineAllocationID); 


/
CREATE TRIGGER TR_tBin BEFORE INSERT ON tBin FOR EACH ROW 
DECLARE
	iCounter tBin.BinID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tBin.NEXTVAL INTO iCounter FROM Dual; 
		:new.BinID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.BinID = :old.BinID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/

ALTER TABLE tSale ADD Incoterm VARCHAR2(3) default '';
ALTER TABLE tSale ADD Channel NUMBER(5) default 0;
ALTER TABLE tSale MODIFY SalesRepresentative NUMBER(38,2) default 0;
rem  lossy: tSale.Total: NUMBER(12,2) in place of NUMBER(15, 2) (larger numbers do not fit, digits may be rounded)
rem  ALTER TABLE tSale ADD korvex_value NUMBER(12,2) default 0.00;
rem  UPDATE tSale SET korvex_value = Total;
rem  ALTER TABLE tSale DROP COLUMN Total;
rem  ALTER TABLE tSale RENAME COLUMN korvex_value TO Total;
rem  lossy: tSale.Remarks: VARCHAR2(200) in place of VARCHAR2(2000) (longer texts do not fit)
rem  ALTER TABLE tSale MODIFY Remarks VARCHAR2(200) default '';
ALTER TABLE tOrderLine MODIFY TaxCode VARCHAR2(8) default 'N';
CREATE INDEX tClient1 ON tClient(FK_SaleID);
CREATE INDEX tAddress1 ON tAddress(FK_SaleID);
ALTER TABLE tClient
ADD CONSTRAINT FK_tClient_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID);
ALTER TABLE tContacts
ADD CONSTRAINT FK_tContacts_1 FOREIGN KEY (FK_ClientID)
 REFERENCES tClient(ClientID);
UPDATE tAddress SET FK_SaleID = NULL WHERE FK_SaleID = 0;
ALTER TABLE tAddress
ADD CONSTRAINT FK_tAddress_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID);
ALTER TABLE tOrderLines
ADD CONSTRAINT FK_tOrderLines_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID);
ALTER TABLE tBin
ADD CONSTRAINT FK_tBin_1 FOREIGN KEY (FK_LineAllocationID)
 REFERENCES tLineAllocation(LineAllocationID);
ALTER TABLE tShipments
ADD CONSTRAINT FK_tShipments_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID);
ALTER TABLE tPayments
ADD CONSTRAINT FK_tPayments_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID);
ALTER TABLE trnationalDeliveryInstructions
ADD CONSTRAINT ationalDeliveryInstructions_1 FOREIGN KEY (FK_SaleID)
 REFERENCES tSale(SaleID);
/
CREATE TRIGGER TR_tSale BEFORE INSERT ON tSale FOR EACH ROW 
DECLARE
	iCounter tSale.SaleID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tSale.NEXTVAL INTO iCounter FROM Dual; 
		:new.SaleID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.SaleID = :old.SaleID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/
/
CREATE TRIGGER TR_tClient BEFORE INSERT ON tClient FOR EACH ROW 
DECLARE
	iCounter tClient.ClientID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tClient.NEXTVAL INTO iCounter FROM Dual; 
		:new.ClientID := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.ClientID = :old.ClientID) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/
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
/
CREATE TRIGGER TR_tAddress BEFORE INSERT ON tAddress FOR EACH ROW 
DECLARE
	iCounter tAddress.AddressID%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_tAddress.NEXTVAL INTO iCounter FROM Dual; 
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
CREATE OR REPLACE PROCEDURE tSaleAR
AS
BEGIN
	SELECT *  FROM tSale; 
END; 
/

CREATE OR REPLACE PROCEDURE tSaleAD
AS
BEGIN
	DELETE  FROM tSale; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tSaleR
(p_SaleID	tSale.SaleID%TYPE)
AS
BEGIN
	SELECT *  FROM tSale WHERE SaleID = p_SaleID; 
END; 
/

CREATE OR REPLACE PROCEDURE tSaleD
(p_SaleID	tSale.SaleID%TYPE)
AS
BEGIN
	DELETE  FROM tSale WHERE SaleID = p_SaleID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tSaleC
(p_Incoterm	tSale.Incoterm%TYPE,
p_OrderNumber	tSale.OrderNumber%TYPE,
p_OrderedOn	tSale.OrderedOn%TYPE,
p_RequiredBy	tSale.RequiredBy%TYPE,
p_State	tSale.State%TYPE,
p_Channel	tSale.Channel%TYPE,
p_SalesRepresentative	tSale.SalesRepresentative%TYPE,
p_Total	tSale.Total%TYPE,
p_DiscountRate	tSale.DiscountRate%TYPE,
p_ExchangeRate	tSale.ExchangeRate%TYPE,
p_IsPaid	tSale.IsPaid%TYPE,
p_CurrencyCode	tSale.CurrencyCode%TYPE,
p_ExternalReference	tSale.ExternalReference%TYPE,
p_Remarks	tSale.Remarks%TYPE,
p_InternalRemarks	tSale.InternalRemarks%TYPE,
p_CreatedOn	tSale.CreatedOn%TYPE,
p_ChangedOn	tSale.ChangedOn%TYPE,
p_ChangedBy	tSale.ChangedBy%TYPE,
p_QORSelectState	tSale.QORSelectState%TYPE,
p_QORCounter	tSale.QORCounter%TYPE,
p_SaleID	OUT 	tSale.SaleID%TYPE)
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
	(p_Incoterm,
	p_OrderNumber,
	p_OrderedOn,
	p_RequiredBy,
	p_State,
	p_Channel,
	p_SalesRepresentative,
	p_Total,
	p_DiscountRate,
	p_ExchangeRate,
	p_IsPaid,
	p_CurrencyCode,
	p_ExternalReference,
	p_Remarks,
	p_InternalRemarks,
	p_CreatedOn,
	p_ChangedOn,
	p_ChangedBy,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(SaleID) into p_SaleID FROM tSale; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tSaleU
(p_Incoterm	tSale.Incoterm%TYPE,
p_OrderNumber	tSale.OrderNumber%TYPE,
p_OrderedOn	tSale.OrderedOn%TYPE,
p_RequiredBy	tSale.RequiredBy%TYPE,
p_State	tSale.State%TYPE,
p_Channel	tSale.Channel%TYPE,
p_SalesRepresentative	tSale.SalesRepresentative%TYPE,
p_Total	tSale.Total%TYPE,
p_DiscountRate	tSale.DiscountRate%TYPE,
p_ExchangeRate	tSale.ExchangeRate%TYPE,
p_IsPaid	tSale.IsPaid%TYPE,
p_CurrencyCode	tSale.CurrencyCode%TYPE,
p_ExternalReference	tSale.ExternalReference%TYPE,
p_Remarks	tSale.Remarks%TYPE,
p_InternalRemarks	tSale.InternalRemarks%TYPE,
p_CreatedOn	tSale.CreatedOn%TYPE,
p_ChangedOn	tSale.ChangedOn%TYPE,
p_ChangedBy	tSale.ChangedBy%TYPE,
p_SaleID	tSale.SaleID%TYPE,
p_QORSelectState	tSale.QORSelectState%TYPE,
p_QORCounter	tSale.QORCounter%TYPE)
AS
BEGIN
	UPDATE tSale SET
		Incoterm=p_Incoterm,
		OrderNumber=p_OrderNumber,
		OrderedOn=p_OrderedOn,
		RequiredBy=p_RequiredBy,
		State=p_State,
		Channel=p_Channel,
		SalesRepresentative=p_SalesRepresentative,
		Total=p_Total,
		DiscountRate=p_DiscountRate,
		ExchangeRate=p_ExchangeRate,
		IsPaid=p_IsPaid,
		CurrencyCode=p_CurrencyCode,
		ExternalReference=p_ExternalReference,
		Remarks=p_Remarks,
		InternalRemarks=p_InternalRemarks,
		CreatedOn=p_CreatedOn,
		ChangedOn=p_ChangedOn,
		ChangedBy=p_ChangedBy,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE SaleID=p_SaleID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tClientAR
AS
BEGIN
	SELECT *  FROM tClient; 
END; 
/

CREATE OR REPLACE PROCEDURE tClientAD
AS
BEGIN
	DELETE  FROM tClient; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tClientR
(p_ClientID	tClient.ClientID%TYPE)
AS
BEGIN
	SELECT *  FROM tClient WHERE ClientID = p_ClientID; 
END; 
/

CREATE OR REPLACE PROCEDURE tClientD
(p_ClientID	tClient.ClientID%TYPE)
AS
BEGIN
	DELETE  FROM tClient WHERE ClientID = p_ClientID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tClient_FK_SaleIDR
(p_FK_SaleID	tClient.FK_SaleID%TYPE)
AS
BEGIN
	SELECT *  FROM tClient WHERE FK_SaleID = p_FK_SaleID; 
END; 
/

CREATE OR REPLACE PROCEDURE tClient_FK_SaleIDD
(p_FK_SaleID	tClient.FK_SaleID%TYPE)
AS
BEGIN
	DELETE  FROM tClient WHERE FK_SaleID = p_FK_SaleID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tClientC
(p_CompanyName	tClient.CompanyName%TYPE,
p_TaxNumber	tClient.TaxNumber%TYPE,
p_CustomerSince	tClient.CustomerSince%TYPE,
p_CreditLimit	tClient.CreditLimit%TYPE,
p_Rating	tClient.Rating%TYPE,
p_IsCompany	tClient.IsCompany%TYPE,
p_SignedContract	tClient.SignedContract%TYPE,
p_CreatedOn	tClient.CreatedOn%TYPE,
p_ChangedOn	tClient.ChangedOn%TYPE,
p_ChangedBy	tClient.ChangedBy%TYPE,
p_FK_SaleID	tClient.FK_SaleID%TYPE,
p_QORSelectState	tClient.QORSelectState%TYPE,
p_QORCounter	tClient.QORCounter%TYPE,
p_ClientID	OUT 	tClient.ClientID%TYPE)
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
	(p_CompanyName,
	p_TaxNumber,
	p_CustomerSince,
	p_CreditLimit,
	p_Rating,
	p_IsCompany,
	p_SignedContract,
	p_CreatedOn,
	p_ChangedOn,
	p_ChangedBy,
	p_FK_SaleID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(ClientID) into p_ClientID FROM tClient; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tClientU
(p_CompanyName	tClient.CompanyName%TYPE,
p_TaxNumber	tClient.TaxNumber%TYPE,
p_CustomerSince	tClient.CustomerSince%TYPE,
p_CreditLimit	tClient.CreditLimit%TYPE,
p_Rating	tClient.Rating%TYPE,
p_IsCompany	tClient.IsCompany%TYPE,
p_SignedContract	tClient.SignedContract%TYPE,
p_CreatedOn	tClient.CreatedOn%TYPE,
p_ChangedOn	tClient.ChangedOn%TYPE,
p_ChangedBy	tClient.ChangedBy%TYPE,
p_ClientID	tClient.ClientID%TYPE,
p_FK_SaleID	tClient.FK_SaleID%TYPE,
p_QORSelectState	tClient.QORSelectState%TYPE,
p_QORCounter	tClient.QORCounter%TYPE)
AS
BEGIN
	UPDATE tClient SET
		CompanyName=p_CompanyName,
		TaxNumber=p_TaxNumber,
		CustomerSince=p_CustomerSince,
		CreditLimit=p_CreditLimit,
		Rating=p_Rating,
		IsCompany=p_IsCompany,
		SignedContract=p_SignedContract,
		CreatedOn=p_CreatedOn,
		ChangedOn=p_ChangedOn,
		ChangedBy=p_ChangedBy,
		FK_SaleID=p_FK_SaleID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE ClientID=p_ClientID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tContactsAR
AS
BEGIN
	SELECT *  FROM tContacts; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactsAD
AS
BEGIN
	DELETE  FROM tContacts; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactsR
(p_ContactsID	tContacts.ContactsID%TYPE)
AS
BEGIN
	SELECT *  FROM tContacts WHERE ContactsID = p_ContactsID; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactsD
(p_ContactsID	tContacts.ContactsID%TYPE)
AS
BEGIN
	DELETE  FROM tContacts WHERE ContactsID = p_ContactsID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tContacts_FK_ClientIDR
(p_FK_ClientID	tContacts.FK_ClientID%TYPE)
AS
BEGIN
	SELECT *  FROM tContacts WHERE FK_ClientID = p_FK_ClientID; 
END; 
/

CREATE OR REPLACE PROCEDURE tContacts_FK_ClientIDD
(p_FK_ClientID	tContacts.FK_ClientID%TYPE)
AS
BEGIN
	DELETE  FROM tContacts WHERE FK_ClientID = p_FK_ClientID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactsC
(p_FK_ClientID	tContacts.FK_ClientID%TYPE,
p_QORSelectedItem	tContacts.QORSelectedItem%TYPE,
p_QORCounterHolder	tContacts.QORCounterHolder%TYPE,
p_ContactsID	OUT 	tContacts.ContactsID%TYPE)
AS
BEGIN
	INSERT INTO tContacts
	(FK_ClientID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(p_FK_ClientID,
	p_QORSelectedItem,
	p_QORCounterHolder); 
	Commit; 
	SELECT max(ContactsID) into p_ContactsID FROM tContacts; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactsU
(p_ContactsID	tContacts.ContactsID%TYPE,
p_FK_ClientID	tContacts.FK_ClientID%TYPE,
p_QORSelectedItem	tContacts.QORSelectedItem%TYPE,
p_QORCounterHolder	tContacts.QORCounterHolder%TYPE)
AS
BEGIN
	UPDATE tContacts SET
		FK_ClientID=p_FK_ClientID,
		QORSelectedItem=p_QORSelectedItem,
		QORCounterHolder=p_QORCounterHolder
	 WHERE ContactsID=p_ContactsID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tAddressAR
AS
BEGIN
	SELECT *  FROM tAddress; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddressAD
AS
BEGIN
	DELETE  FROM tAddress; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddressR
(p_AddressID	tAddress.AddressID%TYPE)
AS
BEGIN
	SELECT *  FROM tAddress WHERE AddressID = p_AddressID; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddressD
(p_AddressID	tAddress.AddressID%TYPE)
AS
BEGIN
	DELETE  FROM tAddress WHERE AddressID = p_AddressID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress_FK_SaleIDR
(p_FK_SaleID	tAddress.FK_SaleID%TYPE)
AS
BEGIN
	SELECT *  FROM tAddress WHERE FK_SaleID = p_FK_SaleID; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress_FK_SaleIDD
(p_FK_SaleID	tAddress.FK_SaleID%TYPE)
AS
BEGIN
	DELETE  FROM tAddress WHERE FK_SaleID = p_FK_SaleID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddressC
(p_Recipient	tAddress.Recipient%TYPE,
p_Street	tAddress.Street%TYPE,
p_PostalCode	tAddress.PostalCode%TYPE,
p_City	tAddress.City%TYPE,
p_CountryCode	tAddress.CountryCode%TYPE,
p_Latitude	tAddress.Latitude%TYPE,
p_Longitude	tAddress.Longitude%TYPE,
p_FK_SaleID	tAddress.FK_SaleID%TYPE,
p_QORSelectState	tAddress.QORSelectState%TYPE,
p_QORCounter	tAddress.QORCounter%TYPE,
p_AddressID	OUT 	tAddress.AddressID%TYPE)
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
	(p_Recipient,
	p_Street,
	p_PostalCode,
	p_City,
	p_CountryCode,
	p_Latitude,
	p_Longitude,
	p_FK_SaleID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(AddressID) into p_AddressID FROM tAddress; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddressU
(p_Recipient	tAddress.Recipient%TYPE,
p_Street	tAddress.Street%TYPE,
p_PostalCode	tAddress.PostalCode%TYPE,
p_City	tAddress.City%TYPE,
p_CountryCode	tAddress.CountryCode%TYPE,
p_Latitude	tAddress.Latitude%TYPE,
p_Longitude	tAddress.Longitude%TYPE,
p_AddressID	tAddress.AddressID%TYPE,
p_FK_SaleID	tAddress.FK_SaleID%TYPE,
p_QORSelectState	tAddress.QORSelectState%TYPE,
p_QORCounter	tAddress.QORCounter%TYPE)
AS
BEGIN
	UPDATE tAddress SET
		Recipient=p_Recipient,
		Street=p_Street,
		PostalCode=p_PostalCode,
		City=p_City,
		CountryCode=p_CountryCode,
		Latitude=p_Latitude,
		Longitude=p_Longitude,
		FK_SaleID=p_FK_SaleID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE AddressID=p_AddressID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tOrderLinesAR
AS
BEGIN
	SELECT *  FROM tOrderLines; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLinesAD
AS
BEGIN
	DELETE  FROM tOrderLines; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLinesR
(p_OrderLinesID	tOrderLines.OrderLinesID%TYPE)
AS
BEGIN
	SELECT *  FROM tOrderLines WHERE OrderLinesID = p_OrderLinesID; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLinesD
(p_OrderLinesID	tOrderLines.OrderLinesID%TYPE)
AS
BEGIN
	DELETE  FROM tOrderLines WHERE OrderLinesID = p_OrderLinesID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLines_FK_SaleIDR
(p_FK_SaleID	tOrderLines.FK_SaleID%TYPE)
AS
BEGIN
	SELECT *  FROM tOrderLines WHERE FK_SaleID = p_FK_SaleID; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLines_FK_SaleIDD
(p_FK_SaleID	tOrderLines.FK_SaleID%TYPE)
AS
BEGIN
	DELETE  FROM tOrderLines WHERE FK_SaleID = p_FK_SaleID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLinesC
(p_NextLineNumber	tOrderLines.NextLineNumber%TYPE,
p_FK_SaleID	tOrderLines.FK_SaleID%TYPE,
p_QORSelectedItem	tOrderLines.QORSelectedItem%TYPE,
p_QORCounterHolder	tOrderLines.QORCounterHolder%TYPE,
p_OrderLinesID	OUT 	tOrderLines.OrderLinesID%TYPE)
AS
BEGIN
	INSERT INTO tOrderLines
	(NextLineNumber,
	FK_SaleID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(p_NextLineNumber,
	p_FK_SaleID,
	p_QORSelectedItem,
	p_QORCounterHolder); 
	Commit; 
	SELECT max(OrderLinesID) into p_OrderLinesID FROM tOrderLines; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLinesU
(p_NextLineNumber	tOrderLines.NextLineNumber%TYPE,
p_OrderLinesID	tOrderLines.OrderLinesID%TYPE,
p_FK_SaleID	tOrderLines.FK_SaleID%TYPE,
p_QORSelectedItem	tOrderLines.QORSelectedItem%TYPE,
p_QORCounterHolder	tOrderLines.QORCounterHolder%TYPE)
AS
BEGIN
	UPDATE tOrderLines SET
		NextLineNumber=p_NextLineNumber,
		FK_SaleID=p_FK_SaleID,
		QORSelectedItem=p_QORSelectedItem,
		QORCounterHolder=p_QORCounterHolder
	 WHERE OrderLinesID=p_OrderLinesID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tBinAR
AS
BEGIN
	SELECT *  FROM tBin; 
END; 
/

CREATE OR REPLACE PROCEDURE tBinAD
AS
BEGIN
	DELETE  FROM tBin; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tBinR
(p_BinID	tBin.BinID%TYPE)
AS
BEGIN
	SELECT *  FROM tBin WHERE BinID = p_BinID; 
END; 
/

CREATE OR REPLACE PROCEDURE tBinD
(p_BinID	tBin.BinID%TYPE)
AS
BEGIN
	DELETE  FROM tBin WHERE BinID = p_BinID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tBin_FK_LineAllocationIDR
(p_FK_LineAllocationID	tBin.FK_LineAllocationID%TYPE)
AS
BEGIN
	SELECT *  FROM tBin WHERE FK_LineAllocationID = p_FK_LineAllocationID; 
END; 
/

CREATE OR REPLACE PROCEDURE tBin_FK_LineAllocationIDD
(p_FK_LineAllocationID	tBin.FK_LineAllocationID%TYPE)
AS
BEGIN
	DELETE  FROM tBin WHERE FK_LineAllocationID = p_FK_LineAllocationID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tBinC
(p_Shelf	tBin.Shelf%TYPE,
p_FK_LineAllocationID	tBin.FK_LineAllocationID%TYPE,
p_QORSelectState	tBin.QORSelectState%TYPE,
p_QORCounter	tBin.QORCounter%TYPE,
p_BinID	OUT 	tBin.BinID%TYPE)
AS
BEGIN
	INSERT INTO tBin
	(Shelf,
	FK_LineAllocationID,
	QORSelectState,
	QORCounter)
	VALUES 
	(p_Shelf,
	p_FK_LineAllocationID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(BinID) into p_BinID FROM tBin; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tBinU
(p_Shelf	tBin.Shelf%TYPE,
p_BinID	tBin.BinID%TYPE,
p_FK_LineAllocationID	tBin.FK_LineAllocationID%TYPE,
p_QORSelectState	tBin.QORSelectState%TYPE,
p_QORCounter	tBin.QORCounter%TYPE)
AS
BEGIN
	UPDATE tBin SET
		Shelf=p_Shelf,
		FK_LineAllocationID=p_FK_LineAllocationID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE BinID=p_BinID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tShipmentsAR
AS
BEGIN
	SELECT *  FROM tShipments; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentsAD
AS
BEGIN
	DELETE  FROM tShipments; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentsR
(p_ShipmentsID	tShipments.ShipmentsID%TYPE)
AS
BEGIN
	SELECT *  FROM tShipments WHERE ShipmentsID = p_ShipmentsID; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentsD
(p_ShipmentsID	tShipments.ShipmentsID%TYPE)
AS
BEGIN
	DELETE  FROM tShipments WHERE ShipmentsID = p_ShipmentsID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipments_FK_SaleIDR
(p_FK_SaleID	tShipments.FK_SaleID%TYPE)
AS
BEGIN
	SELECT *  FROM tShipments WHERE FK_SaleID = p_FK_SaleID; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipments_FK_SaleIDD
(p_FK_SaleID	tShipments.FK_SaleID%TYPE)
AS
BEGIN
	DELETE  FROM tShipments WHERE FK_SaleID = p_FK_SaleID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentsC
(p_FK_SaleID	tShipments.FK_SaleID%TYPE,
p_QORSelectedItem	tShipments.QORSelectedItem%TYPE,
p_QORCounterHolder	tShipments.QORCounterHolder%TYPE,
p_ShipmentsID	OUT 	tShipments.ShipmentsID%TYPE)
AS
BEGIN
	INSERT INTO tShipments
	(FK_SaleID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(p_FK_SaleID,
	p_QORSelectedItem,
	p_QORCounterHolder); 
	Commit; 
	SELECT max(ShipmentsID) into p_ShipmentsID FROM tShipments; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentsU
(p_ShipmentsID	tShipments.ShipmentsID%TYPE,
p_FK_SaleID	tShipments.FK_SaleID%TYPE,
p_QORSelectedItem	tShipments.QORSelectedItem%TYPE,
p_QORCounterHolder	tShipments.QORCounterHolder%TYPE)
AS
BEGIN
	UPDATE tShipments SET
		FK_SaleID=p_FK_SaleID,
		QORSelectedItem=p_QORSelectedItem,
		QORCounterHolder=p_QORCounterHolder
	 WHERE ShipmentsID=p_ShipmentsID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tPaymentsAR
AS
BEGIN
	SELECT *  FROM tPayments; 
END; 
/

CREATE OR REPLACE PROCEDURE tPaymentsAD
AS
BEGIN
	DELETE  FROM tPayments; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tPaymentsR
(p_PaymentsID	tPayments.PaymentsID%TYPE)
AS
BEGIN
	SELECT *  FROM tPayments WHERE PaymentsID = p_PaymentsID; 
END; 
/

CREATE OR REPLACE PROCEDURE tPaymentsD
(p_PaymentsID	tPayments.PaymentsID%TYPE)
AS
BEGIN
	DELETE  FROM tPayments WHERE PaymentsID = p_PaymentsID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tPayments_FK_SaleIDR
(p_FK_SaleID	tPayments.FK_SaleID%TYPE)
AS
BEGIN
	SELECT *  FROM tPayments WHERE FK_SaleID = p_FK_SaleID; 
END; 
/

CREATE OR REPLACE PROCEDURE tPayments_FK_SaleIDD
(p_FK_SaleID	tPayments.FK_SaleID%TYPE)
AS
BEGIN
	DELETE  FROM tPayments WHERE FK_SaleID = p_FK_SaleID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tPaymentsC
(p_PaymentTerms	tPayments.PaymentTerms%TYPE,
p_FK_SaleID	tPayments.FK_SaleID%TYPE,
p_QORSelectedItem	tPayments.QORSelectedItem%TYPE,
p_QORCounterHolder	tPayments.QORCounterHolder%TYPE,
p_PaymentsID	OUT 	tPayments.PaymentsID%TYPE)
AS
BEGIN
	INSERT INTO tPayments
	(PaymentTerms,
	FK_SaleID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(p_PaymentTerms,
	p_FK_SaleID,
	p_QORSelectedItem,
	p_QORCounterHolder); 
	Commit; 
	SELECT max(PaymentsID) into p_PaymentsID FROM tPayments; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tPaymentsU
(p_PaymentTerms	tPayments.PaymentTerms%TYPE,
p_PaymentsID	tPayments.PaymentsID%TYPE,
p_FK_SaleID	tPayments.FK_SaleID%TYPE,
p_QORSelectedItem	tPayments.QORSelectedItem%TYPE,
p_QORCounterHolder	tPayments.QORCounterHolder%TYPE)
AS
BEGIN
	UPDATE tPayments SET
		PaymentTerms=p_PaymentTerms,
		FK_SaleID=p_FK_SaleID,
		QORSelectedItem=p_QORSelectedItem,
		QORCounterHolder=p_QORCounterHolder
	 WHERE PaymentsID=p_PaymentsID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE nationalDeliveryInstructionsAR
AS
BEGIN
	SELECT *  FROM trnationalDeliveryInstructions; 
END; 
/

CREATE OR REPLACE PROCEDURE nationalDeliveryInstructionsAD
AS
BEGIN
	DELETE  FROM trnationalDeliveryInstructions; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE rnationalDeliveryInstructionsR
(p_ionalDeliveryInstructionsID	trnationalDeliveryInstructions.ionalDeliveryInstructionsID%TYPE)
AS
BEGIN
	SELECT *  FROM trnationalDeliveryInstructions WHERE ionalDeliveryInstructionsID = p_ionalDeliveryInstructionsID; 
END; 
/

CREATE OR REPLACE PROCEDURE rnationalDeliveryInstructionsD
(p_ionalDeliveryInstructionsID	trnationalDeliveryInstructions.ionalDeliveryInstructionsID%TYPE)
AS
BEGIN
	DELETE  FROM trnationalDeliveryInstructions WHERE ionalDeliveryInstructionsID = p_ionalDeliveryInstructionsID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE eliveryInstructions_FK_SaleIDR
(p_FK_SaleID	trnationalDeliveryInstructions.FK_SaleID%TYPE)
AS
BEGIN
	SELECT *  FROM trnationalDeliveryInstructions WHERE FK_SaleID = p_FK_SaleID; 
END; 
/

CREATE OR REPLACE PROCEDURE eliveryInstructions_FK_SaleIDD
(p_FK_SaleID	trnationalDeliveryInstructions.FK_SaleID%TYPE)
AS
BEGIN
	DELETE  FROM trnationalDeliveryInstructions WHERE FK_SaleID = p_FK_SaleID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE rnationalDeliveryInstructionsC
(p_geOfTheContactAtTheDestination	trnationalDeliveryInstructions.geOfTheContactAtTheDestination%TYPE,
p_arliestHourOfDayForTheDelivery	trnationalDeliveryInstructions.arliestHourOfDayForTheDelivery%TYPE,
p_LatestHourOfDayForTheDelivery	trnationalDeliveryInstructions.LatestHourOfDayForTheDelivery%TYPE,
p_FK_SaleID	trnationalDeliveryInstructions.FK_SaleID%TYPE,
p_QORSelectState	trnationalDeliveryInstructions.QORSelectState%TYPE,
p_QORCounter	trnationalDeliveryInstructions.QORCounter%TYPE,
p_ionalDeliveryInstructionsID	OUT 	trnationalDeliveryInstructions.ionalDeliveryInstructionsID%TYPE)
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
	(p_geOfTheContactAtTheDestination,
	p_arliestHourOfDayForTheDelivery,
	p_LatestHourOfDayForTheDelivery,
	p_FK_SaleID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(ionalDeliveryInstructionsID) into p_ionalDeliveryInstructionsID FROM trnationalDeliveryInstructions; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE rnationalDeliveryInstructionsU
(p_geOfTheContactAtTheDestination	trnationalDeliveryInstructions.geOfTheContactAtTheDestination%TYPE,
p_arliestHourOfDayForTheDelivery	trnationalDeliveryInstructions.arliestHourOfDayForTheDelivery%TYPE,
p_LatestHourOfDayForTheDelivery	trnationalDeliveryInstructions.LatestHourOfDayForTheDelivery%TYPE,
p_ionalDeliveryInstructionsID	trnationalDeliveryInstructions.ionalDeliveryInstructionsID%TYPE,
p_FK_SaleID	trnationalDeliveryInstructions.FK_SaleID%TYPE,
p_QORSelectState	trnationalDeliveryInstructions.QORSelectState%TYPE,
p_QORCounter	trnationalDeliveryInstructions.QORCounter%TYPE)
AS
BEGIN
	UPDATE trnationalDeliveryInstructions SET
		geOfTheContactAtTheDestination=p_geOfTheContactAtTheDestination,
		arliestHourOfDayForTheDelivery=p_arliestHourOfDayForTheDelivery,
		LatestHourOfDayForTheDelivery=p_LatestHourOfDayForTheDelivery,
		FK_SaleID=p_FK_SaleID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE ionalDeliveryInstructionsID=p_ionalDeliveryInstructionsID; 
	Commit; 
END; 
/


rem  destructive: tSale.Urgency is dropped: its values are lost
rem  ALTER TABLE tSale DROP COLUMN Urgency;
rem  destructive: tAddress.FK_CustomerID is dropped: its values are lost
rem  ALTER TABLE tAddress DROP COLUMN FK_CustomerID;
