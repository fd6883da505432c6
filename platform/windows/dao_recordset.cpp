#include "platform/windows/dao_recordset.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/text.h"

namespace korvex::windows {

using automation::Call;
using automation::Get;
using automation::Variant;
using com::AsHost;

DaoField::DaoField(std::shared_ptr<com::HostObject> field)
    : m_field(std::move(field)), m_name(automation::ToString(Get(*m_field, "Name"))) {}

Variant DaoField::Value() { return Get(*m_field, "Value"); }
void DaoField::Value(const Variant& value) { automation::Let(*m_field, "Value", value); }

DaoRecordset::~DaoRecordset() {
    if (m_isClosed) return;
    try {
        Close();
    } catch (const std::exception&) {
        // The engine closes what is left open when the last reference goes.
    }
}

bool DaoRecordset::Eof() { return automation::ToBoolean(Get(*m_recordset, "EOF")); }
void DaoRecordset::MoveNext() { Call(*m_recordset, "MoveNext"); }
void DaoRecordset::MoveLast() { Call(*m_recordset, "MoveLast"); }

dao::Field& DaoRecordset::Fields(std::string_view name) {
    for (const auto& field : m_fields) {
        if (automation::EqualsIgnoreCase(field->Name(), name)) return *field;
    }
    if (!m_fieldCollection) m_fieldCollection = AsHost(Get(*m_recordset, "Fields"));
    m_fields.push_back(std::make_unique<DaoField>(AsHost(Call(*m_fieldCollection, "Item", name))));
    return *m_fields.back();
}

void DaoRecordset::AddNew() { Call(*m_recordset, "AddNew"); }
void DaoRecordset::Edit() { Call(*m_recordset, "Edit"); }
void DaoRecordset::Update() { Call(*m_recordset, "Update"); }

void DaoRecordset::Close() {
    m_isClosed = true;
    Call(*m_recordset, "Close");
}

}  // namespace korvex::windows
