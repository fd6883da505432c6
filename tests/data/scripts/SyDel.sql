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

if exists(select * from sysobjects where id = object_id('tOrder') and sysstat & 0xf = 3)
	DROP TABLE tOrder
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

if exists(select * from sysobjects where id = object_id('tCustomer') and sysstat & 0xf = 3)
	DROP TABLE tCustomer
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

if exists(select * from sysobjects where id = object_id('tAddress2') and sysstat & 0xf = 3)
	DROP TABLE tAddress2
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

if exists(select * from sysobjects where id = object_id('tContacts') and sysstat & 0xf = 3)
	DROP TABLE tContacts
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactR
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactD
GO

if exists(select * from sysobjects where id = object_id('dbo.tContact_FK_ContactsIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContact_FK_ContactsIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tContact_FK_ContactsIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContact_FK_ContactsIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactC
GO

if exists(select * from sysobjects where id = object_id('dbo.tContactU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tContactU
GO

if exists(select * from sysobjects where id = object_id('tContact') and sysstat & 0xf = 3)
	DROP TABLE tContact
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

if exists(select * from sysobjects where id = object_id('tAddress2') and sysstat & 0xf = 3)
	DROP TABLE tAddress2
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

if exists(select * from sysobjects where id = object_id('tOrderLines') and sysstat & 0xf = 3)
	DROP TABLE tOrderLines
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

if exists(select * from sysobjects where id = object_id('tOrderLine') and sysstat & 0xf = 3)
	DROP TABLE tOrderLine
GO

if exists(select * from sysobjects where id = object_id('dbo.tProductAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tProductAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tProductAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tProductAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tProductR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tProductR
GO

if exists(select * from sysobjects where id = object_id('dbo.tProductD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tProductD
GO

if exists(select * from sysobjects where id = object_id('dbo.tProduct_FK_OrderLineIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tProduct_FK_OrderLineIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tProduct_FK_OrderLineIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tProduct_FK_OrderLineIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tProductC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tProductC
GO

if exists(select * from sysobjects where id = object_id('dbo.tProductU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tProductU
GO

if exists(select * from sysobjects where id = object_id('tProduct') and sysstat & 0xf = 3)
	DROP TABLE tProduct
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationsAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationsAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationsAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationsAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationsR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationsR
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationsD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationsD
GO

if exists(select * from sysobjects where id = object_id('dbo.ineAllocations_FK_OrderLineIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.ineAllocations_FK_OrderLineIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.ineAllocations_FK_OrderLineIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.ineAllocations_FK_OrderLineIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationsC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationsC
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationsU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationsU
GO

if exists(select * from sysobjects where id = object_id('tLineAllocations') and sysstat & 0xf = 3)
	DROP TABLE tLineAllocations
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationR
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationD
GO

if exists(select * from sysobjects where id = object_id('dbo.location_FK_LineAllocationsIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.location_FK_LineAllocationsIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.location_FK_LineAllocationsIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.location_FK_LineAllocationsIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationC
GO

if exists(select * from sysobjects where id = object_id('dbo.tLineAllocationU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tLineAllocationU
GO

if exists(select * from sysobjects where id = object_id('tLineAllocation') and sysstat & 0xf = 3)
	DROP TABLE tLineAllocation
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

if exists(select * from sysobjects where id = object_id('tShipments') and sysstat & 0xf = 3)
	DROP TABLE tShipments
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentR
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentD
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipment_FK_ShipmentsIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipment_FK_ShipmentsIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipment_FK_ShipmentsIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipment_FK_ShipmentsIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentC
GO

if exists(select * from sysobjects where id = object_id('dbo.tShipmentU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tShipmentU
GO

if exists(select * from sysobjects where id = object_id('tShipment') and sysstat & 0xf = 3)
	DROP TABLE tShipment
GO

if exists(select * from sysobjects where id = object_id('dbo.tParcelAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tParcelAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tParcelAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tParcelAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tParcelR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tParcelR
GO

if exists(select * from sysobjects where id = object_id('dbo.tParcelD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tParcelD
GO

if exists(select * from sysobjects where id = object_id('dbo.tParcel_FK_ShipmentIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tParcel_FK_ShipmentIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tParcel_FK_ShipmentIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tParcel_FK_ShipmentIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tParcelC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tParcelC
GO

if exists(select * from sysobjects where id = object_id('dbo.tParcelU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tParcelU
GO

if exists(select * from sysobjects where id = object_id('tParcel') and sysstat & 0xf = 3)
	DROP TABLE tParcel
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

if exists(select * from sysobjects where id = object_id('tPayments') and sysstat & 0xf = 3)
	DROP TABLE tPayments
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentAR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentAR
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentAD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentAD
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentR
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentD
GO

if exists(select * from sysobjects where id = object_id('dbo.tPayment_FK_PaymentsIDR') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPayment_FK_PaymentsIDR
GO

if exists(select * from sysobjects where id = object_id('dbo.tPayment_FK_PaymentsIDD') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPayment_FK_PaymentsIDD
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentC') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentC
GO

if exists(select * from sysobjects where id = object_id('dbo.tPaymentU') and sysstat & 0xf = 4)
	DROP PROCEDURE dbo.tPaymentU
GO

if exists(select * from sysobjects where id = object_id('tPayment') and sysstat & 0xf = 3)
	DROP TABLE tPayment
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

if exists(select * from sysobjects where id = object_id('trnationalDeliveryInstructions') and sysstat & 0xf = 3)
	DROP TABLE trnationalDeliveryInstructions
GO


