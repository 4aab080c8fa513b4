#include "suite/show_preconditions.h"

#include <string>

#include "base/error.h"
#include "base/text.h"

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

bool holds(const frame::Services& services, Precondition condition) {
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
    case Precondition::kAnswerYes:
      break;
  }
  return true;
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

}  // namespace kolvane::suite
