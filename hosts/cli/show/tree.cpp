#include "hosts/cli/show/render.h"

#include <utility>

namespace korvex::cli {

namespace {

/// Lines are not indented further than this, so that the tree of a very deep definition stays readable.
constexpr std::size_t DeepestIndent = 40;

/// One line still to come: a value or element, with the object beneath it.
struct Line {
    std::size_t depth;
    std::string text;
    std::optional<std::size_t> object;
};

class Tree {
  public:
    explicit Tree(const Model& model) : m_model(model), m_isShown(model.objects.size(), false) {}

    std::string Text() {
        for (const ModelDefinition& definition : m_model.definitions) {
            m_text += m_text.empty() ? "" : "\n";
            Show({0, "definition " + definition.storage + ": ", definition.root});
        }
        for (std::size_t i = 0; i < m_model.objects.size(); ++i) {
            if (m_isShown[i]) continue;
            m_text += m_text.empty() ? "" : "\n";
            Show({0, "in no definition: ", i});
        }
        return std::move(m_text);
    }

  private:
    /// The line and everything beneath it. Waiting lines stand in a list of their own instead of on the call
    /// stack: definitions may be deep.
    void Show(Line start) {
        std::vector<Line> waiting = {std::move(start)};
        while (!waiting.empty()) {
            const Line line = std::move(waiting.back());
            waiting.pop_back();
            const bool isRepeated = line.object && m_isShown[*line.object];
            Print(line, isRepeated);
            if (!line.object || isRepeated) continue;
            m_isShown[*line.object] = true;
            std::vector<Line> beneath = LinesBeneath(*line.object, line.depth + 1);
            waiting.insert(waiting.end(), std::make_move_iterator(beneath.rbegin()),
                           std::make_move_iterator(beneath.rend()));
        }
    }

    void Print(const Line& line, bool isRepeated) {
        if (line.depth > DeepestIndent) {
            m_text += std::string(2 * DeepestIndent, ' ') + "(" + std::to_string(line.depth) + ") ";
        } else {
            m_text += std::string(2 * line.depth, ' ');
        }
        m_text += line.text;
        if (line.object) m_text += ObjectText(m_model.objects[*line.object]);
        m_text += isRepeated ? " (shown above)\n" : "\n";
    }

    static std::string ObjectText(const ModelObject& object) {
        std::string text = object.Name;
        if (object.element) text += " (collection)";
        if (object.TableName) text += " in " + *object.TableName;
        return text;
    }

    std::vector<Line> LinesBeneath(std::size_t index, std::size_t depth) const {
        const ModelObject& object = m_model.objects[index];
        std::vector<Line> lines;
        if (object.element) lines.push_back({depth, "element: ", *object.element});
        for (const std::size_t interface : object.interfaces) {
            for (std::size_t i = 0; i < m_model.interfaces[interface].values.size(); ++i) {
                const ModelValue& value = m_model.interfaces[interface].values[i];
                lines.push_back({depth, value.Name + ": ", value.child});
                if (!value.child) lines.back().text += ValueText(object, {interface, i});
            }
        }
        return lines;
    }

    std::string ValueText(const ModelObject& object, const ModelValueRef& ref) const {
        const ModelValue& value = m_model.interfaces[ref.interface].values[ref.value];
        std::string text = TypeText(value.DataType, value.MaxLength);
        if (value.IsAutoNumber) text += ", auto number";
        if (!value.DefaultVal.empty()) text += ", default " + value.DefaultVal;
        for (const ModelPrimaryKey& key : object.primaryKeys) {
            if (key.value == ref) text += ", primary key";
        }
        for (const ModelForeignKey& key : object.foreignKeys) {
            if (key.value == ref) text += ", refers to " + m_model.objects[key.object].Name;
        }
        if (value.FieldName && *value.FieldName != value.Name) text += ", column " + *value.FieldName;
        return text;
    }

    const Model& m_model;
    std::vector<bool> m_isShown;
    std::string m_text;
};

}  // namespace

std::string TreeText(const Model& model) { return Tree(model).Text(); }

}  // namespace korvex::cli
