#pragma once

#include <concepts>
#include <cstdint>

/// The identifiers of a repository's rows. Each kind has a type of its own, so that one cannot stand where
/// another belongs; 0 names no row.
namespace korvex::repository {

/// ObjectID of a row of tObjects.
enum class ObjectId : std::int32_t {};
/// InterfaceID of a row of tInterfaces.
enum class InterfaceId : std::int32_t {};
/// ValueID of a row of tValues.
enum class ValueId : std::int32_t {};

/// In place of an object: none.
inline constexpr ObjectId NoObject{};

/// An identifier of any of the kinds.
template <class T>
concept RowId = std::same_as<T, ObjectId> || std::same_as<T, InterfaceId> || std::same_as<T, ValueId>;

/// The number as it stands in the repository.
constexpr std::int32_t Number(RowId auto id) noexcept { return static_cast<std::int32_t>(id); }
/// Whether walks follow it: they do not follow 0, nor numbers below.
constexpr bool IsRow(RowId auto id) noexcept { return Number(id) > 0; }

}  // namespace korvex::repository
