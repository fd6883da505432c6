#include "random_model.h"

#include <algorithm>
#include <utility>

namespace korvex::tests {

namespace {

constexpr const char* Types[] = {"integer", "long",    "single", "double", "currency",
                                 "boolean", "variant", "date",   "string", "string"};

}  // namespace

RandomModel::RandomModel(unsigned seed) : m_random(seed) { NewObject(0); }

RandomModel::Value RandomModel::NewValue() {
    // Numbers with gaps: they say more than a position.
    Value value{.name = NewName(), .type = Types[Random(10)], .vid = 2 * ++m_names};
    if (value.type == "string") value.length = Random(8) == 0 ? 5000 : 10 + Random(60);
    return value;
}

int RandomModel::NewObject(int depth) {
    const int index = static_cast<int>(m_objects.size());
    m_objects.push_back({.name = NewName(), .guid = "{" + std::to_string(++m_names) + "}", .values = {}});
    for (int i = 1 + Random(4); i > 0; --i)
        m_objects[static_cast<std::size_t>(index)].values.push_back(NewValue());
    if (depth < 3 && Random(3) == 0) {
        const int element = NewObject(depth + 1);
        m_objects[static_cast<std::size_t>(index)].element = element;
    }
    for (int i = depth < 3 ? Random(3) : 0; i > 0; --i)
        Hold(index, NewObject(depth + 1), false);
    return index;
}

void RandomModel::Hold(int parent, int child, bool first) {
    Value value = NewValue();
    value.child = child;
    std::vector<Value>& values = m_objects[static_cast<std::size_t>(parent)].values;
    values.insert(first ? values.begin() : values.end(), std::move(value));
}

void RandomModel::Visit(int object, std::vector<int>& found) const {
    if (std::ranges::find(found, object) != found.end()) return;
    found.push_back(object);
    const Object& row = m_objects[static_cast<std::size_t>(object)];
    if (row.element >= 0) Visit(row.element, found);
    for (const Value& value : row.values)
        if (value.child >= 0) Visit(value.child, found);
}

std::vector<int> RandomModel::Reachable() const {
    std::vector<int> found;
    Visit(0, found);
    return found;
}

int RandomModel::ParentsOf(int object) const {
    int parents = 0;
    for (const int index : Reachable()) {
        const Object& row = m_objects[static_cast<std::size_t>(index)];
        parents += row.element == object ? 1 : 0;
        for (const Value& value : row.values)
            parents += value.child == object ? 1 : 0;
    }
    return parents;
}

void RandomModel::Edit() {
    for (int i = 1 + Random(5); i > 0; --i)
        EditOnce();
}

void RandomModel::EditOnce() {
    const std::vector<int> all = Reachable();
    const int at = all[static_cast<std::size_t>(Random(static_cast<int>(all.size())))];
    const int other = all[static_cast<std::size_t>(Random(static_cast<int>(all.size())))];
    Object& object = m_objects[static_cast<std::size_t>(at)];
    std::vector<int> beneath;
    Visit(other, beneath);
    const bool hasCircle = std::ranges::find(beneath, at) != beneath.end();
    Value* value =
        object.values.empty()
            ? nullptr
            : &object.values[static_cast<std::size_t>(Random(static_cast<int>(object.values.size())))];
    const int kind = Random(16);
    m_story += " " + std::to_string(kind) + ":" + object.name + (value != nullptr ? "." + value->name : "");
    switch (kind) {
        case 0:
            object.name = NewName();
            break;
        case 1:
            std::swap(object.name, m_objects[static_cast<std::size_t>(other)].name);
            break;
        case 2:
            if (value != nullptr) value->name = NewName();
            break;
        case 3:
            if (value != nullptr) std::swap(value->name, object.values.front().name);
            break;
        case 4:
            object.values.insert(object.values.begin(), NewValue());
            break;
        case 5:
            object.values.push_back(NewValue());
            break;
        case 6:  // a value, or a child with all beneath
            if (object.values.size() > 1)
                object.values.erase(object.values.begin() + (value - object.values.data()));
            break;
        case 7:
        case 8:
            if (value != nullptr && value->child < 0) {
                value->type = Types[Random(10)];
                value->length = 60;
            }
            break;
        case 9:
            if (value != nullptr) value->length += 20;
            break;
        case 10:
            if (value != nullptr && value->length > 8) value->length = 8;
            break;
        case 11:
            Hold(at, NewObject(2), Random(2) == 0);
            break;
        case 12:
            if (object.element < 0) {
                const int element = NewObject(3);
                m_objects[static_cast<std::size_t>(at)].element = element;
            }
            break;
        case 13:  // a child of two parents; of one alone it would stand twice behind one key
            if (!hasCircle && other != 0 && object.element != other &&
                std::ranges::find(object.values, other, &Value::child) == object.values.end())
                Hold(at, other, false);
            break;
        case 14:  // a child of another parent
            if (value != nullptr && value->child < 0 && !hasCircle && other != 0 && ParentsOf(other) == 1) {
                for (Object& row : m_objects)
                    for (Value& holder : row.values)
                        if (holder.child == other) {
                            holder.child = -1;
                            holder.type = "long";
                        }
                if (ParentsOf(other) == 0) Hold(at, other, false);
            }
            break;
        default: {  // an object of a name that is there, earlier in the walk
            const std::string name = object.name;
            const int twin = NewObject(3);
            m_objects[static_cast<std::size_t>(twin)].name = name;
            Hold(0, twin, true);
        }
    }
}

std::string RandomModel::Json() const {
    std::string text = R"({"definitions":[{"storage":"S","root":"o0"}],"objects":[)";
    const char* comma = "";
    for (const int index : Reachable()) {
        const Object& object = m_objects[static_cast<std::size_t>(index)];
        text += std::string(comma) + R"({"id":"o)" + std::to_string(index) + R"(","name":")" + object.name +
                R"(","guid":")" + object.guid + "\"";
        if (object.element >= 0) text += R"(,"element":"o)" + std::to_string(object.element) + "\"";
        text += ",\"values\":[";
        for (const Value& value : object.values) {
            text += std::string(&value == &object.values.front() ? "" : ",") + R"({"name":")" + value.name +
                    R"(","vid":)" + std::to_string(value.vid);
            text += value.child >= 0 ? R"(,"child":"o)" + std::to_string(value.child) + "\"}"
                                     : R"(,"type":")" + value.type + R"(","maxLength":)" +
                                           std::to_string(value.type == "string" ? value.length : 0) + "}";
        }
        text += "]}";
        comma = ",";
    }
    return text + "]}";
}

}  // namespace korvex::tests
