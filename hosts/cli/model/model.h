#pragma once

#include "repository/catalog.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// Data definitions in memory: what stands between the JSON form and the rows of a repository. An entry is
/// its row; the row's own identifier is that of the repository, or 0 where that does not hold it. Entries
/// refer to each other by their positions in the model, the identifiers of others in a row count for nothing.
namespace korvex::cli {

/// Where an entry stands in the file that a model was read from, "objects[2].values[0]"; empty for one that
/// was not.
using ModelPlace = std::string;

struct ModelValue : repository::ValueRow {
    bool isNumbered = false;                ///< else there is no VID yet
    std::optional<std::size_t> child = {};  ///< the object that the value holds
    ModelPlace place = {};
};

struct ModelInterface : repository::InterfaceRow {
    std::vector<ModelValue> values = {};
    ModelPlace place = {};
};

struct ModelValueRef {
    std::size_t interface = 0;
    std::size_t value = 0;  ///< position within the interface
    friend bool operator==(const ModelValueRef&, const ModelValueRef&) = default;
};

struct ModelPrimaryKey {
    ModelValueRef value;
    std::int32_t seq = 0;
    ModelPlace place;
};

struct ModelForeignKey {
    ModelValueRef value;
    std::size_t object = 0;  ///< the object referred to
    ModelValueRef key;       ///< its key value
    std::string guid;
    ModelPlace place;
};

struct ModelObject : repository::ObjectRow {
    std::vector<std::size_t> interfaces = {};
    std::optional<std::size_t> element = {};  ///< object of the elements of a collection
    std::vector<ModelPrimaryKey> primaryKeys = {};
    std::vector<ModelForeignKey> foreignKeys = {};
    ModelPlace place = {};
};

struct ModelDefinition {
    std::string storage;
    std::size_t root = 0;
    ModelPlace place;
};

struct Model {
    std::string file;  ///< that it was read from; empty for none
    std::vector<ModelDefinition> definitions;
    std::vector<ModelObject> objects;
    std::vector<ModelInterface> interfaces;
    std::vector<std::string> leftOut;  ///< what its source has that it does not say, in words

    /// The identifier of an object, if it is one.
    repository::ObjectId IdOf(const std::optional<std::size_t>& object) const {
        return object ? objects[*object].ObjectID : repository::NoObject;
    }
};

/// Finds entries by their identifiers, in a list that does not change any more.
template <class Entry, repository::RowId Id>
class EntryIndex {
  public:
    template <class Row>
    EntryIndex(const std::vector<Entry>& entries, Id Row::*id) {
        for (const Entry& entry : entries)
            m_entries.emplace(entry.*id, &entry);
    }
    /// nullptr for none.
    const Entry* Find(Id id) const {
        const auto found = m_entries.find(id);
        return found == m_entries.end() ? nullptr : found->second;
    }

  private:
    std::unordered_map<Id, const Entry*> m_entries;
};

/// The objects directly beneath an object, in walk order: its element object, then its values' children.
std::vector<std::size_t> ChildrenOf(const Model& model, std::size_t object);

/// For each object whether it is one of `starts` or beneath them; nothing is found at or beneath objects of
/// `ends`, which may be left out.
std::vector<bool> Beneath(const Model& model, std::vector<std::size_t> starts,
                          const std::vector<bool>& ends = {});

/// "orders.json: objects[2].values[0].maxLength: ", or as much of it as is known; `member` may be empty.
std::string PlaceText(const Model& model, const ModelPlace& place, std::string_view member = {});

/// Finds values by name, in a model that does not change any more.
class ValueIndex {
  public:
    explicit ValueIndex(const Model& model) : m_model(model) {}

    /// Every value with that name of the object's interfaces, in their order.
    std::vector<ModelValueRef> Find(std::size_t object, const std::string& name);

  private:
    using Positions = std::unordered_map<std::string, std::vector<std::size_t>>;  ///< by name

    const Model& m_model;
    std::unordered_map<std::size_t, Positions> m_interfaces;  ///< those that were asked for
};

}  // namespace korvex::cli
