// Data objects of a host's own, and a desktop of its own: own_objects REPOSITORY CONNECTION
// REPOSITORY holds the definition Orders, CONNECTION leads to its tables.

#include <iostream>
#include <korvex/korvex.h>
#include <map>
#include <memory>
#include <vector>

using namespace korvex;
using automation::Variant;

namespace {

/// Any object: values by index, child objects and elements as they are asked for. Its definition is the
/// library's here; a host may bring that, too.
class Record final : public persistence::PlainObject {
  public:
    explicit Record(Ref definition = nullptr, std::weak_ptr<QORObject> parent = {})
        : m_definition(std::move(definition)), m_parent(std::move(parent)) {}

    Ref Parent() override { return m_parent.lock(); }
    Ref DataDef() override { return m_definition; }
    void DataDef(const Ref& definition) override { m_definition = definition; }
    bool Modified() override { return m_isModified; }
    void Modified(bool value) override { m_isModified = value; }

    Variant Value(std::int32_t index) override { return m_values[index]; }
    void Value(std::int32_t index, const Variant& value) override {
        m_values[index] = value;
        m_isModified = true;
    }
    std::int32_t ValueIndex(std::string_view fieldName) override {
        return Find(attFieldName, fieldName)->LongAttribute(attValueIndex);
    }
    /// The definition of a value answers for that of the child object that it holds.
    Variant NamedValue(std::string_view name) override {
        Ref& child = m_children[std::string(name)];
        if (child == nullptr) child = NewPart(Find(attName, name));
        return child;
    }

    Ref AddItem(const Variant&, const Variant&) override {
        m_items.push_back(NewPart(m_definition->ObjectAttribute(attElementDef)));
        return m_items.back();
    }
    std::unique_ptr<automation::Enumerator> NewEnum() override {
        class Items final : public automation::Enumerator {
          public:
            explicit Items(std::vector<Ref> items) : m_items(std::move(items)) {}
            std::optional<Variant> Next() override {
                return m_next < m_items.size() ? std::optional<Variant>(m_items[m_next++]) : std::nullopt;
            }

          private:
            std::vector<Ref> m_items;
            std::size_t m_next = 0;
        };
        return std::make_unique<Items>(m_items);
    }

    // State that is stored beside the values: counters and what is selected. PlainObject would refuse it.
    std::int32_t LongAttribute(std::int32_t id) override { return m_state[id]; }
    void LongAttribute(std::int32_t id, std::int32_t value) override { m_state[id] = value; }
    std::int16_t IntegerAttribute(std::int32_t id) override { return static_cast<std::int16_t>(m_state[id]); }
    void IntegerAttribute(std::int32_t id, std::int16_t value) override { m_state[id] = value; }

  private:
    Ref Find(std::int32_t attribute, std::string_view name) const {
        const auto values = m_definition->ObjectAttribute(attValues)->NewEnum();
        while (const auto value = values->Next()) {
            auto entry = automation::ObjectAs<QORObject>(*value);
            if (entry->StringAttribute(attribute) == name) return entry;
        }
        throw automation::Error(automation::MemberNotFound, "There is no value " + std::string(name) + ".");
    }
    Ref NewPart(const Ref& definition) {
        return std::make_shared<Record>(definition, std::static_pointer_cast<QORObject>(shared_from_this()));
    }

    Ref m_definition;
    std::weak_ptr<QORObject> m_parent;
    std::map<std::int32_t, Variant> m_values;
    std::map<std::string, Ref> m_children;
    std::map<std::int32_t, std::int32_t> m_state;
    std::vector<Ref> m_items;
    bool m_isModified = false;
};

/// Messages go where the host wants them.
class Messages final : public platform::Desktop {
  public:
    void ShowMessage(std::string_view text, std::int32_t /*style*/, std::string_view /*title*/) override {
        std::cout << "message: " << text << '\n';
    }
    void OpenEditor(std::string_view path) override { std::cout << "written: " << path << '\n'; }
};

int Run(const char* repository, const char* connection) {
    Platform platform = DefaultPlatform();
    platform.desktop = std::make_shared<Messages>();
    // Where stored elements are deleted there is no object of theirs: the library asks for one.
    platform.newDataObject = [] { return std::make_shared<Record>(); };

    const auto database = platform.repositoryEngine->OpenDatabase(repository);
    const QORObject::Ref definition = objects::LoadDefinition(repository::Catalog::Read(*database), "Orders");
    const auto crud = std::make_shared<clsCRUD>(platform);
    if (!crud->ConnectDB(connection)) return 1;  // the message has said why

    const auto order = std::make_shared<Record>(definition);
    order->Value(order->ValueIndex("OrderNumber"), "B-7");
    const auto lines = automation::ObjectAs<QORObject>(order->NamedValue("Lines"));
    for (const int quantity : {2, 3}) {
        const auto line = lines->AddItem();
        line->Value(line->ValueIndex("Quantity"), quantity);
    }
    const std::int32_t key = crud->DbSaveData(order);

    const auto loaded = std::make_shared<Record>(definition);
    if (crud->DbGetData(loaded, key) != key) return 1;
    std::cout << automation::ToString(loaded->Value(loaded->ValueIndex("OrderNumber"))) << ':';
    const auto each = automation::ObjectAs<QORObject>(loaded->NamedValue("Lines"))->NewEnum();
    while (const auto line = each->Next()) {
        const auto record = automation::ObjectAs<QORObject>(*line);
        std::cout << ' ' << automation::ToString(record->Value(record->ValueIndex("Quantity")));
    }
    std::cout << '\n';

    if (crud->DbDeleteData(loaded, key) != key || crud->DbDataExists(loaded, key)) return 1;
    return crud->ConnectDB("Provider=Nobody") ? 1 : 0;  // tells Messages
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: own_objects REPOSITORY CONNECTION\n";
        return 2;
    }
    try {
        return Run(argv[1], argv[2]);
    } catch (const automation::Error& error) {
        std::cerr << "error " << error.Number() << ": " << error.Description() << '\n';
        return 1;
    }
}
