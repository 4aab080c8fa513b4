#include "writers/code_window_commands.h"

#include <array>
#include <string_view>

#include "writers/auto_with.h"
#include "writers/comment_blocks.h"
#include "writers/error_handlers.h"
#include "writers/headers.h"
#include "writers/join_lines.h"
#include "writers/selection_case.h"
#include "writers/selection_numbers.h"
#include "writers/sort_lines.h"
#include "writers/split_line.h"

namespace kolvane::writers {
namespace {

using source::CodeWindowCall;

// Calls a routine with the members of the call that its shape stands for.
template <auto routine>
void withProcedure(const CodeWindowCall& call) {
  routine(call.services, call.module, call.name, call.line);
}
template <auto routine>
void withLine(const CodeWindowCall& call) {
  routine(call.services, call.module, call.line);
}
template <auto routine>
void withColumn(const CodeWindowCall& call) {
  routine(call.services, call.module, call.line, call.startColumn);
}
template <auto routine>
void withLines(const CodeWindowCall& call) {
  routine(call.services, call.module, call.line, call.endLine);
}
template <auto routine>
void withPane(const CodeWindowCall& call) {
  routine(call.services, call.pane);
}
template <auto routine>
void withPaneWord(const CodeWindowCall& call) {
  routine(call.services, call.pane, call.line, call.word);
}

struct Routine {
  std::string_view name;
  void (*run)(const CodeWindowCall& call);
};

constexpr std::array<Routine, 15> kRoutines{{
    {"Add_Show_Error_Code", withProcedure<Add_Show_Error_Code>},
    {"Add_Raise_Error_Code", withProcedure<Add_Raise_Error_Code>},
    {"Add_Next_Error_Code", withProcedure<Add_Next_Error_Code>},
    {"Add_Blank_Error_Code", withProcedure<Add_Blank_Error_Code>},
    {"Write_3Line_Comment_Block", withLine<Write_3Line_Comment_Block>},
    {"Write_5Line_Comment_Block", withLine<Write_5Line_Comment_Block>},
    {"LineSplitter", withColumn<LineSplitter>},
    {"JoinLines", withColumn<JoinLines>},
    {"Auto_With", withLines<Auto_With>},
    {"SortCodeModLines", withLines<SortCodeModLines>},
    {"RemoveLineNumbersFromSelectedCode", withLines<RemoveLineNumbersFromSelectedCode>},
    {"AddLineNumbersToSelectedCode", withLines<AddLineNumbersToSelectedCode>},
    {"Write_Comment_Block", withPane<Write_Comment_Block>},
    {"Write_Uncomment_Block", withPane<Write_Uncomment_Block>},
    {"MakeSelectionCase", withPaneWord<MakeSelectionCase>},
}};

// Works on more than the services, and binds itself.
constexpr std::string_view kHeaderRoutine = "Add_Procedure_Header";

constexpr const Routine* findRoutine(std::string_view name) {
  for (const Routine& routine : kRoutines)
    if (routine.name == name) return &routine;
  return nullptr;
}

constexpr bool everyCommandHasItsRoutine() {
  for (const source::CodeWindowCommand& command : source::kCodeWindowCommands)
    if (command.routine != kHeaderRoutine && !findRoutine(command.routine)) return false;
  return true;
}
static_assert(everyCommandHasItsRoutine());

}  // namespace

void bindCodeWindowCommands(source::CodeWindowCommands& commands, const Context& context) {
  bindHeaderCommand(commands, context);
  for (const source::CodeWindowCommand& command : source::kCodeWindowCommands)
    if (const Routine* routine = findRoutine(command.routine)) commands.bind(command.key, routine->run);
}

}  // namespace kolvane::writers
