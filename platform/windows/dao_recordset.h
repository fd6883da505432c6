#pragma once

#include "automation/com/host_object.h"
#include "platform/dao.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace korvex::windows {

class DaoField final : public dao::Field {
  public:
    explicit DaoField(std::shared_ptr<com::HostObject> field);

    std::string_view Name() const override { return m_name; }
    automation::Variant Value() override;
    void Value(const automation::Variant& value) override;

  private:
    std::shared_ptr<com::HostObject> m_field;
    std::string m_name;
};

/// A recordset of the installed DAO engine.
class DaoRecordset final : public dao::Recordset {
  public:
    explicit DaoRecordset(std::shared_ptr<com::HostObject> recordset) : m_recordset(std::move(recordset)) {}
    ~DaoRecordset() override;

    bool Eof() override;
    void MoveNext() override;
    void MoveLast() override;
    dao::Field& Fields(std::string_view name) override;
    void AddNew() override;
    void Edit() override;
    void Update() override;
    void Close() override;

  private:
    std::shared_ptr<com::HostObject> m_recordset;
    std::shared_ptr<com::HostObject> m_fieldCollection;
    std::vector<std::unique_ptr<DaoField>> m_fields;
    bool m_isClosed = false;
};

}  // namespace korvex::windows
