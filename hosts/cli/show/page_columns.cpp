#include "hosts/cli/show/page.h"

#include <algorithm>
#include <utility>

namespace korvex::cli {

namespace {

using scriptgen::ColumnsInDialect;
using scriptgen::DialectTitles;

/// Value, type, key and default stand before the dialects.
constexpr std::size_t OwnColumns = 4;

class ColumnTable {
  public:
    ColumnTable(const ShownDefinition& shown, const ShownObject& object,
                std::span<const ColumnsInDialect> dialects)
        : m_shown(shown), m_object(object), m_dialects(dialects) {}

    Html Part() {
        for (const ShownValue& value : m_object.values) {
            if (value.interface != m_interface || m_rows.IsEmpty()) BeginGroup(value);
            m_rows.Join(RowOf(value));
        }
        EndGroup();
        if (m_groups.IsEmpty()) return {};
        Html titles;
        for (const std::string_view title : DialectTitles())
            titles += Fill("dialect", {{"name", title}});
        return Fill("columns", {{"name", m_object.row->Name}, {"dialects", titles}, {"groups", m_groups}});
    }

  private:
    void BeginGroup(const ShownValue& value) {
        EndGroup();
        m_interface = value.interface;
        const std::string name = m_interface == nullptr ? "Added to the table" : m_interface->Name;
        if (name != m_object.row->Name) m_rows = Fill("group-head", {{"width", Width(0)}, {"name", name}});
    }

    void EndGroup() {
        if (!m_rows.IsEmpty()) m_groups.Join(Fill("group", {{"rows", m_rows}}));
        m_rows = {};
    }

    /// Number of columns from the one at `first` to the last.
    static std::string Width(std::size_t first) {
        return std::to_string(OwnColumns + DialectTitles().size() - first);
    }

    Html RowOf(const ShownValue& value) const {
        const Html note = NoteOf(value);
        if (value.child) {
            return Fill("child", {{"name", value.Name()},
                                  {"note", note},
                                  {"width", Width(1)},
                                  {"link", ObjectAnchor(m_shown.Objects()[*value.child])}});
        }
        if (value.column == nullptr) {
            return Fill("plain", {{"name", value.Name()},
                                  {"note", note},
                                  {"type", value.TypeText()},
                                  {"default", value.row->DefaultVal},
                                  {"width", Width(OwnColumns)}});
        }
        const std::string defaultText = DefaultOf(*value.column, MainDialect());
        return Fill("column", {{"name", value.Name()},
                               {"note", note},
                               {"type", value.TypeText()},
                               {"keys", KeysOf(*value.column)},
                               {"default", defaultText},
                               {"cells", CellsOf(*value.column, defaultText)}});
    }

    /// What the values of a key mean is plain.
    static Html NoteOf(const ShownValue& value) {
        if (value.row == nullptr || value.IsKey()) return {};
        const repository::ValueRow& row = *value.row;
        std::string marks;
        const auto add = [&marks](const std::string& text) {
            if (!text.empty()) marks += (marks.empty() ? "" : " · ") + text;
        };
        if (row.Caption != row.Name) add(row.Caption);
        if (row.Translation != row.Name && row.Translation != row.Caption) add(row.Translation);
        if (!row.MinValue.empty()) add("from " + row.MinValue);
        if (!row.MaxValue.empty()) add("to " + row.MaxValue);
        if (row.IsReadOnly) add("read-only");
        if (value.column != nullptr && value.column->FieldName != row.Name)
            add("column " + value.column->FieldName);
        for (const std::string& tag : {row.VIDTag1, row.VIDTag2, row.VIDTag3})
            add(tag);
        if (!row.Description.empty()) marks += (marks.empty() ? "" : "\n") + row.Description;
        return marks.empty() ? Html() : Fill("note", {{"text", marks}});
    }

    Html KeysOf(const scriptgen::Column& column) const {
        Html keys;
        if (column.IsPrimaryKey) keys.Join(Fill("pk"), " ");
        if (column.IsAutoNumber) keys.Join(Fill("auto"), " ");
        if (column.IsForeignKey) keys.Join(Fill("fk", {{"link", TargetOf(column)}}), " ");
        return keys;
    }

    /// The column that a foreign key refers to.
    Html TargetOf(const scriptgen::Column& column) const {
        const std::vector<scriptgen::ForeignKey>& all = m_object.table->ForeignKeys;
        const auto key = std::ranges::find(all, column.FieldName, &scriptgen::ForeignKey::FieldName);
        if (key == all.end()) return {};
        const auto target = m_shown.Find(key->FKObjectID);
        if (!target) return key->Table;
        const ShownObject& object = m_shown.Objects()[*target];
        return ObjectAnchor(object, object.row->Name + (key->KeyField.empty() ? "" : "." + key->KeyField));
    }

    /// The first one that takes the table; its defaults stand in a column of their own.
    std::size_t MainDialect() const {
        const auto found = std::ranges::find(m_dialects, std::string(), &ColumnsInDialect::failure);
        return static_cast<std::size_t>(found - m_dialects.begin());
    }

    const scriptgen::ColumnInDialect* In(std::size_t dialect, const scriptgen::Column& column) const {
        if (dialect >= m_dialects.size() || !m_dialects[dialect].failure.empty()) return nullptr;
        return &m_dialects[dialect]
                    .columns[static_cast<std::size_t>(&column - m_object.table->Columns.data())];
    }

    std::string DefaultOf(const scriptgen::Column& column, std::size_t dialect) const {
        const scriptgen::ColumnInDialect* in = In(dialect, column);
        if (in == nullptr) return column.DefaultVal;
        if (column.IsPrimaryKey || column.IsAutoNumber) return {};
        return in->defaultText.empty() ? "Null" : in->defaultText;
    }

    Html CellOf(const scriptgen::Column& column, std::size_t dialect, const std::string& mainDefault) const {
        const scriptgen::ColumnInDialect* in = In(dialect, column);
        if (in == nullptr) return "–";
        Html cell = in->type;
        const std::string defaultText = DefaultOf(column, dialect);
        if (defaultText != mainDefault) cell += Fill("other-default", {{"text", defaultText}});
        return cell;
    }

    /// One cell for neighbours that say the same.
    Html CellsOf(const scriptgen::Column& column, const std::string& mainDefault) const {
        Html cells;
        Html cell;
        std::size_t width = 0;
        for (std::size_t i = 0; i <= m_dialects.size(); ++i) {
            Html next = i < m_dialects.size() ? CellOf(column, i, mainDefault) : Html();
            if (width > 0 && next.Markup() != cell.Markup()) {
                cells += width == 1 ? Fill("cell", {{"text", cell}})
                                    : Fill("wide-cell", {{"width", std::to_string(width)}, {"text", cell}});
                width = 0;
            }
            cell = std::move(next);
            ++width;
        }
        return cells;
    }

    const ShownDefinition& m_shown;
    const ShownObject& m_object;
    std::span<const ColumnsInDialect> m_dialects;
    const repository::InterfaceRow* m_interface = nullptr;
    Html m_rows;
    Html m_groups;
};

}  // namespace

Html ColumnsPart(const ShownDefinition& shown, const ShownObject& object,
                 std::span<const ColumnsInDialect> dialects) {
    return ColumnTable(shown, object, dialects).Part();
}

}  // namespace korvex::cli
