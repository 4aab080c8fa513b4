// kolvane settings: the settings tree, read and changed from a terminal.
#include <istream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <ostream>

#include "base/error.h"
#include "base/text.h"
#include "commandline/commands.h"
#include "commandline/project_command.h"
#include "commandline/settings_store.h"
#include "commandline/text_table.h"
#include "frame/option_tables.h"
#include "frame/settings_text.h"

namespace kolvane::commandline {
namespace {

struct SettingsOptions {
  std::string section;
  std::string key;
  std::string value;
  std::string file;
  bool json = false;
  bool merge = false;
};

using Store = SettingsStore;

struct Row {
  std::string section;
  std::string key;
  std::string value;
  std::string caption;
};

std::string productPath() { return std::string(frame::kSettingsRoot) + std::string(frame::SettingsAppName); }

std::string withoutMark(std::string text) {
  std::erase(text, '&');
  return text;
}

// What people see for a key, where the tables know it.
std::string captionOf(std::string_view key) {
  for (const auto& option : frame::kGeneralOptions)
    if (option.key == key) return withoutMark(std::string(option.caption));
  for (const auto& field : frame::kHeaderFields)
    if (field.key == key) return "Header field " + std::string(field.text);
  for (const std::string_view prefix : {frame::kInMenuPrefix, frame::kOnToolbarPrefix}) {
    if (!key.starts_with(prefix)) continue;
    return withoutMark(frame::GetAddinNameFromRegValue(key));
  }
  return {};
}

void addStored(Store& store, const std::string& section, std::vector<Row>& rows) {
  for (const auto& [key, value] : store.settings().GetAllSettings(section))
    rows.push_back({section, key, value, captionOf(key)});
  for (int i = 0;; ++i) {
    const std::string key = store.settings().EnumRegistryKey(frame::RegistryRoot::kCurrentUser,
                                                             productPath() + "\\" + section, i);
    if (key == frame::kNotFound) break;
    addStored(store, section + "\\" + key, rows);
  }
}

std::vector<Row> rowsOf(Store& store, const std::string& wanted) {
  std::vector<Row> rows;
  if (!wanted.empty()) {
    addStored(store, wanted, rows);
  } else {
    for (int i = 0;; ++i) {
      const std::string section =
          store.settings().EnumRegistryKey(frame::RegistryRoot::kCurrentUser, productPath(), i);
      if (section == frame::kNotFound) break;
      addStored(store, section, rows);
    }
  }
  return rows;
}

// Texts of several lines on one.
std::string oneLine(std::string text) {
  text = base::replaceAll(text, "\\", "\\\\");
  text = base::replaceAll(text, "\r", "\\r");
  return base::replaceAll(text, "\n", "\\n");
}

void list(Invocation& invocation, const SettingsOptions& options) {
  Store store(invocation, Store::What::kInForce);
  const auto rows = rowsOf(store, store.bytes(options.section));
  const Terminal& terminal = invocation.environment.terminal;
  if (options.json) {
    nlohmann::json all = nlohmann::json::array();
    for (const Row& row : rows)
      all.push_back({{"section", store.utf8(row.section)},
                     {"key", store.utf8(row.key)},
                     {"value", store.utf8(row.value)},
                     {"caption", store.utf8(row.caption)}});
    terminal.out << nlohmann::json{{"rows", std::move(all)}}.dump(2) << "\n";
    return;
  }
  TextTable table;
  for (const Row& row : rows)
    table.add({store.utf8(row.section), store.utf8(row.key), oneLine(store.utf8(row.value)),
               store.utf8(row.caption)});
  terminal.out << table.text(terminal.outIsTerminal ? terminal.width : 0);
}

void get(Invocation& invocation, const SettingsOptions& options) {
  Store store(invocation, Store::What::kInForce);
  const std::string path = productPath() + "\\" + store.bytes(options.section);
  const std::string text =
      store.settings().ReadRegistryValue(frame::RegistryRoot::kCurrentUser, path, store.bytes(options.key));
  if (text == frame::kNotFound) {
    invocation.environment.terminal.err << "kolvane: " << options.section << " has no value " << options.key
                                        << "\n";
    invocation.exit = Exit::kFindings;
    return;
  }
  invocation.environment.terminal.out << store.utf8(text) << "\n";
}

void set(Invocation& invocation, const SettingsOptions& options) {
  Store store(invocation, Store::What::kStored);
  store.settings().SaveSetting(store.bytes(options.section), store.bytes(options.key),
                               store.bytes(options.value));
}

void remove(Invocation& invocation, const SettingsOptions& options) {
  Store store(invocation, Store::What::kStored);
  try {
    if (options.key.empty())
      store.settings().DeleteSetting(store.bytes(options.section));
    else
      store.settings().DeleteSetting(store.bytes(options.section), store.bytes(options.key));
  } catch (const base::Error& error) {
    if (error.number() != base::errors::kInvalidCall) throw;
    throw WrongUse{"there is no " + (options.key.empty() ? "section " : options.section + " value ") +
                   (options.key.empty() ? options.section : options.key)};
  }
}

void exportAll(Invocation& invocation, const SettingsOptions& options) {
  Store store(invocation, Store::What::kStored);
  const std::string text = frame::exportTree(store.tree());
  if (options.file.empty() || options.file == "-")
    invocation.environment.terminal.out << text;
  else
    invocation.environment.files.replace(invocation.environment.files.absolute(options.file), text);
}

void importAll(Invocation& invocation, const SettingsOptions& options) {
  Environment& environment = invocation.environment;
  const std::string text = options.file == "-"
                               ? std::string(std::istreambuf_iterator<char>(environment.terminal.in), {})
                               : std::string(environment.files.read(options.file).content->bytes());
  Store store(invocation, Store::What::kStored);
  frame::importTree(store.tree(), text,
                    options.merge ? frame::ImportMode::kMerge : frame::ImportMode::kReplace);
}

void path(Invocation& invocation, const SettingsOptions&) {
  invocation.environment.terminal.out << settingsPath(invocation.environment, invocation.global) << "\n";
}

void reset(Invocation& invocation, const SettingsOptions&) {
  const std::string& path = settingsPath(invocation.environment, invocation.global);
  if (path == frame::kForgottenSettings) throw WrongUse{"settings in memory are new at each run"};
  const std::string aside = frame::setSettingsAside(invocation.environment.files, path);
  invocation.environment.terminal.out << "The settings begin anew; what was there is kept as " << aside
                                      << "\n";
}

}  // namespace

void declareSettings(CLI::App& parent, Invocation& invocation) {
  auto options = std::make_shared<SettingsOptions>();
  CLI::App* settings = parent.add_subcommand("settings", "Show and change the settings");
  settings->require_subcommand(1);
  settings->fallthrough();
  const auto declare = [&](const char* name, const char* text,
                           void (*work)(Invocation&, const SettingsOptions&)) {
    CLI::App* command = settings->add_subcommand(name, text);
    command->callback([options, &invocation, work] { work(invocation, *options); });
    return command;
  };
  CLI::App* command =
      declare("list", "Every setting with its value and, where there is one, its caption", list);
  command->add_option("SECTION", options->section, "Only this section");
  command->add_flag("--json", options->json, "Print the rows as JSON");
  command = declare("get", "Print one value; exit status 1 if it is not set", get);
  command->add_option("SECTION", options->section, "Such as Options")->required();
  command->add_option("KEY", options->key)->required();
  command = declare("set", "Change one value", set);
  command->add_option("SECTION", options->section, "Such as Options")->required();
  command->add_option("KEY", options->key)->required();
  command->add_option("VALUE", options->value)->required();
  command = declare("delete", "Remove one value, or a whole section", remove);
  command->add_option("SECTION", options->section)->required();
  command->add_option("KEY", options->key);
  command = declare("export", "Print all settings as text, or write them to a file", exportAll);
  command->add_option("FILE", options->file, "The file; without it, or for -, standard output");
  command = declare("import", "Take the settings from such a text, in place of all that is there", importAll);
  command->add_option("FILE", options->file, "The file, or - for standard input")->required();
  command->add_flag("--merge", options->merge, "Keep what the text does not mention");
  declare("reset", "Start afresh with the defaults; the file that is there is kept under another name",
          reset);
  declare("path", "Print where the settings are", path);
}

}  // namespace kolvane::commandline
