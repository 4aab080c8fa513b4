// Indentation and comment marks of generated code, from the general options; read afresh at each call.
#pragma once

#include <string>
#include <string_view>

#include "frame/services.h"

namespace kolvane::source {

// Rebuilds services.CodeTabs: "TaCo3" tab characters when "IC2" is on, else none.
void Set_Tabs(frame::Services& services);

// The character behind the apostrophe of a header's lines ("CoCh10").
std::string commentCharacter(const frame::Services& services);
// The header's indentation: "TaHe5" tab characters when "InHe4" is on, else none.
std::string headerIndent(const frame::Services& services);
// What a line that goes on with a header field's value begins with, up to and including the colon.
std::string headerContinuation(std::string_view character);

inline constexpr int kLabelWidth = 13;
// "Name         :", as it stands in the header and as it is searched for.
std::string fieldLabel(std::string_view label);
// What a header field's line begins with, up to and including the colon: "'*  Name         :".
std::string fieldStart(std::string_view character, std::string_view label);

}  // namespace kolvane::source
