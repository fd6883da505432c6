#pragma once

#include "automation/com/com_ptr.h"
#include "support/member_text.h"

#include <oaidl.h>
#include <windows.h>

#include <string>

/// Type information as lines of text, so that tests compare whole interfaces.
namespace korvex::tests {

/// What MembersText() tells of a member table, of a dual interface, whose enumerator is in no table. Raises
/// std::runtime_error when a member does not stand in the slot that its place says.
std::string MembersText(ITypeInfo* interfaceType);

/// The view of a dual interface in which results are parameters and members have slots.
com::ComPtr<ITypeInfo> SlotView(ITypeInfo* type);

/// Name and help text of a type, or of one of its members.
struct Documentation {
    std::string name;
    std::string help;
};
Documentation DocumentationOf(ITypeInfo* type, MEMBERID id = MEMBERID_NIL);

}  // namespace korvex::tests
