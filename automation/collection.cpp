#include "automation/collection.h"

#include "automation/convert.h"
#include "automation/error.h"
#include "automation/member_rows.h"
#include "automation/text.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace korvex::automation {

namespace {

constexpr Parameter AddParameters[] = {
    {.name = "Item"},
    {.name = "Key", .optional = true},
    {.name = "Before", .optional = true},
    {.name = "After", .optional = true},
};
constexpr Parameter IndexParameters[] = {{.name = "Index"}};

constexpr Member Members[] = {
    GetRow<&Collection::Item>("Item", {IndexParameters}),
    MethodRow<&Collection::Add>("Add", {AddParameters}),
    GetRow<&Collection::Count>("Count"),
    MethodRow<&Collection::Remove>("Remove", {IndexParameters}),
};

constexpr ClassInfo Description = {
    .name = "Collection", .description = {}, .members = Members, .defaultMember = "Item"};

bool IsLeftOut(const Variant& value) noexcept { return value.IsMissing() || value.IsEmpty(); }

}  // namespace

/// One running enumeration. The collection moves it along when items before its place come or go.
class Collection::Cursor : public Enumerator {
  public:
    explicit Cursor(std::shared_ptr<Collection> collection) : m_collection(std::move(collection)) {
        m_collection->m_cursors.push_back(this);
    }
    Cursor(const Cursor&) = delete;
    Cursor& operator=(const Cursor&) = delete;
    ~Cursor() override { std::erase(m_collection->m_cursors, this); }

    std::optional<Variant> Next() override {
        if (m_next >= m_collection->m_entries.size()) return std::nullopt;
        return m_collection->m_entries[m_next++].item;
    }

    void Inserted(std::size_t position) noexcept {
        if (position < m_next) ++m_next;
    }
    void Removed(std::size_t position) noexcept {
        if (position < m_next) --m_next;
    }

  private:
    std::shared_ptr<Collection> m_collection;
    std::size_t m_next = 0;
};

const ClassInfo& Collection::Class() const noexcept { return Description; }

std::int32_t Collection::Count() const noexcept { return static_cast<std::int32_t>(m_entries.size()); }

const Variant& Collection::Item(const Variant& index) const { return m_entries[Position(index)].item; }

void Collection::Add(Variant item, const Variant& key, const Variant& before, const Variant& after) {
    Entry entry{std::move(item), std::nullopt};
    if (!IsLeftOut(key)) {
        const auto* text = key.If<std::string>();
        if (text == nullptr) throw Error::About(TypeMismatch, "the key of a collection item is no text");
        entry.key = ToUpperAscii(*text);
        if (FindKey(*entry.key)) throw Error::About(KeyAlreadyUsed, Quoted(*text));
    }
    const std::size_t position = InsertPosition(before, after);
    if (position != m_entries.size()) {
        m_positionsAreValid = false;
    } else if (entry.key && m_positionsAreValid) {
        m_positions.emplace(*entry.key, position);
    }
    m_entries.insert(m_entries.begin() + static_cast<std::ptrdiff_t>(position), std::move(entry));
    for (Cursor* cursor : m_cursors)
        cursor->Inserted(position);
}

void Collection::Remove(const Variant& index) {
    const std::size_t position = Position(index);
    // The item dies last: letting it go may run code of the host that comes back here.
    const Entry removed = std::move(m_entries[position]);
    if (position + 1 != m_entries.size()) {
        m_positionsAreValid = false;
    } else if (removed.key) {
        m_positions.erase(*removed.key);
    }
    m_entries.erase(m_entries.begin() + static_cast<std::ptrdiff_t>(position));
    for (Cursor* cursor : m_cursors)
        cursor->Removed(position);
}

std::unique_ptr<Enumerator> Collection::NewEnum() {
    return std::make_unique<Cursor>(std::static_pointer_cast<Collection>(shared_from_this()));
}

/// Zero-based.
std::size_t Collection::Position(const Variant& index) const {
    if (const auto* key = index.If<std::string>()) return KeyPosition(*key);
    const std::int32_t number = ToLong(index);
    if (number < 1 || static_cast<std::size_t>(number) > m_entries.size()) {
        throw Error(SubscriptOutOfRange, "Subscript out of range: item " + std::to_string(number) +
                                             " of a collection of " + std::to_string(m_entries.size()));
    }
    return static_cast<std::size_t>(number) - 1;
}

std::size_t Collection::KeyPosition(std::string_view key) const {
    if (const auto position = FindKey(ToUpperAscii(key))) return *position;
    throw Error(InvalidProcedureCall,
                "Invalid procedure call or argument: the collection has no key " + Quoted(key));
}

std::optional<std::size_t> Collection::FindKey(const std::string& upperKey) const {
    if (!m_positionsAreValid) {
        m_positions.clear();
        for (std::size_t i = 0; i < m_entries.size(); ++i) {
            if (m_entries[i].key) m_positions.emplace(*m_entries[i].key, i);
        }
        m_positionsAreValid = true;
    }
    const auto found = m_positions.find(upperKey);
    if (found == m_positions.end()) return std::nullopt;
    return found->second;
}

std::size_t Collection::InsertPosition(const Variant& before, const Variant& after) const {
    if (!IsLeftOut(before) && !IsLeftOut(after)) {
        throw Error(InvalidProcedureCall,
                    "Invalid procedure call or argument: an item is added before or after another, not both");
    }
    if (!IsLeftOut(before)) return Position(before);
    if (!IsLeftOut(after)) return Position(after) + 1;
    return m_entries.size();
}

}  // namespace korvex::automation
