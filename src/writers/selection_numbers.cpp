#include "writers/selection_numbers.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "source/line_number_map.h"
#include "source/line_numbers.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"
#include "source/read_only_notice.h"
#include "writers/line_block.h"

namespace kolvane::writers {
namespace {

using frame::ComponentType;

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr std::size_t kColumnWidth = 4;

constexpr std::array<ComponentType, 6> kNumberedTypes{
    ComponentType::kStdModule, ComponentType::kClassModule, ComponentType::kVBForm,
    ComponentType::kVBMDIForm, ComponentType::kPropPage,    ComponentType::kActiveXDesigner,
};
// Without the last: an ActiveX designer keeps its numbers.
constexpr std::size_t kUnnumberedTypes = kNumberedTypes.size() - 1;

bool takesPart(frame::CodeModule& module, std::size_t types) {
  const auto last = kNumberedTypes.begin() + types;
  return std::find(kNumberedTypes.begin(), last, module.Parent()->Type()) != last;
}

std::string_view withoutNumber(std::string_view text) {
  std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
  if (end < text.size() && text[end] == ':') ++end;
  while (end < std::min(kColumnWidth, text.size()) && text[end] == ' ') ++end;
  return text.substr(end);
}

bool bearsNumber(std::string_view text) {
  return !source::Is_Blank_Line(text) && !source::Is_Numbered_Line(text) && !text.starts_with('\'') &&
         !base::startsWithNoCase(text, "DIM ") && !base::startsWithNoCase(text, "ON ERROR ") &&
         !source::trimWhite(text).ends_with(':') &&
         !source::Are_We_On_Procedure_Header(source::trimWhite(text));
}

std::string numbered(long number, std::string_view text) {
  std::string line = std::to_string(number);
  if (line.size() > kColumnWidth) throw base::Error(base::errors::kInvalidCall);
  line.resize(kColumnWidth, ' ');
  return line.append(text);
}

// Above the highest that fits, so that no number overflows.
constexpr long kTooHigh = 10'000;

long firstNumber(std::string_view firstLine) {
  if (!source::Is_Numbered_Line(firstLine)) return 1;
  const std::string number = source::GetNumberedCodeLineNumber(firstLine);
  return number.size() > kColumnWidth ? kTooHigh : base::toLong(number) + 1;
}

// Nothing to the letter.
std::optional<source::LineNumberMap> mapUnder(const frame::Services& services, frame::Guard guard,
                                              frame::CodeModule& module) {
  if (!services.care.guards(guard)) return std::nullopt;
  return source::LineNumberMap(module);
}

}  // namespace

void RemoveLineNumbersFromSelectedCode(const frame::Services& services, frame::CodeModule& module,
                                       int startLine, int endLine) {
  const base::ErrorScope scope{kModule, "RemoveLineNumbersFromSelectedCode"};
  if (!takesPart(module, kUnnumberedTypes)) return;
  source::withReadOnlyNotice(services, module, [&] {
    const auto map = mapUnder(services, frame::Guard::kJumpTargets, module);
    int line = startLine;
    for (const std::string& text : linesOf(module, startLine, endLine)) {
      const bool keeps = map && (!map->isNumbered(line) || map->isMeant(line));
      if (!keeps && source::Is_Numbered_Line(text)) module.ReplaceLine(line, withoutNumber(text));
      ++line;
    }
    putCursor(*module.CodePane(), endLine, 1);
  });
}

void AddLineNumbersToSelectedCode(const frame::Services& services, frame::CodeModule& module, int startLine,
                                  int endLine) {
  const base::ErrorScope scope{kModule, "AddLineNumbersToSelectedCode"};
  if (!takesPart(module, kNumberedTypes.size())) return;
  source::withReadOnlyNotice(services, module, [&] {
    const std::vector<std::string> lines = linesOf(module, startLine, endLine);
    if (lines.empty()) return;
    const auto map = mapUnder(services, frame::Guard::kNumberPlaces, module);
    long number = firstNumber(lines.front());
    int line = startLine;
    bool continues = startLine > 1 && endsInContinuation(source::lineText(module, startLine - 1));
    for (const std::string& text : lines) {
      if (!continues && bearsNumber(text) && (!map || map->takesNumber(line))) {
        while (map && map->isTaken(line, number)) ++number;
        module.ReplaceLine(line, numbered(number++, text));
      }
      continues = endsInContinuation(text);
      ++line;
    }
    putCursor(*module.CodePane(), endLine + 1, static_cast<int>(kColumnWidth));
  });
}

}  // namespace kolvane::writers
