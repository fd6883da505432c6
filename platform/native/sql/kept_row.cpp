#include "platform/native/sql/kept_row.h"

namespace korvex::native::sql {

Row& KeptRow::Values(const RowShape& shape) {
    if (m_values.empty()) {
        Row values;
        values.reserve(m_cells.size());
        for (std::size_t i = 0; i < m_cells.size(); ++i)
            values.push_back(Value(i, shape));
        m_values = std::move(values);
    }
    return m_values;
}

}  // namespace korvex::native::sql
