#include "maintenance/module_line_numbers.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "base/error.h"
#include "base/text.h"
#include "forms/error_form.h"
#include "forms/errors.h"
#include "maintenance/edit_refused.h"
#include "maintenance/line_rewriter.h"
#include "maintenance/project_walk.h"
#include "source/line_number_map.h"
#include "source/line_numbers.h"
#include "source/line_tests.h"

namespace kolvane::maintenance {
namespace {

using frame::ComponentType;

constexpr std::string_view kModule = "modLineNumbers";
constexpr std::array<ComponentType, 6> kNumberedTypes{
    ComponentType::kStdModule, ComponentType::kClassModule, ComponentType::kVBForm,
    ComponentType::kVBMDIForm, ComponentType::kPropPage,    ComponentType::kActiveXDesigner,
};

// Numbers the lines of a module in order; with a map, those alone that the language gives a number to, and with no
// number that the procedure has already.
class Numberer {
 public:
  explicit Numberer(const source::LineNumberMap* map) : map_(map) {}

  // The number that a line gets, 0 for none.
  int numberFor(int lineNumber, std::string_view line) {
    if (source::Is_Blank_Line(line) || source::Is_Comment_Line(line)) {
      continued_ = line.ends_with('_');
      return 0;
    }
    const std::string_view code = source::trimWhite(line);
    const bool title = map_ ? map_->opensProcedure(lineNumber) : source::Are_We_On_Procedure_Header(code);
    if (title) {
      inProcedure_ = true;
      counter_ = 1;
    }
    if (inProcedure_ && !title && !continued_) {
      if (!base::startsWithNoCase(code, "Dim ") && !base::startsWithNoCase(code, "On Error "))
        numbering_ = true;
      if (code.ends_with(':') || base::startsWithNoCase(code, "Case ")) numbering_ = false;
    }
    const bool takes = numbering_ && !continued_ && !title && (!map_ || map_->takesNumber(lineNumber));
    continued_ = code.ends_with('_');
    return takes ? nextNumber(lineNumber) : 0;
  }

 private:
  int nextNumber(int lineNumber) {
    while (map_ && map_->isTaken(lineNumber, counter_)) ++counter_;
    return counter_++;
  }

  const source::LineNumberMap* map_;
  bool inProcedure_ = false;
  bool numbering_ = false;  // stays across titles: only the first procedure's declarations go without numbers
  bool continued_ = false;
  int counter_ = 1;
};

// Calls `treat` with the rewriter, number and text of each line behind the declarations. An invalid property value is
// passed over.
template <typename Treat>
void forEachLine(const frame::Services& services, frame::CodeModule& module, Treat treat) {
  const int first = module.CountOfDeclarationLines() + 1, last = module.CountOfLines();
  for (int begin = first; begin <= last; begin += kLinesBetweenEvents) {
    if (begin > first) services.desk.doEvents();
    const int end = std::min(last, begin + kLinesBetweenEvents - 1);
    const LineBlock block(module, begin, end);
    LineRewriter rewriter(module, [](long number) { return number == forms::errors::kInvalidPropertyValue; });
    for (int line = begin; line <= end; ++line) treat(rewriter, line, block.line(line));
    rewriter.finish();
  }
}

// Runs a walk under the rules that adding and removing share for errors. An invalid property value is passed over.
template <typename Walk>
bool walkComponent(const frame::Services& services, frame::VBComponent& component, std::string_view procedure,
                   bool& stop, Walk walk) {
  stop = false;
  if (!takesLineNumbers(component.Type())) return false;
  const auto module = component.CodeModule();
  if (module->CountOfLines() == module->CountOfDeclarationLines()) return false;
  stop = true;
  forms::showErrors(services.desk, kModule, procedure, [&] {
    try {
      walk(*module);
      stop = false;
    } catch (const base::Error& error) {
      if (error.number() != base::errors::kModuleNotEditable) throw;
      tellFormattingStops(services, *module);
    }
  });
  return !stop;
}

std::optional<source::LineNumberMap> mapUnder(const frame::Services& services, frame::Guard guard,
                                              frame::CodeModule& module) {
  if (!services.care.guards(guard)) return std::nullopt;
  return source::LineNumberMap(module);
}

}  // namespace

std::string_view withoutNumber(std::string_view line) {
  std::size_t at = source::lineNumberMark(line).size();
  for (std::size_t i = 0; at > 0 && i < kBlanksBehindNumber && at < line.size() && line[at] == ' '; ++i) ++at;
  return line.substr(at);
}

bool hasLineNumbers(const frame::Services& services, frame::CodeModule& module) {
  const int first = module.CountOfDeclarationLines() + 1, last = module.CountOfLines();
  const LineBlock block(module, first, last);
  for (int line = first; line <= last; ++line) {
    if (!source::Is_Numbered_Line(block.line(line)))
      continue;  // no blank, comment or title begins with a digit
    const auto map = mapUnder(services, frame::Guard::kJumpTargets, module);
    return !map || map->hasFreeNumbers();
  }
  return false;
}

bool takesLineNumbers(ComponentType type) {
  return std::find(kNumberedTypes.begin(), kNumberedTypes.end(), type) != kNumberedTypes.end();
}

bool Invert_LineNumbers_Mod(const frame::Services& services, frame::VBComponent& component) {
  const base::ErrorScope scope{kModule, "Invert_LineNumbers_Mod"};
  const DecidingFile file = decidingFile(component);
  if (file.kind != DecidingFile::Kind::kFile || isReadOnly(services, file)) return true;
  if (!takesLineNumbers(component.Type())) return true;
  bool stop = false;
  if (hasLineNumbers(services, *component.CodeModule()))
    Remove_Line_Numbers_Mod(services, component, stop);
  else
    Add_Line_Numbers_Mod(services, component, stop);
  return !stop;
}

bool Add_Line_Numbers_Mod(const frame::Services& services, frame::VBComponent& component, bool& stop) {
  return walkComponent(services, component, "Add_Line_Numbers_Mod", stop, [&](frame::CodeModule& module) {
    const auto map = mapUnder(services, frame::Guard::kNumberPlaces, module);
    Numberer numberer(map ? &*map : nullptr);
    std::string numbered;
    forEachLine(services, module, [&](LineRewriter& rewriter, int line, std::string_view text) {
      const int number = numberer.numberFor(line, text);
      if (number == 0) return;
      numbered.assign(std::to_string(number)).append(kBlanksBehindNumber, ' ').append(text);
      rewriter.replace(line, text, numbered);
    });
  });
}

bool Remove_Line_Numbers_Mod(const frame::Services& services, frame::VBComponent& component, bool& stop) {
  return walkComponent(services, component, "Remove_Line_Numbers_Mod", stop, [&](frame::CodeModule& module) {
    const auto map = mapUnder(services, frame::Guard::kJumpTargets, module);
    bool continued = false;
    forEachLine(services, module, [&](LineRewriter& rewriter, int line, std::string_view text) {
      const bool keeps = map && (!map->isNumbered(line) || map->isMeant(line));
      if (!continued && !keeps && source::Is_Numbered_Line(text)) {
        const std::string_view bare = withoutNumber(text);
        if (bare.size() < text.size()) rewriter.replace(line, text, bare);
      }
      continued = source::trimWhite(text).ends_with(" _");
    });
  });
}

}  // namespace kolvane::maintenance
