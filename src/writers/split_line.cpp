#include "writers/split_line.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "frame/options.h"
#include "source/line_kinds.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"
#include "source/read_only_notice.h"
#include "writers/line_block.h"

namespace kolvane::writers {
namespace {

namespace line_kind = source::line_kind;

constexpr frame::Option kMaxWidth = frame::option("dsagfadsf3435sdf");
// The language's limit for the lines of one statement.
constexpr std::size_t kMostLines = 25;

struct Separator {
  std::string_view text;
  std::string_view kept;  // at the end of the piece in front
};

constexpr Separator kComma{",", ","};
constexpr Separator kOr{" Or ", " Or"};
constexpr Separator kAnd{" And ", " And"};
constexpr Separator kAmpersand{" & ", " &"};
constexpr Separator kWholeAmpersand{" & ", " & "};
constexpr Separator kNone{};

struct SplitRule {
  std::string_view kind;
  // The following lines are indented to `offset` characters behind the position of `anchor`.
  std::string_view anchor;
  int offset;
  std::array<Separator, 3> separators;  // in the order of their use
};

constexpr std::array<SplitRule, 7> kRules{{
    {line_kind::kIfLogical, "I", 2, {kOr, kAnd, kNone}},
    {line_kind::kIfFunction, "(", -1, {kComma, kOr, kAnd}},
    {line_kind::kCollectionAdd, ".Add", 3, {kComma, kNone, kNone}},
    {line_kind::kReturningCall, "(", -1, {kComma, kAmpersand, kNone}},
    {line_kind::kSubCall, " ", -1, {kComma, kNone, kNone}},
    {line_kind::kProcedure, "(", -1, {kComma, kNone, kNone}},
    {line_kind::kAssignmentWithBreaks, " = ", 2, {kWholeAmpersand, kNone, kNone}},
}};

const SplitRule* findRule(std::string_view kind) {
  for (const SplitRule& rule : kRules)
    if (rule.kind == kind) return &rule;
  return nullptr;
}

std::size_t numberWidth(std::string_view text) {
  if (!source::Is_Numbered_Line(text)) return 0;
  const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
  return end < text.size() && text[end] == ':' ? end + 1 : end;
}

int anchorOf(const SplitRule& rule, std::string_view text) {
  const int firstWord = static_cast<int>(text.size() - source::lTrimWhite(text).size()) + 1;
  return std::max(0, base::inStr(firstWord, text, rule.anchor) + rule.offset);
}

// Pieces of the text, each but the last with what the separator leaves behind. A break inside of a string
// literal would end it; inside of a comment it continues the comment.
std::vector<std::string> splitAt(std::string_view text, const Separator& separator) {
  std::vector<std::string> pieces;
  bool inString = false;
  bool inComment = false;
  std::size_t start = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (!inComment && text[i] == '"') inString = !inString;
    if (!inString && text[i] == '\'') inComment = true;
    if (inString || i < start || !text.substr(i).starts_with(separator.text)) continue;
    pieces.push_back(std::string(text.substr(start, i - start)).append(separator.kept));
    start = i + separator.text.size();
  }
  pieces.emplace_back(text.substr(start));
  return pieces;
}

std::vector<std::string> splitBy(std::string_view text, const SplitRule& rule) {
  std::vector<std::string> pieces{std::string(text)};
  for (const Separator& separator : rule.separators) {
    if (separator.text.empty()) break;
    std::vector<std::string> finer;
    for (const std::string& piece : pieces)
      for (std::string& part : splitAt(piece, separator)) finer.push_back(std::move(part));
    pieces = std::move(finer);
  }
  while (pieces.size() > 1 && source::Is_Blank_Line(pieces.back())) pieces.pop_back();
  return pieces;
}

// Joins neighbours by one blank for as long as they stay below the width.
std::vector<std::string> pack(const std::vector<std::string>& pieces, int anchor, int width) {
  std::vector<std::string> packed{pieces.front()};
  for (auto piece = pieces.begin() + 1; piece != pieces.end(); ++piece) {
    const bool parted = packed.back().ends_with(' ');
    const std::string joined =
        std::string(packed.back()).append(parted ? "" : " ").append(source::lTrimWhite(*piece));
    const int indentation = packed.size() == 1 ? 0 : anchor;
    if (indentation + static_cast<int>(joined.size()) < width)
      packed.back() = joined;
    else
      packed.push_back(*piece);
  }
  return packed;
}

// The line as it is to stand; "" when it is to stay.
std::string splitText(std::string_view text, int width) {
  if (source::Is_Blank_Line(text) || endsInContinuation(text) || static_cast<int>(text.size()) < width)
    return {};
  const std::string_view number = text.substr(0, numberWidth(text));
  const std::string_view statement = text.substr(number.size());
  const SplitRule* rule = findRule(source::DetectLineType(statement));
  if (!rule) return {};
  const int anchor = anchorOf(*rule, statement);
  const std::vector<std::string> pieces = pack(splitBy(statement, *rule), anchor, width);
  if (pieces.size() == 1 || pieces.size() > kMostLines) return {};
  const std::string indentation = base::repeat(' ', static_cast<int>(number.size()) + anchor);
  return std::string(number).append(base::join(pieces, " _\r\n" + indentation));
}

}  // namespace

void LineSplitter(const frame::Services& services, frame::CodeModule& module, int line, int startColumn) {
  const base::ErrorScope scope{"modGeneral", "LineSplitter"};
  source::withReadOnlyNotice(services, module, [&] {
    const int width = static_cast<int>(std::clamp(frame::numberOf(services, kMaxWidth), 0L, 0xffffL));
    const std::string text = splitText(source::lineText(module, line), width);
    if (text.empty()) return;
    module.ReplaceLine(line, text);
    putCursor(*module.CodePane(), line, startColumn);
  });
}

}  // namespace kolvane::writers
