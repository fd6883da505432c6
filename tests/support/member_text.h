#pragma once

#include "automation/dispatch.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Interfaces as text, so that tests compare whole ones. Each member has a line, and one more for its help
/// text if it has any:
///
///     2 FKPrefix let (newValue string by reference) none
///         "Allows an implementation team ..."
///
/// The number is the dispatch identifier: the slot of the first member of that name, 0 for the default
/// member.
namespace korvex::tests {

/// "storageName string optional by reference"
inline std::string ParameterText(std::string_view name, std::string_view type, bool isOptional,
                                 bool isReference) {
    return std::string(name).append(" ").append(type) + (isOptional ? " optional" : "") +
           (isReference ? " by reference" : " by value");
}

inline std::string MemberText(std::ptrdiff_t id, std::string_view name, automation::InvokeKind kind,
                              const std::vector<std::string>& parameters, std::string_view result,
                              std::string_view description) {
    using automation::InvokeKind;
    static const std::map<InvokeKind, std::string> kinds = {{InvokeKind::Method, " method ("},
                                                            {InvokeKind::PropertyGet, " get ("},
                                                            {InvokeKind::PropertyLet, " let ("},
                                                            {InvokeKind::PropertySet, " set ("}};
    std::string text = (std::to_string(id) + " ").append(name) + kinds.at(kind);
    for (const std::string& parameter : parameters)
        text += (&parameter == parameters.data() ? "" : ", ") + parameter;
    text.append(") ").append(result) += "\n";
    return description.empty() ? text : text.append("    \"").append(description) + "\"\n";
}

/// The interface that a member table describes.
inline std::string MembersText(const automation::ClassInfo& info) {
    using automation::VarType;
    const auto typeName = [](VarType type, std::string_view interfaceName) {
        static const std::map<VarType, std::string> names = {
            {VarType::Integer, "integer"}, {VarType::Long, "long"},       {VarType::String, "string"},
            {VarType::Boolean, "boolean"}, {VarType::Variant, "variant"}, {VarType::Void, "none"},
            {VarType::Object, "object"},
        };
        const bool isPublished = interfaceName == "QORObject" || interfaceName == "dbResults";
        return isPublished ? std::string(interfaceName) : names.at(type);
    };
    std::string text;
    for (const automation::Member& member : info.members) {
        std::vector<std::string> parameters;
        for (const automation::Parameter& parameter : member.parameters) {
            parameters.push_back(
                ParameterText(parameter.name, typeName(parameter.type, parameter.interfaceName),
                              parameter.optional, parameter.passing == automation::Passing::ByReference));
        }
        const auto first = std::ranges::find(info.members, member.name, &automation::Member::name);
        const bool isDefault = member.name == info.defaultMember;
        text += MemberText(isDefault ? 0 : first - info.members.begin() + 1, member.name, member.kind,
                           parameters, typeName(member.result, member.resultTypeName), member.description);
    }
    return text;
}

}  // namespace korvex::tests
