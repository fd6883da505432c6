#include "automation/error.h"
#include "objects/json.h"
#include "objects/json_state.h"
#include "objects/json_value.h"
#include "platform/stack.h"

#include <utility>

namespace korvex::objects {

using automation::Variant;

namespace {

/// Writes objects level by level into one text.
class Output {
  public:
    explicit Output(JsonForm form) : m_form(form) {}

    void WriteObject(DataObject& object) {
        if (!m_stack.HasRoom()) FailTooDeep();
        Open('{');
        for (const auto& value : object.Type().Values())
            WriteMember(object, *value);
        WriteState(object);
        if (object.Type().ElementDefinition() != nullptr) WriteItems(object);
        Close('}');
    }

    std::string Take() {
        m_text += '\n';
        return std::move(m_text);
    }

  private:
    void Open(char bracket) {
        m_text += bracket;
        m_indent += 2;
        m_isFirst = true;
    }

    void Close(char bracket) {
        m_indent -= 2;
        if (!m_isFirst) StartLine();
        m_text += bracket;
        m_isFirst = false;
    }

    void StartLine() {
        if (m_form == JsonForm::Line) return;
        m_text += '\n';
        m_text.append(m_indent, ' ');
    }

    void NextItem() {
        if (!m_isFirst) m_text += m_form == JsonForm::Line ? ", " : ",";
        m_isFirst = false;
        StartLine();
    }

    void WriteName(std::string_view name) {
        NextItem();
        WriteText(m_text, name);
        m_text += ": ";
    }

    void WriteMember(DataObject& object, const ValueDefinition& definition) {
        const auto& name = definition.Info().name;
        if (definition.Child() != nullptr) {
            const auto child = object.ExistingChild(definition);
            if (child == nullptr) return;
            WriteName(name);
            return WriteObject(*child);
        }
        const Variant value = object.Value(definition.Index());
        if (value.IsEmpty()) return;
        WriteName(name);
        try {
            WriteValue(m_text, value);
        } catch (const automation::Error& error) {
            throw automation::Error(error.Number(),
                                    object.Type().Name() + "." + name + ": " + error.Description() + ".",
                                    error.Source());
        }
    }

    void WriteState(DataObject& object) {
        const auto states = StatesOf(object.Type());
        if (GetState(object, states[0]) == 0 && GetState(object, states[1]) == 0) return;
        WriteName(StateMember);
        Open('{');
        for (const auto& state : states) {
            WriteName(state.name);
            m_text += std::to_string(GetState(object, state));
        }
        Close('}');
    }

    void WriteItems(DataObject& object) {
        WriteName(ItemsMember);
        Open('[');
        for (const auto& item : object.Items()) {
            NextItem();
            WriteObject(*item);
        }
        Close(']');
    }

    JsonForm m_form;
    const platform::StackGuard m_stack;
    std::string m_text;
    std::size_t m_indent = 0;
    bool m_isFirst = true;
};

}  // namespace

std::string ToJson(DataObject& object, JsonForm form) {
    Output output(form);
    output.WriteObject(object);
    return output.Take();
}

}  // namespace korvex::objects
