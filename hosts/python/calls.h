#pragma once

#include "hosts/python/handle.h"

#include <string>

/// Calls by name, as the written classes make them, and what they are written from.
namespace korvex::python {

/// Calls a member. Arguments are the parameters in order, those left out in which the member answers; their
/// values follow the result, then, in a tuple. Other threads run meanwhile.
py::object Invoke(const Handle& self, const std::string& name, automation::InvokeKind kind,
                  const py::args& arguments);

/// The member table of an object's class: name, description, default member and rows.
py::dict Describe(const Handle& self);

/// What a For Each over the object gives, in order.
class Iterator {
  public:
    explicit Iterator(const Handle& self);
    /// The next item; raises StopIteration behind the last.
    py::object Next();

  private:
    Handle m_owner;
    std::unique_ptr<automation::Enumerator> m_items;
};

/// The column names of a recordset.
py::tuple ColumnNames(const Handle& recordset);
/// The current record, and on to the next; None behind the last.
py::object NextRecord(const Handle& recordset);

}  // namespace korvex::python
