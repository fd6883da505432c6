#include "scriptgen/column_lists.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <utility>

namespace korvex::scriptgen {

bool HasPrimaryKey(std::span<const Column> columns) noexcept {
    return std::ranges::any_of(columns, &Column::IsPrimaryKey);
}

std::vector<std::string> PrimaryKeyColumns(std::span<const Column> columns) {
    std::vector<std::reference_wrapper<const Column>> keys;
    for (const Column& column : columns) {
        const bool hasPlace =
            column.nPrimaryKeySeq >= 0 && std::cmp_less_equal(column.nPrimaryKeySeq, columns.size());
        if (column.IsPrimaryKey && hasPlace) keys.emplace_back(column);
    }
    std::ranges::stable_sort(keys, {}, [](const Column& column) { return column.nPrimaryKeySeq; });

    std::vector<std::string> names;
    names.reserve(keys.size());
    for (const Column& key : keys)
        names.push_back(key.FieldName);
    return names;
}

std::vector<repository::ObjectId> GetForeignKeyTargets(std::span<const Column> columns) {
    std::vector<repository::ObjectId> targets;
    std::set<std::string> within;  // what stands within the digits of the targets so far
    for (const Column& column : columns) {
        if (!column.IsForeignKey) continue;
        const std::string digits = std::to_string(Number(column.FKObjectID));
        if (within.contains(digits)) continue;
        for (std::size_t begin = 0; begin < digits.size(); ++begin) {
            for (std::size_t length = digits.size() - begin; length > 0; --length)
                within.insert(digits.substr(begin, length));
        }
        targets.push_back(column.FKObjectID);
    }
    return targets;
}

}  // namespace korvex::scriptgen
