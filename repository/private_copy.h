#pragma once

#include "repository/repository.h"

#include <string_view>

namespace korvex::repository {

/// A copy of an open repository that nobody else sees, its keys brought up to date for that storage name (for
/// all definitions when it is empty) and prefix. `source` is only read, each of its tables once. Engine
/// errors, and those of CreateRelationship, reach the caller; so
/// does that of an engine that makes no private databases.
Repository PrivateRelatedCopy(Repository& source, std::string_view storageName, std::string_view sFKPrefix);

}  // namespace korvex::repository
