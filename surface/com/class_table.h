#pragma once

#include <windows.h>

#include <span>
#include <string_view>

namespace korvex::com {

/// A class that hosts create.
struct CreatableClass {
    const CLSID& id;
    std::string_view progId;
};

std::span<const CreatableClass> CreatableClasses() noexcept;

/// The class of that identifier, or nullptr.
const CreatableClass* FindClass(REFCLSID id) noexcept;

}  // namespace korvex::com
