#include "objects/find.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/nearest_name.h"
#include "automation/text.h"
#include "objects/json_value.h"
#include "platform/ado_query.h"
#include "scriptgen/migration/live_tables.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <utility>

namespace korvex::objects {

using automation::Error;
using automation::Quoted;
using automation::Variant;
using automation::VarType;

namespace {

struct Operator {
    std::string_view text;
    Comparison comparison;
};

/// Those that begin alike stand with the longer one first.
constexpr std::array Signs{
    Operator{"<>", Comparison::NotEqual},
    Operator{"<=", Comparison::LessOrEqual},
    Operator{">=", Comparison::GreaterOrEqual},
    Operator{"=", Comparison::Equal},
    Operator{"<", Comparison::Less},
    Operator{">", Comparison::Greater},
};
constexpr std::array Words{
    Operator{" is not null", Comparison::IsNotNull},
    Operator{" is null", Comparison::IsNull},
    Operator{" like ", Comparison::Like},
};

/// A stored value, and the child objects on the way to it.
struct Place {
    std::vector<const ValueDefinition*> children;
    const ValueDefinition* value = nullptr;
    std::string name;
};

std::string ForeignKeyOf(Definition& definition) {
    const auto keys = definition.ObjectAttribute(attForeignKeys)->NewEnum();
    const std::optional<Variant> key = keys->Next();
    if (!key) return {};
    return std::static_pointer_cast<QORObject>(*key->If<automation::ObjectRef>())
        ->StringAttribute(attForeignKeyField);
}

const ValueDefinition& KnownValue(const Definition& definition, std::string_view name, std::string_view way) {
    if (const ValueDefinition* value = definition.FindValue(name)) return *value;
    if (const auto& element = definition.ElementDefinition(); element && element->FindValue(name)) {
        throw Error(automation::InvalidProcedureCall,
                    Quoted(way) + " is a value of elements, which cannot be asked for.");
    }
    std::vector<std::string_view> names;
    for (const auto& value : definition.Values())
        names.emplace_back(value->Info().name);
    throw Error(automation::MemberNotFound, "The object " + Quoted(definition.Name()) + " has no value " +
                                                Quoted(name) + automation::DidYouMean(name, names) + " (" +
                                                std::string(way) + ")");
}

Place FindPlace(const Definition& definition, std::string_view way) {
    Place place;
    const Definition* object = &definition;
    for (std::string_view rest = way;;) {
        // A name may itself hold a point.
        if (object->FindValue(rest) == nullptr) {
            const std::string_view child = rest.substr(0, rest.find('.'));
            const ValueDefinition& value = KnownValue(*object, child, way);
            if (child.size() < rest.size() && value.Child() != nullptr) {
                place.children.push_back(&value);
                object = value.Child().get();
                rest.remove_prefix(child.size() + 1);
                continue;
            }
        }
        place.value = &KnownValue(*object, rest, way);
        break;
    }
    place.name = way;
    const bool isStored = place.value->Info().isIncluded && !place.value->Info().column.empty();
    if (isStored && place.value->Child() == nullptr) return place;
    throw Error(automation::InvalidProcedureCall,
                Quoted(way) + (place.value->Child() != nullptr ? " is an object: name one of its values."
                                                               : " is not stored."));
}

VarType TypeOf(const Place& place) { return KeptType(place.value->Info().dataType); }

/// An operand in the type of its value.
Variant OperandOf(const Condition& condition, const Place& place) {
    const VarType type = TypeOf(place);
    std::string text = std::string(automation::Trim(condition.operand));
    const bool isLiteral = type != VarType::String && type != VarType::Date && nlohmann::json::accept(text);
    if (!isLiteral) {
        text.clear();
        WriteText(text, condition.operand);
    }
    const JsonDocument document(text);
    if (document.Root().kind == JsonDocument::Kind::Null) {
        throw Error(automation::TypeMismatch, place.name + ": use \"is null\" to find what has no value.");
    }
    try {
        return ReadValue(document, document.Root(), place.value->Info().dataType);
    } catch (const Error& error) {
        throw Error(error.Number(),
                    place.name + ": " + error.Description() + ", not " + Quoted(condition.operand));
    }
}

/// Puts a statement together.
class Composer {
  public:
    explicit Composer(Definition& definition) : m_definition(definition) {
        m_table = definition.StringAttribute(attTableName);
        const ValueDefinition* key = definition.KeyValue();
        if (m_table.empty() || key == nullptr)
            throw Error(automation::InvalidProcedureCall,
                        "The object " + Quoted(definition.Name()) + " has no table of its own.");
        m_key = key->Info().column;
    }

    std::string Compose(const Search& search, std::vector<std::string>& names, std::vector<VarType>& types) {
        std::string columns = "r." + m_key;
        for (const std::string& field : FieldsOf(search)) {
            const Place place = FindPlace(m_definition, field);
            columns += ", " + Joined(place) + "." + place.value->Info().column;
            names.push_back(place.name);
            types.push_back(TypeOf(place));
        }
        const std::string order = Order(search);
        std::string where;
        for (const Condition& condition : search.where)
            where += (where.empty() ? " where " : " and ") + ConditionText(condition);
        return "select " + columns + " from " + m_table + " r" + m_joins + where + order;
    }

    const std::vector<Variant>& Values() const noexcept { return m_values; }

  private:
    std::vector<std::string> FieldsOf(const Search& search) const {
        if (!search.fields.empty()) return search.fields;
        std::vector<std::string> fields = {m_definition.KeyValue()->Info().name};
        for (const auto& value : m_definition.Values()) {
            const ValueInfo& info = value->Info();
            if (value->Child() == nullptr && info.isIncluded && !info.column.empty() && info.column != m_key)
                fields.push_back(info.name);
        }
        return fields;
    }

    std::string NewAlias() { return "c" + std::to_string(++m_aliases); }

    /// The table of a child, and the condition that ties it to its parent's row.
    static std::string TableOf(const ValueDefinition& child) {
        std::string table = child.Child()->StringAttribute(attTableName);
        if (!table.empty() && child.Child()->KeyValue() != nullptr) return table;
        throw Error(automation::InvalidProcedureCall, Quoted(child.Info().name) + " is not stored.");
    }

    /// The alias of the row that holds a field: the root's, or the first record of its child's, which is the
    /// one that a load reads.
    std::string Joined(const Place& place) {
        std::string alias = "r", way, key = m_key;
        for (const ValueDefinition* child : place.children) {
            way += "." + child->Info().name;
            const std::string table = TableOf(*child), childKey = child->Child()->KeyValue()->Info().column;
            std::string& joined = m_joined[way];
            if (joined.empty()) {
                joined = NewAlias();
                m_joins += " left join " + table + " " + joined + " on " + joined + "." + childKey +
                           " = (select min(" + childKey + ") from " + table + " where " +
                           ForeignKeyOf(*child->Child()) + " = " + alias + "." + key + ")";
            }
            alias = joined;
            key = childKey;
        }
        return alias;
    }

    std::string Order(const Search& search) {
        const std::string turn = search.isDescending ? " desc" : "";
        std::string order = " order by ";
        if (!search.order.empty()) {
            const Place place = FindPlace(m_definition, search.order);
            const std::string column = Joined(place) + "." + place.value->Info().column;
            order += "case when " + column + " is null then 1 else 0 end, " + column + turn + ", ";
        }
        return order + "r." + m_key + turn;
    }

    std::string ConditionText(const Condition& condition) {
        const Place place = FindPlace(m_definition, condition.value);
        if (place.children.empty()) return Compared(condition, place, "r");
        std::string text, above = "r", key = m_key;
        for (const ValueDefinition* child : place.children) {
            const std::string alias = NewAlias();
            text += text.empty() ? "exists (select 1 from " : ", ";
            text += TableOf(*child) + " " + alias;
            m_ties.push_back(alias + "." + ForeignKeyOf(*child->Child()) + " = " + above + "." + key);
            above = alias;
            key = child->Child()->KeyValue()->Info().column;
        }
        text += " where ";
        for (const std::string& tie : std::exchange(m_ties, {}))
            text += tie + " and ";
        return text + Compared(condition, place, above) + ")";
    }

    std::string Compared(const Condition& condition, const Place& place, const std::string& alias) {
        const std::string column = alias + "." + place.value->Info().column;
        if (condition.comparison == Comparison::IsNull) return column + " is null";
        if (condition.comparison == Comparison::IsNotNull) return column + " is not null";
        const VarType type = TypeOf(place);
        if (type == VarType::Variant)
            throw Error(automation::InvalidProcedureCall,
                        Quoted(place.name) +
                            " holds binary data, which has no order: only \"is null\" and "
                            "\"is not null\" ask for it.");
        if (condition.comparison == Comparison::Like) return Like(condition, place, column);
        const Variant operand = OperandOf(condition, place);
        if (type == VarType::Boolean) return Flag(condition, place, column, automation::ToBoolean(operand));
        m_values.push_back(operand);
        const auto sign = std::ranges::find(Signs, condition.comparison, &Operator::comparison);
        return column + " " + std::string(sign->text) + " ?";
    }

    /// Any number but 0 is True, and engines differ in what a flag compares with.
    static std::string Flag(const Condition& condition, const Place& place, const std::string& column,
                            bool operand) {
        const bool isEqual = condition.comparison == Comparison::Equal;
        if (!isEqual && condition.comparison != Comparison::NotEqual)
            throw Error(automation::InvalidProcedureCall,
                        Quoted(place.name) + " is true or false: ask for it with = or <>.");
        return "cast(" + column + " as integer) " + (isEqual == operand ? "<> 0" : "= 0");
    }

    /// Escaped by a sign that no engine gives a meaning of its own.
    std::string Like(const Condition& condition, const Place& place, const std::string& column) {
        if (TypeOf(place) != VarType::String)
            throw Error(automation::InvalidProcedureCall,
                        Quoted(place.name) + " is no text: like finds texts.");
        std::string pattern;
        for (const char c : condition.operand)
            pattern += c == '!' ? std::string("!!") : std::string(1, c);
        m_values.emplace_back(std::move(pattern));
        return "lower(" + column + ") like lower(?) escape '!'";
    }

    Definition& m_definition;
    std::string m_table, m_key, m_joins;
    std::map<std::string, std::string> m_joined;  ///< aliases by the way of children
    std::vector<std::string> m_ties;
    std::vector<Variant> m_values;
    int m_aliases = 0;
};

/// The engines that a limit can be told; others give their rows one by one.
bool TakesLimit(ado::Connection& connection) {
    const std::string engine = scriptgen::EngineBehind(connection);
    return engine == "sqlite" || engine == "mariadb" || engine == "postgresql";
}

}  // namespace

Condition ReadCondition(std::string_view text) {
    const std::string upper = automation::ToUpperAscii(text);
    const Operator* found = nullptr;
    std::size_t first = std::string::npos;
    const auto consider = [&](const Operator& candidate, std::size_t position) {
        if (position >= first) return;
        first = position;
        found = &candidate;
    };
    for (const Operator& word : Words)
        consider(word, upper.find(automation::ToUpperAscii(word.text)));
    for (const Operator& sign : Signs)
        consider(sign, text.find(sign.text));
    const std::string_view value = found == nullptr ? text : automation::Trim(text.substr(0, first));
    if (found == nullptr || value.empty()) {
        throw Error(
            automation::InvalidProcedureCall,
            "The condition " + Quoted(text) +
                " has not the form VALUE OPERATOR OPERAND; operators are =, <>, <, <=, >, >=, like, is "
                "null and is not null.");
    }
    std::string_view operand = text.substr(first + found->text.size());
    const bool hasNone =
        found->comparison == Comparison::IsNull || found->comparison == Comparison::IsNotNull;
    if (hasNone && !automation::Trim(operand).empty())
        throw Error(automation::InvalidProcedureCall,
                    "Nothing belongs behind " + Quoted(automation::Trim(found->text)) + ": " + Quoted(text));
    if (!found->text.ends_with(' ') && operand.starts_with(' ')) operand.remove_prefix(1);
    return {std::string(value), found->comparison, std::string(operand)};
}

std::optional<FoundObject> FoundObjects::Next() {
    if (m_rows == nullptr || m_rows->Eof() || m_limit == 0) {
        if (m_rows != nullptr) std::exchange(m_rows, nullptr)->Close();
        return std::nullopt;
    }
    if (m_limit) --*m_limit;
    FoundObject found{automation::ToLong(m_rows->Fields(0)->Value()), {}};
    for (std::size_t i = 0; i < m_names.size(); ++i) {
        const Variant stored = m_rows->Fields(static_cast<std::int32_t>(i) + 1)->Value();
        found.values.push_back(stored.IsNull() ? stored : automation::ChangeType(stored, m_types[i]));
    }
    m_rows->MoveNext();
    return found;
}

FoundObjects Find(Definition& definition, const std::shared_ptr<ado::Connection>& connection,
                  const Search& search) {
    const auto queries = std::dynamic_pointer_cast<ado::BoundQueries>(connection);
    if (queries == nullptr)
        throw Error(ado::adErrFeatureNotAvailable, "The connection's provider binds no values.");
    FoundObjects found;
    Composer composer(definition);
    std::string text = composer.Compose(search, found.m_names, found.m_types);
    found.m_limit = search.limit;
    if (search.limit && TakesLimit(*connection)) text += " limit " + std::to_string(*search.limit);
    found.m_rows = queries->Query(text, composer.Values());
    return found;
}

}  // namespace korvex::objects
