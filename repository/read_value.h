#pragma once

#include "automation/error.h"
#include "repository/repository.h"

#include <string>
#include <string_view>

namespace korvex::repository {

/// A column value of the repository through one of the automation conversions. The error of a value that
/// does not convert names the repository's column and `what` the row describes.
template <class Convert>
auto ReadValue(dao::Field& field, Convert convert, std::string_view what) {
    const automation::Variant value = Repository::FieldValue(field);
    try {
        return convert(value);
    } catch (const automation::Error& error) {
        throw automation::Error(error.Number(), std::string(field.Name()) + " of " + std::string(what) +
                                                    ": " + error.Description());
    }
}

}  // namespace korvex::repository
