#include "hosts/python/data_objects.h"

#include "automation/error.h"
#include "hosts/cli/database_file.h"
#include "hosts/python/host_platform.h"
#include "hosts/python/values.h"
#include "objects/find.h"
#include "objects/json.h"
#include "objects/json_state.h"
#include "objects/json_value.h"
#include "objects/load_definition.h"
#include "platform/stack.h"
#include "repository/repository.h"
#include "surface/target_tables.h"

#include <functional>
#include <memory>
#include <pybind11/stl.h>
#include <string>
#include <utility>
#include <vector>

namespace korvex::python {

using automation::Variant;
using objects::DataObject;
using objects::Definition;

namespace {

Handle LoadDefinition(const std::string& source, const std::string& storageName, const std::string& prefix) {
    const py::gil_scoped_release others;
    repository::Repository repository(HostPlatform());
    repository.OpenRepository(source);
    return Handle(objects::LoadDefinition(repository::Catalog::Read(repository.Open()), storageName, prefix));
}

/// What an object holds, as a dict in the form of its JSON text, with Python's own values.
class Dictionary {
  public:
    py::dict Of(DataObject& object) const {
        if (!m_stack.HasRoom()) objects::FailTooDeep();
        py::dict members;
        for (const auto& value : object.Type().Values()) {
            const auto name = py::str(value->Info().name);
            if (value->Child() == nullptr) {
                if (const Variant held = object.Value(value->Index()); !held.IsEmpty())
                    members[name] = ToPython(held);
            } else if (const auto child = object.ExistingChild(*value)) {
                members[name] = Of(*child);
            }
        }
        AddState(members, object);
        if (object.Type().ElementDefinition() == nullptr) return members;
        py::list items;
        for (const auto& item : object.Items())
            items.append(Of(*item));
        members[Text(objects::ItemsMember)] = items;
        return members;
    }

  private:
    static void AddState(py::dict& members, DataObject& object) {
        py::dict state;
        bool isSet = false;
        for (const auto& one : objects::StatesOf(object.Type())) {
            const auto value = objects::GetState(object, one);
            state[Text(one.name)] = value;
            isSet = isSet || value != 0;
        }
        if (isSet) members[Text(objects::StateMember)] = state;
    }

    const platform::StackGuard m_stack;
};

py::list ValueNames(const Handle& definition) {
    py::list names;
    for (const auto& value : definition.As<Definition>()->Values())
        names.append(py::str(value->Info().name));
    return names;
}

/// The position of an element, counted from the end where it is negative; SubscriptOutOfRange (9).
std::size_t Position(const DataObject& collection, std::int64_t position) {
    const auto count = static_cast<std::int64_t>(collection.Items().size());
    const auto place = position < 0 ? position + count : position;
    if (place < 0 || place >= count)
        throw automation::Error(automation::SubscriptOutOfRange,
                                "The collection " + collection.Type().Name() + " has no element " +
                                    std::to_string(position) + ".");
    return static_cast<std::size_t>(place);
}

void AddObjects(py::module_& module) {
    module.def("new_object", [](const Handle* definition) {
        if (definition == nullptr) return Handle(std::make_shared<DataObject>());
        return Handle(std::make_shared<DataObject>(definition->As<Definition>()));
    });
    module.def("object_from_json", [](const Handle& definition, const std::string& text) {
        objects::UnstoredMembers unstored;
        auto object = objects::FromJson(definition.As<Definition>(), text, &unstored);
        return py::make_tuple(Handle(std::move(object)), unstored);
    });
    module.def("apply_json", [](const Handle& self, const std::string& text) {
        objects::UnstoredMembers unstored;
        objects::ApplyJson(*self.As<DataObject>(), text, &unstored);
        return unstored;
    });
    module.def("json_text", [](py::handle value) {
        std::string text;
        objects::WriteValue(text, ToVariant(value));
        return text;
    });
    module.def("to_json", [](const Handle& self) { return objects::ToJson(*self.As<DataObject>()); });
    module.def("to_dict", [](const Handle& self) { return Dictionary().Of(*self.As<DataObject>()); });
    module.def("definition_of",
               [](const Handle& self) { return ToPython(self.As<DataObject>()->DataDef()); });
    module.def("get_value", [](const Handle& self, const std::string& name) {
        return ToPython(self.As<DataObject>()->Get(name));
    });
    module.def("set_value", [](const Handle& self, const std::string& name, py::handle value) {
        self.As<DataObject>()->Set(name, ToVariant(value));
    });
    module.def("clear_value",
               [](const Handle& self, const std::string& name) { self.As<DataObject>()->Set(name, {}); });
    module.def("add_item", [](const Handle& self) { return ToPython(self.As<DataObject>()->Add()); });
    module.def("count_items", [](const Handle& self) { return self.As<DataObject>()->Items().size(); });
    module.def("get_item", [](const Handle& self, std::int64_t position) {
        const auto collection = self.As<DataObject>();
        return ToPython(collection->Items()[Position(*collection, position)]);
    });
    module.def("remove_item", [](const Handle& self, std::int64_t position) {
        const auto collection = self.As<DataObject>();
        collection->Remove(Position(*collection, position));
    });
}

void AddDefinitions(py::module_& module) {
    module.def("load_definition", LoadDefinition);
    module.def("value_names", ValueNames);
    module.def("definition_name", [](const Handle& self) { return self.As<Definition>()->Name(); });
    module.def("has_value", [](const Handle& definition, const std::string& name) {
        return definition.As<Definition>()->FindValue(name) != nullptr;
    });
}

Handle Connect(const std::string& connectionString) {
    auto connection = HostPlatform().targetProvider->CreateConnection();
    connection->Open(connectionString);
    return Handle(connection);
}

/// Makes the database file where there is none, if the engine takes the definition at all.
Handle ConnectForCreation(const TargetTables& tables, const std::string& connectionString) {
    if (!cli::IsForEmbeddedEngine(connectionString)) return Connect(connectionString);
    tables.ExpectTakenBy("sqlite");
    return Connect(cli::WithCreateMode(connectionString));
}

/// What a change of the tables in a database did: its lines and its notes.
template <auto change>
auto ReportOf(const TargetTables& self, const Handle& connection) {
    TargetReport report = std::invoke(change, self, connection.As<ado::Connection>());
    return std::pair(std::move(report.Lines), std::move(report.Notes));
}

void AddTables(py::module_& module) {
    const auto without_interpreter = py::call_guard<py::gil_scoped_release>();
    module.def("connect", Connect, without_interpreter);
    py::class_<TargetTables>(module, "TargetTables")
        .def(py::init(
                 [](const std::string& source, const std::string& storageName, const std::string& prefix) {
                     return std::make_unique<TargetTables>(HostPlatform(), source, storageName, prefix);
                 }),
             without_interpreter)
        .def("connect", ConnectForCreation, without_interpreter)
        .def("create", ReportOf<&TargetTables::Create>, without_interpreter)
        .def("drop", ReportOf<&TargetTables::Drop>, without_interpreter)
        .def(
            "check",
            [](const TargetTables& self, const Handle& connection) {
                return self.Check(*connection.As<ado::Connection>());
            },
            without_interpreter);
}

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
        return py::make_tuple(found->key, ToPython(found->values));
    }

  private:
    Handle m_connection;
    objects::FoundObjects m_found;
};

void AddStoredObjects(py::module_& module) {
    py::class_<StoredObjects>(module, "StoredObjects")
        .def(py::init<const Handle&, const Handle&, const std::vector<std::string>&, std::vector<std::string>,
                      std::string, bool, std::optional<std::size_t>>(),
             py::call_guard<py::gil_scoped_release>())
        .def("names", &StoredObjects::Names)
        .def("next", &StoredObjects::Next);
}

}  // namespace

void AddDataObjects(py::module_& module) {
    AddDefinitions(module);
    AddObjects(module);
    AddTables(module);
    AddStoredObjects(module);
}

}  // namespace korvex::python
