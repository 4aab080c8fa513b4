// kolvane run: one command of the code window, as if the cursor stood where --at says.
#include <optional>

#include "base/error.h"
#include "base/text.h"
#include "commandline/commands.h"
#include "commandline/project_command.h"
#include "source/dispatcher.h"

namespace kolvane::commandline {
namespace {

struct RunOptions {
  ProjectOptions project;
  std::string command;
  std::string at;
  std::string select;
};

struct Position {
  std::string module;
  int line = 0;
  int column = 1;
};

std::optional<int> positive(std::string_view text) {
  const bool digits =
      !text.empty() && text.size() < 9 && std::all_of(text.begin(), text.end(), base::isDigit);
  const int value = digits ? static_cast<int>(base::toLong(text)) : 0;
  return value > 0 ? std::optional(value) : std::nullopt;
}

// MODULE:LINE or MODULE:LINE:COLUMN; beside a selection the module alone is enough.
Position parsePosition(const std::string& text, bool hasSelection) {
  const auto parts = base::split(text, ":");
  Position position;
  if (hasSelection && parts.size() == 1) return {parts[0], 1, 1};
  if (parts.size() == 2 || parts.size() == 3) {
    position.module = parts[0];
    position.line = positive(parts[1]).value_or(0);
    position.column = parts.size() == 3 ? positive(parts[2]).value_or(0) : 1;
  }
  if (position.module.empty() || position.line == 0 || position.column == 0)
    throw WrongUse{"--at takes MODULE:LINE or MODULE:LINE:COLUMN, such as modMain:12; not \"" + text + "\""};
  return position;
}

// L1:C1-L2:C2.
frame::TextRange parseSelection(const std::string& text) {
  frame::TextRange range;
  const auto ends = base::split(text, "-");
  if (ends.size() == 2) {
    const auto first = base::split(ends[0], ":");
    const auto last = base::split(ends[1], ":");
    if (first.size() == 2 && last.size() == 2) {
      range = {positive(first[0]).value_or(0), positive(first[1]).value_or(0), positive(last[0]).value_or(0),
               positive(last[1]).value_or(0)};
      if (range.startLine > 0 && range.startColumn > 0 && range.endLine > 0 && range.endColumn > 0)
        return range;
    }
  }
  throw WrongUse{"--select takes LINE:COLUMN-LINE:COLUMN, such as 12:1-15:1; not \"" + text + "\""};
}

// By catalogue key or name, or by the dispatcher's own key.
const source::CodeWindowCommand& findCommand(const std::string& name) {
  if (const auto* command = source::findCodeWindowCommand(name)) return *command;
  const frame::CatalogueRow* row = frame::findCatalogueRow(name);
  if (row == nullptr) row = frame::findCatalogueRowByName(name);
  if (row == nullptr) throw WrongUse{"there is no command \"" + name + "\"; kolvane commands lists them"};
  if (row->action != frame::Action::kDispatcher)
    throw WrongUse{"\"" + std::string(row->listName) +
                   "\" is no command of the code window; kolvane commands lists them"};
  return *source::findCodeWindowCommand(row->target);
}

void requireLine(Session& session, frame::CodeModule& module, int line) {
  const int count = module.CountOfLines();
  if (line > count)
    throw WrongUse{session.utf8(module.Name()) + " has no line " + std::to_string(line) + "; it has " +
                   counted(count, "line", "lines")};
}

// What a command that walks up to a title has nothing to say about, this tells in one sentence.
void requireProcedure(Session& session, frame::CodeModule& module, int line) {
  if (!module.ProcOfLine(line).empty()) return;
  throw WrongUse{session.utf8(module.Name()) + ":" + std::to_string(line) + " is not in a procedure"};
}

frame::TextRange selectionOf(const RunOptions& options, const Position& position) {
  if (!options.select.empty()) return parseSelection(options.select);
  return {position.line, position.column, position.line, position.column};
}

std::string runAt(Session& session, const RunOptions& options, bool& refused) {
  const source::CodeWindowCommand& command = findCommand(options.command);
  const Position position = parsePosition(options.at, !options.select.empty());
  const frame::TextRange selection = selectionOf(options, position);
  if (command.needsSeveralLines && selection.startLine == selection.endLine)
    throw WrongUse{"\"" + std::string(command.name) +
                   "\" needs a selection of more than one line, such as --select 12:1-15:1"};
  const ComponentPointer component = findModule(session, position.module);
  const auto module = component->CodeModule();
  requireLine(session, *module, std::max(selection.startLine, selection.endLine));
  if (command.shape == source::ArgumentShape::kProcedure)
    requireProcedure(session, *module, selection.startLine);
  if (!requireEditable(session, component)) {
    refused = true;
    return {};
  }
  session.workspace().openCode(component)->SetSelection(selection);
  source::Get_Name_Of_Current_Procedure(session.suite().services(), session.suite().commands(), command.key);
  return std::string(command.name) + " at " + session.utf8(component->Name()) + ":" +
         std::to_string(selection.startLine);
}

}  // namespace

void declareRun(CLI::App& parent, Invocation& invocation) {
  auto options = std::make_shared<RunOptions>();
  CLI::App* command = parent.add_subcommand("run", "Run one command of the code window at a place");
  command->add_option("COMMAND", options->command, "The command's key or name, such as \"Procedure Header\"")
      ->required();
  command->add_option("PROJECT", options->project.paths, "Project (.vbp), group (.vbg) or single module")
      ->required()
      ->expected(1);
  command->add_option("--at", options->at, "MODULE:LINE or MODULE:LINE:COLUMN; MODULE with --select")
      ->required();
  command->add_option("--select", options->select,
                      "A selection instead of a cursor: LINE:COLUMN-LINE:COLUMN");
  addOutputOptions(*command, options->project);
  command->callback([options, &invocation] {
    findCommand(options->command);
    parsePosition(options->at, !options->select.empty());
    bool refused = false;
    const Exit exit = runOnProjects(invocation.environment, invocation.global, options->project,
                                    [&](Session& session) { return runAt(session, *options, refused); });
    invocation.exit = refused ? Exit::kFailed : exit;
  });
}

}  // namespace kolvane::commandline
