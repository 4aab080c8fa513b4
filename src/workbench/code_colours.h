// The colours of code windows, on light and on dark desktops.
#pragma once

#include <QApplication>
#include <QColor>
#include <QPalette>

namespace kolvane::workbench {

struct CodeColours {
  QRgb paper, plain, keyword, comment;
  QRgb margin, lineNumber, caretLine;
  QRgb brace, braceText, loneBrace;
};

inline constexpr CodeColours kLightCode{
    qRgb(0xFF, 0xFF, 0xFF), qRgb(0x00, 0x00, 0x00), qRgb(0x00, 0x00, 0x80), qRgb(0x00, 0x80, 0x00),
    qRgb(0xF4, 0xF4, 0xF4), qRgb(0x80, 0x80, 0x80), qRgb(0xF2, 0xF6, 0xFC), qRgb(0xD0, 0xE8, 0xD0),
    qRgb(0x00, 0x00, 0x00), qRgb(0xC0, 0x00, 0x00)};
inline constexpr CodeColours kDarkCode{qRgb(0x1E, 0x1F, 0x22), qRgb(0xE2, 0xE2, 0xE2), qRgb(0x8A, 0xB4, 0xF8),
                                       qRgb(0x7F, 0xC8, 0x7F), qRgb(0x27, 0x28, 0x2C), qRgb(0x8C, 0x8C, 0x8C),
                                       qRgb(0x2A, 0x2E, 0x36), qRgb(0x3B, 0x57, 0x3B), qRgb(0xFF, 0xFF, 0xFF),
                                       qRgb(0xFF, 0x80, 0x80)};

// By the desktop's palette.
inline const CodeColours& codeColours() {
  return QApplication::palette().color(QPalette::Base).lightness() < 128 ? kDarkCode : kLightCode;
}

}  // namespace kolvane::workbench
