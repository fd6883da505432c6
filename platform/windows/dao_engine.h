#pragma once

#include "platform/dao.h"

#include <memory>

namespace korvex::windows {

/// The installed DAO engine, created at the first use: DAO.DBEngine.36, else a newer one. Where there is
/// none, that use raises CannotCreateObject (429) and tells what to install. One engine serves a thread.
std::shared_ptr<dao::DBEngine> DaoEngine();

}  // namespace korvex::windows
