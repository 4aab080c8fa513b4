// Text of the suite, which is bytes of a code page, and text of the window system.
#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

#include "base/code_page.h"

namespace kolvane::qt {

// One character a byte, so that positions are the same on both sides. Line ends stay as they are.
QString toQt(const base::CodePage& codePage, std::string_view bytes);
// A character that the code page does not have raises 5; the description names it.
std::string fromQt(const base::CodePage& codePage, const QString& text);
// The same without an exception: nothing, and why in `refusal` when that is given.
std::optional<std::string> tryFromQt(const base::CodePage& codePage, const QString& text,
                                     QString* refusal = nullptr);

// Lines of an editor are parted by one "\n", those of a text box by CR LF.
QString linesToQt(const base::CodePage& codePage, std::string_view bytes);
QString withCrLf(const QString& lines);
// Between positions in the two texts. A position between CR and LF is that of the CR.
int positionInLines(std::string_view bytes, int position);
int positionInBytes(std::string_view bytes, int positionInLines);

// A text of the system itself, in UTF-8 or ASCII.
QString utf8(std::string_view text);
std::string utf8(const QString& text);

}  // namespace kolvane::qt
