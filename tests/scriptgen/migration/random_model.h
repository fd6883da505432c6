#pragma once

#include <random>
#include <string>
#include <vector>

namespace korvex::tests {

/// A definition that is made up, and changed in the ways in which people change theirs. Every object and
/// value keeps its guid, or its number, whatever it is called.
class RandomModel {
  public:
    /// The same model for the same number.
    explicit RandomModel(unsigned seed);

    /// Changes it in some places.
    void Edit();
    /// As a model file has it; the storage name is "S".
    std::string Json() const;
    /// What was done, for a message.
    const std::string& Story() const noexcept { return m_story; }

  private:
    struct Value {
        std::string name;
        std::string type;
        int length = 0;
        int vid = 0;
        int child = -1;
    };
    struct Object {
        std::string name;
        std::string guid;
        std::vector<Value> values;
        int element = -1;
    };

    int Random(int below) { return static_cast<int>(m_random() % static_cast<unsigned>(below)); }
    std::string NewName() { return "N" + std::to_string(++m_names); }
    Value NewValue();
    int NewObject(int depth);
    void EditOnce();
    void Hold(int parent, int child, bool first);
    std::vector<int> Reachable() const;
    void Visit(int object, std::vector<int>& found) const;
    int ParentsOf(int object) const;

    std::mt19937 m_random;
    int m_names = 0;
    std::vector<Object> m_objects;  ///< the first is the root; some may be nobody's any more
    std::string m_story;
};

}  // namespace korvex::tests
