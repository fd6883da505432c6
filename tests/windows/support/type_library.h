#pragma once

#include "automation/com/com_ptr.h"
#include "automation/dispatch.h"

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <vector>

/// Type information as lines of text, so that tests compare whole interfaces.
namespace korvex::tests {

/// The members of a dual interface in slot order, one line each:
/// "2 DoScript method (sID string by reference, storageName string optional by reference) none"; the number
/// is the dispatch identifier. Raises std::runtime_error when a member does not stand in the slot that its
/// place says.
std::vector<std::string> SignaturesOf(ITypeInfo* interfaceType);

/// The same lines from a member table.
std::vector<std::string> SignaturesOf(const automation::ClassInfo& info);

/// The help texts of the members, in the same order.
std::vector<std::string> DescriptionsOf(ITypeInfo* interfaceType);
std::vector<std::string> DescriptionsOf(const automation::ClassInfo& info);

/// The view of a dual interface in which results are parameters and members have slots.
com::ComPtr<ITypeInfo> SlotView(ITypeInfo* type);

/// Name and help text of a type, or of one of its members.
struct Documentation {
    std::string name;
    std::string help;
};
Documentation DocumentationOf(ITypeInfo* type, MEMBERID id = MEMBERID_NIL);

}  // namespace korvex::tests
