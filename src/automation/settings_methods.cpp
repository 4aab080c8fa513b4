// settings/… and registry/….
#include "automation/methods.h"
#include "automation/session.h"
#include "automation/text_of.h"
#include "base/text.h"

namespace kolvane::automation::methods {
namespace {

frame::RegistryRoot rootOf(const Arguments& arguments) {
  return arguments.text("root", "currentUser") == "localMachine" ? frame::RegistryRoot::kLocalMachine
                                                                 : frame::RegistryRoot::kCurrentUser;
}

// A value as the settings hold it.
std::string settingText(const Input& value) {
  if (value.is_string()) return value.get<std::string>();
  if (value.is_boolean()) return base::boolText(value.get<bool>());
  return value.dump();
}

}  // namespace

Json settingsGet(Session& session, const Arguments& arguments) {
  const std::string text = session.settings().GetSetting(arguments.text("section"), arguments.text("key"),
                                                         arguments.text("default"));
  return {{"text", textOf(session, text)}};
}

Json settingsSet(Session& session, const Arguments& arguments) {
  session.settings().SaveSetting(arguments.text("section"), arguments.text("key"), arguments.text("text"));
  return done();
}

Json settingsAll(Session& session, const Arguments& arguments) {
  Json rows = Json::array();
  for (const auto& [key, text] : session.settings().GetAllSettings(arguments.text("section")))
    rows.push_back({textOf(session, key), textOf(session, text)});
  return {{"rows", rows}};
}

Json settingsDelete(Session& session, const Arguments& arguments) {
  if (arguments.has("key"))
    session.settings().DeleteSetting(arguments.text("section"), arguments.text("key"));
  else
    session.settings().DeleteSetting(arguments.text("section"));
  return done();
}

Json registryRead(Session& session, const Arguments& arguments) {
  const std::string value =
      session.settings().ReadRegistryValue(rootOf(arguments), arguments.text("path"), arguments.text("name"));
  return {{"value", textOf(session, value)}};
}

Json registryWrite(Session& session, const Arguments& arguments) {
  constexpr int kString = 1;
  session.settings().WriteRegistryValue(rootOf(arguments), arguments.text("path"), arguments.text("name"),
                                        arguments.whole("type", kString), settingText(arguments.at("value")));
  return done();
}

Json registryKeys(Session& session, const Arguments& arguments) {
  return {
      {"names", textsOf(session, session.settings().keyNames(rootOf(arguments), arguments.text("path")))}};
}

Json registryValues(Session& session, const Arguments& arguments) {
  Json rows = Json::array();
  for (const auto& value : session.settings().values(rootOf(arguments), arguments.text("path")))
    rows.push_back({textOf(session, value.name), textOf(session, value.data)});
  return {{"rows", rows}};
}

Json registryDeleteKey(Session& session, const Arguments& arguments) {
  session.settings().DeleteRegistryKey(rootOf(arguments), arguments.text("path"));
  return done();
}

Json registryDeleteValue(Session& session, const Arguments& arguments) {
  session.settings().DeleteRegistryValue(rootOf(arguments), arguments.text("path"), arguments.text("name"));
  return done();
}

}  // namespace kolvane::automation::methods
