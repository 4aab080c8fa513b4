#include "writers/module_header.h"

#include <array>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "frame/options.h"
#include "source/read_only_notice.h"
#include "writers/header_layout.h"

namespace kolvane::writers {
namespace {

constexpr frame::Option kEnabled = frame::option("ouloi45lwefwd");

struct TemplateOfType {
  frame::ComponentType type;
  std::string_view name;  // in frame::kModuleHeaderTemplates
};
constexpr std::array<TemplateOfType, 6> kTemplatesOfTypes{{
    {frame::ComponentType::kVBForm, "Form"},
    {frame::ComponentType::kVBMDIForm, "Form"},
    {frame::ComponentType::kStdModule, "Module"},
    {frame::ComponentType::kClassModule, "Class"},
    {frame::ComponentType::kPropPage, "Prop. Page"},
    {frame::ComponentType::kUserControl, "User Control"},
}};

std::string templateOf(const frame::Services& services, frame::ComponentType type) {
  for (const TemplateOfType& known : kTemplatesOfTypes)
    for (const auto& [name, key] : frame::kModuleHeaderTemplates)
      if (known.type == type && known.name == name) return services.settings.option(key);
  return {};
}

}  // namespace

std::string moduleHeaderText(const frame::Services& services, frame::ComponentType type) {
  std::string text = templateOf(services, type);
  const auto project = services.vbe.ActiveVBProject();
  const std::array<std::pair<std::string_view, std::string>, 3> placeholders{{
      {"<Author>", frame::GetCurrentUser(services)},
      {"<Project>", project ? project->Name() : std::string()},
      {"<Date>", headerDate(services, {})},
  }};
  for (const auto& [placeholder, value] : placeholders) text = base::replaceAll(text, placeholder, value);
  return text;
}

void Add_Module_Header(const frame::Services& services, frame::VBComponent& component) {
  const base::ErrorScope scope{"modVBIDEFunctions", "Add_Module_Header"};
  if (frame::numberOf(services, kEnabled) != 1) return;
  const auto module = component.CodeModule();
  if (!module) return;
  const std::string text = moduleHeaderText(services, component.Type());
  if (base::trim(text).empty()) return;
  source::withReadOnlyNotice(services, *module, [&] { module->InsertLines(1, text); });
}

void AddModuleHeader(const frame::Services& services) {
  const auto component = services.vbe.SelectedVBComponent();
  if (!component) throw base::Error(base::errors::kObjectNotSet);
  Add_Module_Header(services, *component);
}

}  // namespace kolvane::writers
