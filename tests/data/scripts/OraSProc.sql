CREATE OR REPLACE PROCEDURE tOrderAR
AS
BEGIN
	SELECT *  FROM tOrder; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderAD
AS
BEGIN
	DELETE  FROM tOrder; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderR
(p_OrderID	tOrder.OrderID%TYPE)
AS
BEGIN
	SELECT *  FROM tOrder WHERE OrderID = p_OrderID; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderD
(p_OrderID	tOrder.OrderID%TYPE)
AS
BEGIN
	DELETE  FROM tOrder WHERE OrderID = p_OrderID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderC
(p_OrderNumber	tOrder.OrderNumber%TYPE,
p_OrderedOn	tOrder.OrderedOn%TYPE,
p_RequiredBy	tOrder.RequiredBy%TYPE,
p_State	tOrder.State%TYPE,
p_Urgency	tOrder.Urgency%TYPE,
p_SalesRepresentative	tOrder.SalesRepresentative%TYPE,
p_Total	tOrder.Total%TYPE,
p_DiscountRate	tOrder.DiscountRate%TYPE,
p_ExchangeRate	tOrder.ExchangeRate%TYPE,
p_IsPaid	tOrder.IsPaid%TYPE,
p_CurrencyCode	tOrder.CurrencyCode%TYPE,
p_ExternalReference	tOrder.ExternalReference%TYPE,
p_Notes	tOrder.Notes%TYPE,
p_InternalRemarks	tOrder.InternalRemarks%TYPE,
p_CreatedOn	tOrder.CreatedOn%TYPE,
p_ChangedOn	tOrder.ChangedOn%TYPE,
p_ChangedBy	tOrder.ChangedBy%TYPE,
p_QORSelectState	tOrder.QORSelectState%TYPE,
p_QORCounter	tOrder.QORCounter%TYPE,
p_OrderID	OUT 	tOrder.OrderID%TYPE)
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
	(p_OrderNumber,
	p_OrderedOn,
	p_RequiredBy,
	p_State,
	p_Urgency,
	p_SalesRepresentative,
	p_Total,
	p_DiscountRate,
	p_ExchangeRate,
	p_IsPaid,
	p_CurrencyCode,
	p_ExternalReference,
	p_Notes,
	p_InternalRemarks,
	p_CreatedOn,
	p_ChangedOn,
	p_ChangedBy,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(OrderID) into p_OrderID FROM tOrder; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderU
(p_OrderNumber	tOrder.OrderNumber%TYPE,
p_OrderedOn	tOrder.OrderedOn%TYPE,
p_RequiredBy	tOrder.RequiredBy%TYPE,
p_State	tOrder.State%TYPE,
p_Urgency	tOrder.Urgency%TYPE,
p_SalesRepresentative	tOrder.SalesRepresentative%TYPE,
p_Total	tOrder.Total%TYPE,
p_DiscountRate	tOrder.DiscountRate%TYPE,
p_ExchangeRate	tOrder.ExchangeRate%TYPE,
p_IsPaid	tOrder.IsPaid%TYPE,
p_CurrencyCode	tOrder.CurrencyCode%TYPE,
p_ExternalReference	tOrder.ExternalReference%TYPE,
p_Notes	tOrder.Notes%TYPE,
p_InternalRemarks	tOrder.InternalRemarks%TYPE,
p_CreatedOn	tOrder.CreatedOn%TYPE,
p_ChangedOn	tOrder.ChangedOn%TYPE,
p_ChangedBy	tOrder.ChangedBy%TYPE,
p_OrderID	tOrder.OrderID%TYPE,
p_QORSelectState	tOrder.QORSelectState%TYPE,
p_QORCounter	tOrder.QORCounter%TYPE)
AS
BEGIN
	UPDATE tOrder SET
		OrderNumber=p_OrderNumber,
		OrderedOn=p_OrderedOn,
		RequiredBy=p_RequiredBy,
		State=p_State,
		Urgency=p_Urgency,
		SalesRepresentative=p_SalesRepresentative,
		Total=p_Total,
		DiscountRate=p_DiscountRate,
		ExchangeRate=p_ExchangeRate,
		IsPaid=p_IsPaid,
		CurrencyCode=p_CurrencyCode,
		ExternalReference=p_ExternalReference,
		Notes=p_Notes,
		InternalRemarks=p_InternalRemarks,
		CreatedOn=p_CreatedOn,
		ChangedOn=p_ChangedOn,
		ChangedBy=p_ChangedBy,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE OrderID=p_OrderID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tCustomerAR
AS
BEGIN
	SELECT *  FROM tCustomer; 
END; 
/

CREATE OR REPLACE PROCEDURE tCustomerAD
AS
BEGIN
	DELETE  FROM tCustomer; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tCustomerR
(p_CustomerID	tCustomer.CustomerID%TYPE)
AS
BEGIN
	SELECT *  FROM tCustomer WHERE CustomerID = p_CustomerID; 
END; 
/

CREATE OR REPLACE PROCEDURE tCustomerD
(p_CustomerID	tCustomer.CustomerID%TYPE)
AS
BEGIN
	DELETE  FROM tCustomer WHERE CustomerID = p_CustomerID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tCustomer_FK_OrderIDR
(p_FK_OrderID	tCustomer.FK_OrderID%TYPE)
AS
BEGIN
	SELECT *  FROM tCustomer WHERE FK_OrderID = p_FK_OrderID; 
END; 
/

CREATE OR REPLACE PROCEDURE tCustomer_FK_OrderIDD
(p_FK_OrderID	tCustomer.FK_OrderID%TYPE)
AS
BEGIN
	DELETE  FROM tCustomer WHERE FK_OrderID = p_FK_OrderID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tCustomerC
(p_CompanyName	tCustomer.CompanyName%TYPE,
p_TaxNumber	tCustomer.TaxNumber%TYPE,
p_CustomerSince	tCustomer.CustomerSince%TYPE,
p_CreditLimit	tCustomer.CreditLimit%TYPE,
p_Rating	tCustomer.Rating%TYPE,
p_IsCompany	tCustomer.IsCompany%TYPE,
p_SignedContract	tCustomer.SignedContract%TYPE,
p_CreatedOn	tCustomer.CreatedOn%TYPE,
p_ChangedOn	tCustomer.ChangedOn%TYPE,
p_ChangedBy	tCustomer.ChangedBy%TYPE,
p_FK_OrderID	tCustomer.FK_OrderID%TYPE,
p_QORSelectState	tCustomer.QORSelectState%TYPE,
p_QORCounter	tCustomer.QORCounter%TYPE,
p_CustomerID	OUT 	tCustomer.CustomerID%TYPE)
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
	p_FK_OrderID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(CustomerID) into p_CustomerID FROM tCustomer; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tCustomerU
(p_CompanyName	tCustomer.CompanyName%TYPE,
p_TaxNumber	tCustomer.TaxNumber%TYPE,
p_CustomerSince	tCustomer.CustomerSince%TYPE,
p_CreditLimit	tCustomer.CreditLimit%TYPE,
p_Rating	tCustomer.Rating%TYPE,
p_IsCompany	tCustomer.IsCompany%TYPE,
p_SignedContract	tCustomer.SignedContract%TYPE,
p_CreatedOn	tCustomer.CreatedOn%TYPE,
p_ChangedOn	tCustomer.ChangedOn%TYPE,
p_ChangedBy	tCustomer.ChangedBy%TYPE,
p_CustomerID	tCustomer.CustomerID%TYPE,
p_FK_OrderID	tCustomer.FK_OrderID%TYPE,
p_QORSelectState	tCustomer.QORSelectState%TYPE,
p_QORCounter	tCustomer.QORCounter%TYPE)
AS
BEGIN
	UPDATE tCustomer SET
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
		FK_OrderID=p_FK_OrderID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE CustomerID=p_CustomerID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tAddress2AR
AS
BEGIN
	SELECT *  FROM tAddress2; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2AD
AS
BEGIN
	DELETE  FROM tAddress2; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2R
(p_AddressID	tAddress2.AddressID%TYPE)
AS
BEGIN
	SELECT *  FROM tAddress2 WHERE AddressID = p_AddressID; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2D
(p_AddressID	tAddress2.AddressID%TYPE)
AS
BEGIN
	DELETE  FROM tAddress2 WHERE AddressID = p_AddressID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2_FK_CustomerIDR
(p_FK_CustomerID	tAddress2.FK_CustomerID%TYPE)
AS
BEGIN
	SELECT *  FROM tAddress2 WHERE FK_CustomerID = p_FK_CustomerID; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2_FK_CustomerIDD
(p_FK_CustomerID	tAddress2.FK_CustomerID%TYPE)
AS
BEGIN
	DELETE  FROM tAddress2 WHERE FK_CustomerID = p_FK_CustomerID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2_FK_OrderIDR
(p_FK_OrderID	tAddress2.FK_OrderID%TYPE)
AS
BEGIN
	SELECT *  FROM tAddress2 WHERE FK_OrderID = p_FK_OrderID; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2_FK_OrderIDD
(p_FK_OrderID	tAddress2.FK_OrderID%TYPE)
AS
BEGIN
	DELETE  FROM tAddress2 WHERE FK_OrderID = p_FK_OrderID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2C
(p_Recipient	tAddress2.Recipient%TYPE,
p_Street	tAddress2.Street%TYPE,
p_PostalCode	tAddress2.PostalCode%TYPE,
p_City	tAddress2.City%TYPE,
p_CountryCode	tAddress2.CountryCode%TYPE,
p_Latitude	tAddress2.Latitude%TYPE,
p_Longitude	tAddress2.Longitude%TYPE,
p_FK_CustomerID	tAddress2.FK_CustomerID%TYPE,
p_FK_OrderID	tAddress2.FK_OrderID%TYPE,
p_QORSelectState	tAddress2.QORSelectState%TYPE,
p_QORCounter	tAddress2.QORCounter%TYPE,
p_AddressID	OUT 	tAddress2.AddressID%TYPE)
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
	(p_Recipient,
	p_Street,
	p_PostalCode,
	p_City,
	p_CountryCode,
	p_Latitude,
	p_Longitude,
	p_FK_CustomerID,
	p_FK_OrderID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(AddressID) into p_AddressID FROM tAddress2; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2U
(p_Recipient	tAddress2.Recipient%TYPE,
p_Street	tAddress2.Street%TYPE,
p_PostalCode	tAddress2.PostalCode%TYPE,
p_City	tAddress2.City%TYPE,
p_CountryCode	tAddress2.CountryCode%TYPE,
p_Latitude	tAddress2.Latitude%TYPE,
p_Longitude	tAddress2.Longitude%TYPE,
p_AddressID	tAddress2.AddressID%TYPE,
p_FK_CustomerID	tAddress2.FK_CustomerID%TYPE,
p_FK_OrderID	tAddress2.FK_OrderID%TYPE,
p_QORSelectState	tAddress2.QORSelectState%TYPE,
p_QORCounter	tAddress2.QORCounter%TYPE)
AS
BEGIN
	UPDATE tAddress2 SET
		Recipient=p_Recipient,
		Street=p_Street,
		PostalCode=p_PostalCode,
		City=p_City,
		CountryCode=p_CountryCode,
		Latitude=p_Latitude,
		Longitude=p_Longitude,
		FK_CustomerID=p_FK_CustomerID,
		FK_OrderID=p_FK_OrderID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE AddressID=p_AddressID; 
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

CREATE OR REPLACE PROCEDURE tContacts_FK_CustomerIDR
(p_FK_CustomerID	tContacts.FK_CustomerID%TYPE)
AS
BEGIN
	SELECT *  FROM tContacts WHERE FK_CustomerID = p_FK_CustomerID; 
END; 
/

CREATE OR REPLACE PROCEDURE tContacts_FK_CustomerIDD
(p_FK_CustomerID	tContacts.FK_CustomerID%TYPE)
AS
BEGIN
	DELETE  FROM tContacts WHERE FK_CustomerID = p_FK_CustomerID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactsC
(p_FK_CustomerID	tContacts.FK_CustomerID%TYPE,
p_QORSelectedItem	tContacts.QORSelectedItem%TYPE,
p_QORCounterHolder	tContacts.QORCounterHolder%TYPE,
p_ContactsID	OUT 	tContacts.ContactsID%TYPE)
AS
BEGIN
	INSERT INTO tContacts
	(FK_CustomerID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(p_FK_CustomerID,
	p_QORSelectedItem,
	p_QORCounterHolder); 
	Commit; 
	SELECT max(ContactsID) into p_ContactsID FROM tContacts; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactsU
(p_ContactsID	tContacts.ContactsID%TYPE,
p_FK_CustomerID	tContacts.FK_CustomerID%TYPE,
p_QORSelectedItem	tContacts.QORSelectedItem%TYPE,
p_QORCounterHolder	tContacts.QORCounterHolder%TYPE)
AS
BEGIN
	UPDATE tContacts SET
		FK_CustomerID=p_FK_CustomerID,
		QORSelectedItem=p_QORSelectedItem,
		QORCounterHolder=p_QORCounterHolder
	 WHERE ContactsID=p_ContactsID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tContactAR
AS
BEGIN
	SELECT *  FROM tContact; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactAD
AS
BEGIN
	DELETE  FROM tContact; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactR
(p_ContactID	tContact.ContactID%TYPE)
AS
BEGIN
	SELECT *  FROM tContact WHERE ContactID = p_ContactID; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactD
(p_ContactID	tContact.ContactID%TYPE)
AS
BEGIN
	DELETE  FROM tContact WHERE ContactID = p_ContactID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tContact_FK_ContactsIDR
(p_FK_ContactsID	tContact.FK_ContactsID%TYPE)
AS
BEGIN
	SELECT *  FROM tContact WHERE FK_ContactsID = p_FK_ContactsID; 
END; 
/

CREATE OR REPLACE PROCEDURE tContact_FK_ContactsIDD
(p_FK_ContactsID	tContact.FK_ContactsID%TYPE)
AS
BEGIN
	DELETE  FROM tContact WHERE FK_ContactsID = p_FK_ContactsID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactC
(p_FirstName	tContact.FirstName%TYPE,
p_LastName	tContact.LastName%TYPE,
p_Email	tContact.Email%TYPE,
p_Phone	tContact.Phone%TYPE,
p_IsMainContact	tContact.IsMainContact%TYPE,
p_FK_ContactsID	tContact.FK_ContactsID%TYPE,
p_QORSelectState	tContact.QORSelectState%TYPE,
p_QORCounter	tContact.QORCounter%TYPE,
p_ContactID	OUT 	tContact.ContactID%TYPE)
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
	(p_FirstName,
	p_LastName,
	p_Email,
	p_Phone,
	p_IsMainContact,
	p_FK_ContactsID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(ContactID) into p_ContactID FROM tContact; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tContactU
(p_FirstName	tContact.FirstName%TYPE,
p_LastName	tContact.LastName%TYPE,
p_Email	tContact.Email%TYPE,
p_Phone	tContact.Phone%TYPE,
p_IsMainContact	tContact.IsMainContact%TYPE,
p_ContactID	tContact.ContactID%TYPE,
p_FK_ContactsID	tContact.FK_ContactsID%TYPE,
p_QORSelectState	tContact.QORSelectState%TYPE,
p_QORCounter	tContact.QORCounter%TYPE)
AS
BEGIN
	UPDATE tContact SET
		FirstName=p_FirstName,
		LastName=p_LastName,
		Email=p_Email,
		Phone=p_Phone,
		IsMainContact=p_IsMainContact,
		FK_ContactsID=p_FK_ContactsID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE ContactID=p_ContactID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tAddress2AR
AS
BEGIN
	SELECT *  FROM tAddress2; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2AD
AS
BEGIN
	DELETE  FROM tAddress2; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2R
(p_AddressID	tAddress2.AddressID%TYPE)
AS
BEGIN
	SELECT *  FROM tAddress2 WHERE AddressID = p_AddressID; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2D
(p_AddressID	tAddress2.AddressID%TYPE)
AS
BEGIN
	DELETE  FROM tAddress2 WHERE AddressID = p_AddressID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2_FK_CustomerIDR
(p_FK_CustomerID	tAddress2.FK_CustomerID%TYPE)
AS
BEGIN
	SELECT *  FROM tAddress2 WHERE FK_CustomerID = p_FK_CustomerID; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2_FK_CustomerIDD
(p_FK_CustomerID	tAddress2.FK_CustomerID%TYPE)
AS
BEGIN
	DELETE  FROM tAddress2 WHERE FK_CustomerID = p_FK_CustomerID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2_FK_OrderIDR
(p_FK_OrderID	tAddress2.FK_OrderID%TYPE)
AS
BEGIN
	SELECT *  FROM tAddress2 WHERE FK_OrderID = p_FK_OrderID; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2_FK_OrderIDD
(p_FK_OrderID	tAddress2.FK_OrderID%TYPE)
AS
BEGIN
	DELETE  FROM tAddress2 WHERE FK_OrderID = p_FK_OrderID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2C
(p_Recipient	tAddress2.Recipient%TYPE,
p_Street	tAddress2.Street%TYPE,
p_PostalCode	tAddress2.PostalCode%TYPE,
p_City	tAddress2.City%TYPE,
p_CountryCode	tAddress2.CountryCode%TYPE,
p_Latitude	tAddress2.Latitude%TYPE,
p_Longitude	tAddress2.Longitude%TYPE,
p_FK_CustomerID	tAddress2.FK_CustomerID%TYPE,
p_FK_OrderID	tAddress2.FK_OrderID%TYPE,
p_QORSelectState	tAddress2.QORSelectState%TYPE,
p_QORCounter	tAddress2.QORCounter%TYPE,
p_AddressID	OUT 	tAddress2.AddressID%TYPE)
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
	(p_Recipient,
	p_Street,
	p_PostalCode,
	p_City,
	p_CountryCode,
	p_Latitude,
	p_Longitude,
	p_FK_CustomerID,
	p_FK_OrderID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(AddressID) into p_AddressID FROM tAddress2; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tAddress2U
(p_Recipient	tAddress2.Recipient%TYPE,
p_Street	tAddress2.Street%TYPE,
p_PostalCode	tAddress2.PostalCode%TYPE,
p_City	tAddress2.City%TYPE,
p_CountryCode	tAddress2.CountryCode%TYPE,
p_Latitude	tAddress2.Latitude%TYPE,
p_Longitude	tAddress2.Longitude%TYPE,
p_AddressID	tAddress2.AddressID%TYPE,
p_FK_CustomerID	tAddress2.FK_CustomerID%TYPE,
p_FK_OrderID	tAddress2.FK_OrderID%TYPE,
p_QORSelectState	tAddress2.QORSelectState%TYPE,
p_QORCounter	tAddress2.QORCounter%TYPE)
AS
BEGIN
	UPDATE tAddress2 SET
		Recipient=p_Recipient,
		Street=p_Street,
		PostalCode=p_PostalCode,
		City=p_City,
		CountryCode=p_CountryCode,
		Latitude=p_Latitude,
		Longitude=p_Longitude,
		FK_CustomerID=p_FK_CustomerID,
		FK_OrderID=p_FK_OrderID,
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

CREATE OR REPLACE PROCEDURE tOrderLines_FK_OrderIDR
(p_FK_OrderID	tOrderLines.FK_OrderID%TYPE)
AS
BEGIN
	SELECT *  FROM tOrderLines WHERE FK_OrderID = p_FK_OrderID; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLines_FK_OrderIDD
(p_FK_OrderID	tOrderLines.FK_OrderID%TYPE)
AS
BEGIN
	DELETE  FROM tOrderLines WHERE FK_OrderID = p_FK_OrderID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLinesC
(p_NextLineNumber	tOrderLines.NextLineNumber%TYPE,
p_FK_OrderID	tOrderLines.FK_OrderID%TYPE,
p_QORSelectedItem	tOrderLines.QORSelectedItem%TYPE,
p_QORCounterHolder	tOrderLines.QORCounterHolder%TYPE,
p_OrderLinesID	OUT 	tOrderLines.OrderLinesID%TYPE)
AS
BEGIN
	INSERT INTO tOrderLines
	(NextLineNumber,
	FK_OrderID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(p_NextLineNumber,
	p_FK_OrderID,
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
p_FK_OrderID	tOrderLines.FK_OrderID%TYPE,
p_QORSelectedItem	tOrderLines.QORSelectedItem%TYPE,
p_QORCounterHolder	tOrderLines.QORCounterHolder%TYPE)
AS
BEGIN
	UPDATE tOrderLines SET
		NextLineNumber=p_NextLineNumber,
		FK_OrderID=p_FK_OrderID,
		QORSelectedItem=p_QORSelectedItem,
		QORCounterHolder=p_QORCounterHolder
	 WHERE OrderLinesID=p_OrderLinesID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tOrderLineAR
AS
BEGIN
	SELECT *  FROM tOrderLine; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLineAD
AS
BEGIN
	DELETE  FROM tOrderLine; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLineR
(p_OrderLineID	tOrderLine.OrderLineID%TYPE)
AS
BEGIN
	SELECT *  FROM tOrderLine WHERE OrderLineID = p_OrderLineID; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLineD
(p_OrderLineID	tOrderLine.OrderLineID%TYPE)
AS
BEGIN
	DELETE  FROM tOrderLine WHERE OrderLineID = p_OrderLineID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLine_FK_OrderLinesIDR
(p_FK_OrderLinesID	tOrderLine.FK_OrderLinesID%TYPE)
AS
BEGIN
	SELECT *  FROM tOrderLine WHERE FK_OrderLinesID = p_FK_OrderLinesID; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLine_FK_OrderLinesIDD
(p_FK_OrderLinesID	tOrderLine.FK_OrderLinesID%TYPE)
AS
BEGIN
	DELETE  FROM tOrderLine WHERE FK_OrderLinesID = p_FK_OrderLinesID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLineC
(p_LineNumber	tOrderLine.LineNumber%TYPE,
p_Quantity	tOrderLine.Quantity%TYPE,
p_UnitPrice	tOrderLine.UnitPrice%TYPE,
p_LineDiscount	tOrderLine.LineDiscount%TYPE,
p_TaxCode	tOrderLine.TaxCode%TYPE,
p_FK_OrderLinesID	tOrderLine.FK_OrderLinesID%TYPE,
p_QORSelectState	tOrderLine.QORSelectState%TYPE,
p_QORCounter	tOrderLine.QORCounter%TYPE,
p_OrderLineID	OUT 	tOrderLine.OrderLineID%TYPE)
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
	(p_LineNumber,
	p_Quantity,
	p_UnitPrice,
	p_LineDiscount,
	p_TaxCode,
	p_FK_OrderLinesID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(OrderLineID) into p_OrderLineID FROM tOrderLine; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tOrderLineU
(p_LineNumber	tOrderLine.LineNumber%TYPE,
p_Quantity	tOrderLine.Quantity%TYPE,
p_UnitPrice	tOrderLine.UnitPrice%TYPE,
p_LineDiscount	tOrderLine.LineDiscount%TYPE,
p_TaxCode	tOrderLine.TaxCode%TYPE,
p_OrderLineID	tOrderLine.OrderLineID%TYPE,
p_FK_OrderLinesID	tOrderLine.FK_OrderLinesID%TYPE,
p_QORSelectState	tOrderLine.QORSelectState%TYPE,
p_QORCounter	tOrderLine.QORCounter%TYPE)
AS
BEGIN
	UPDATE tOrderLine SET
		LineNumber=p_LineNumber,
		Quantity=p_Quantity,
		UnitPrice=p_UnitPrice,
		LineDiscount=p_LineDiscount,
		TaxCode=p_TaxCode,
		FK_OrderLinesID=p_FK_OrderLinesID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE OrderLineID=p_OrderLineID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tProductAR
AS
BEGIN
	SELECT *  FROM tProduct; 
END; 
/

CREATE OR REPLACE PROCEDURE tProductAD
AS
BEGIN
	DELETE  FROM tProduct; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tProductR
(p_ProductID	tProduct.ProductID%TYPE)
AS
BEGIN
	SELECT *  FROM tProduct WHERE ProductID = p_ProductID; 
END; 
/

CREATE OR REPLACE PROCEDURE tProductD
(p_ProductID	tProduct.ProductID%TYPE)
AS
BEGIN
	DELETE  FROM tProduct WHERE ProductID = p_ProductID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tProduct_FK_OrderLineIDR
(p_FK_OrderLineID	tProduct.FK_OrderLineID%TYPE)
AS
BEGIN
	SELECT *  FROM tProduct WHERE FK_OrderLineID = p_FK_OrderLineID; 
END; 
/

CREATE OR REPLACE PROCEDURE tProduct_FK_OrderLineIDD
(p_FK_OrderLineID	tProduct.FK_OrderLineID%TYPE)
AS
BEGIN
	DELETE  FROM tProduct WHERE FK_OrderLineID = p_FK_OrderLineID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tProductC
(p_Sku	tProduct.Sku%TYPE,
p_Title	tProduct.Title%TYPE,
p_ProductText	tProduct.ProductText%TYPE,
p_Weight	tProduct.Weight%TYPE,
p_IsActive	tProduct.IsActive%TYPE,
p_Photo	tProduct.Photo%TYPE,
p_CreatedOn	tProduct.CreatedOn%TYPE,
p_ChangedOn	tProduct.ChangedOn%TYPE,
p_ChangedBy	tProduct.ChangedBy%TYPE,
p_FK_OrderLineID	tProduct.FK_OrderLineID%TYPE,
p_QORSelectState	tProduct.QORSelectState%TYPE,
p_QORCounter	tProduct.QORCounter%TYPE,
p_ProductID	OUT 	tProduct.ProductID%TYPE)
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
	(p_Sku,
	p_Title,
	p_ProductText,
	p_Weight,
	p_IsActive,
	p_Photo,
	p_CreatedOn,
	p_ChangedOn,
	p_ChangedBy,
	p_FK_OrderLineID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(ProductID) into p_ProductID FROM tProduct; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tProductU
(p_Sku	tProduct.Sku%TYPE,
p_Title	tProduct.Title%TYPE,
p_ProductText	tProduct.ProductText%TYPE,
p_Weight	tProduct.Weight%TYPE,
p_IsActive	tProduct.IsActive%TYPE,
p_Photo	tProduct.Photo%TYPE,
p_CreatedOn	tProduct.CreatedOn%TYPE,
p_ChangedOn	tProduct.ChangedOn%TYPE,
p_ChangedBy	tProduct.ChangedBy%TYPE,
p_ProductID	tProduct.ProductID%TYPE,
p_FK_OrderLineID	tProduct.FK_OrderLineID%TYPE,
p_QORSelectState	tProduct.QORSelectState%TYPE,
p_QORCounter	tProduct.QORCounter%TYPE)
AS
BEGIN
	UPDATE tProduct SET
		Sku=p_Sku,
		Title=p_Title,
		ProductText=p_ProductText,
		Weight=p_Weight,
		IsActive=p_IsActive,
		Photo=p_Photo,
		CreatedOn=p_CreatedOn,
		ChangedOn=p_ChangedOn,
		ChangedBy=p_ChangedBy,
		FK_OrderLineID=p_FK_OrderLineID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE ProductID=p_ProductID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tLineAllocationsAR
AS
BEGIN
	SELECT *  FROM tLineAllocations; 
END; 
/

CREATE OR REPLACE PROCEDURE tLineAllocationsAD
AS
BEGIN
	DELETE  FROM tLineAllocations; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tLineAllocationsR
(p_LineAllocationsID	tLineAllocations.LineAllocationsID%TYPE)
AS
BEGIN
	SELECT *  FROM tLineAllocations WHERE LineAllocationsID = p_LineAllocationsID; 
END; 
/

CREATE OR REPLACE PROCEDURE tLineAllocationsD
(p_LineAllocationsID	tLineAllocations.LineAllocationsID%TYPE)
AS
BEGIN
	DELETE  FROM tLineAllocations WHERE LineAllocationsID = p_LineAllocationsID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE ineAllocations_FK_OrderLineIDR
(p_FK_OrderLineID	tLineAllocations.FK_OrderLineID%TYPE)
AS
BEGIN
	SELECT *  FROM tLineAllocations WHERE FK_OrderLineID = p_FK_OrderLineID; 
END; 
/

CREATE OR REPLACE PROCEDURE ineAllocations_FK_OrderLineIDD
(p_FK_OrderLineID	tLineAllocations.FK_OrderLineID%TYPE)
AS
BEGIN
	DELETE  FROM tLineAllocations WHERE FK_OrderLineID = p_FK_OrderLineID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tLineAllocationsC
(p_FK_OrderLineID	tLineAllocations.FK_OrderLineID%TYPE,
p_QORSelectedItem	tLineAllocations.QORSelectedItem%TYPE,
p_QORCounterHolder	tLineAllocations.QORCounterHolder%TYPE,
p_LineAllocationsID	OUT 	tLineAllocations.LineAllocationsID%TYPE)
AS
BEGIN
	INSERT INTO tLineAllocations
	(FK_OrderLineID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(p_FK_OrderLineID,
	p_QORSelectedItem,
	p_QORCounterHolder); 
	Commit; 
	SELECT max(LineAllocationsID) into p_LineAllocationsID FROM tLineAllocations; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tLineAllocationsU
(p_LineAllocationsID	tLineAllocations.LineAllocationsID%TYPE,
p_FK_OrderLineID	tLineAllocations.FK_OrderLineID%TYPE,
p_QORSelectedItem	tLineAllocations.QORSelectedItem%TYPE,
p_QORCounterHolder	tLineAllocations.QORCounterHolder%TYPE)
AS
BEGIN
	UPDATE tLineAllocations SET
		FK_OrderLineID=p_FK_OrderLineID,
		QORSelectedItem=p_QORSelectedItem,
		QORCounterHolder=p_QORCounterHolder
	 WHERE LineAllocationsID=p_LineAllocationsID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tLineAllocationAR
AS
BEGIN
	SELECT *  FROM tLineAllocation; 
END; 
/

CREATE OR REPLACE PROCEDURE tLineAllocationAD
AS
BEGIN
	DELETE  FROM tLineAllocation; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tLineAllocationR
(p_LineAllocationID	tLineAllocation.LineAllocationID%TYPE)
AS
BEGIN
	SELECT *  FROM tLineAllocation WHERE LineAllocationID = p_LineAllocationID; 
END; 
/

CREATE OR REPLACE PROCEDURE tLineAllocationD
(p_LineAllocationID	tLineAllocation.LineAllocationID%TYPE)
AS
BEGIN
	DELETE  FROM tLineAllocation WHERE LineAllocationID = p_LineAllocationID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE location_FK_LineAllocationsIDR
(p_FK_LineAllocationsID	tLineAllocation.FK_LineAllocationsID%TYPE)
AS
BEGIN
	SELECT *  FROM tLineAllocation WHERE FK_LineAllocationsID = p_FK_LineAllocationsID; 
END; 
/

CREATE OR REPLACE PROCEDURE location_FK_LineAllocationsIDD
(p_FK_LineAllocationsID	tLineAllocation.FK_LineAllocationsID%TYPE)
AS
BEGIN
	DELETE  FROM tLineAllocation WHERE FK_LineAllocationsID = p_FK_LineAllocationsID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tLineAllocationC
(p_WarehouseCode	tLineAllocation.WarehouseCode%TYPE,
p_AllocatedQuantity	tLineAllocation.AllocatedQuantity%TYPE,
p_AllocatedOn	tLineAllocation.AllocatedOn%TYPE,
p_FK_LineAllocationsID	tLineAllocation.FK_LineAllocationsID%TYPE,
p_QORSelectState	tLineAllocation.QORSelectState%TYPE,
p_QORCounter	tLineAllocation.QORCounter%TYPE,
p_LineAllocationID	OUT 	tLineAllocation.LineAllocationID%TYPE)
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
	(p_WarehouseCode,
	p_AllocatedQuantity,
	p_AllocatedOn,
	p_FK_LineAllocationsID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(LineAllocationID) into p_LineAllocationID FROM tLineAllocation; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tLineAllocationU
(p_WarehouseCode	tLineAllocation.WarehouseCode%TYPE,
p_AllocatedQuantity	tLineAllocation.AllocatedQuantity%TYPE,
p_AllocatedOn	tLineAllocation.AllocatedOn%TYPE,
p_LineAllocationID	tLineAllocation.LineAllocationID%TYPE,
p_FK_LineAllocationsID	tLineAllocation.FK_LineAllocationsID%TYPE,
p_QORSelectState	tLineAllocation.QORSelectState%TYPE,
p_QORCounter	tLineAllocation.QORCounter%TYPE)
AS
BEGIN
	UPDATE tLineAllocation SET
		WarehouseCode=p_WarehouseCode,
		AllocatedQuantity=p_AllocatedQuantity,
		AllocatedOn=p_AllocatedOn,
		FK_LineAllocationsID=p_FK_LineAllocationsID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE LineAllocationID=p_LineAllocationID; 
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

CREATE OR REPLACE PROCEDURE tShipments_FK_OrderIDR
(p_FK_OrderID	tShipments.FK_OrderID%TYPE)
AS
BEGIN
	SELECT *  FROM tShipments WHERE FK_OrderID = p_FK_OrderID; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipments_FK_OrderIDD
(p_FK_OrderID	tShipments.FK_OrderID%TYPE)
AS
BEGIN
	DELETE  FROM tShipments WHERE FK_OrderID = p_FK_OrderID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentsC
(p_FK_OrderID	tShipments.FK_OrderID%TYPE,
p_QORSelectedItem	tShipments.QORSelectedItem%TYPE,
p_QORCounterHolder	tShipments.QORCounterHolder%TYPE,
p_ShipmentsID	OUT 	tShipments.ShipmentsID%TYPE)
AS
BEGIN
	INSERT INTO tShipments
	(FK_OrderID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(p_FK_OrderID,
	p_QORSelectedItem,
	p_QORCounterHolder); 
	Commit; 
	SELECT max(ShipmentsID) into p_ShipmentsID FROM tShipments; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentsU
(p_ShipmentsID	tShipments.ShipmentsID%TYPE,
p_FK_OrderID	tShipments.FK_OrderID%TYPE,
p_QORSelectedItem	tShipments.QORSelectedItem%TYPE,
p_QORCounterHolder	tShipments.QORCounterHolder%TYPE)
AS
BEGIN
	UPDATE tShipments SET
		FK_OrderID=p_FK_OrderID,
		QORSelectedItem=p_QORSelectedItem,
		QORCounterHolder=p_QORCounterHolder
	 WHERE ShipmentsID=p_ShipmentsID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tShipmentAR
AS
BEGIN
	SELECT *  FROM tShipment; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentAD
AS
BEGIN
	DELETE  FROM tShipment; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentR
(p_ShipmentID	tShipment.ShipmentID%TYPE)
AS
BEGIN
	SELECT *  FROM tShipment WHERE ShipmentID = p_ShipmentID; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentD
(p_ShipmentID	tShipment.ShipmentID%TYPE)
AS
BEGIN
	DELETE  FROM tShipment WHERE ShipmentID = p_ShipmentID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipment_FK_ShipmentsIDR
(p_FK_ShipmentsID	tShipment.FK_ShipmentsID%TYPE)
AS
BEGIN
	SELECT *  FROM tShipment WHERE FK_ShipmentsID = p_FK_ShipmentsID; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipment_FK_ShipmentsIDD
(p_FK_ShipmentsID	tShipment.FK_ShipmentsID%TYPE)
AS
BEGIN
	DELETE  FROM tShipment WHERE FK_ShipmentsID = p_FK_ShipmentsID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentC
(p_Carrier	tShipment.Carrier%TYPE,
p_TrackingNumber	tShipment.TrackingNumber%TYPE,
p_ShippedOn	tShipment.ShippedOn%TYPE,
p_FK_ShipmentsID	tShipment.FK_ShipmentsID%TYPE,
p_QORSelectedItem	tShipment.QORSelectedItem%TYPE,
p_QORCounterHolder	tShipment.QORCounterHolder%TYPE,
p_ShipmentID	OUT 	tShipment.ShipmentID%TYPE)
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
	(p_Carrier,
	p_TrackingNumber,
	p_ShippedOn,
	p_FK_ShipmentsID,
	p_QORSelectedItem,
	p_QORCounterHolder); 
	Commit; 
	SELECT max(ShipmentID) into p_ShipmentID FROM tShipment; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tShipmentU
(p_Carrier	tShipment.Carrier%TYPE,
p_TrackingNumber	tShipment.TrackingNumber%TYPE,
p_ShippedOn	tShipment.ShippedOn%TYPE,
p_ShipmentID	tShipment.ShipmentID%TYPE,
p_FK_ShipmentsID	tShipment.FK_ShipmentsID%TYPE,
p_QORSelectedItem	tShipment.QORSelectedItem%TYPE,
p_QORCounterHolder	tShipment.QORCounterHolder%TYPE)
AS
BEGIN
	UPDATE tShipment SET
		Carrier=p_Carrier,
		TrackingNumber=p_TrackingNumber,
		ShippedOn=p_ShippedOn,
		FK_ShipmentsID=p_FK_ShipmentsID,
		QORSelectedItem=p_QORSelectedItem,
		QORCounterHolder=p_QORCounterHolder
	 WHERE ShipmentID=p_ShipmentID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tParcelAR
AS
BEGIN
	SELECT *  FROM tParcel; 
END; 
/

CREATE OR REPLACE PROCEDURE tParcelAD
AS
BEGIN
	DELETE  FROM tParcel; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tParcelR
(p_ParcelID	tParcel.ParcelID%TYPE)
AS
BEGIN
	SELECT *  FROM tParcel WHERE ParcelID = p_ParcelID; 
END; 
/

CREATE OR REPLACE PROCEDURE tParcelD
(p_ParcelID	tParcel.ParcelID%TYPE)
AS
BEGIN
	DELETE  FROM tParcel WHERE ParcelID = p_ParcelID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tParcel_FK_ShipmentIDR
(p_FK_ShipmentID	tParcel.FK_ShipmentID%TYPE)
AS
BEGIN
	SELECT *  FROM tParcel WHERE FK_ShipmentID = p_FK_ShipmentID; 
END; 
/

CREATE OR REPLACE PROCEDURE tParcel_FK_ShipmentIDD
(p_FK_ShipmentID	tParcel.FK_ShipmentID%TYPE)
AS
BEGIN
	DELETE  FROM tParcel WHERE FK_ShipmentID = p_FK_ShipmentID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tParcelC
(p_Barcode	tParcel.Barcode%TYPE,
p_WeightKg	tParcel.WeightKg%TYPE,
p_IsInsured	tParcel.IsInsured%TYPE,
p_FK_ShipmentID	tParcel.FK_ShipmentID%TYPE,
p_QORSelectState	tParcel.QORSelectState%TYPE,
p_QORCounter	tParcel.QORCounter%TYPE,
p_ParcelID	OUT 	tParcel.ParcelID%TYPE)
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
	(p_Barcode,
	p_WeightKg,
	p_IsInsured,
	p_FK_ShipmentID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(ParcelID) into p_ParcelID FROM tParcel; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tParcelU
(p_Barcode	tParcel.Barcode%TYPE,
p_WeightKg	tParcel.WeightKg%TYPE,
p_IsInsured	tParcel.IsInsured%TYPE,
p_ParcelID	tParcel.ParcelID%TYPE,
p_FK_ShipmentID	tParcel.FK_ShipmentID%TYPE,
p_QORSelectState	tParcel.QORSelectState%TYPE,
p_QORCounter	tParcel.QORCounter%TYPE)
AS
BEGIN
	UPDATE tParcel SET
		Barcode=p_Barcode,
		WeightKg=p_WeightKg,
		IsInsured=p_IsInsured,
		FK_ShipmentID=p_FK_ShipmentID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE ParcelID=p_ParcelID; 
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

CREATE OR REPLACE PROCEDURE tPayments_FK_OrderIDR
(p_FK_OrderID	tPayments.FK_OrderID%TYPE)
AS
BEGIN
	SELECT *  FROM tPayments WHERE FK_OrderID = p_FK_OrderID; 
END; 
/

CREATE OR REPLACE PROCEDURE tPayments_FK_OrderIDD
(p_FK_OrderID	tPayments.FK_OrderID%TYPE)
AS
BEGIN
	DELETE  FROM tPayments WHERE FK_OrderID = p_FK_OrderID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tPaymentsC
(p_PaymentTerms	tPayments.PaymentTerms%TYPE,
p_FK_OrderID	tPayments.FK_OrderID%TYPE,
p_QORSelectedItem	tPayments.QORSelectedItem%TYPE,
p_QORCounterHolder	tPayments.QORCounterHolder%TYPE,
p_PaymentsID	OUT 	tPayments.PaymentsID%TYPE)
AS
BEGIN
	INSERT INTO tPayments
	(PaymentTerms,
	FK_OrderID,
	QORSelectedItem,
	QORCounterHolder)
	VALUES 
	(p_PaymentTerms,
	p_FK_OrderID,
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
p_FK_OrderID	tPayments.FK_OrderID%TYPE,
p_QORSelectedItem	tPayments.QORSelectedItem%TYPE,
p_QORCounterHolder	tPayments.QORCounterHolder%TYPE)
AS
BEGIN
	UPDATE tPayments SET
		PaymentTerms=p_PaymentTerms,
		FK_OrderID=p_FK_OrderID,
		QORSelectedItem=p_QORSelectedItem,
		QORCounterHolder=p_QORCounterHolder
	 WHERE PaymentsID=p_PaymentsID; 
	Commit; 
END; 
/


CREATE OR REPLACE PROCEDURE tPaymentAR
AS
BEGIN
	SELECT *  FROM tPayment; 
END; 
/

CREATE OR REPLACE PROCEDURE tPaymentAD
AS
BEGIN
	DELETE  FROM tPayment; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tPaymentR
(p_PaymentID	tPayment.PaymentID%TYPE)
AS
BEGIN
	SELECT *  FROM tPayment WHERE PaymentID = p_PaymentID; 
END; 
/

CREATE OR REPLACE PROCEDURE tPaymentD
(p_PaymentID	tPayment.PaymentID%TYPE)
AS
BEGIN
	DELETE  FROM tPayment WHERE PaymentID = p_PaymentID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tPayment_FK_PaymentsIDR
(p_FK_PaymentsID	tPayment.FK_PaymentsID%TYPE)
AS
BEGIN
	SELECT *  FROM tPayment WHERE FK_PaymentsID = p_FK_PaymentsID; 
END; 
/

CREATE OR REPLACE PROCEDURE tPayment_FK_PaymentsIDD
(p_FK_PaymentsID	tPayment.FK_PaymentsID%TYPE)
AS
BEGIN
	DELETE  FROM tPayment WHERE FK_PaymentsID = p_FK_PaymentsID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE tPaymentC
(p_Amount	tPayment.Amount%TYPE,
p_PaidOn	tPayment.PaidOn%TYPE,
p_PaymentMethod	tPayment.PaymentMethod%TYPE,
p_BankReference	tPayment.BankReference%TYPE,
p_CreatedOn	tPayment.CreatedOn%TYPE,
p_ChangedOn	tPayment.ChangedOn%TYPE,
p_ChangedBy	tPayment.ChangedBy%TYPE,
p_FK_PaymentsID	tPayment.FK_PaymentsID%TYPE,
p_QORSelectState	tPayment.QORSelectState%TYPE,
p_QORCounter	tPayment.QORCounter%TYPE,
p_PaymentID	OUT 	tPayment.PaymentID%TYPE)
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
	(p_Amount,
	p_PaidOn,
	p_PaymentMethod,
	p_BankReference,
	p_CreatedOn,
	p_ChangedOn,
	p_ChangedBy,
	p_FK_PaymentsID,
	p_QORSelectState,
	p_QORCounter); 
	Commit; 
	SELECT max(PaymentID) into p_PaymentID FROM tPayment; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE tPaymentU
(p_Amount	tPayment.Amount%TYPE,
p_PaidOn	tPayment.PaidOn%TYPE,
p_PaymentMethod	tPayment.PaymentMethod%TYPE,
p_BankReference	tPayment.BankReference%TYPE,
p_CreatedOn	tPayment.CreatedOn%TYPE,
p_ChangedOn	tPayment.ChangedOn%TYPE,
p_ChangedBy	tPayment.ChangedBy%TYPE,
p_PaymentID	tPayment.PaymentID%TYPE,
p_FK_PaymentsID	tPayment.FK_PaymentsID%TYPE,
p_QORSelectState	tPayment.QORSelectState%TYPE,
p_QORCounter	tPayment.QORCounter%TYPE)
AS
BEGIN
	UPDATE tPayment SET
		Amount=p_Amount,
		PaidOn=p_PaidOn,
		PaymentMethod=p_PaymentMethod,
		BankReference=p_BankReference,
		CreatedOn=p_CreatedOn,
		ChangedOn=p_ChangedOn,
		ChangedBy=p_ChangedBy,
		FK_PaymentsID=p_FK_PaymentsID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE PaymentID=p_PaymentID; 
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

CREATE OR REPLACE PROCEDURE liveryInstructions_FK_OrderIDR
(p_FK_OrderID	trnationalDeliveryInstructions.FK_OrderID%TYPE)
AS
BEGIN
	SELECT *  FROM trnationalDeliveryInstructions WHERE FK_OrderID = p_FK_OrderID; 
END; 
/

CREATE OR REPLACE PROCEDURE liveryInstructions_FK_OrderIDD
(p_FK_OrderID	trnationalDeliveryInstructions.FK_OrderID%TYPE)
AS
BEGIN
	DELETE  FROM trnationalDeliveryInstructions WHERE FK_OrderID = p_FK_OrderID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE rnationalDeliveryInstructionsC
(p_geOfTheContactAtTheDestination	trnationalDeliveryInstructions.geOfTheContactAtTheDestination%TYPE,
p_arliestHourOfDayForTheDelivery	trnationalDeliveryInstructions.arliestHourOfDayForTheDelivery%TYPE,
p_LatestHourOfDayForTheDelivery	trnationalDeliveryInstructions.LatestHourOfDayForTheDelivery%TYPE,
p_FK_OrderID	trnationalDeliveryInstructions.FK_OrderID%TYPE,
p_QORSelectState	trnationalDeliveryInstructions.QORSelectState%TYPE,
p_QORCounter	trnationalDeliveryInstructions.QORCounter%TYPE,
p_ionalDeliveryInstructionsID	OUT 	trnationalDeliveryInstructions.ionalDeliveryInstructionsID%TYPE)
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
	(p_geOfTheContactAtTheDestination,
	p_arliestHourOfDayForTheDelivery,
	p_LatestHourOfDayForTheDelivery,
	p_FK_OrderID,
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
p_FK_OrderID	trnationalDeliveryInstructions.FK_OrderID%TYPE,
p_QORSelectState	trnationalDeliveryInstructions.QORSelectState%TYPE,
p_QORCounter	trnationalDeliveryInstructions.QORCounter%TYPE)
AS
BEGIN
	UPDATE trnationalDeliveryInstructions SET
		geOfTheContactAtTheDestination=p_geOfTheContactAtTheDestination,
		arliestHourOfDayForTheDelivery=p_arliestHourOfDayForTheDelivery,
		LatestHourOfDayForTheDelivery=p_LatestHourOfDayForTheDelivery,
		FK_OrderID=p_FK_OrderID,
		QORSelectState=p_QORSelectState,
		QORCounter=p_QORCounter
	 WHERE ionalDeliveryInstructionsID=p_ionalDeliveryInstructionsID; 
	Commit; 
END; 
/



