#include "hosts/python/data_objects.h"
#include "hosts/python/values.h"
#include "objects/find.h"

#include <pybind11/stl.h>
#include <string>
#include <utility>
#include <vector>

namespace korvex::python {

namespace {

objects::Search ReadSearch(const std::vector<std::string>& where, std::vector<std::string> fields,
                           std::string order, bool isDescending, std::optional<std::size_t> limit) {
    objects::Search search{
        .fields = std::move(fields), .order = std::move(order), .isDescending = isDescending, .limit = limit};
    for (const std::string& condition : where)
        search.where.push_back(objects::ReadCondition(condition));
    return search;
}

/// A search that goes on as long as somebody asks.
class StoredObjects {
  public:
    StoredObjects(const Handle& definition, const Handle& connection, const std::vector<std::string>& where,
                  std::vector<std::string> fields, std::string order, bool isDescending,
                  std::optional<std::size_t> limit)
        : m_connection(connection),
          m_found(
              objects::Find(*definition.As<objects::Definition>(), connection.As<ado::Connection>(),
                            ReadSearch(where, std::move(fields), std::move(order), isDescending, limit))) {}

    const std::vector<std::string>& Names() const noexcept { return m_found.Names(); }

    /// Key and values of the next object; None behind the last.
    py::object Next() {
        m_connection.Object();  // refuses another thread
        std::optional<objects::FoundObject> found;
        {
            const py::gil_scoped_release others;
            found = m_found.Next();
        }
        if (!found) return py::none();
        py::tuple values(found->values.size());
        for (std::size_t i = 0; i < found->values.size(); ++i)
            values[i] = ToPython(found->values[i]);
        return py::make_tuple(found->key, values);
    }

  private:
    Handle m_connection;
    objects::FoundObjects m_found;
};

}  // namespace

void AddStoredObjects(py::module_& module) {
    py::class_<StoredObjects>(module, "StoredObjects")
        .def(py::init<const Handle&, const Handle&, const std::vector<std::string>&, std::vector<std::string>,
                      std::string, bool, std::optional<std::size_t>>(),
             py::call_guard<py::gil_scoped_release>())
        .def("names", &StoredObjects::Names)
        .def("next", &StoredObjects::Next);
}

}  // namespace korvex::python
