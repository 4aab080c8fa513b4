#include "writers/standing_header.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "source/code_tabs.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"
#include "source/text_utilities.h"
#include "writers/header_layout.h"
#include "writers/header_reading.h"
#include "writers/line_block.h"

namespace kolvane::writers {
namespace {

using source::lineText;
using source::lTrimWhite;
using source::trimWhite;

// The longest comment character that a header is looked for with; the setting takes a text.
constexpr std::size_t kLongestCharacter = 4;
constexpr std::size_t kShortestRule = 3;
// A rule as short as this looks like the line between two fields.
constexpr std::size_t kSpacerWidth = 2;
constexpr std::string_view kName = "Name";

// ---- single lines

struct FieldLine {
  std::string_view label;
  std::string mark;  // the apostrophe and the comment character
  std::string value;
};

std::optional<FieldLine> fieldLine(std::string_view text) {
  const std::string_view line = trimWhite(text);
  if (!line.starts_with('\'')) return std::nullopt;
  for (const frame::TickOption& field : frame::kHeaderFields) {
    const std::string label = "  " + fieldLabel(field.text);
    const std::size_t at = line.find(label);
    if (at == std::string_view::npos || at == 0 || at > 1 + kLongestCharacter) continue;
    return FieldLine{field.text, std::string(line.substr(0, at)),
                     std::string(trimWhite(line.substr(at + label.size())))};
  }
  return std::nullopt;
}

bool isRuleOf(std::string_view mark, std::string_view text) {
  const std::string_view character = mark.substr(1);
  std::string_view rest = trimWhite(text);
  if (character.empty() || !rest.starts_with(mark)) return false;
  for (rest.remove_prefix(1); rest.starts_with(character);) rest.remove_prefix(character.size());
  return rest.empty();
}

bool isDirective(std::string_view text) { return trimWhite(text).starts_with('#'); }

// ---- a header among lines

// The lines of one header, as far as they can be told from its first field on.
class HeaderReader {
 public:
  HeaderReader(const std::vector<std::string>& lines, std::string rule, std::size_t from, std::size_t to)
      : lines_(lines), rule_(std::move(rule)), from_(from), to_(to) {}

  StandingHeader read(std::size_t firstField) {
    mark_ = fieldLine(lines_[firstField])->mark;
    header_.begin = top(firstField);
    header_.end = bottom(firstField);
    for (std::size_t at = firstField; at < header_.end; ++at) take(at);
    return std::move(header_);
  }

 private:
  std::string_view line(std::size_t at) const { return trimWhite(lines_[at]); }
  bool hasShortRule() const { return rule_.size() <= kSpacerWidth; }
  bool isOwnRule(std::size_t at) const { return lTrimWhite(lines_[at]) == rule_; }
  bool isSpacer(std::size_t at) const {
    return line(at) == trimWhite(mark_) || (hasShortRule() && isOwnRule(at));
  }
  bool isFrame(std::size_t at) const {
    return isOwnRule(at) || isRule(lines_[at]) || (!isSpacer(at) && isRuleOf(mark_, lines_[at]));
  }
  bool isContinuation(std::size_t at) const {
    return line(at).starts_with(mark_ + source::headerContinuation("").substr(1));
  }
  bool isMarked(std::size_t at) const { return line(at).starts_with(mark_); }

  // The upper rule, or the first field without one.
  std::size_t top(std::size_t firstField) const {
    std::size_t at = firstField;
    while (at > from_ && isSpacer(at - 1)) --at;
    if (at < firstField && hasShortRule() && isOwnRule(at)) return at;
    return at > from_ && isFrame(at - 1) ? at - 1 : firstField;
  }

  // Behind the lower rule, or behind the last line that a field surely has.
  std::size_t bottom(std::size_t firstField) const {
    std::size_t sure = firstField + 1;
    bool plain = true;  // nothing but the header's own lines since
    for (std::size_t at = firstField + 1; at < to_ && isAnyComment(lines_[at]); ++at) {
      const auto field = fieldLine(lines_[at]);
      if (field && (field->mark != mark_ || field->label == kName)) break;
      if (field || isContinuation(at)) {
        sure = at + 1;
        plain = true;
      } else if (isSpacer(at)) {
        if (hasShortRule() && isOwnRule(at) && !goesOn(at + 1)) return at + 1;
      } else if (isFrame(at)) {
        return closesAsItOpened(at) || (plain && isLowerRule(at, firstField)) ? at + 1 : sure;
      } else {
        plain = plain && isMarked(at) && mark_.size() > 1;
      }
    }
    return sure;
  }

  // Whether a line may still be the header's.
  bool goesOn(std::size_t at) const {
    return at < to_ && isAnyComment(lines_[at]) &&
           (isSpacer(at) || isContinuation(at) || (isMarked(at) && mark_.size() > 1 && !isFrame(at)));
  }

  bool closesAsItOpened(std::size_t at) const { return line(header_.begin) == line(at); }

  // Another rule may belong to a comment below.
  bool isLowerRule(std::size_t at, std::size_t firstField) const {
    const bool opened = header_.begin < firstField;
    if (!opened || hasShortRule()) return isOwnRule(at) || isRuleOf(mark_, lines_[at]);
    return line(at).substr(0, kSpacerWidth) == line(header_.begin).substr(0, kSpacerWidth);
  }

  void take(std::size_t at) {
    if (auto field = fieldLine(lines_[at])) {
      blankLines_ = 0;
      if (header_.field(field->label) == nullptr)
        header_.fields.push_back({field->label, std::move(field->value), {}});
      else
        addFurther(at);
    } else if (isSpacer(at)) {
      ++blankLines_;
    } else if (at + 1 == header_.end && isFrame(at)) {
      blankLines_ = 0;
    } else if (isMarked(at)) {
      addFurther(at);
    } else {
      header_.unfit.push_back(lines_[at]);
    }
  }

  void addFurther(std::size_t at) {
    auto& further = header_.fields.back().further;
    further.insert(further.end(), std::exchange(blankLines_, 0), std::string());
    further.emplace_back(line(at).substr(mark_.size()));
  }

  const std::vector<std::string>& lines_;
  std::string rule_;
  std::size_t from_;
  std::size_t to_;
  std::string mark_;
  StandingHeader header_;
  std::size_t blankLines_ = 0;
};

// ---- headers of a foreign style: a rule, "' Name:", "' Description:" and so on, a rule

std::string_view foreignLabel(std::string_view text) {
  const std::string label = source::Remove_Char(base::lCase(text), " ");
  for (const frame::TickOption& field : frame::kHeaderFields)
    if (label == source::Remove_Char(base::lCase(field.text), " ")) return field.text;
  return {};
}

std::optional<StandingField> foreignField(std::string_view text) {
  const std::string_view line = trimWhite(text);
  const std::size_t colon = line.find(':');
  if (!line.starts_with('\'') || colon == std::string_view::npos) return std::nullopt;
  const std::string_view label = foreignLabel(trimWhite(line.substr(1, colon - 1)));
  if (label.empty()) return std::nullopt;
  return StandingField{label, std::string(trimWhite(line.substr(colon + 1))), {}};
}

// Nothing unless each of its lines is known: what cannot be read in whole stays in whole.
std::optional<StandingHeader> foreignHeader(const std::vector<std::string>& lines, std::size_t begin,
                                            std::size_t to) {
  const auto isForeignRule = [&](std::size_t at) {
    return source::startsWithAny(trimWhite(lines[at]), kForeignRules) && isRule(lines[at]);
  };
  const bool isOurs = begin + 1 < to && fieldLine(lines[begin + 1]);
  if (!isForeignRule(begin) || isOurs) return std::nullopt;
  StandingHeader header{begin, begin, {}, {}};
  for (std::size_t at = begin + 1; at < to; ++at) {
    if (isForeignRule(at)) {
      header.end = at + 1;
      const bool named = header.fields.size() > 1 && header.fields[0].label == kName &&
                         header.fields[1].label == "Description";
      return named ? std::optional(std::move(header)) : std::nullopt;
    }
    auto field = foreignField(lines[at]);
    if (!field || header.field(field->label) != nullptr) return std::nullopt;
    header.fields.push_back(std::move(*field));
  }
  return std::nullopt;
}

// ---- all lines above a title

// The first line of the comment that `line` is or goes on with; 0 for any other line.
int commentStart(frame::CodeModule& module, int line) {
  while (line > 1 && endsInContinuation(lineText(module, line - 1))) --line;
  return isAnyComment(lineText(module, line)) ? line : 0;
}

bool isLoose(frame::CodeModule& module, int line) {
  if (line > 1 && endsInContinuation(lineText(module, line - 1))) return false;
  const std::string text = lineText(module, line);
  return source::Is_Blank_Line(text) || isDirective(text);
}

int firstAbove(frame::CodeModule& module, int titleLine) {
  int first = titleLine;
  while (first > 1) {
    if (const int start = commentStart(module, first - 1); start > 0)
      first = start;
    else if (isLoose(module, first - 1))
      --first;
    else
      break;
  }
  return first;
}

// Two rules with nothing between are a header when no field is shown.
std::optional<StandingHeader> emptyHeader(const LinesAbove& above, const std::string& rule) {
  for (std::size_t at = above.lines.size(); at >= above.touching + 2; --at)
    if (lTrimWhite(above.lines[at - 1]) == rule && lTrimWhite(above.lines[at - 2]) == rule)
      return StandingHeader{at - 2, at, {}, {}};
  return std::nullopt;
}

bool showsNothing(const frame::Services& services) {
  return std::none_of(frame::kHeaderFields.begin(), frame::kHeaderFields.end(),
                      [&](const frame::TickOption& field) { return showsField(services, field.text); });
}

std::string_view firstWord(std::string_view text) { return text.substr(0, text.find(' ')); }

class HeaderChoice {
 public:
  HeaderChoice(const frame::Services& services, frame::CodeModule& module, std::string_view name)
      : services_(services), module_(module), name_(name) {}

  std::optional<StandingHeader> of(const LinesAbove& above) {
    const std::string rule = ruleLine(services_);
    for (std::size_t at = 0; at < above.lines.size();) {
      const std::size_t to = at < above.touching ? above.touching : above.lines.size();
      std::optional<StandingHeader> header = foreignHeader(above.lines, at, to);
      const bool foreign = header.has_value();
      if (!foreign && fieldLine(above.lines[at]))
        header = HeaderReader(above.lines, rule, behind_, to).read(at);
      if (!header) {
        ++at;
        continue;
      }
      at = behind_ = header->end;
      if (!goesOnBelow(above, *header)) offer(above, std::move(*header), foreign);
    }
    if (!chosen_ && showsNothing(services_)) return emptyHeader(above, rule);
    return std::move(chosen_);
  }

 private:
  // A comment that is continued by an underscore is left to whoever wrote it.
  static bool goesOnBelow(const LinesAbove& above, const StandingHeader& header) {
    return std::any_of(above.lines.begin() + static_cast<std::ptrdiff_t>(header.begin),
                       above.lines.begin() + static_cast<std::ptrdiff_t>(header.end),
                       [](const std::string& line) { return endsInContinuation(line); });
  }

  void offer(const LinesAbove& above, StandingHeader header, bool foreign) {
    const StandingField* field = header.field(kName);
    const std::string_view name = field ? firstWord(field->value) : std::string_view();
    const bool nameless = field == nullptr && !showsField(services_, kName);
    const bool named = nameless || base::equalNoCase(name, name_);
    const bool needsName = foreign || header.begin < above.touching || chosenByName_ ||
                           (header.begin == 0 && above.first == 1 && isOfModule(field != nullptr, name));
    if (needsName && !named) return;
    chosenByName_ = named;
    chosen_ = std::move(header);
  }

  // A header at a module's top may be the module's own.
  bool isOfModule(bool hasName, std::string_view name) const {
    if (!hasName) return showsField(services_, kName);
    const bool isIdentifier = !name.empty() && std::all_of(name.begin(), name.end(), base::isWordCharacter);
    if (!isIdentifier) return true;
    const auto component = module_.Parent();
    const auto project = component->VBProject();
    return base::equalNoCase(name, component->Name()) ||
           (project && base::equalNoCase(name, project->Name()));
  }

  const frame::Services& services_;
  frame::CodeModule& module_;
  std::string_view name_;
  std::optional<StandingHeader> chosen_;
  bool chosenByName_ = false;
  std::size_t behind_ = 0;  // the header before
};

}  // namespace

bool StandingField::hasText() const {
  const auto isText = [](const std::string& text) { return !source::Is_Blank_Line(text); };
  return isText(value) || std::any_of(further.begin(), further.end(), isText);
}

const StandingField* StandingHeader::field(std::string_view label) const {
  const auto found = std::find_if(fields.begin(), fields.end(),
                                  [label](const StandingField& field) { return field.label == label; });
  return found == fields.end() ? nullptr : &*found;
}

bool isRule(std::string_view text) {
  std::string_view rest = trimWhite(text);
  if (!rest.starts_with('\'')) return false;
  rest.remove_prefix(1);
  return rest.size() >= kShortestRule && !base::isWordCharacter(rest.front()) && rest.front() != ' ' &&
         rest.find_first_not_of(rest.front()) == std::string_view::npos;
}

bool isAnyComment(std::string_view text) {
  constexpr std::string_view kRem = "Rem";
  const std::string_view line = trimWhite(text);
  return source::Is_Comment_Line(line) || base::equalNoCase(line, kRem) ||
         base::startsWithNoCase(line, std::string(kRem) + " ");
}

LinesAbove readAbove(const frame::Services& services, frame::CodeModule& module, int titleLine,
                     std::string_view name) {
  LinesAbove above;
  above.first = firstAbove(module, titleLine);
  above.lines = linesOf(module, above.first, titleLine - 1);
  for (std::size_t at = above.lines.size(); at > 0 && above.touching == 0; --at)
    if (isDirective(above.lines[at - 1])) above.touching = at;
  above.header = HeaderChoice(services, module, name).of(above);
  return above;
}

}  // namespace kolvane::writers
