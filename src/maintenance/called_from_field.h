// The line of a procedure header that holds its Called From field.
#pragma once

#include <string>
#include <string_view>

#include "frame/services.h"

namespace kolvane::maintenance {

// That line of the header above a Sub or Function; 0 when the header has none. The host's error for any other
// procedure.
int calledFromLine(const frame::Services& services, frame::CodeModule& module, const std::string& procedure);
// What is written there for these callers: one line, or several parted by CR LF when the text is longer than
// "etrertretre4fg405ertwrt" allows. Only the first one is indented as headers are.
std::string calledFromField(const frame::Services& services, std::string_view callers);
// Writes it at that line. To the letter the one line goes, and the further ones of an older, longer text stay; under care
// they go with it, and a field that says the same already is not written.
void writeCalledFrom(const frame::Services& services, frame::CodeModule& module, int line,
                     std::string_view callers);

}  // namespace kolvane::maintenance
