#include "hosts/python/calls.h"

#include "hosts/python/values.h"
#include "platform/ado.h"

#include <utility>
#include <vector>

namespace korvex::python {

using automation::InvokeKind;
using automation::Member;
using automation::Variant;
using automation::VarType;

namespace {

bool IsOutput(const Member* member, std::size_t position) {
    return member != nullptr && position < member->parameters.size() &&
           (member->outputs >> position & 1U) != 0;
}

std::vector<Variant> ReadArguments(const Member* member, const py::args& arguments) {
    std::vector<Variant> values;
    for (const py::handle argument : arguments) {
        while (IsOutput(member, values.size()))
            values.emplace_back();
        const bool isDeclared = member != nullptr && values.size() < member->parameters.size();
        values.push_back(
            ToVariant(argument, isDeclared ? member->parameters[values.size()].type : VarType::Variant));
    }
    while (IsOutput(member, values.size()))
        values.emplace_back();
    return values;
}

}  // namespace

py::object Invoke(const Handle& self, const std::string& name, InvokeKind kind, const py::args& arguments) {
    const automation::ObjectRef& object = self.Object();
    const auto* table = dynamic_cast<const automation::TableObject*>(object.get());
    const Member* member = table != nullptr ? FindMember(table->Class(), name, kind) : nullptr;
    std::vector<Variant> values = ReadArguments(member, arguments);
    Variant result;
    {
        const py::gil_scoped_release others;
        result = object->Invoke(name, kind, values);
    }
    if (member == nullptr || member->outputs == 0) return ToPython(result);
    py::list results;
    if (member->result != VarType::Void) results.append(ToPython(result));
    for (std::size_t i = 0; i < values.size(); ++i)
        if (IsOutput(member, i)) results.append(ToPython(values[i]));
    return py::tuple(results);
}

py::dict Describe(const Handle& self) {
    const automation::ClassInfo& info = self.As<automation::TableObject>()->Class();
    py::list members;
    for (const Member& member : info.members) {
        py::list parameters;
        for (std::size_t i = 0; i < member.parameters.size(); ++i) {
            const automation::Parameter& parameter = member.parameters[i];
            parameters.append(py::dict(py::arg("name") = Text(parameter.name),
                                       py::arg("type") = static_cast<int>(parameter.type),
                                       py::arg("optional") = parameter.optional,
                                       py::arg("interface") = Text(parameter.interfaceName),
                                       py::arg("output") = IsOutput(&member, i)));
        }
        members.append(
            py::dict(py::arg("name") = Text(member.name), py::arg("kind") = static_cast<int>(member.kind),
                     py::arg("parameters") = parameters, py::arg("result") = static_cast<int>(member.result),
                     py::arg("result_name") = Text(member.resultTypeName),
                     py::arg("description") = Text(member.description)));
    }
    return py::dict(py::arg("name") = Text(info.name), py::arg("description") = Text(info.description),
                    py::arg("default") = Text(info.defaultMember), py::arg("members") = members);
}

Iterator::Iterator(const Handle& self) : m_owner(self), m_items(self.Object()->NewEnum()) {}

py::object Iterator::Next() {
    m_owner.Object();  // refuses another thread
    auto item = m_items->Next();
    if (!item) throw py::stop_iteration();
    return ToPython(*item);
}

py::tuple ColumnNames(const Handle& recordset) {
    const auto records = recordset.As<ado::Recordset>();
    py::list names;
    for (std::int32_t i = 0; i < records->FieldCount(); ++i)
        names.append(py::cast(records->Fields(i)->Name()));
    return py::tuple(names);
}

py::object NextRecord(const Handle& recordset) {
    const auto records = recordset.As<ado::Recordset>();
    std::vector<Variant> values;
    bool isAtEnd = false;
    {
        const py::gil_scoped_release others;
        isAtEnd = records->Eof();
        for (std::int32_t i = 0; !isAtEnd && i < records->FieldCount(); ++i)
            values.push_back(records->Fields(i)->Value());
        if (!isAtEnd) records->MoveNext();
    }
    if (isAtEnd) return py::none();
    return ToPython(values);
}

}  // namespace korvex::python
