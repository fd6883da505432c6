#pragma once

#include "objects/data_object.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// Data objects as JSON text.
///
/// An object is a JSON object with one member per value, under the value's name: a child object nested in it,
/// dates as ISO 8601 text, amounts of money as decimal numbers, binary data as {"$base64": "..."}; Null is
/// null, and an Empty value is left out. The elements of a collection are an array under "$items". State that
/// is not zero stands under "$state": "SelectState" and "Counter", or "SelectedItem" and "CounterHolder" of a
/// collection. Values of the type variant keep their value, not its exact type.
namespace korvex::objects {

/// Values, child objects and "$items" that a text names although their definition keeps them out of the
/// database, each once: "Customer.Remark".
using UnstoredMembers = std::vector<std::string>;

/// A new object, modified wherever the text says something.
///
/// Errors name the place ("Lines.$items[3].Quantity"): InvalidProcedureCall (5) for text that is no JSON,
/// with line and column; MemberNotFound (438) for a member that the definition does not know, with the
/// nearest name that it does; TypeMismatch (13) and Overflow (6) for a value that does not fit its type;
/// OutOfStackSpace (28) for objects nested deeper than the thread's stack allows.
/// @param definition of the object
/// @param text one JSON object, in UTF-8
/// @param unstored where given, takes what of the text a save leaves out
/// @return the object
std::shared_ptr<DataObject> FromJson(const std::shared_ptr<Definition>& definition, std::string_view text,
                                     UnstoredMembers* unstored = nullptr);

/// One new object for each item of a JSON array, or one for anything else; errors as for FromJson.
/// @param definition of the objects
/// @param text a JSON array of objects, or one object
/// @param unstored where given, takes what of the text a save leaves out
/// @return the objects in the order of the text
std::vector<std::shared_ptr<DataObject>> ListFromJson(const std::shared_ptr<Definition>& definition,
                                                      std::string_view text,
                                                      UnstoredMembers* unstored = nullptr);

/// Puts what the text says into an object; values and child objects that it does not mention stay. "$items"
/// gives all elements: an item with the key of an element is put into that one, any other is a new element,
/// and elements without an item leave the collection. KeyAlreadyUsed (457) for two items with one key. After
/// an error, which is one of FromJson, the object is partly changed.
/// @param object an object with a definition
/// @param text one JSON object, in UTF-8
/// @param unstored where given, takes what of the text a save leaves out
void ApplyJson(DataObject& object, std::string_view text, UnstoredMembers* unstored = nullptr);

/// How JSON text is laid out.
enum class JsonForm : std::uint8_t {
    Indented,  ///< two blanks per level
    Line,      ///< all of it in one
};

/// The object as text with a line feed at its end, members in the order of its definition. OutOfStackSpace
/// (28) as for FromJson.
/// @param object an object with a definition
/// @param form how the text is laid out
/// @return UTF-8
std::string ToJson(DataObject& object, JsonForm form = JsonForm::Indented);

}  // namespace korvex::objects
