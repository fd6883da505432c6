#pragma once

#include "persistence/plain_object.h"

namespace korvex::persistence {

/// A working data object that only carries a definition: enough for a delete, which finds records by key and
/// asks the object for nothing but its definition and its children. It needs no class of the host. The value
/// definition of a child object serves as the child's definition.
class DefinitionCarrier final : public PlainObject {
  public:
    using PlainObject::DataDef;
    void DataDef(const Ref& definition) override { m_definition = definition; }
    Ref DataDef() override { return m_definition; }
    /// A carrier of the child's definition. MemberNotFound (438) for a name that is no child object;
    /// InvalidProcedureCall (5) for a stored child whose value definition names no table, as what is stored
    /// of it could not be found.
    automation::Variant NamedValue(std::string_view name) override;

  private:
    Ref m_definition;
};

}  // namespace korvex::persistence
