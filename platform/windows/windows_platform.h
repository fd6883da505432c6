#pragma once

#include "platform/ado.h"
#include "platform/dao.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <memory>

namespace korvex::windows {

/// The installed DAO engine, created at the first use: DAO.DBEngine.36, else a newer one. Where there is
/// none, that use raises CannotCreateObject (429) and tells what to install. One engine serves a thread.
std::shared_ptr<dao::DBEngine> DaoEngine();
/// ADODB.Connection and ADODB.Recordset. Where ADO is not registered, creating one raises CannotCreateObject
/// (429) and tells what to do.
std::shared_ptr<ado::Provider> AdoProvider();
/// Message boxes and notepad.exe.
std::shared_ptr<platform::Desktop> WindowsDesktop();
/// Text files in the ANSI code page of the system.
std::shared_ptr<platform::Files> WindowsFiles();

}  // namespace korvex::windows
