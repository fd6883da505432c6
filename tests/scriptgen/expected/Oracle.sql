-- a key of two columns in the other order, a counter beside it, two references to one object

rem  ***** Creating table OrderLine

create sequence SEQ_OrderLine increment by 1 start with 1; 


CREATE TABLE OrderLine
( 
	LineNo NUMBER(5) Not NULL,
	OrderID NUMBER(11) Not NULL,
	FK_CustomerID NUMBER(11) default 0,
	SerialNo NUMBER(11) Not NULL,
	Note VARCHAR2(40) default '',
	FK_SiteID NUMBER(11) default 0,
	FK_Branch NUMBER(11) default 0,
	Due DATE NULL,
	CONSTRAINT PK_OrderLine PRIMARY KEY 
	(
		OrderID, LineNo
	)
); 

CREATE INDEX OrderLine1 ON OrderLine(FK_CustomerID, FK_Branch); 

CREATE INDEX OrderLine2 ON OrderLine(FK_SiteID); 


/
CREATE TRIGGER TR_OrderLine BEFORE INSERT ON OrderLine FOR EACH ROW 
DECLARE
	iCounter OrderLine.SerialNo%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_OrderLine.NEXTVAL INTO iCounter FROM Dual; 
		:new.SerialNo := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.SerialNo = :old.SerialNo) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/
-- procedures
CREATE OR REPLACE PROCEDURE OrderLineAR
AS
BEGIN
	SELECT *  FROM OrderLine; 
END; 
/

CREATE OR REPLACE PROCEDURE OrderLineAD
AS
BEGIN
	DELETE  FROM OrderLine; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE OrderLineR
(p_LineNo	OrderLine.LineNo%TYPE,
p_OrderID	OrderLine.OrderID%TYPE)
AS
BEGIN
	SELECT *  FROM OrderLine WHERE LineNo = p_LineNo AND OrderID = p_OrderID; 
END; 
/

CREATE OR REPLACE PROCEDURE OrderLineD
(p_LineNo	OrderLine.LineNo%TYPE,
p_OrderID	OrderLine.OrderID%TYPE)
AS
BEGIN
	DELETE  FROM OrderLine WHERE LineNo = p_LineNo AND OrderID = p_OrderID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE OrderLine_FK_CustomerIDR
(p_FK_CustomerID	OrderLine.FK_CustomerID%TYPE, 
p_FK_Branch	OrderLine.FK_Branch%TYPE)
AS
BEGIN
	SELECT *  FROM OrderLine WHERE FK_CustomerID = p_FK_CustomerID AND FK_Branch = p_FK_Branch; 
END; 
/

CREATE OR REPLACE PROCEDURE OrderLine_FK_CustomerIDD
(p_FK_CustomerID	OrderLine.FK_CustomerID%TYPE, 
p_FK_Branch	OrderLine.FK_Branch%TYPE)
AS
BEGIN
	DELETE  FROM OrderLine WHERE FK_CustomerID = p_FK_CustomerID AND FK_Branch = p_FK_Branch; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE OrderLine_FK_SiteIDR
(p_FK_SiteID	OrderLine.FK_SiteID%TYPE)
AS
BEGIN
	SELECT *  FROM OrderLine WHERE FK_SiteID = p_FK_SiteID; 
END; 
/

CREATE OR REPLACE PROCEDURE OrderLine_FK_SiteIDD
(p_FK_SiteID	OrderLine.FK_SiteID%TYPE)
AS
BEGIN
	DELETE  FROM OrderLine WHERE FK_SiteID = p_FK_SiteID; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE OrderLineC
(p_LineNo	OrderLine.LineNo%TYPE,
p_OrderID	OrderLine.OrderID%TYPE,
p_FK_CustomerID	OrderLine.FK_CustomerID%TYPE,
p_Note	OrderLine.Note%TYPE,
p_FK_SiteID	OrderLine.FK_SiteID%TYPE,
p_FK_Branch	OrderLine.FK_Branch%TYPE,
p_Due	OrderLine.Due%TYPE,
p_SerialNo	OUT 	OrderLine.SerialNo%TYPE)
AS
BEGIN
	INSERT INTO OrderLine
	(LineNo,
	OrderID,
	FK_CustomerID,
	Note,
	FK_SiteID,
	FK_Branch,
	Due)
	VALUES 
	(p_LineNo,
	p_OrderID,
	p_FK_CustomerID,
	p_Note,
	p_FK_SiteID,
	p_FK_Branch,
	p_Due); 
	Commit; 
	SELECT max(SerialNo) into p_SerialNo FROM OrderLine; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE OrderLineU
(p_LineNo	OrderLine.LineNo%TYPE,
p_OrderID	OrderLine.OrderID%TYPE,
p_FK_CustomerID	OrderLine.FK_CustomerID%TYPE,
p_SerialNo	OrderLine.SerialNo%TYPE,
p_Note	OrderLine.Note%TYPE,
p_FK_SiteID	OrderLine.FK_SiteID%TYPE,
p_FK_Branch	OrderLine.FK_Branch%TYPE,
p_Due	OrderLine.Due%TYPE)
AS
BEGIN
	UPDATE OrderLine SET
		FK_CustomerID=p_FK_CustomerID,
		SerialNo=p_SerialNo,
		Note=p_Note,
		FK_SiteID=p_FK_SiteID,
		FK_Branch=p_FK_Branch,
		Due=p_Due
	 WHERE LineNo=p_LineNo AND OrderID=p_OrderID; 
	Commit; 
END; 
/


-- foreign keys
ALTER TABLE OrderLine
ADD CONSTRAINT FK_OrderLine_1 FOREIGN KEY (FK_CustomerID, FK_Branch)
 REFERENCES Customer(CustomerID, Branch); 


ALTER TABLE OrderLine
ADD CONSTRAINT FK_OrderLine_1 FOREIGN KEY (FK_CustomerID, FK_Branch)
 REFERENCES Customer(CustomerID, Branch); 

ALTER TABLE OrderLine
ADD CONSTRAINT FK_OrderLine_1 FOREIGN KEY (FK_SiteID)
 REFERENCES Site(SiteID); 


-- drop
ALTER TABLE OrderLine
DROP CONSTRAINT FK_OrderLine_1; 


ALTER TABLE OrderLine
DROP CONSTRAINT FK_OrderLine_1; 


DROP SEQUENCE SEQ_OrderLine; 

DROP TABLE OrderLine; 


-- a key of two columns and nothing else

rem  ***** Creating table T



CREATE TABLE T
( 
	K1 NUMBER(11) Not NULL,
	K2 NUMBER(5) Not NULL,
	CONSTRAINT PK_T PRIMARY KEY 
	(
		K1, K2
	)
); 
-- procedures
CREATE OR REPLACE PROCEDURE TAR
AS
BEGIN
	SELECT *  FROM T; 
END; 
/

CREATE OR REPLACE PROCEDURE TAD
AS
BEGIN
	DELETE  FROM T; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE TR
(p_K1	T.K1%TYPE,
p_K2	T.K2%TYPE)
AS
BEGIN
	SELECT *  FROM T WHERE K1 = p_K1 AND K2 = p_K2; 
END; 
/

CREATE OR REPLACE PROCEDURE TD
(p_K1	T.K1%TYPE,
p_K2	T.K2%TYPE)
AS
BEGIN
	DELETE  FROM T WHERE K1 = p_K1 AND K2 = p_K2; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE TC
(p_K1	T.K1%TYPE,
p_K2	T.K2%TYPE)
AS
BEGIN
	INSERT INTO T
	(K1,
	K2)
	VALUES 
	(p_K1,
	p_K2); 
	Commit; 
; 
END; 
/

-- foreign keys
-- drop
DROP TABLE T; 


-- a key of two columns around a counter

rem  ***** Creating table T

create sequence SEQ_T increment by 1 start with 1; 


CREATE TABLE T
( 
	K1 NUMBER(11) Not NULL,
	N NUMBER(11) Not NULL,
	K2 NUMBER(11) Not NULL,
	CONSTRAINT PK_T PRIMARY KEY 
	(
		K1, K2
	)
); 


/
CREATE TRIGGER TR_T BEFORE INSERT ON T FOR EACH ROW 
DECLARE
	iCounter T.N%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_T.NEXTVAL INTO iCounter FROM Dual; 
		:new.N := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.N = :old.N) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/
-- procedures
CREATE OR REPLACE PROCEDURE TAR
AS
BEGIN
	SELECT *  FROM T; 
END; 
/

CREATE OR REPLACE PROCEDURE TAD
AS
BEGIN
	DELETE  FROM T; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE TR
(p_K1	T.K1%TYPE,
p_K2	T.K2%TYPE)
AS
BEGIN
	SELECT *  FROM T WHERE K1 = p_K1 AND K2 = p_K2; 
END; 
/

CREATE OR REPLACE PROCEDURE TD
(p_K1	T.K1%TYPE,
p_K2	T.K2%TYPE)
AS
BEGIN
	DELETE  FROM T WHERE K1 = p_K1 AND K2 = p_K2; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE TC
(p_K1	T.K1%TYPE,
p_K2	T.K2%TYPE,
p_N	OUT 	T.N%TYPE)
AS
BEGIN
	INSERT INTO T
	(K1,
	K2)
	VALUES 
	(p_K1,
	p_K2); 
	Commit; 
	SELECT max(N) into p_N FROM T; 

	RETURN; 
END; 
/

CREATE OR REPLACE PROCEDURE TU
(p_K1	T.K1%TYPE,
p_N	T.N%TYPE,
p_K2	T.K2%TYPE)
AS
BEGIN
	UPDATE T SET
		N=p_N
	 WHERE K1=p_K1 AND K2=p_K2; 
	Commit; 
END; 
/


-- foreign keys
-- drop
DROP SEQUENCE SEQ_T; 

DROP TABLE T; 


-- no key, a reference to what is not there

rem  ***** Creating table T



CREATE TABLE T
( 
	A NUMBER(11) default 0,
	B NUMBER(11) default 0
); 

CREATE INDEX T1 ON T(B); 
-- procedures
CREATE OR REPLACE PROCEDURE TAR
AS
BEGIN
	SELECT *  FROM T; 
END; 
/

CREATE OR REPLACE PROCEDURE TAD
AS
BEGIN
	DELETE  FROM T; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE T_BR
(p_B	T.B%TYPE)
AS
BEGIN
	SELECT *  FROM T WHERE B = p_B; 
END; 
/

CREATE OR REPLACE PROCEDURE T_BD
(p_B	T.B%TYPE)
AS
BEGIN
	DELETE  FROM T WHERE B = p_B; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE TC
(p_A	T.A%TYPE,
p_B	T.B%TYPE)
AS
BEGIN
	INSERT INTO T
	(A,
	B)
	VALUES 
	(p_A,
	p_B); 
	Commit; 
; 
END; 
/

-- foreign keys
ALTER TABLE T
ADD CONSTRAINT FK_T_1 FOREIGN KEY (B)
 REFERENCES (); 


-- drop
ALTER TABLE T
DROP CONSTRAINT FK_T_1; 


DROP TABLE T; 


-- only a counter

rem  ***** Creating table T

create sequence SEQ_T increment by 1 start with 1; 


CREATE TABLE T
( 
	N NUMBER(11) Not NULL
); 


/
CREATE TRIGGER TR_T BEFORE INSERT ON T FOR EACH ROW 
DECLARE
	iCounter T.N%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_T.NEXTVAL INTO iCounter FROM Dual; 
		:new.N := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.N = :old.N) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/
-- procedures
CREATE OR REPLACE PROCEDURE TAR
AS
BEGIN
	SELECT *  FROM T; 
END; 
/

CREATE OR REPLACE PROCEDURE TAD
AS
BEGIN
	DELETE  FROM T; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE TC
(,
p_N	OUT 	T.N%TYPE)
AS
BEGIN
	INSERT INTO T
	()
	VALUES 
	(); 
	Commit; 
	SELECT max(N) into p_N FROM T; 

	RETURN; 
END; 
/

-- foreign keys
-- drop
DROP SEQUENCE SEQ_T; 

DROP TABLE T; 


-- two counters

rem  ***** Creating table T

create sequence SEQ_T increment by 1 start with 1; 


CREATE TABLE T
( 
	M NUMBER(11) Not NULL,
	N NUMBER(11) Not NULL
); 


/
CREATE TRIGGER TR_T BEFORE INSERT ON T FOR EACH ROW 
DECLARE
	iCounter T.M%TYPE; 
	cannot_change_counter EXCEPTION; 
BEGIN
	If INSERTING Then
		Select SEQ_T.NEXTVAL INTO iCounter FROM Dual; 
		:new.M := iCounter; 
	END IF; 
	If UPDATING Then
		IF NOT (:new.M = :old.M) THEN
			RAISE cannot_change_counter; 
		END IF; 
	END IF; 
EXCEPTION
	WHEN cannot_change_counter THEN
	raise_application_error(-20000, 'Cannot Change Counter Value'); 
End; 
/
-- procedures
CREATE OR REPLACE PROCEDURE TAR
AS
BEGIN
	SELECT *  FROM T; 
END; 
/

CREATE OR REPLACE PROCEDURE TAD
AS
BEGIN
	DELETE  FROM T; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE TC
(,
p_N	OUT 	T.N%TYPE)
AS
BEGIN
	INSERT INTO T
	()
	VALUES 
	(); 
	Commit; 
	SELECT max(N) into p_N FROM T; 

	RETURN; 
END; 
/

-- foreign keys
-- drop
DROP SEQUENCE SEQ_T; 

DROP TABLE T; 


-- no columns

rem  ***** Creating table T



CREATE TABLE T
( 

); 
-- procedures
CREATE OR REPLACE PROCEDURE TAR
AS
BEGIN
	SELECT *  FROM T; 
END; 
/

CREATE OR REPLACE PROCEDURE TAD
AS
BEGIN
	DELETE  FROM T; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE TC
()
AS
BEGIN
	INSERT INTO T
	()
	VALUES 
	(); 
	Commit; 
; 
END; 
/

-- foreign keys
-- drop
DROP TABLE T; 


-- key columns outside the sequence

rem  ***** Creating table T



CREATE TABLE T
( 
	Last NUMBER(11) Not NULL,
	Below NUMBER(11) Not NULL,
	Zero NUMBER(11) Not NULL,
	Beyond NUMBER(11) Not NULL,
	CONSTRAINT PK_T PRIMARY KEY 
	(
		Zero, Last
	)
); 
-- procedures
CREATE OR REPLACE PROCEDURE TAR
AS
BEGIN
	SELECT *  FROM T; 
END; 
/

CREATE OR REPLACE PROCEDURE TAD
AS
BEGIN
	DELETE  FROM T; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE TR
(p_Last	T.Last%TYPE,
p_Below	T.Below%TYPE,
p_Zero	T.Zero%TYPE,
p_Beyond	T.Beyond%TYPE)
AS
BEGIN
	SELECT *  FROM T WHERE Last = p_Last AND Below = p_Below AND Zero = p_Zero AND Beyond = p_Beyond; 
END; 
/

CREATE OR REPLACE PROCEDURE TD
(p_Last	T.Last%TYPE,
p_Below	T.Below%TYPE,
p_Zero	T.Zero%TYPE,
p_Beyond	T.Beyond%TYPE)
AS
BEGIN
	DELETE  FROM T WHERE Last = p_Last AND Below = p_Below AND Zero = p_Zero AND Beyond = p_Beyond; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE TC
(p_Last	T.Last%TYPE,
p_Below	T.Below%TYPE,
p_Zero	T.Zero%TYPE,
p_Beyond	T.Beyond%TYPE)
AS
BEGIN
	INSERT INTO T
	(Last,
	Below,
	Zero,
	Beyond)
	VALUES 
	(p_Last,
	p_Below,
	p_Zero,
	p_Beyond); 
	Commit; 
; 
END; 
/

-- foreign keys
-- drop
DROP TABLE T; 


-- names that lose their front

rem  ***** Creating table ABCDEFGHIJKLMNOPQRSTUVWXYZ0123



CREATE TABLE ABCDEFGHIJKLMNOPQRSTUVWXYZ0123
( 
	K NUMBER(11) Not NULL,
	F NUMBER(11) default 0,
	CONSTRAINT PK_ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 PRIMARY KEY 
	(
		K
	)
); 

CREATE INDEX ABCDEFGHIJKLMNOPQRSTUVWXYZ01231 ON ABCDEFGHIJKLMNOPQRSTUVWXYZ0123(F); 
-- procedures
CREATE OR REPLACE PROCEDURE CDEFGHIJKLMNOPQRSTUVWXYZ0123AR
AS
BEGIN
	SELECT *  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123; 
END; 
/

CREATE OR REPLACE PROCEDURE CDEFGHIJKLMNOPQRSTUVWXYZ0123AD
AS
BEGIN
	DELETE  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE BCDEFGHIJKLMNOPQRSTUVWXYZ0123R
(p_K	ABCDEFGHIJKLMNOPQRSTUVWXYZ0123.K%TYPE)
AS
BEGIN
	SELECT *  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 WHERE K = p_K; 
END; 
/

CREATE OR REPLACE PROCEDURE BCDEFGHIJKLMNOPQRSTUVWXYZ0123D
(p_K	ABCDEFGHIJKLMNOPQRSTUVWXYZ0123.K%TYPE)
AS
BEGIN
	DELETE  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 WHERE K = p_K; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE DEFGHIJKLMNOPQRSTUVWXYZ0123_FR
(p_F	ABCDEFGHIJKLMNOPQRSTUVWXYZ0123.F%TYPE)
AS
BEGIN
	SELECT *  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 WHERE F = p_F; 
END; 
/

CREATE OR REPLACE PROCEDURE DEFGHIJKLMNOPQRSTUVWXYZ0123_FD
(p_F	ABCDEFGHIJKLMNOPQRSTUVWXYZ0123.F%TYPE)
AS
BEGIN
	DELETE  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 WHERE F = p_F; 
	Commit; 
END; 
/

CREATE OR REPLACE PROCEDURE BCDEFGHIJKLMNOPQRSTUVWXYZ0123C
(p_K	ABCDEFGHIJKLMNOPQRSTUVWXYZ0123.K%TYPE,
p_F	ABCDEFGHIJKLMNOPQRSTUVWXYZ0123.F%TYPE)
AS
BEGIN
	INSERT INTO ABCDEFGHIJKLMNOPQRSTUVWXYZ0123
	(K,
	F)
	VALUES 
	(p_K,
	p_F); 
	Commit; 
; 
END; 
/

CREATE OR REPLACE PROCEDURE BCDEFGHIJKLMNOPQRSTUVWXYZ0123U
(p_K	ABCDEFGHIJKLMNOPQRSTUVWXYZ0123.K%TYPE,
p_F	ABCDEFGHIJKLMNOPQRSTUVWXYZ0123.F%TYPE)
AS
BEGIN
	UPDATE ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 SET
		F=p_F
	 WHERE K=p_K; 
	Commit; 
END; 
/


-- foreign keys
ALTER TABLE ABCDEFGHIJKLMNOPQRSTUVWXYZ0123
ADD CONSTRAINT DEFGHIJKLMNOPQRSTUVWXYZ0123_1 FOREIGN KEY (F)
 REFERENCES Customer(CustomerID); 


-- drop
ALTER TABLE ABCDEFGHIJKLMNOPQRSTUVWXYZ0123
DROP CONSTRAINT DEFGHIJKLMNOPQRSTUVWXYZ0123_1; 


DROP TABLE ABCDEFGHIJKLMNOPQRSTUVWXYZ0123; 


