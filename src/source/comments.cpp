#include "source/comments.h"

#include "source/line_tests.h"

namespace kolvane::source {

std::string Remove_Comments(std::string_view text) {
  std::string result(text);
  if (const std::size_t open = result.find('"'); open != std::string::npos)
    if (const std::size_t close = result.find('"', open + 1); close != std::string::npos)
      result.erase(open, close - open + 1);
  const std::size_t comment = result.find('\'');
  if (comment == std::string::npos) return result;
  return std::string(trimWhite(std::string_view(result).substr(0, comment)));
}

std::string_view RemoveComments(std::string_view text) {
  if (Is_Blank_Line(text)) return {};
  bool inString = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '"') inString = !inString;
    if (text[i] == '\'' && !inString) return text.substr(0, i);
  }
  return text;
}

}  // namespace kolvane::source
