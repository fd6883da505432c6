#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Which entries of a definition are the same at two times, whatever they are called.
namespace korvex::scriptgen {

struct ValueIdentity {
    std::string name;
    std::int32_t number = 0;  ///< within its interface; 0 for none
    bool isGiven = false;     ///< whoever wrote the definition gave the number
    bool isKey = false;       ///< told by the objects that it belongs to alone
    std::optional<std::size_t> child = {};
};

struct InterfaceIdentity {
    std::string name;
    std::vector<std::size_t> values = {};
    bool countsOnly = false;  ///< its numbers count the values as they stand
};

struct ObjectIdentity {
    std::string name;
    std::string guid;
    bool isNamed = true;  ///< its name tells it
    std::vector<std::size_t> interfaces = {};
    std::optional<std::size_t> element = {};
    std::vector<std::size_t> keys = {};                                ///< its own ones
    std::vector<std::pair<std::size_t, std::size_t>> references = {};  ///< a key and the object it refers to
};

/// A definition as far as identity goes. All refer to each other by position; texts are compared as they are.
struct DefinitionIdentity {
    std::vector<ObjectIdentity> objects;
    std::vector<InterfaceIdentity> interfaces;
    std::vector<ValueIdentity> values;
    std::vector<std::pair<std::string, std::size_t>> roots;  ///< storage names
};

/// For each entry of now the position of the same one before; nothing for a new one.
struct IdentityMatch {
    using Positions = std::vector<std::optional<std::size_t>>;
    Positions objects, interfaces, values;
};

/// An object is its guid where that is unique on both sides, else its name where that is, else its place: its
/// parent and the value that holds it. A value is its number within its interface, where that says more than
/// a position, else its name. Interfaces go by name, the object's own ones with it; the only one left was
/// renamed. An own key matches the own key, a reference that to the same object. `given`: what is settled
/// among objects and values; none where it is empty.
IdentityMatch MatchDefinitions(const DefinitionIdentity& before, const DefinitionIdentity& now,
                               const IdentityMatch& given = {});

}  // namespace korvex::scriptgen
