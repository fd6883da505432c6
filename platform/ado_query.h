#pragma once

#include "platform/ado.h"

#include <memory>
#include <span>
#include <string_view>

namespace korvex::ado {

/// What a connection may give beside ADO's own members: queries whose values never become part of the text.
class BoundQueries {
  public:
    virtual ~BoundQueries() = default;
    /// Runs a query with a "?" for each value, to which it is bound, and gives its rows for reading.
    virtual std::shared_ptr<Recordset> Query(std::string_view text,
                                             std::span<const automation::Variant> values) = 0;
};

}  // namespace korvex::ado
