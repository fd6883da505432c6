#pragma once

#include "automation/dispatch.h"
#include "objects/definition.h"

#include <map>
#include <memory>
#include <string>

namespace korvex::test {

/// Gives scripts the data objects that they cannot implement themselves: QORObjects, their definition read
/// from a repository file.
///
///     Create(repository, storage)        an empty object
///     FromJson(repository, storage, text)
///     ApplyJson object, text             puts values into an object
///     ToJson(object)
///     WorkingObjects                     how many objects CreateDataObject has made
class DataObjects final : public automation::TableObject {
  public:
    const automation::ClassInfo& Class() const noexcept override;

    const std::shared_ptr<objects::Definition>& DefinitionOf(const std::string& repository,
                                                             const std::string& storage);

  private:
    std::map<std::pair<std::string, std::string>, std::shared_ptr<objects::Definition>> m_definitions;
};

/// An object without a definition, as the library of a host's data objects makes them.
std::shared_ptr<automation::TableObject> CreateDataObject();

}  // namespace korvex::test
