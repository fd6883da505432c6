#include "automation/convert.h"
#include "automation/error.h"
#include "automation/nearest_name.h"
#include "automation/text.h"
#include "objects/json.h"
#include "objects/json_document.h"
#include "objects/json_state.h"
#include "objects/json_value.h"
#include "persistence/definition_walk.h"
#include "platform/stack.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace korvex::objects {

using automation::Error;
using automation::Variant;
using Kind = JsonDocument::Kind;
using Value = JsonDocument::Value;

namespace {

/// Puts the values of a document into data objects.
class Input {
  public:
    /// Whether the keys of elements count, or the elements are new ones, whatever keys they come with.
    enum class Keys { Count, PassedOver };

    Input(std::string_view text, UnstoredMembers* unstored, Keys keys)
        : m_document(text), m_unstored(unstored), m_keys(keys) {}

    const JsonDocument& Document() const noexcept { return m_document; }

    void PutObject(const Value& value, DataObject& object) {
        if (value.kind != Kind::Object) Fail(Mismatch(value, "the object " + object.Type().Name()));
        for (std::size_t i = 0; i < value.names.size(); ++i) {
            const Step step(*this, value.names[i]);
            PutMember(value.names[i], m_document.At(value.children[i]), object);
        }
    }

    /// A step into the item of an array.
    void PutItem(std::size_t position, const Value& value, DataObject& object) {
        const Step step(*this, "[" + std::to_string(position) + "]");
        PutObject(value, object);
    }

  private:
    /// One step of the way into the document, for messages.
    class Step {
      public:
        Step(Input& input, std::string name) : m_input(input) {
            if (!input.m_stack.HasRoom()) FailTooDeep();
            input.m_way.push_back(std::move(name));
        }
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;
        ~Step() { m_input.m_way.pop_back(); }

      private:
        Input& m_input;
    };

    std::string Place() const {
        std::string place;
        for (const auto& name : m_way) {
            if (!place.empty() && name.front() != '[') place += '.';
            place += name;
        }
        return place.empty() ? "the document" : place;
    }

    [[noreturn]] void Fail(const Error& error) const {
        throw Error(error.Number(), Place() + ": " + error.Description() + ".", error.Source());
    }

    static Error Mismatch(const Value& value, const std::string& expected) {
        return Error(automation::TypeMismatch,
                     std::string(KindName(value.kind)) + " where " + expected + " belongs");
    }

    Variant Read(const Value& value, std::int32_t dataType) const {
        try {
            return ReadValue(m_document, value, dataType);
        } catch (const Error& error) {
            Fail(error);
        }
    }

    static bool IsStored(const ValueDefinition& definition) {
        if (definition.Child() != nullptr) return definition.Child()->BooleanAttribute(attIsIncluded);
        return definition.Info().isIncluded && !definition.Info().column.empty();
    }

    /// Remembers a member that is not stored, once for all that stands in it.
    void NoteUnstored(const Value& value) {
        if (m_unstored == nullptr || value.kind == Kind::Null) return;
        std::string path;
        for (const auto& name : m_way)
            if (name.front() != '[') path += (path.empty() ? "" : ".") + name;
        const bool isKnown = std::ranges::any_of(*m_unstored, [&](const std::string& known) {
            return path == known || path.starts_with(known + '.');
        });
        if (!isKnown) m_unstored->push_back(path);
    }

    void PutMember(const std::string& name, const Value& value, DataObject& object) {
        if (const auto* definition = object.Type().FindValue(name)) {
            if (!IsStored(*definition)) NoteUnstored(value);
            if (definition->Child() != nullptr)
                PutObject(value, *object.Child(name));
            else
                object.Value(definition->Index(), Read(value, definition->Info().dataType));
        } else if (name == StateMember) {
            PutState(value, object);
        } else if (name == ItemsMember && object.Type().ElementDefinition() != nullptr) {
            PutItems(value, object);
        } else {
            FailUnknown(name, KnownMembers(object.Type()));
        }
    }

    void PutState(const Value& value, DataObject& object) {
        if (value.kind != Kind::Object) Fail(Mismatch(value, "an object"));
        const auto states = StatesOf(object.Type());
        for (std::size_t i = 0; i < value.names.size(); ++i) {
            const Step step(*this, value.names[i]);
            const auto state = std::find_if(states.begin(), states.end(),
                                            [&](const State& one) { return one.name == value.names[i]; });
            if (state == states.end()) FailUnknown(value.names[i], {states[0].name, states[1].name});
            const Variant number = Read(m_document.At(value.children[i]), state->dataType);
            if (number.IsNull()) Fail(Mismatch(m_document.At(value.children[i]), "a whole number"));
            SetState(object, *state, automation::ToLong(number));
        }
    }

    void PutItems(const Value& value, DataObject& collection) {
        if (value.kind != Kind::Array) Fail(Mismatch(value, "an array"));
        const auto elementType = collection.Type().ElementDefinition();
        if (!elementType->BooleanAttribute(attIsIncluded)) NoteUnstored(value);
        std::set<std::int32_t> taken;
        auto elements = ElementsByKey(collection);
        std::vector<DataObject::Shared> items;
        for (std::size_t i = 0; i < value.children.size(); ++i) {
            const auto& item = m_document.At(value.children[i]);
            const Step step(*this, "[" + std::to_string(i) + "]");
            const std::int32_t key = m_keys == Keys::Count ? KeyOf(item, elementType->KeyValue()) : 0;
            if (key > 0 && !taken.insert(key).second)
                Fail(Error(automation::KeyAlreadyUsed,
                           "an item before it has the same key, " + std::to_string(key)));
            auto element = Take(elements, key);
            if (element == nullptr) element = collection.Add();
            items.push_back(element);
            PutObject(item, *element);
        }
        collection.Replace(std::move(items));
    }

    using Elements = std::multimap<std::int32_t, DataObject::Shared>;

    /// The elements that have a key, by it.
    static Elements ElementsByKey(const DataObject& collection) {
        Elements elements;
        const auto* key = collection.Type().ElementDefinition()->KeyValue();
        if (key == nullptr) return elements;
        for (const auto& element : collection.Items())
            elements.emplace(persistence::ToKey(element->Value(key->Index())), element);
        return elements;
    }

    /// The key that an item gives, however its number is written; 0 for none.
    std::int32_t KeyOf(const Value& item, const ValueDefinition* key) {
        if (key == nullptr) return 0;
        const auto name = std::find(item.names.begin(), item.names.end(), key->Info().name);
        if (name == item.names.end()) return 0;
        const Step step(*this, *name);
        const auto position = static_cast<std::size_t>(name - item.names.begin());
        return persistence::ToKey(Read(m_document.At(item.children[position]), key->Info().dataType));
    }

    /// The element with that key, taken out of `elements`; nullptr for none.
    static DataObject::Shared Take(Elements& elements, std::int32_t key) {
        const auto found = key > 0 ? elements.find(key) : elements.end();
        if (found == elements.end()) return nullptr;
        auto element = found->second;
        elements.erase(found);
        return element;
    }

    static std::vector<std::string_view> KnownMembers(const Definition& definition) {
        std::vector<std::string_view> names;
        for (const auto& value : definition.Values())
            names.push_back(value->Info().name);
        names.push_back(StateMember);
        if (definition.ElementDefinition() != nullptr) names.push_back(ItemsMember);
        return names;
    }

    [[noreturn]] void FailUnknown(const std::string& name, const std::vector<std::string_view>& known) const {
        Fail(Error(automation::MemberNotFound,
                   "the definition does not know " + automation::Quoted(name) +
                       "; the nearest name that it knows is " +
                       automation::Quoted(automation::NearestName(name, known).name)));
    }

    JsonDocument m_document;
    UnstoredMembers* m_unstored;
    Keys m_keys;
    const platform::StackGuard m_stack;
    std::vector<std::string> m_way;
};

}  // namespace

std::shared_ptr<DataObject> FromJson(const std::shared_ptr<Definition>& definition, std::string_view text,
                                     UnstoredMembers* unstored) {
    Input input(text, unstored, Input::Keys::PassedOver);
    auto object = std::make_shared<DataObject>(definition);
    input.PutObject(input.Document().Root(), *object);
    return object;
}

std::vector<std::shared_ptr<DataObject>> ListFromJson(const std::shared_ptr<Definition>& definition,
                                                      std::string_view text, UnstoredMembers* unstored) {
    Input input(text, unstored, Input::Keys::PassedOver);
    const auto& root = input.Document().Root();
    std::vector<std::shared_ptr<DataObject>> objects;
    if (root.kind != Kind::Array) {
        objects.push_back(std::make_shared<DataObject>(definition));
        input.PutObject(root, *objects.back());
        return objects;
    }
    for (std::size_t i = 0; i < root.children.size(); ++i) {
        objects.push_back(std::make_shared<DataObject>(definition));
        input.PutItem(i, input.Document().At(root.children[i]), *objects.back());
    }
    return objects;
}

void ApplyJson(DataObject& object, std::string_view text, UnstoredMembers* unstored) {
    Input input(text, unstored, Input::Keys::Count);
    input.PutObject(input.Document().Root(), object);
}

}  // namespace korvex::objects
