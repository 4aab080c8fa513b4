#include "source/dispatcher.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "frame/catalogue.h"
#include "source/code_tabs.h"

namespace kolvane::source {
namespace {

// The catalogue and the dispatcher speak of the same commands.
constexpr bool catalogueAgrees() {
  std::size_t rows = 0;
  for (const frame::CatalogueRow& row : frame::kCatalogue) {
    if (row.action != frame::Action::kDispatcher) continue;
    ++rows;
    bool known = false;
    for (const CodeWindowCommand& command : kCodeWindowCommands) known = known || command.key == row.target;
    if (!known) return false;
  }
  return rows == kCodeWindowCommands.size();
}
static_assert(catalogueAgrees());

std::size_t placeOf(std::string_view key) {
  const auto found = std::find_if(kCodeWindowCommands.begin(), kCodeWindowCommands.end(),
                                  [key](const CodeWindowCommand& command) { return command.key == key; });
  return static_cast<std::size_t>(found - kCodeWindowCommands.begin());
}

template <typename T>
T& needed(const std::shared_ptr<T>& object) {
  if (!object) throw base::Error(base::errors::kObjectNotSet);
  return *object;
}

}  // namespace

const CodeWindowCommand* findCodeWindowCommand(std::string_view key) {
  const std::size_t place = placeOf(key);
  return place < kCodeWindowCommands.size() ? &kCodeWindowCommands[place] : nullptr;
}

void CodeWindowCommands::bind(std::string_view key, CodeWindowAction action) {
  const std::size_t place = placeOf(key);
  if (place == kCodeWindowCommands.size()) throw base::Error(base::errors::kSubscript);
  actions_[place] = std::move(action);
}

bool CodeWindowCommands::isBound(std::string_view key) const {
  const std::size_t place = placeOf(key);
  return place < actions_.size() && actions_[place] != nullptr;
}

void CodeWindowCommands::run(const CodeWindowCommand& command, const CodeWindowCall& call) const {
  const CodeWindowAction& action = actions_[placeOf(command.key)];
  if (!action)
    throw base::Error(base::errors::kNotAvailable,
                      std::string(command.name) + " is not available in this version.");
  action(call);
}

void Get_Name_Of_Current_Procedure(frame::Services& services, const CodeWindowCommands& commands,
                                   std::string_view key, int line, std::string name,
                                   std::shared_ptr<frame::CodeModule> module) {
  const base::ErrorScope scope{"modVBIDEFunctions", "Get_Name_Of_Current_Procedure"};
  const auto activePane = services.vbe.ActiveCodePane();
  if (!activePane) return;
  int endLine = 0;
  int startColumn = 0;
  if (line == kLineOfCursor) {
    module = activePane->CodeModule();
    const frame::TextRange selection = needed(needed(module).CodePane()).GetSelection();
    line = selection.startLine;
    endLine = selection.endLine;
    startColumn = selection.startColumn;
    name = module->ProcOfLine(line);
  }
  Set_Tabs(services);
  const CodeWindowCommand* command = findCodeWindowCommand(key);
  if (!command || (command->needsSeveralLines && line == endLine)) return;
  const auto pane = needed(module).CodePane();
  commands.run(*command,
               {services, *module, needed(pane), std::move(name), line, endLine, startColumn, command->word});
}

}  // namespace kolvane::source
