#pragma once

#include "hosts/cli/model/model.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvex::cli {

/// Members by which two values, or two objects, differ that stand in columns of their own rows.
std::vector<std::string_view> Differences(const ModelValue& before, const ModelValue& now);
std::vector<std::string_view> Differences(const ModelObject& before, const ModelObject& now);

/// What is another in `after` than in `before`, for a person, one a line: definitions, objects, interfaces
/// and values that come, go, get another name or other members. Definitions of `after` without a place are
/// not meant to change; those that do are named with the line.
std::vector<std::string> DescribeChanges(const Model& before, const Model& after);

}  // namespace korvex::cli
