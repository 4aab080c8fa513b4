#include "qt/text_convert.h"

#include "base/error.h"

namespace kolvane::qt {

QString utf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string utf8(const QString& text) { return text.toStdString(); }

QString toQt(const base::CodePage& codePage, std::string_view bytes) { return utf8(codePage.toUtf8(bytes)); }

std::string fromQt(const base::CodePage& codePage, const QString& text) {
  return codePage.fromUtf8(utf8(text));
}

std::optional<std::string> tryFromQt(const base::CodePage& codePage, const QString& text, QString* refusal) {
  try {
    return fromQt(codePage, text);
  } catch (const base::Error& error) {
    if (error.number() != base::errors::kInvalidCall) throw;
    if (refusal) *refusal = utf8(error.description());
    return std::nullopt;
  }
}

QString linesToQt(const base::CodePage& codePage, std::string_view bytes) {
  return toQt(codePage, bytes).replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

QString withCrLf(const QString& lines) {
  QString text = lines;
  return text.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
}

int positionInLines(std::string_view bytes, int position) {
  int lines = 0;
  for (int at = 0; at < position; ++at)
    if (bytes.substr(static_cast<std::size_t>(at), 2) != "\r\n") ++lines;
  return lines;
}

int positionInBytes(std::string_view bytes, int position) {
  int at = 0;
  for (int passed = 0; passed < position && at < static_cast<int>(bytes.size()); ++passed)
    at += bytes.substr(static_cast<std::size_t>(at), 2) == "\r\n" ? 2 : 1;
  return at;
}

}  // namespace kolvane::qt
