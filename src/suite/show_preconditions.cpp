#include "suite/show_preconditions.h"

#include <string>

#include "base/error.h"
#include "base/text.h"
#include "source/dispatcher.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"
#include "writers/error_handlers.h"
#include "writers/module_header.h"

namespace kolvane::suite {
namespace {

bool hasDesigner(const std::shared_ptr<frame::VBComponent>& component) {
  return component && component->Designer() != nullptr;
}

bool isFormLike(frame::ComponentType type) {
  switch (type) {
    case frame::ComponentType::kMSForm:
    case frame::ComponentType::kVBForm:
    case frame::ComponentType::kVBMDIForm:
    case frame::ComponentType::kPropPage:
    case frame::ComponentType::kUserControl:
    case frame::ComponentType::kDocObject:
    case frame::ComponentType::kActiveXDesigner:
      return true;
    case frame::ComponentType::kStdModule:
    case frame::ComponentType::kClassModule:
    case frame::ComponentType::kResFile:
    case frame::ComponentType::kRelatedDocument:
      break;
  }
  return false;
}

bool isOtherWindow(frame::Window& window, const std::shared_ptr<frame::Window>& active) {
  const frame::WindowType type = window.Type();
  return &window != active.get() && window.Visible() &&
         (type == frame::WindowType::kCodeWindow || type == frame::WindowType::kDesigner);
}

frame::TextRange selectionOf(const frame::Services& services) {
  const auto pane = services.vbe.ActiveCodePane();
  return pane ? pane->GetSelection() : frame::TextRange{};
}

bool holds(const frame::Services& services, Precondition condition, std::string_view option = {}) {
  const auto component = services.vbe.SelectedVBComponent();
  switch (condition) {
    case Precondition::kCodeWindow:
      return services.vbe.ActiveCodePane() != nullptr;
    case Precondition::kComponent:
      return component != nullptr;
    case Precondition::kFormLike:
      return component && isFormLike(component->Type());
    case Precondition::kDesigner:
      return hasDesigner(component);
    case Precondition::kControls:
      return hasDesigner(component) && component->Designer()->VBControls()->Count() > 0;
    case Precondition::kOtherWindow: {
      const auto active = services.vbe.ActiveWindow();
      for (const auto& window : services.vbe.Windows()->items())
        if (isOtherWindow(*window, active)) return true;
      return false;
    }
    case Precondition::kOptionIsOne:
      return services.settings.number(option) == 1;
    case Precondition::kModuleHeader:
      return component && !base::trim(writers::moduleHeaderText(services, component->Type())).empty();
    case Precondition::kSeveralLines: {
      const frame::TextRange selection = selectionOf(services);
      return selection.startLine != selection.endLine;
    }
    case Precondition::kSelectedText: {
      const frame::TextRange selection = selectionOf(services);
      return selection.startLine != selection.endLine || selection.startColumn != selection.endColumn;
    }
    case Precondition::kAnswerYes:
      break;
  }
  return true;
}

constexpr bool writesHandler(const source::CodeWindowCommand& command) {
  return command.routine.ends_with("_Error_Code");
}

// Of a command that works on the procedure around the line.
std::string reasonInProcedure(const source::CodeWindowCommand& command, frame::CodeModule& module, int line) {
  bool isProperty = false;
  const int title = source::walkUpToTitle(module, line, [&isProperty](int, const std::string& text) {
    isProperty = source::Is_Property_Title(text);
    return isProperty || source::Is_Procedure_Title(text);
  });
  if (title == 0) return "Put the cursor into a procedure.";
  if (!writesHandler(command)) return {};
  if (isProperty && command.routine != "Add_Raise_Error_Code")
    return "A property takes a Raise handler only.";
  return writers::Handler_Exists(module, title) ? "The procedure has an error handler already." : "";
}

// Of a command of the code window.
std::string reasonAgainst(const frame::Services& services, const source::CodeWindowCommand& command) {
  if (!holds(services, Precondition::kCodeWindow)) return "You need to open a code window.";
  if (command.needsSeveralLines && !holds(services, Precondition::kSeveralLines))
    return "Select more than one line.";
  if (command.shape == source::ArgumentShape::kPaneWord && !holds(services, Precondition::kSelectedText))
    return "Select some text.";
  if (command.shape != source::ArgumentShape::kProcedure) return {};
  try {
    return reasonInProcedure(command, *services.vbe.ActiveCodePane()->CodeModule(),
                             selectionOf(services).startLine);
  } catch (const base::Error&) {
    return {};  // the command itself tells it, when it is chosen
  }
}

bool agrees(const frame::Services& services, const ShowPrecondition& row) {
  if (!services.settings.flag(row.option)) return true;
  return services.desk.msgBox(row.message, forms::box::kAsk, base::kProductName) == forms::Answer::kYes;
}

std::string messageOf(const frame::Services& services, const ShowPrecondition& row) {
  const auto component = services.vbe.SelectedVBComponent();
  return base::replaceAll(row.message, "<name>", component ? component->Name() : std::string());
}

}  // namespace

bool mayShow(const frame::Services& services, std::string_view form) {
  for (const ShowPrecondition& row : kShowPreconditions) {
    if (row.form != form) continue;
    if (row.condition == Precondition::kAnswerYes) {
      if (!agrees(services, row)) return false;
    } else if (!holds(services, row.condition)) {
      services.desk.msgBox(messageOf(services, row), forms::box::kNotice, base::kProductName);
      return false;
    }
  }
  return true;
}

std::string reasonAgainst(const frame::Services& services, std::string_view target) {
  if (const auto* command = source::findCodeWindowCommand(target)) return reasonAgainst(services, *command);
  const auto failing = [&](const ShowPrecondition& row) {
    return row.form == target && !holds(services, row.condition, row.option);
  };
  for (const ShowPrecondition& row : kShowPreconditions)
    if (failing(row)) return messageOf(services, row);
  for (const ShowPrecondition& row : kCommandPreconditions)
    if (failing(row)) return messageOf(services, row);
  return {};
}

}  // namespace kolvane::suite
