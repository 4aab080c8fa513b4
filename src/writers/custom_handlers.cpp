#include "writers/custom_handlers.h"

#include <algorithm>
#include <array>

#include "base/date_time.h"
#include "base/error.h"
#include "base/text.h"
#include "frame/options.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kModule = "modGeneral";
constexpr std::string_view kSection = "ManEs148\\Custom";
constexpr auto kUser = frame::RegistryRoot::kCurrentUser;
constexpr int kStringValue = 1;

constexpr frame::Option kDateFormat = frame::option("DefDF17");
constexpr std::string_view kTimeFormat = "hh:mm";

std::optional<std::string> procedureName(const frame::Services&, const ElementValues& values) {
  return values.procedureName;
}

// Code, not text: what the line asks for its module's name when it runs.
std::optional<std::string> moduleName(const frame::Services&, const ElementValues& values) {
  switch (values.componentType) {
    case frame::ComponentType::kStdModule:
      return std::string(values.moduleNameConstant);
    case frame::ComponentType::kClassModule:
    case frame::ComponentType::kVBForm:
    case frame::ComponentType::kVBMDIForm:
      return "TypeName (Me)";
    default:
      return std::nullopt;
  }
}

std::optional<std::string> projectName(const frame::Services& services, const ElementValues&) {
  const auto project = services.vbe.ActiveVBProject();
  return project ? std::optional(project->Name()) : std::nullopt;
}

std::optional<std::string> userName(const frame::Services&, const ElementValues& values) {
  return values.user;
}

std::optional<std::string> date(const frame::Services& services, const ElementValues&) {
  return base::formatDate(services.clock.now(), frame::textOf(services, kDateFormat));
}

std::optional<std::string> time(const frame::Services& services, const ElementValues&) {
  return base::formatDate(services.clock.now(), kTimeFormat);
}

constexpr std::array<CustomHandlerElement, 6> kElements{{
    {"<Procedure Name>", "Procedure Name", procedureName},
    {"<Module Name>", "Module Name", moduleName},
    {"<Project Name>", "Project Name", projectName},
    {"<Username>", "Username", userName},
    {"<Date>", "Date", date},
    {"<Time>", "Time", time},
}};

// The whole key at once: a raw read would take a text longer than its buffer for the end of the key.
template <typename Matches>
std::optional<std::string> textOfFirst(const frame::Settings& settings, Matches matches) {
  for (frame::RegistryValue& value : settings.values(kUser, customHandlersPath()))
    if (matches(value.name)) return std::move(value.data);
  return std::nullopt;
}

}  // namespace

std::string tooManyCustomHandlers() {
  return "Only " + std::to_string(kMaxCustomHandlers) + " custom error handlers are currently supported!";
}

std::string customHandlersPath() { return frame::sectionPath(kSection); }

std::vector<std::string> GetCustomErrors(const frame::Settings& settings) {
  const base::ErrorScope scope{kModule, "GetCustomErrors"};
  std::vector<std::string> names;
  for (frame::RegistryValue& value : settings.values(kUser, customHandlersPath()))
    names.push_back(std::move(value.name));
  return names;
}

std::string ReturnCustomError(const frame::Settings& settings, std::string_view name) {
  const base::ErrorScope scope{kModule, "ReturnCustomError"};
  return textOfFirst(settings, [&](const std::string& stored) { return stored == name; }).value_or("");
}

std::optional<std::string> readCustomHandler(const frame::Settings& settings, std::string_view name) {
  return textOfFirst(settings, [&](const std::string& stored) { return base::equalNoCase(stored, name); });
}

void writeCustomHandler(frame::Settings& settings, std::string_view name, std::string_view text) {
  settings.WriteRegistryValue(kUser, customHandlersPath(), name, kStringValue, text);
}

bool deleteCustomHandler(frame::Settings& settings, std::string_view name) {
  if (!readCustomHandler(settings, name)) return false;
  settings.DeleteRegistryValue(kUser, customHandlersPath(), name);
  return true;
}

std::string customHandlerNotFound(std::string_view name) {
  return std::string("Custom error '").append(name).append("' not found!");
}

std::span<const CustomHandlerElement> customHandlerElements() { return kElements; }

std::string replaceElements(const frame::Services& services, std::string_view text,
                            const ElementValues& values) {
  std::string result(text);
  for (const CustomHandlerElement& element : kElements) {
    if (result.find(element.text) == std::string::npos) continue;
    if (const auto value = element.value(services, values))
      result = base::replaceAll(result, element.text, *value);
  }
  return result;
}

}  // namespace kolvane::writers
