#pragma once

#include "platform/ado.h"
#include "platform/native/ado/rows.h"

#include <memory>
#include <span>
#include <string_view>

namespace korvex::native::ado_engine {

class NativeConnection;

/// An ADO recordset. Moves forward only, and is updatable unless it was opened read-only: a keyset or dynamic
/// cursor and pessimistic or batch locks become what the engine has, as providers substitute what they lack.
class NativeRecordset final : public ado::Recordset {
  public:
    ~NativeRecordset() override;

    std::int32_t CursorType() const override { return m_cursorType; }
    void CursorType(std::int32_t type) override;
    std::int32_t LockType() const override { return m_lockType; }
    void LockType(std::int32_t type) override;
    std::int32_t State() const override { return IsOpen() ? ado::adStateOpen : ado::adStateClosed; }
    void Open(std::string_view source, const std::shared_ptr<ado::Connection>& connection,
              std::int32_t cursorType, std::int32_t lockType, std::int32_t options) override;
    bool Eof() override { return Rows().Eof(); }
    void MoveNext() override { Rows().MoveNext(); }
    void AddNew() override { Rows().AddNew(); }
    void Update() override { Rows().Update(); }
    void CancelUpdate() override { Rows().CancelUpdate(); }
    void Close() override;
    std::shared_ptr<ado::Field> Fields(std::string_view name) override;
    std::shared_ptr<ado::Field> Fields(std::int32_t index) override;
    std::int32_t FieldCount() const override {
        return static_cast<std::int32_t>(Rows().Shape().columns.size());
    }
    automation::Variant FieldValue(std::string_view name) override {
        OpenRows& rows = Rows();
        return rows.Value(PositionOf(rows, name));
    }
    automation::Variant FieldValue(std::int32_t index) override {
        OpenRows& rows = Rows();
        return rows.NextValue(Checked(rows, index));
    }
    std::int32_t FieldIndex(std::string_view name) override {
        return static_cast<std::int32_t>(PositionOf(Rows(), name));
    }
    std::shared_ptr<const void> Layout() override { return Rows().Layout(); }

    /// Runs a statement, with these values for its placeholders; gives the number of records that an action
    /// changed.
    std::int64_t Run(std::shared_ptr<NativeConnection> connection, std::string_view text,
                     std::span<const automation::Variant> values = {}, bool isUpdatable = false);

  private:
    bool IsOpen() const noexcept { return m_rows && m_rows->IsOpen(); }
    OpenRows& Rows() const {
        if (!IsOpen()) RaiseClosed();
        return *m_rows;
    }
    [[noreturn]] static void RaiseClosed();
    static std::size_t Checked(OpenRows& rows, std::int32_t index) {
        const auto position = static_cast<std::size_t>(index);
        if (!rows.HasColumn(position)) RaiseNoField(rows, index);
        return position;
    }
    [[noreturn]] static void RaiseNoField(OpenRows& rows, std::int32_t index);
    static std::size_t PositionOf(OpenRows& rows, std::string_view name);
    void RequireClosed() const;

    std::int32_t m_cursorType = ado::adOpenForwardOnly;
    std::int32_t m_lockType = ado::adLockReadOnly;
    std::shared_ptr<OpenRows> m_rows;  ///< null while closed; fields that hosts hold share it
};

}  // namespace korvex::native::ado_engine
