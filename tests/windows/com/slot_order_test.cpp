// Where the slots stand for a client that was compiled from the generated header.

#include <gtest/gtest.h>

#include <cstring>
#include <korvex_com.h>
#include <vector>

namespace korvex::tests {
namespace {

/// Index of a virtual function in its table: this is how the compiler's ABI represents a pointer to one.
template <class Member>
std::size_t SlotOf(Member member) {
    std::size_t representation = 0;
    std::memcpy(&representation, &member, sizeof representation);
    return (representation - 1) / sizeof(void*);
}

std::vector<std::size_t> SlotsBehindDispatch(std::size_t count) {
    std::vector<std::size_t> slots;
    for (std::size_t i = 0; i < count; ++i)
        slots.push_back(7 + i);
    return slots;
}

TEST(SlotOrderTest, IsThePublishedOne) {
    using S = ::_clsCreateDb;
    EXPECT_EQ(
        (std::vector{SlotOf(&S::get_ScriptTypes), SlotOf(&S::DoScript), SlotOf(&S::get_FKPrefix),
                     SlotOf(&S::put_FKPrefix), SlotOf(&S::get_ScriptFilePath), SlotOf(&S::put_ScriptFilePath),
                     SlotOf(&S::DoMSsqlDb), SlotOf(&S::DoOracleDb), SlotOf(&S::DoSybaseDb),
                     SlotOf(&S::CreateRelationship), SlotOf(&S::ShutDown), SlotOf(&S::get_DbSQL),
                     SlotOf(&S::get_DropSQL), SlotOf(&S::get_StoredProcSQL), SlotOf(&S::get_FkConstraintSQL),
                     SlotOf(&S::get_DropFkConstraintSQL), SlotOf(&S::ShowLog), SlotOf(&S::ConnectDB)}),
        SlotsBehindDispatch(18));
    using F = ::_clsField;
    EXPECT_EQ(
        (std::vector{
            SlotOf(&F::get_FieldName),      SlotOf(&F::put_FieldName),    SlotOf(&F::get_DataType),
            SlotOf(&F::put_DataType),       SlotOf(&F::get_IsPrimaryKey), SlotOf(&F::put_IsPrimaryKey),
            SlotOf(&F::get_IsAutoNumber),   SlotOf(&F::put_IsAutoNumber), SlotOf(&F::get_IsForeignKey),
            SlotOf(&F::put_IsForeignKey),   SlotOf(&F::get_FKObjectID),   SlotOf(&F::put_FKObjectID),
            SlotOf(&F::get_MaxLength),      SlotOf(&F::put_MaxLength),    SlotOf(&F::get_ValueID),
            SlotOf(&F::put_ValueID),        SlotOf(&F::get_FKValueID),    SlotOf(&F::put_FKValueID),
            SlotOf(&F::get_TypeSize),       SlotOf(&F::put_TypeSize),     SlotOf(&F::get_nPrimaryKeySeq),
            SlotOf(&F::put_nPrimaryKeySeq), SlotOf(&F::get_DefaultVal),   SlotOf(&F::put_DefaultVal),
            SlotOf(&F::get_IsLongFld),      SlotOf(&F::put_IsLongFld)}),
        SlotsBehindDispatch(26));
    using C = ::_clsCRUD;
    EXPECT_EQ(
        (std::vector{SlotOf(&C::get_LastResult), SlotOf(&C::get_FKPrefix), SlotOf(&C::put_FKPrefix),
                     SlotOf(&C::get_DbConn), SlotOf(&C::put_DbConn), SlotOf(&C::ConnectDB),
                     SlotOf(&C::DisconnectDB), SlotOf(&C::DbDataExists), SlotOf(&C::DbGetField),
                     SlotOf(&C::DbSaveField), SlotOf(&C::DbGetData), SlotOf(&C::DbSaveData),
                     SlotOf(&C::DbUpdateData), SlotOf(&C::DbUpdateDataRetainRoot), SlotOf(&C::DbDeleteData),
                     SlotOf(&C::GetTableName), SlotOf(&C::GetPrimaryKeyFieldName),
                     SlotOf(&C::GetForeignKeyFieldName), SlotOf(&C::OpenRecordset)}),
        SlotsBehindDispatch(19));
    using D = ::QORObject;
    EXPECT_EQ(
        (std::vector{SlotOf(&D::get_Parent), SlotOf(&D::get_Modified), SlotOf(&D::put_Modified),
                     SlotOf(&D::get_StringAttribute), SlotOf(&D::get_LongAttribute),
                     SlotOf(&D::put_LongAttribute), SlotOf(&D::get_BooleanAttribute),
                     SlotOf(&D::get_IntegerAttribute), SlotOf(&D::put_IntegerAttribute),
                     SlotOf(&D::get_Value), SlotOf(&D::put_Value), SlotOf(&D::get_NamedValue),
                     SlotOf(&D::get_ObjectAttribute), SlotOf(&D::putref_DataDef), SlotOf(&D::get_DataDef),
                     SlotOf(&D::AddItem), SlotOf(&D::get_HasAttribute), SlotOf(&D::get_ValueIndex)}),
        SlotsBehindDispatch(18));
}

}  // namespace
}  // namespace korvex::tests
