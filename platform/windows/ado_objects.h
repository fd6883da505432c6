#pragma once

#include "automation/com/com_error.h"
#include "automation/com/host_object.h"
#include "automation/convert.h"
#include "platform/ado.h"

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace korvex::windows {

/// An ADO object called by member name. Its failures carry HRESULTs, as ADO's numbers are.
class AdoObject : public com::HostBacked {
  public:
    explicit AdoObject(std::shared_ptr<com::HostObject> object) : m_object(std::move(object)) {}

    IDispatch* HostDispatch() const noexcept override { return m_object->HostDispatch(); }

  private:
    template <class Question>
    static auto Asked(Question&& question) {
        try {
            return question();
        } catch (const automation::Error& error) {
            throw automation::Error(com::ResultOf(error.Number()), error.Description(), error.Source());
        }
    }

  protected:
    template <class... Args>
    automation::Variant Call(std::string_view name, Args&&... args) const {
        return Asked([&] { return automation::Call(*m_object, name, std::forward<Args>(args)...); });
    }
    automation::Variant Get(std::string_view name) const {
        return Asked([&] { return automation::Get(*m_object, name); });
    }
    std::int32_t GetLong(std::string_view name) const { return automation::ToLong(Get(name)); }
    /// A call in which argument `i` is the engine's to fill.
    automation::Variant CallWithResult(std::string_view name, std::span<automation::Variant> arguments,
                                       std::size_t i) const {
        return Asked(
            [&] { return m_object->Invoke(name, automation::InvokeKind::Method, arguments, 1u << i); });
    }
    void Let(std::string_view name, const automation::Variant& value) {
        Asked([&] { automation::Let(*m_object, name, value); });
    }

  private:
    std::shared_ptr<com::HostObject> m_object;
};

class AdoField final : public ado::Field, public AdoObject {
  public:
    using AdoObject::AdoObject;

    std::string Name() const override { return automation::ToString(Get("Name")); }
    automation::Variant Value() override { return Get("Value"); }
    void Value(const automation::Variant& value) override { Let("Value", value); }
    std::int32_t Type() const override { return GetLong("Type"); }
    std::int32_t DefinedSize() const override { return GetLong("DefinedSize"); }
    std::int32_t ActualSize() override { return GetLong("ActualSize"); }
    std::int32_t Attributes() const override { return GetLong("Attributes"); }
    automation::Variant GetChunk(std::int32_t length) override { return Call("GetChunk", length); }
    void AppendChunk(const automation::Variant& data) override { Call("AppendChunk", data); }
};

/// ADO's Fields collection.
class AdoFields : public AdoObject {
  public:
    using AdoObject::AdoObject;

    std::shared_ptr<AdoField> Item(const automation::Variant& index) const {
        return std::make_shared<AdoField>(com::AsHost(Call("Item", index)));
    }
    std::int32_t Count() const { return GetLong("Count"); }
};

/// A recordset of the installed ADO. Hosts may hold the same one: it closes when the last reference goes.
class AdoRecordset final : public ado::Recordset, public AdoObject {
  public:
    using AdoObject::AdoObject;

    std::int32_t CursorType() const override { return GetLong("CursorType"); }
    void CursorType(std::int32_t type) override { Let("CursorType", type); }
    std::int32_t LockType() const override { return GetLong("LockType"); }
    void LockType(std::int32_t type) override { Let("LockType", type); }
    std::int32_t State() const override { return GetLong("State"); }
    void Open(std::string_view source, const std::shared_ptr<ado::Connection>& connection,
              std::int32_t cursorType, std::int32_t lockType, std::int32_t options) override {
        m_fields.clear();
        Call("Open", source, connection, cursorType, lockType, options);
    }
    bool Eof() override { return automation::ToBoolean(Get("EOF")); }
    void MoveNext() override { Call("MoveNext"); }
    void AddNew() override { Call("AddNew"); }
    void Update() override { Call("Update"); }
    void CancelUpdate() override { Call("CancelUpdate"); }
    void Close() override {
        m_fields.clear();
        Call("Close");
    }
    std::shared_ptr<ado::Field> Fields(std::string_view name) override;
    std::shared_ptr<ado::Field> Fields(std::int32_t index) override { return FieldList().Item(index); }
    std::int32_t FieldCount() const override { return FieldList().Count(); }

  private:
    AdoFields FieldList() const { return AdoFields(com::AsHost(Get("Fields"))); }

    std::vector<std::pair<std::string, std::shared_ptr<AdoField>>> m_fields;  ///< by upper-cased name
};

class AdoConnection final : public ado::Connection, public AdoObject {
  public:
    using AdoObject::AdoObject;

    void Open(std::string_view connectionString, std::string_view user, std::string_view password,
              std::int32_t options) override {
        Call("Open", connectionString, user, password, options);
    }
    void Close() override { Call("Close"); }
    std::shared_ptr<ado::Recordset> Execute(std::string_view text, std::int32_t options,
                                            std::int32_t* recordsAffected) override;
    std::int32_t State() const override { return GetLong("State"); }
    std::int32_t BeginTrans() override { return automation::ToLong(Call("BeginTrans")); }
    void CommitTrans() override { Call("CommitTrans"); }
    void RollbackTrans() override { Call("RollbackTrans"); }
};

}  // namespace korvex::windows
