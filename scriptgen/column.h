#pragma once

#include "repository/ids.h"

#include <cstdint>
#include <string>

namespace korvex::scriptgen {

/// One column of the table being scripted: the values behind a clsField, under the same names.
struct Column {
    std::string FieldName;
    std::int32_t DataType = 0;  ///< automation variant type number of the value
    bool IsPrimaryKey = false;
    bool IsAutoNumber = false;  ///< filled by the database on insert
    bool IsForeignKey = false;
    repository::ObjectId FKObjectID =
        {};                 ///< object of the referenced table; -1 when the column is no foreign key
    std::string MaxLength;  ///< declared length of a character column, as numeric text
    repository::ValueId ValueID = {};    ///< repository value stored in the column; 0 for added columns
    repository::ValueId FKValueID = {};  ///< referenced key value; -1 when the column is no foreign key
    std::string TypeSize;                ///< type text of the dialect
    std::int16_t nPrimaryKeySeq = 0;     ///< position within the primary key
    std::string DefaultVal;
    bool IsLongFld = false;   ///< became a long text or long binary type
    std::string DefaultText;  ///< on an engine: the default as the engine writes it; "" for Null

    // What tells the value from others when two definitions are compared (DescribeState).
    std::string Interface;    ///< name of the interface that the value is one of
    std::int32_t VID = 0;     ///< its number there; 0 for none, or for one that others have, too
    bool VIDIsPlace = false;  ///< the numbers of the interface count its values, as they stand
    bool VIDIsGiven = false;  ///< whoever wrote the definition gave it
};

}  // namespace korvex::scriptgen
