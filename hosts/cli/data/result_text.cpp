#include "hosts/cli/data/result_text.h"

#include <algorithm>
#include <array>

namespace korvex::cli {

namespace {

constexpr std::array Texts = {
    ResultText{dbNoError, "Nothing was done.", "Check the definition (korvex repository check)."},
    ResultText{dbConnectError, "The database cannot be opened.", "Check --connection."},
    ResultText{dbNotConnected, "There is no connection to the database.", "Check --connection."},
    ResultText{dbPrimaryKeyFieldNameMissing, "An object of the definition has no primary key.",
               "Check the definition (korvex repository check)."},
    ResultText{dbPrimaryKeyMissing, "A record has no key above 0.", "Correct the key in the database."},
    ResultText{dbTableNameMissing, "An object of the definition has no table.",
               "Check the definition (korvex repository check)."},
    ResultText{dbBadParameter, "A name is empty.", "Give --table, --key-field and --field."},
    ResultText{dbNoMatchingRecord, "No record has that key.", "Check the key."},
    ResultText{dbCannotOpenRecordset, "A table cannot be opened.",
               "Make the tables of the definition (korvex database create)."},
    ResultText{dbParentNotInDatabase, "The object's foreign key does not name the key of its parent.",
               "Check --fk-prefix."},
    ResultText{dbObjectNotModified, "Nothing differs from what is stored.", ""},
    ResultText{dbTableNotIncluded, "An object of the definition is not stored.",
               "Check the definition (korvex repository check)."},
};

}  // namespace

const ResultText& TextOf(dbResults code) noexcept {
    const auto* found = std::ranges::find(Texts, code, &ResultText::code);
    return found == Texts.end() ? Texts.front() : *found;
}

}  // namespace korvex::cli
