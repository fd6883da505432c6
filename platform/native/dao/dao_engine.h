#pragma once

#include "platform/dao.h"
#include "platform/native/sql/session.h"

#include <memory>
#include <string_view>

/// The repository engine in the shape of DAO, over the SQL layer.
namespace korvex::native::dao_engine {

/// The engine of the native build. Every engine call of its databases passes `seam`, if any.
std::shared_ptr<dao::DBEngine> CreateDaoEngine(std::shared_ptr<sql::Seam> seam);

/// The database on a session.
std::unique_ptr<dao::Database> DatabaseOn(std::unique_ptr<sql::Session> session, bool readOnly = false);
/// The database behind an ODBC connection string.
std::unique_ptr<dao::Database> OdbcDatabase(std::string_view connect, bool readOnly,
                                            std::shared_ptr<sql::Seam> seam);

}  // namespace korvex::native::dao_engine
