#include "writers/header_placing.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/text.h"
#include "frame/option_tables.h"
#include "source/line_tests.h"
#include "writers/line_block.h"

namespace kolvane::writers {
namespace {

using Lines = std::vector<std::string>;
using source::Is_Blank_Line;

bool isBlank(const std::string& line) { return Is_Blank_Line(line); }

Lines slice(const Lines& lines, std::size_t from, std::size_t to) {
  return {lines.begin() + static_cast<std::ptrdiff_t>(from), lines.begin() + static_cast<std::ptrdiff_t>(to)};
}

// Returns how many went.
std::size_t dropBlankEnd(Lines& lines) {
  const auto end = std::find_if_not(lines.rbegin(), lines.rend(), isBlank).base();
  const auto count = static_cast<std::size_t>(lines.end() - end);
  lines.erase(end, lines.end());
  return count;
}

void dropBlankEnds(Lines& lines) {
  dropBlankEnd(lines);
  lines.erase(lines.begin(), std::find_if_not(lines.begin(), lines.end(), isBlank));
}

void append(Lines& lines, const Lines& more) { lines.insert(lines.end(), more.begin(), more.end()); }

void appendParagraph(Lines& lines, const Lines& paragraph) {
  if (paragraph.empty()) return;
  if (!lines.empty() && !isBlank(lines.back())) lines.emplace_back();
  append(lines, paragraph);
}

bool isAboveDirective(const LinesAbove& above) {
  return above.header && above.header->begin < above.touching;
}

// What touches the title, the header apart, in two parts: above it and below it.
struct Around {
  explicit Around(const LinesAbove& lines) {
    const std::size_t end = lines.lines.size();
    above = slice(lines.lines, lines.touching, lines.header ? lines.header->begin : end);
    if (lines.header) below = slice(lines.lines, lines.header->end, end);
    blankLines = dropBlankEnd(above);
    dropBlankEnds(below);
  }

  Lines above;
  Lines below;
  std::size_t blankLines = 0;  // behind `above`
};

// The blank lines above a header that has nothing but those above it.
Lines blankLead(const LinesAbove& above, const Around& around, const PlacedHeader& header) {
  const bool atTop = above.first == 1 && above.touching == 0 && header.keepsFirstLine;
  if (!atTop || around.blankLines == 0 || !around.above.empty()) return {header.lead};
  if (above.header) return slice(above.lines, 0, around.blankLines);
  return {above.lines.front(), header.lead};
}

// What stands above the header, with the blank lines that are there.
Lines keptComments(const LinesAbove& above, const Around& around, const Lines& comments) {
  Lines kept = around.above;
  const bool atTop = above.first == 1 && above.touching == 0;
  if (kept.empty() && (around.blankLines > 0 || !atTop)) kept.emplace_back();
  appendParagraph(kept, comments);
  appendParagraph(kept, around.below);
  return kept;
}

Lines arranged(const LinesAbove& above, const PlacedHeader& header) {
  const Around around(above);
  Lines result = slice(above.lines, 0, above.touching);
  const Lines kept = header.tookParagraph ? Lines() : keptComments(above, around, header.comments);
  if (std::all_of(kept.begin(), kept.end(), isBlank)) {
    append(result, blankLead(above, around, header));
  } else {
    append(result, kept);
    result.push_back(header.lead);
  }
  append(result, header.lines);
  return result;
}

Lines arrangedInPlace(const LinesAbove& above, const PlacedHeader& header) {
  Lines result = slice(above.lines, 0, above.header->begin);
  appendParagraph(result, header.comments);
  if (!header.comments.empty()) result.emplace_back();
  Lines block = header.lines;
  dropBlankEnd(block);
  append(result, block);
  append(result, slice(above.lines, above.header->end, above.lines.size()));
  return result;
}

// ---- prose

// How a line of disabled code begins.
constexpr std::array<std::string_view, 24> kCodeWords{
    "If",    "Else", "ElseIf",   "End",  "For",  "Next",     "Do",          "Loop",
    "While", "Wend", "Select",   "Case", "With", "Set",      "Dim",         "ReDim",
    "Call",  "Exit", "On Error", "GoTo", "Sub",  "Function", "Debug.Print", "MsgBox"};
constexpr std::array<std::string_view, 3> kLicenceWords{"copyright", "(c)", "licen"};

bool holdsLicence(std::string_view text) {
  const std::string lower = base::lCase(text);
  return std::any_of(kLicenceWords.begin(), kLicenceWords.end(),
                     [&](std::string_view word) { return lower.find(word) != std::string::npos; });
}

bool looksLikeCode(std::string_view text) {
  if (text.find(" = ") != std::string_view::npos || text.starts_with('#') || endsInContinuation(text))
    return true;
  for (const std::string_view word : kCodeWords)
    if (text.starts_with(word) && (text.size() == word.size() || text[word.size()] == ' ')) return true;
  // A call, a member, a label.
  const auto end = std::find_if_not(text.begin(), text.end(), base::isWordCharacter);
  if (end == text.begin() || end == text.end()) return false;
  const bool followed = end + 1 != text.end();
  return *end == '(' || (*end == '.' && followed && base::isWordCharacter(end[1])) ||
         (*end == ':' && !followed);
}

bool bearsLabel(std::string_view text) {
  return std::any_of(frame::kHeaderFields.begin(), frame::kHeaderFields.end(),
                     [text](const frame::TickOption& field) {
                       return text.starts_with(field.text) &&
                              source::lTrimWhite(text.substr(field.text.size())).starts_with(':');
                     });
}

}  // namespace

void placeHeader(frame::CodeModule& module, int titleLine, const LinesAbove& above,
                 const PlacedHeader& header) {
  const Lines& before = above.lines;
  const Lines after = isAboveDirective(above) ? arrangedInPlace(above, header) : arranged(above, header);
  const auto [oldBegin, newBegin] = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
  const auto [oldEnd, newEnd] = std::mismatch(before.rbegin(), std::make_reverse_iterator(oldBegin),
                                              after.rbegin(), std::make_reverse_iterator(newBegin));
  const int first = titleLine - static_cast<int>(before.end() - oldBegin);
  const auto count = static_cast<int>(oldEnd.base() - oldBegin);
  if (newEnd.base() == newBegin) {
    if (count > 0) module.DeleteLines(first, count);
    return;
  }
  const std::string text = base::join(Lines(newBegin, newEnd.base()), base::kCrLf);
  if (count > 0)
    module.ReplaceLines(first, count, text);
  else
    module.InsertLines(first, text);
}

std::optional<std::string> describingParagraph(const LinesAbove& above, const Lines& comments) {
  if (isAboveDirective(above)) return std::nullopt;
  Lines paragraph = keptComments(above, Around(above), comments);
  dropBlankEnds(paragraph);
  std::string text;
  for (const std::string& line : paragraph) {
    const std::string_view comment = source::trimWhite(line);
    if (!comment.starts_with('\'') || isRule(comment)) return std::nullopt;
    const std::string_view words = source::trimWhite(comment.substr(1));
    if (words.empty() || looksLikeCode(words) || bearsLabel(words)) return std::nullopt;
    text.append(text.empty() ? "" : " ").append(words);
  }
  return text.empty() || holdsLicence(text) ? std::nullopt : std::optional(text);
}

}  // namespace kolvane::writers
