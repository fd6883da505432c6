#include "platform/native/ado/recordset.h"

#include "platform/native/ado/connection.h"
#include "platform/native/ado/field.h"

#include <optional>
#include <string>
#include <typeinfo>
#include <utility>

namespace korvex::native::ado_engine {

namespace {

using automation::Error;

void RequireBetween(std::int32_t value, std::int32_t lowest, std::int32_t highest,
                    std::string_view property) {
    if (value >= lowest && value <= highest) return;
    throw Error(ado::adErrInvalidArgument,
                std::string(property) + " cannot be " + std::to_string(value) + ".");
}

}  // namespace

/// Fields that a host still holds do not keep the statement open.
NativeRecordset::~NativeRecordset() {
    if (m_rows) m_rows->Close();
}

void NativeRecordset::CursorType(std::int32_t type) {
    RequireClosed();
    RequireBetween(type, ado::adOpenForwardOnly, ado::adOpenStatic, "CursorType");
    m_cursorType = type;
}

void NativeRecordset::LockType(std::int32_t type) {
    RequireClosed();
    RequireBetween(type, ado::adLockReadOnly, ado::adLockBatchOptimistic, "LockType");
    m_lockType = type;
}

void NativeRecordset::Open(std::string_view source, const std::shared_ptr<ado::Connection>& connection,
                           std::int32_t cursorType, std::int32_t lockType, std::int32_t /*options*/) {
    RequireClosed();
    const ado::Connection* given = connection.get();
    if (given == nullptr || typeid(*given) != typeid(NativeConnection)) {
        throw Error(ado::adErrInvalidArgument, "A recordset opens on a connection of the same provider.");
    }
    auto native = std::static_pointer_cast<NativeConnection>(connection);
    if (cursorType != ado::adUnspecified) CursorType(cursorType);
    if (lockType != ado::adUnspecified) LockType(lockType);
    Run(std::move(native), source, {}, m_lockType != ado::adLockReadOnly);
}

std::int64_t NativeRecordset::Run(std::shared_ptr<NativeConnection> connection, std::string_view text,
                                  std::span<const automation::Variant> values, bool isUpdatable) {
    auto rows = WithErrors<AdoError>(
        text, [&] { return std::make_shared<OpenRows>(std::move(connection), text, isUpdatable, values); });
    const std::int64_t affected = rows->AffectedRows();
    if (rows->HasColumns()) m_rows = std::move(rows);
    return affected;
}

void NativeRecordset::Close() {
    if (Rows().IsEditing()) {
        throw Error(ado::adErrIllegalOperation,
                    "The recordset cannot be closed while a record is being added or changed: call Update or "
                    "CancelUpdate first.");
    }
    m_rows->Close();
    m_rows.reset();
}

std::size_t NativeRecordset::PositionOf(OpenRows& rows, std::string_view name) {
    if (const std::optional<std::size_t> column = rows.Find(name)) return *column;
    throw Error(ado::adErrItemNotFound, rows.Shape().DescribeMissing(name) + sql::BehindMessage(rows.Text()));
}

std::shared_ptr<ado::Field> NativeRecordset::Fields(std::string_view name) {
    OpenRows& rows = Rows();
    return {m_rows, &rows.Field(PositionOf(rows, name))};
}

void NativeRecordset::RaiseNoField(OpenRows& rows, std::int32_t index) {
    throw Error(ado::adErrItemNotFound, "The recordset has no field number " + std::to_string(index) +
                                            sql::BehindMessage(rows.Text()));
}

std::shared_ptr<ado::Field> NativeRecordset::Fields(std::int32_t index) {
    OpenRows& rows = Rows();
    return {m_rows, &rows.Field(Checked(rows, index))};
}

void NativeRecordset::RaiseClosed() { throw Error(ado::adErrObjectClosed, "The recordset is not open."); }

void NativeRecordset::RequireClosed() const {
    if (IsOpen()) throw Error(ado::adErrObjectOpen, "The recordset is open already.");
}

}  // namespace korvex::native::ado_engine
