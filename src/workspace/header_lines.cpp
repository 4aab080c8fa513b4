#include "workspace/header_lines.h"

#include <algorithm>
#include <cstring>

#include "base/text.h"

namespace kolvane::workspace {
namespace {

constexpr bool isBlank(char c) { return c == ' ' || c == '\t'; }

// The rest behind a keyword at the start of `text`, or nothing (data() null) when the word is another one.
std::string_view behindKeyword(std::string_view text, std::string_view keyword) {
  if (!base::startsWithNoCase(text, keyword)) return {};
  text.remove_prefix(keyword.size());
  if (!text.empty() && !isBlank(text.front())) return {};
  return text;
}

bool opens(std::string_view text, std::string_view keyword) {
  const std::string_view rest = behindKeyword(text, keyword);
  if (rest.data() == nullptr) return false;
  const std::string_view behind = trimLeft(rest);
  return behind.empty() || behind.front() != '=';  // a property may bear the keyword's name
}

bool closes(std::string_view text, std::string_view keyword) {
  const std::string_view rest = behindKeyword(text, keyword);
  return rest.data() != nullptr && trimRight(rest).empty();
}

}  // namespace

std::size_t LineReader::find(char what, std::size_t& known, std::size_t limit) {
  if (known != kUnknown && known >= offset_) return known;
  const void* found = std::memchr(bytes_.data() + offset_, what, limit - offset_);
  // Not found below the limit: where the limit is the end of the text, that answer holds for good.
  if (found == nullptr) return known = limit == bytes_.size() ? limit : kUnknown;
  return known = static_cast<std::size_t>(static_cast<const char*>(found) - bytes_.data());
}

bool LineReader::next(std::string_view& whole) {
  if (offset_ >= bytes_.size()) return false;
  const std::size_t lineFeed = find('\n', lineFeed_, bytes_.size());
  const std::size_t carriageReturn = find('\r', return_, lineFeed);
  std::size_t end = lineFeed;
  if (carriageReturn < lineFeed && carriageReturn + 1 != lineFeed) end = carriageReturn;
  end = std::min(end + 1, bytes_.size());
  whole = bytes_.substr(offset_, end - offset_);
  offset_ = end;
  return true;
}

std::string_view lineEndOf(std::string_view whole) {
  std::size_t size = 0;
  if (whole.ends_with("\r\n"))
    size = 2;
  else if (whole.ends_with('\n') || whole.ends_with('\r'))
    size = 1;
  return whole.substr(whole.size() - size);
}

std::string_view withoutLineEnd(std::string_view whole) {
  return whole.substr(0, whole.size() - lineEndOf(whole).size());
}

void SourceLine::setText(std::string_view text) {
  auto edited = std::make_unique<std::string>(text);
  edited->append(lineEndOf(whole()));
  edited_ = std::move(edited);
}

std::string_view trimLeft(std::string_view text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  return text;
}

std::string_view trimRight(std::string_view text) {
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view takeWord(std::string_view& rest) {
  const std::string_view from = trimLeft(rest);
  const auto size = static_cast<std::size_t>(std::find_if(from.begin(), from.end(), isBlank) - from.begin());
  rest = trimLeft(from.substr(size));
  return from.substr(0, size);
}

Bracket bracketOf(std::string_view line) {
  const std::string_view text = trimLeft(line);
  if (text.empty()) return Bracket::kNone;
  switch (text.front()) {
    case 'B':
    case 'b':
      if (opens(text, "Begin")) return Bracket::kBegin;
      return opens(text, "BeginProperty") ? Bracket::kBeginGroup : Bracket::kNone;
    case 'E':
    case 'e':
      if (closes(text, "End")) return Bracket::kEnd;
      return closes(text, "EndProperty") ? Bracket::kEndGroup : Bracket::kNone;
    default:
      return Bracket::kNone;
  }
}

Assignment assignmentOf(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return {};
  return {trimRight(trimLeft(line.substr(0, equals))), trimRight(trimLeft(line.substr(equals + 1)))};
}

Assignment headerAttributeOf(std::string_view line) {
  const std::string_view rest = behindKeyword(line, "Attribute");
  if (rest.data() == nullptr) return {};
  const Assignment attribute = assignmentOf(rest);
  if (attribute.name.find('.') != std::string_view::npos) return {};
  return attribute;
}

std::string quoted(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) result.append(c == '"' ? 2 : 1, c);
  return result.append("\"");
}

std::size_t quotedLength(std::string_view text) {
  if (!text.starts_with('"')) return 0;
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] != '"') continue;
    if (i + 1 == text.size() || text[i + 1] != '"') return i + 1;
    ++i;
  }
  return 0;
}

std::string unquoted(std::string_view text) {
  const std::size_t size = quotedLength(text);
  if (size == 0) return std::string(text);
  return base::replaceAll(text.substr(1, size - 2), "\"\"", "\"");
}

std::string numberWithName(long number, std::string_view name) {
  std::string text = std::to_string(number);
  if (name.empty()) return text;
  const bool truth = name == "True" || name == "False";
  text.append(truth && text.size() < 2 ? 3 : 2, ' ');
  return text.append("'").append(name);
}

std::string companionOf(std::string_view value) {
  if (value.starts_with('$')) value.remove_prefix(1);
  const std::size_t size = quotedLength(value);
  if (size == 0 || size + 1 >= value.size() || value[size] != ':') return {};
  const std::string_view offset = value.substr(size + 1);
  const bool hexadecimal = std::all_of(offset.begin(), offset.end(), [](char c) {
    return base::isDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
  });
  return hexadecimal ? unquoted(value.substr(0, size)) : std::string();
}

}  // namespace kolvane::workspace
