// The naming standard: a variable's name opens with a lower-case tag for its type. The table of tags is the
// user's (settings section "ADP95"), and each call reads it afresh. A missing or empty table is no fault: the
// answers are then "".
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "forms/lists.h"
#include "frame/services.h"

namespace kolvane::source {

// The table: prefix and type, in stored order.
frame::Settings::Rows variablePrefixes(const frame::Services& services);

// The first prefix of the type, which compares without case; always in lower case.
std::string Get_Prefix_From_Type(const frame::Services& services, std::string_view type);
// The type of the prefix, which compares exactly. For the prefix of "Object" a class of an open project whose
// name, the class prefix cut off, is `restOfName`; of several the last one of Find_Classes_Collections. Only
// for that prefix the projects are looked through.
std::string Get_Type_From_Prefix(const frame::Services& services, std::string_view prefix,
                                 std::string_view restOfName);
// What stands in front of the name's first letter A to Z; all of it without one.
std::string_view GetPossiblePrefix(std::string_view name);
// The types of the table, each with a comma behind it.
std::string GetCurrentTypes(const frame::Services& services);

// Puts the prefix of a property's variable on its name. A class gives "obj" or "col"; one that has both Get
// and Set counts as a collection when it ends in "s", else as an object. Other classes leave the name alone
// unless their own name begins with "cls", "obj" or "col".
void TagVariable(const frame::Services& services, std::string& name, std::string_view type, bool hasGet,
                 bool hasSet);
// Trimmed, each character behind a "_" in upper case.
std::string Cap(const frame::Services& services, std::string_view text);

// How the Procedure Builder does the same for a procedure and its parameters.
namespace procedure_builder {

// Puts the type's prefix on the name and makes its first letter upper case. A name that has a known prefix
// stays as it is.
void TagVariable(const frame::Services& services, std::string& name, std::string_view type);
// As the other, with the first character in upper case too, unless the text begins with "g_" or "m_".
std::string Cap(const frame::Services& services, std::string_view text);

}  // namespace procedure_builder

// Clears the combos and fills them with the types of the table. Null pointers are passed over.
void Generate_DataTypes_For_Combo(const frame::Services& services,
                                  std::initializer_list<forms::ComboBox*> combos);

}  // namespace kolvane::source
