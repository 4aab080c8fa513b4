// Indentation and comment marks of generated code, from the general options; read afresh at each call.
#pragma once

#include <string>

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

}  // namespace kolvane::source
