#include "hosts/cli/data/watched_provider.h"

#include <utility>

namespace korvex::cli {

namespace {

using automation::Error;
using automation::Variant;

/// Runs `action`; an error is remembered on its way.
template <class Action>
decltype(auto) Watch(FailureLog& log, Action&& action) {
    try {
        return action();
    } catch (const Error& error) {
        log.Note(error);
        throw;
    }
}

class WatchedField final : public ado::Field {
  public:
    WatchedField(std::shared_ptr<ado::Field> field, std::shared_ptr<FailureLog> log)
        : m_field(std::move(field)), m_log(std::move(log)) {}

    std::string Name() const override { return m_field->Name(); }
    Variant Value() override {
        return Watch(*m_log, [this] { return m_field->Value(); });
    }
    void Value(const Variant& value) override {
        Watch(*m_log, [&] { m_field->Value(value); });
    }
    std::int32_t Type() const override { return m_field->Type(); }
    std::int32_t DefinedSize() const override { return m_field->DefinedSize(); }
    std::int32_t ActualSize() override { return m_field->ActualSize(); }
    std::int32_t Attributes() const override { return m_field->Attributes(); }
    Variant GetChunk(std::int32_t length) override { return m_field->GetChunk(length); }
    void AppendChunk(const Variant& data) override { m_field->AppendChunk(data); }
    bool TakesBlankText() const override { return m_field->TakesBlankText(); }

  private:
    std::shared_ptr<ado::Field> m_field;
    std::shared_ptr<FailureLog> m_log;
};

class WatchedRecordset final : public ado::Recordset {
  public:
    WatchedRecordset(std::shared_ptr<ado::Recordset> records, std::shared_ptr<FailureLog> log)
        : m_records(std::move(records)), m_log(std::move(log)) {}

    std::int32_t CursorType() const override { return m_records->CursorType(); }
    void CursorType(std::int32_t type) override { m_records->CursorType(type); }
    std::int32_t LockType() const override { return m_records->LockType(); }
    void LockType(std::int32_t type) override { m_records->LockType(type); }
    std::int32_t State() const override { return m_records->State(); }
    void Open(std::string_view source, const std::shared_ptr<ado::Connection>& connection,
              std::int32_t cursorType, std::int32_t lockType, std::int32_t options) override {
        try {
            m_records->Open(source, connection, cursorType, lockType, options);
        } catch (const Error& error) {
            m_log->Opening(error);
            throw;
        }
    }
    bool Eof() override { return m_records->Eof(); }
    void MoveNext() override { m_records->MoveNext(); }
    void AddNew() override { m_records->AddNew(); }
    void Update() override {
        Watch(*m_log, [this] { m_records->Update(); });
    }
    void CancelUpdate() override { m_records->CancelUpdate(); }
    void Close() override { m_records->Close(); }
    std::shared_ptr<ado::Field> Fields(std::string_view name) override {
        return Watch(*m_log, [&] { return Watched(m_records->Fields(name)); });
    }
    std::shared_ptr<ado::Field> Fields(std::int32_t index) override {
        return Watch(*m_log, [&] { return Watched(m_records->Fields(index)); });
    }
    std::int32_t FieldCount() const override { return m_records->FieldCount(); }

  private:
    std::shared_ptr<ado::Field> Watched(std::shared_ptr<ado::Field> field) const {
        return std::make_shared<WatchedField>(std::move(field), m_log);
    }

    std::shared_ptr<ado::Recordset> m_records;
    std::shared_ptr<FailureLog> m_log;
};

class WatchedProvider final : public ado::Provider {
  public:
    WatchedProvider(std::shared_ptr<ado::Provider> provider, std::shared_ptr<FailureLog> log)
        : m_provider(std::move(provider)), m_log(std::move(log)) {}

    std::shared_ptr<ado::Connection> CreateConnection() override { return m_provider->CreateConnection(); }
    std::shared_ptr<ado::Recordset> CreateRecordset() override {
        return std::make_shared<WatchedRecordset>(m_provider->CreateRecordset(), m_log);
    }

  private:
    std::shared_ptr<ado::Provider> m_provider;
    std::shared_ptr<FailureLog> m_log;
};

}  // namespace

std::shared_ptr<ado::Provider> WatchProvider(std::shared_ptr<ado::Provider> provider,
                                             std::shared_ptr<FailureLog> log) {
    return std::make_shared<WatchedProvider>(std::move(provider), std::move(log));
}

}  // namespace korvex::cli
