#pragma once

#include "automation/dispatch.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace korvex::automation {

/// The automation runtime's ordered collection: one-based, in insertion order, with optional text keys that
/// ignore case. Late bound it offers Add, Item, Count, Remove and For Each.
class Collection : public TableObject {
  public:
    const ClassInfo& Class() const noexcept override;

    /// How many items there are.
    std::int32_t Count() const noexcept;
    /// `index` is a position (1 to Count) or a key. SubscriptOutOfRange (9) for a position beyond the
    /// collection, InvalidProcedureCall (5) for a key that is not there. The reference holds until the
    /// collection changes.
    const Variant& Item(const Variant& index) const;
    /// `key` Missing or Empty adds without a key; KeyAlreadyUsed (457) for one that is taken, TypeMismatch
    /// (13) for one that is no text. `before` and `after` (position or key; at most one of them, else error
    /// 5) place the item next to an existing one.
    void Add(Variant item, const Variant& key = Variant::Missing(),
             const Variant& before = Variant::Missing(), const Variant& after = Variant::Missing());
    /// Takes out the item at a position or with a key; errors as for Item.
    void Remove(const Variant& index);
    /// The enumeration follows the live collection: items removed before it reaches them are not met, items
    /// added behind its place are, and no other item is skipped or met twice.
    std::unique_ptr<Enumerator> NewEnum() override;

  private:
    class Cursor;
    struct Entry {
        Variant item;
        std::optional<std::string> key;  ///< upper-cased
    };

    std::size_t Position(const Variant& index) const;
    std::size_t KeyPosition(std::string_view key) const;
    std::optional<std::size_t> FindKey(const std::string& upperKey) const;
    std::size_t InsertPosition(const Variant& before, const Variant& after) const;

    std::deque<Entry> m_entries;
    /// Positions by key; not up to date after an insertion or removal inside, until the next look-up.
    mutable std::unordered_map<std::string, std::size_t> m_positions;
    mutable bool m_positionsAreValid = true;
    std::vector<Cursor*> m_cursors;  ///< the enumerations that are running; each takes itself off
};

}  // namespace korvex::automation
