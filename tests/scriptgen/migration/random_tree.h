#pragma once

#include "objects/data_object.h"

#include <memory>
#include <random>
#include <set>
#include <string>

namespace korvex::tests {

/// Makes up the values of stored objects.
class RandomTree {
  public:
    /// `plain`: columns, as "table.column" in capitals, whose values are to fit every type: 0 or 1.
    RandomTree(unsigned seed, std::set<std::string> plain) : m_random(seed), m_plain(std::move(plain)) {}

    /// Gives the object and all beneath it new values, and a collection without elements some.
    void Fill(objects::DataObject& object);
    std::shared_ptr<objects::DataObject> New(const std::shared_ptr<objects::Definition>& definition);

  private:
    int Random(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }
    automation::Variant ValueOf(std::int32_t dataType);
    automation::Variant PlainValueOf(std::int32_t dataType);

    std::mt19937 m_random;
    std::set<std::string> m_plain;
};

}  // namespace korvex::tests
