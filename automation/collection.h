#pragma once

#include "automation/dispatch.h"

#include <string>
#include <vector>

namespace korvex::automation {

/// The automation runtime's ordered collection: one-based, in insertion order, with optional text keys that
/// ignore case. Late bound it offers Add, Item, Count, Remove and For Each.
class Collection : public TableObject {
  public:
    const ClassInfo& Class() const noexcept override;

    std::int32_t Count() const noexcept;
    /// `index` is a position (1 to Count) or a key. SubscriptOutOfRange (9) for a position beyond the
    /// collection, InvalidProcedureCall (5) for a key that is not there.
    const Variant& Item(const Variant& index) const;
    /// `key` Missing or Empty adds without a key; KeyAlreadyUsed (457) for one that is taken. `before` and
    /// `after` (position or key; at most one of them, else error 5) place the item next to an existing one.
    void Add(Variant item, const Variant& key = Variant::Missing(),
             const Variant& before = Variant::Missing(), const Variant& after = Variant::Missing());
    void Remove(const Variant& index);
    /// The enumeration follows the live collection by position: an item removed while it runs is not met
    /// again.
    std::unique_ptr<Enumerator> NewEnum() override;

  private:
    struct Entry {
        Variant item;
        std::string key;  ///< upper-cased; empty for none
    };
    std::size_t Position(const Variant& index) const;

    std::vector<Entry> m_entries;
};

}  // namespace korvex::automation
