#pragma once

#include "persistence/qor_object.h"
#include "platform/ado.h"

#include <cstdint>
#include <memory>
#include <string>

namespace korvex::persistence {

/// The public members of clsCRUD that its own steps call. The calls reach the instance that the steps serve,
/// so a host's class that derives from it sees them; each resets LastResult as a call from outside does.
class PublicMembers {
  public:
    virtual automation::Variant DisconnectDB() = 0;
    virtual std::string GetTableName(const QORObject::Ref& coDataDef) = 0;
    virtual std::string GetPrimaryKeyFieldName(const QORObject::Ref& coDataDef) = 0;
    virtual std::string GetForeignKeyFieldName(const QORObject::Ref& coDataDef) = 0;
    virtual std::shared_ptr<ado::Recordset> OpenRecordset(const std::string& sSQL) = 0;
    virtual std::int32_t DbGetData(const QORObject::Ref& coData, const automation::Variant& lKey,
                                   const std::string& sKeyFieldName) = 0;
    virtual std::int32_t DbDeleteData(const QORObject::Ref& coData, const automation::Variant& lKey,
                                      const std::string& sSelKey) = 0;

  protected:
    ~PublicMembers() = default;
};

}  // namespace korvex::persistence
