#pragma once

#include "hosts/cli/model/model_export.h"
#include "repository/related_catalog.h"
#include "scriptgen/table_model.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace korvex::cli {

/// A value of an object, or a column that its table has besides.
struct ShownValue {
    const repository::ValueRow* row = nullptr;  ///< nothing for an added column
    const scriptgen::Column* column = nullptr;  ///< nothing for what becomes no column
    const repository::InterfaceRow* interface = nullptr;
    std::optional<std::size_t> child = {};  ///< position of the object that the value holds

    const std::string& Name() const { return row != nullptr ? row->Name : column->FieldName; }
    bool IsKey() const { return column != nullptr && (column->IsPrimaryKey || column->IsForeignKey); }
    /// "string(40)", "long", "17"
    std::string TypeText() const;
    /// "PK", "FK", both with `between` between them, or nothing.
    std::string KeyMarks(std::string_view between) const;
};

/// An object that holds another one, by a value or as the collection of its elements.
struct ShownHolder {
    std::size_t object = 0;
    const repository::ValueRow* value = nullptr;  ///< nothing for a collection
};

struct ShownObject {
    const repository::ObjectRow* row = nullptr;
    /// What diagram languages and links take as an identifier: letters, digits and underscores, numbered
    /// where two would be the same.
    std::string identifier;
    const scriptgen::DescribedTable* table = nullptr;  ///< nothing for an object without a table
    std::optional<std::size_t> element;                ///< object of the elements of a collection
    std::vector<ShownValue> values;                    ///< in their order, added columns last
    std::vector<ShownHolder> holders;
    std::size_t depth = 0;  ///< number of objects above it, along the first way

    /// What a diagram shows of it: the columns, keys first, or the plain values of an object without a table.
    std::vector<ShownValue> DiagramRows() const;
};

/// Definitions as a run makes them, with keys and tables on a private copy: what pictures of them show.
class ShownDefinition {
  public:
    /// The definitions of that storage name, or, when it is empty, all of them as one run, with the objects
    /// that belong to none. Errors as of a run: OutOfStackSpace (28) for an object that is its own ancestor,
    /// InvalidProcedureCall (5) for a prefix that leaves no room for a key. `catalog` must outlive this.
    ShownDefinition(const repository::Catalog& catalog, std::string_view storage, std::string_view fkPrefix);
    ShownDefinition(const ShownDefinition&) = delete;
    ShownDefinition& operator=(const ShownDefinition&) = delete;

    const std::vector<ModelDefinition>& Definitions() const noexcept { return m_exported.definitions; }
    /// In walk order, each before what it holds.
    const std::vector<ShownObject>& Objects() const noexcept { return m_objects; }
    /// The position of an object; nothing for one that is not shown.
    std::optional<std::size_t> Find(repository::ObjectId objectID) const;
    /// What refers to rows that do not exist, in words.
    const std::vector<std::string>& LeftOut() const noexcept { return m_exported.leftOut; }

  private:
    void FillObject(std::size_t index);
    void AddValues(ShownObject& object, repository::InterfaceId interfaceID);
    void AddHolders();
    void SetDepths();

    Model m_exported;
    repository::RelatedCatalog m_related;
    std::vector<scriptgen::DescribedTable> m_tables;
    std::unordered_map<repository::ObjectId, std::size_t> m_positions;
    std::vector<ShownObject> m_objects;
};

}  // namespace korvex::cli
