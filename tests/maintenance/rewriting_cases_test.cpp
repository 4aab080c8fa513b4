// The case files of the operations that rewrite a module.
#include "maintenance/code_indenter.h"
#include "maintenance/comment_formatter.h"
#include "maintenance/module_line_numbers.h"
#include "maintenance/procedure_sorter.h"
#include "support/case_file.h"

namespace kolvane::maintenance {
namespace {

void bind(test::CaseCommands& commands, const writers::Context& context) {
  const frame::Services& services = context.services;
  const auto on = [&](const char* name, auto work) {
    commands.others[name] = [&services, work] { work(services, *services.vbe.SelectedVBComponent()); };
  };
  on("indent", [](const frame::Services& s, frame::VBComponent& component) {
    IndentState state;
    CodeIndentModuleLevel(s, state, *component.CodeModule());
  });
  on("comments", [](const frame::Services& s, frame::VBComponent& component) {
    const auto module = component.CodeModule();
    FormatComments(s, *module, module->CountOfDeclarationLines() + 1, module->CountOfLines());
  });
  on("number", [](const frame::Services& s, frame::VBComponent& component) {
    bool stop = false;
    Add_Line_Numbers_Mod(s, component, stop);
  });
  on("unnumber", [](const frame::Services& s, frame::VBComponent& component) {
    bool stop = false;
    Remove_Line_Numbers_Mod(s, component, stop);
  });
  on("sort", [](const frame::Services& s, frame::VBComponent& component) {
    Do_Procedure_Sort(s, *component.CodeModule());
  });
}

const bool kRegistered = test::registerCases("Indent", "indent.txt", bind) &&
                         test::registerCases("Comments", "comments.txt", bind) &&
                         test::registerCases("Sort", "sort.txt", bind) &&
                         test::registerCases("LineNumbers", "line_numbers.txt", bind);

}  // namespace
}  // namespace kolvane::maintenance
