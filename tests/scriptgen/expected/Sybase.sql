-- a key of two columns in the other order, a counter beside it, two references to one object
CREATE TABLE OrderLine
( 
	LineNo smallint Not NULL,
	OrderID int Not NULL,
	FK_CustomerID int default 0,
	SerialNo numeric(18, 0)  identity Not NULL,
	Note varchar(40) default '',
	FK_SiteID int default 0,
	FK_Branch int default 0,
	Due datetime NULL,
	CONSTRAINT PK_OrderLine PRIMARY KEY CLUSTERED
	(
		OrderID, LineNo
	)
)
GO

CREATE INDEX OrderLine1 ON OrderLine(FK_CustomerID, FK_Branch)
GO

CREATE INDEX OrderLine2 ON OrderLine(FK_SiteID)
GO
-- procedures
CREATE PROCEDURE OrderLineAR
AS
	SELECT *  FROM OrderLine
GO

CREATE PROCEDURE OrderLineAD
AS
	DELETE  FROM OrderLine
GO

CREATE PROCEDURE OrderLineR
(@LineNo	smallint, 
@OrderID	int)
AS
	SELECT *  FROM OrderLine WHERE LineNo = @LineNo AND OrderID = @OrderID
GO

CREATE PROCEDURE OrderLineD
(@LineNo	smallint, 
@OrderID	int)
AS
	DELETE  FROM OrderLine WHERE LineNo = @LineNo AND OrderID = @OrderID
GO

CREATE PROCEDURE OrderLine_FK_CustomerIDR
(@FK_CustomerID	int, 
@FK_Branch	int)
AS
	SELECT *  FROM OrderLine WHERE FK_CustomerID = @FK_CustomerID AND FK_Branch = @FK_Branch
GO

CREATE PROCEDURE OrderLine_FK_CustomerIDD
(@FK_CustomerID	int, 
@FK_Branch	int)
AS
	DELETE  FROM OrderLine WHERE FK_CustomerID = @FK_CustomerID AND FK_Branch = @FK_Branch
GO

CREATE PROCEDURE OrderLine_FK_SiteIDR
(@FK_SiteID	int)
AS
	SELECT *  FROM OrderLine WHERE FK_SiteID = @FK_SiteID
GO

CREATE PROCEDURE OrderLine_FK_SiteIDD
(@FK_SiteID	int)
AS
	DELETE  FROM OrderLine WHERE FK_SiteID = @FK_SiteID
GO

CREATE PROCEDURE OrderLineC
(@LineNo	smallint,
@OrderID	int,
@FK_CustomerID	int,
@Note	varchar(40),
@FK_SiteID	int,
@FK_Branch	int,
@Due	datetime,
@SerialNo	int OUTPUT)
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
	(@LineNo,
	@OrderID,
	@FK_CustomerID,
	@Note,
	@FK_SiteID,
	@FK_Branch,
	@Due)

	SELECT @SerialNo=max(SerialNo) FROM OrderLine
END
GO

CREATE PROCEDURE OrderLineU
(@LineNo	smallint,
@OrderID	int,
@FK_CustomerID	int,
@SerialNo	int,
@Note	varchar(40),
@FK_SiteID	int,
@FK_Branch	int,
@Due	datetime)
AS
BEGIN
	UPDATE OrderLine SET
		FK_CustomerID=@FK_CustomerID,
		SerialNo=@SerialNo,
		Note=@Note,
		FK_SiteID=@FK_SiteID,
		FK_Branch=@FK_Branch,
		Due=@Due
	 WHERE LineNo=@LineNo AND OrderID=@OrderID
END
GO

-- foreign keys
ALTER TABLE OrderLine
ADD CONSTRAINT FK_OrderLine_1 FOREIGN KEY (FK_CustomerID, FK_Branch)
 REFERENCES Customer(CustomerID, Branch)

ALTER TABLE OrderLine
ADD CONSTRAINT FK_OrderLine_1 FOREIGN KEY (FK_CustomerID, FK_Branch)
 REFERENCES Customer(CustomerID, Branch)
ALTER TABLE OrderLine
ADD CONSTRAINT FK_OrderLine_1 FOREIGN KEY (FK_SiteID)
 REFERENCES Site(SiteID)

-- drop
ALTER TABLE OrderLine
DROP CONSTRAINT FK_OrderLine_1

ALTER TABLE OrderLine
DROP CONSTRAINT FK_OrderLine_1

if exists(select * from sysobjects where id = object_id('OrderLine') and sysstat & 0xf = 3)
	DROP TABLE OrderLine
GO

if exists(select * from sysobjects where id = object_id('dbo.OrderLineAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.OrderLineAR
GO

if exists(select * from sysobjects where id = object_id('dbo.OrderLineAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.OrderLineAD
GO

if exists(select * from sysobjects where id = object_id('dbo.OrderLineR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.OrderLineR
GO

if exists(select * from sysobjects where id = object_id('dbo.OrderLineD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.OrderLineD
GO

if exists(select * from sysobjects where id = object_id('dbo.OrderLine_FK_CustomerIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.OrderLine_FK_CustomerIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.OrderLine_FK_CustomerIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.OrderLine_FK_CustomerIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.OrderLine_FK_SiteIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.OrderLine_FK_SiteIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.OrderLine_FK_SiteIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.OrderLine_FK_SiteIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.OrderLineC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.OrderLineC
GO

if exists(select * from sysobjects where id = object_id('dbo.OrderLineU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.OrderLineU
GO


-- a key of two columns and nothing else
CREATE TABLE T
( 
	K1 int Not NULL,
	K2 smallint Not NULL,
	CONSTRAINT PK_T PRIMARY KEY CLUSTERED
	(
		K1, K2
	)
)
GO
-- procedures
CREATE PROCEDURE TAR
AS
	SELECT *  FROM T
GO

CREATE PROCEDURE TAD
AS
	DELETE  FROM T
GO

CREATE PROCEDURE TR
(@K1	int, 
@K2	smallint)
AS
	SELECT *  FROM T WHERE K1 = @K1 AND K2 = @K2
GO

CREATE PROCEDURE TD
(@K1	int, 
@K2	smallint)
AS
	DELETE  FROM T WHERE K1 = @K1 AND K2 = @K2
GO

CREATE PROCEDURE TC
(@K1	int,
@K2	smallint)
AS
BEGIN
	INSERT INTO T
	(K1,
	K2)
	VALUES 
	(@K1,
	@K2)

END
GO

-- foreign keys
-- drop
if exists(select * from sysobjects where id = object_id('T') and sysstat & 0xf = 3)
	DROP TABLE T
GO

if exists(select * from sysobjects where id = object_id('dbo.TAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAR
GO

if exists(select * from sysobjects where id = object_id('dbo.TAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAD
GO

if exists(select * from sysobjects where id = object_id('dbo.TR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TR
GO

if exists(select * from sysobjects where id = object_id('dbo.TD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TD
GO

if exists(select * from sysobjects where id = object_id('dbo.TC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TC
GO


-- a key of two columns around a counter
CREATE TABLE T
( 
	K1 int Not NULL,
	N numeric(18, 0)  identity Not NULL,
	K2 int Not NULL,
	CONSTRAINT PK_T PRIMARY KEY CLUSTERED
	(
		K1, K2
	)
)
GO
-- procedures
CREATE PROCEDURE TAR
AS
	SELECT *  FROM T
GO

CREATE PROCEDURE TAD
AS
	DELETE  FROM T
GO

CREATE PROCEDURE TR
(@K1	int, 
@K2	int)
AS
	SELECT *  FROM T WHERE K1 = @K1 AND K2 = @K2
GO

CREATE PROCEDURE TD
(@K1	int, 
@K2	int)
AS
	DELETE  FROM T WHERE K1 = @K1 AND K2 = @K2
GO

CREATE PROCEDURE TC
(@K1	int,
@K2	int,
@N	int OUTPUT)
AS
BEGIN
	INSERT INTO T
	(K1,
	K2)
	VALUES 
	(@K1,
	@K2)

	SELECT @N=max(N) FROM T
END
GO

CREATE PROCEDURE TU
(@K1	int,
@N	int,
@K2	int)
AS
BEGIN
	UPDATE T SET
		N=@N
	 WHERE K1=@K1 AND K2=@K2
END
GO

-- foreign keys
-- drop
if exists(select * from sysobjects where id = object_id('T') and sysstat & 0xf = 3)
	DROP TABLE T
GO

if exists(select * from sysobjects where id = object_id('dbo.TAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAR
GO

if exists(select * from sysobjects where id = object_id('dbo.TAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAD
GO

if exists(select * from sysobjects where id = object_id('dbo.TR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TR
GO

if exists(select * from sysobjects where id = object_id('dbo.TD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TD
GO

if exists(select * from sysobjects where id = object_id('dbo.TC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TC
GO

if exists(select * from sysobjects where id = object_id('dbo.TU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TU
GO


-- no key, a reference to what is not there
CREATE TABLE T
( 
	A int default 0,
	B int default 0
)
GO

CREATE INDEX T1 ON T(B)
GO
-- procedures
CREATE PROCEDURE TAR
AS
	SELECT *  FROM T
GO

CREATE PROCEDURE TAD
AS
	DELETE  FROM T
GO

CREATE PROCEDURE T_BR
(@B	int)
AS
	SELECT *  FROM T WHERE B = @B
GO

CREATE PROCEDURE T_BD
(@B	int)
AS
	DELETE  FROM T WHERE B = @B
GO

CREATE PROCEDURE TC
(@A	int,
@B	int)
AS
BEGIN
	INSERT INTO T
	(A,
	B)
	VALUES 
	(@A,
	@B)

END
GO

-- foreign keys
ALTER TABLE T
ADD CONSTRAINT FK_T_1 FOREIGN KEY (B)
 REFERENCES ()

-- drop
ALTER TABLE T
DROP CONSTRAINT FK_T_1

if exists(select * from sysobjects where id = object_id('T') and sysstat & 0xf = 3)
	DROP TABLE T
GO

if exists(select * from sysobjects where id = object_id('dbo.TAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAR
GO

if exists(select * from sysobjects where id = object_id('dbo.TAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAD
GO

if exists(select * from sysobjects where id = object_id('dbo.T_BR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.T_BR
GO

if exists(select * from sysobjects where id = object_id('dbo.T_BD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.T_BD
GO

if exists(select * from sysobjects where id = object_id('dbo.TC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TC
GO


-- only a counter
CREATE TABLE T
( 
	N numeric(18, 0)  identity Not NULL
)
GO
-- procedures
CREATE PROCEDURE TAR
AS
	SELECT *  FROM T
GO

CREATE PROCEDURE TAD
AS
	DELETE  FROM T
GO

CREATE PROCEDURE TC
(,
@N	int OUTPUT)
AS
BEGIN
	INSERT INTO T
	()
	VALUES 
	()

	SELECT @N=max(N) FROM T
END
GO

-- foreign keys
-- drop
if exists(select * from sysobjects where id = object_id('T') and sysstat & 0xf = 3)
	DROP TABLE T
GO

if exists(select * from sysobjects where id = object_id('dbo.TAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAR
GO

if exists(select * from sysobjects where id = object_id('dbo.TAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAD
GO

if exists(select * from sysobjects where id = object_id('dbo.TC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TC
GO


-- two counters
CREATE TABLE T
( 
	M numeric(18, 0)  identity Not NULL,
	N numeric(18, 0)  identity Not NULL
)
GO
-- procedures
CREATE PROCEDURE TAR
AS
	SELECT *  FROM T
GO

CREATE PROCEDURE TAD
AS
	DELETE  FROM T
GO

CREATE PROCEDURE TC
(,
@N	int OUTPUT)
AS
BEGIN
	INSERT INTO T
	()
	VALUES 
	()

	SELECT @N=max(N) FROM T
END
GO

-- foreign keys
-- drop
if exists(select * from sysobjects where id = object_id('T') and sysstat & 0xf = 3)
	DROP TABLE T
GO

if exists(select * from sysobjects where id = object_id('dbo.TAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAR
GO

if exists(select * from sysobjects where id = object_id('dbo.TAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAD
GO

if exists(select * from sysobjects where id = object_id('dbo.TC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TC
GO


-- no columns
CREATE TABLE T
( 

)
GO
-- procedures
CREATE PROCEDURE TAR
AS
	SELECT *  FROM T
GO

CREATE PROCEDURE TAD
AS
	DELETE  FROM T
GO

CREATE PROCEDURE TC
()
AS
BEGIN
	INSERT INTO T
	()
	VALUES 
	()

END
GO

-- foreign keys
-- drop
if exists(select * from sysobjects where id = object_id('T') and sysstat & 0xf = 3)
	DROP TABLE T
GO

if exists(select * from sysobjects where id = object_id('dbo.TAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAR
GO

if exists(select * from sysobjects where id = object_id('dbo.TAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAD
GO

if exists(select * from sysobjects where id = object_id('dbo.TC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TC
GO


-- key columns outside the sequence
CREATE TABLE T
( 
	Last int Not NULL,
	Below int Not NULL,
	Zero int Not NULL,
	Beyond int Not NULL,
	CONSTRAINT PK_T PRIMARY KEY CLUSTERED
	(
		Zero, Last
	)
)
GO
-- procedures
CREATE PROCEDURE TAR
AS
	SELECT *  FROM T
GO

CREATE PROCEDURE TAD
AS
	DELETE  FROM T
GO

CREATE PROCEDURE TR
(@Last	int, 
@Below	int, 
@Zero	int, 
@Beyond	int)
AS
	SELECT *  FROM T WHERE Last = @Last AND Below = @Below AND Zero = @Zero AND Beyond = @Beyond
GO

CREATE PROCEDURE TD
(@Last	int, 
@Below	int, 
@Zero	int, 
@Beyond	int)
AS
	DELETE  FROM T WHERE Last = @Last AND Below = @Below AND Zero = @Zero AND Beyond = @Beyond
GO

CREATE PROCEDURE TC
(@Last	int,
@Below	int,
@Zero	int,
@Beyond	int)
AS
BEGIN
	INSERT INTO T
	(Last,
	Below,
	Zero,
	Beyond)
	VALUES 
	(@Last,
	@Below,
	@Zero,
	@Beyond)

END
GO

-- foreign keys
-- drop
if exists(select * from sysobjects where id = object_id('T') and sysstat & 0xf = 3)
	DROP TABLE T
GO

if exists(select * from sysobjects where id = object_id('dbo.TAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAR
GO

if exists(select * from sysobjects where id = object_id('dbo.TAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TAD
GO

if exists(select * from sysobjects where id = object_id('dbo.TR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TR
GO

if exists(select * from sysobjects where id = object_id('dbo.TD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TD
GO

if exists(select * from sysobjects where id = object_id('dbo.TC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.TC
GO


-- names that lose their front
CREATE TABLE ABCDEFGHIJKLMNOPQRSTUVWXYZ0123
( 
	K int Not NULL,
	F int default 0,
	CONSTRAINT PK_ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 PRIMARY KEY CLUSTERED
	(
		K
	)
)
GO

CREATE INDEX ABCDEFGHIJKLMNOPQRSTUVWXYZ01231 ON ABCDEFGHIJKLMNOPQRSTUVWXYZ0123(F)
GO
-- procedures
CREATE PROCEDURE CDEFGHIJKLMNOPQRSTUVWXYZ0123AR
AS
	SELECT *  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123
GO

CREATE PROCEDURE CDEFGHIJKLMNOPQRSTUVWXYZ0123AD
AS
	DELETE  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123
GO

CREATE PROCEDURE BCDEFGHIJKLMNOPQRSTUVWXYZ0123R
(@K	int)
AS
	SELECT *  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 WHERE K = @K
GO

CREATE PROCEDURE BCDEFGHIJKLMNOPQRSTUVWXYZ0123D
(@K	int)
AS
	DELETE  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 WHERE K = @K
GO

CREATE PROCEDURE DEFGHIJKLMNOPQRSTUVWXYZ0123_FR
(@F	int)
AS
	SELECT *  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 WHERE F = @F
GO

CREATE PROCEDURE DEFGHIJKLMNOPQRSTUVWXYZ0123_FD
(@F	int)
AS
	DELETE  FROM ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 WHERE F = @F
GO

CREATE PROCEDURE BCDEFGHIJKLMNOPQRSTUVWXYZ0123C
(@K	int,
@F	int)
AS
BEGIN
	INSERT INTO ABCDEFGHIJKLMNOPQRSTUVWXYZ0123
	(K,
	F)
	VALUES 
	(@K,
	@F)

END
GO

CREATE PROCEDURE BCDEFGHIJKLMNOPQRSTUVWXYZ0123U
(@K	int,
@F	int)
AS
BEGIN
	UPDATE ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 SET
		F=@F
	 WHERE K=@K
END
GO

-- foreign keys
ALTER TABLE ABCDEFGHIJKLMNOPQRSTUVWXYZ0123
ADD CONSTRAINT DEFGHIJKLMNOPQRSTUVWXYZ0123_1 FOREIGN KEY (F)
 REFERENCES Customer(CustomerID)

-- drop
ALTER TABLE ABCDEFGHIJKLMNOPQRSTUVWXYZ0123
DROP CONSTRAINT DEFGHIJKLMNOPQRSTUVWXYZ0123_1

if exists(select * from sysobjects where id = object_id('ABCDEFGHIJKLMNOPQRSTUVWXYZ0123') and sysstat & 0xf = 3)
	DROP TABLE ABCDEFGHIJKLMNOPQRSTUVWXYZ0123
GO

if exists(select * from sysobjects where id = object_id('dbo.CDEFGHIJKLMNOPQRSTUVWXYZ0123AR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.CDEFGHIJKLMNOPQRSTUVWXYZ0123AR
GO

if exists(select * from sysobjects where id = object_id('dbo.CDEFGHIJKLMNOPQRSTUVWXYZ0123AD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.CDEFGHIJKLMNOPQRSTUVWXYZ0123AD
GO

if exists(select * from sysobjects where id = object_id('dbo.BCDEFGHIJKLMNOPQRSTUVWXYZ0123R') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.BCDEFGHIJKLMNOPQRSTUVWXYZ0123R
GO

if exists(select * from sysobjects where id = object_id('dbo.BCDEFGHIJKLMNOPQRSTUVWXYZ0123D') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.BCDEFGHIJKLMNOPQRSTUVWXYZ0123D
GO

if exists(select * from sysobjects where id = object_id('dbo.DEFGHIJKLMNOPQRSTUVWXYZ0123_FR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.DEFGHIJKLMNOPQRSTUVWXYZ0123_FR
GO

if exists(select * from sysobjects where id = object_id('dbo.DEFGHIJKLMNOPQRSTUVWXYZ0123_FD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.DEFGHIJKLMNOPQRSTUVWXYZ0123_FD
GO

if exists(select * from sysobjects where id = object_id('dbo.BCDEFGHIJKLMNOPQRSTUVWXYZ0123C') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.BCDEFGHIJKLMNOPQRSTUVWXYZ0123C
GO

if exists(select * from sysobjects where id = object_id('dbo.BCDEFGHIJKLMNOPQRSTUVWXYZ0123U') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.BCDEFGHIJKLMNOPQRSTUVWXYZ0123U
GO


