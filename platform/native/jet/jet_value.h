#pragma once

#include "automation/variant.h"

#include <stdexcept>

// Before the header that includes it as C.
#include <glib.h>
#include <mdbtools.h>

namespace korvex::native::jet {

/// A value that cannot be given as it stands; what() goes on behind its place ("ends before its end").
struct UnreadableValue : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The value of a field of the row that `file` stands on, in the type that DAO gives it: Yes/No as Boolean,
/// dates and money in full, identifiers as text in braces. Text and memos are taken from the bytes of the
/// file, because the library's own texts are cut, end at a zero character and know no characters beyond the
/// basic plane.
automation::Variant FieldValue(MdbHandle& file, const MdbColumn& column, const MdbField& field);

}  // namespace korvex::native::jet
