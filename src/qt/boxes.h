// The desk's boxes, as the window system has them.
#pragma once

#include <QString>
#include <QWidget>
#include <optional>
#include <string>
#include <string_view>

#include "base/code_page.h"
#include "forms/desk.h"

namespace kolvane::qt {

// `flags` as forms::box has them, with the default button by 256 (second) or 512 (third). Esc and the close
// button give what does least. A text that the screen has no room for scrolls: the longest of its paragraphs, which
// blank lines part.
forms::Answer showMessage(QWidget* owner, const QString& text, int flags, const QString& title);

// Nothing when it is cancelled; before a text that was typed is dropped so, the box asks. A text that the code page does not hold is not let go with OK; the box says why.
std::optional<std::string> askText(QWidget* owner, const base::CodePage& codePage, std::string_view prompt,
                                   std::string_view title, std::string_view proposal);

// `filter` as in forms::FileDialog. The system's path; empty when it is cancelled.
QString askFile(QWidget* owner, forms::FileDialog::Kind kind, const QString& title, const QString& filter,
                const QString& proposed);

// "Pictures (*.bmp)|*.bmp|All files (*.*)|*.*" as the window system writes it: "Pictures (*.bmp);;All files (*)".
QString fileFilter(const QString& filter);

}  // namespace kolvane::qt
