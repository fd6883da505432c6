#pragma once

#include "automation/dispatch.h"

#include <windows.h>

#include <span>
#include <string_view>

namespace korvex::test {

/// A class that this server creates.
struct ServerClass {
    CLSID id;
    std::string_view progId;
    std::shared_ptr<automation::TableObject> (*create)();
};

std::span<const ServerClass> ServerClasses() noexcept;

/// Enters the classes below HKEY_CLASSES_ROOT, or takes them out again.
HRESULT RegisterServer();
HRESULT UnregisterServer();

}  // namespace korvex::test
