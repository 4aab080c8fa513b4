// kolvane handlers: the user's own error handlers, listed and kept from a terminal.
#include <istream>
#include <iterator>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "base/error.h"
#include "base/text.h"
#include "commandline/commands.h"
#include "commandline/project_command.h"
#include "commandline/settings_store.h"
#include "commandline/text_table.h"
#include "writers/custom_handlers.h"

namespace kolvane::commandline {
namespace {

struct HandlersOptions {
  std::string name;
  std::string file;
  bool json = false;
};

WrongUse noHandler(const std::string& name) {
  return WrongUse{"there is no custom error handler \"" + name + "\""};
}

std::string textOf(SettingsStore& store, const std::string& name) {
  const auto text = writers::readCustomHandler(store.settings(), store.bytes(name));
  if (!text) throw noHandler(name);
  return store.utf8(*text);
}

// Lines end in CR LF in the store; the end of a file's last line is none of the text.
std::string asStored(std::string text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
  text = base::replaceAll(base::replaceAll(text, base::kCrLf, "\n"), "\n", base::kCrLf);
  if (text.ends_with(base::kCrLf)) text.resize(text.size() - base::kCrLf.size());
  return text;
}

std::string given(Environment& environment, const std::string& file) {
  if (file.empty() || file == "-")
    return std::string(std::istreambuf_iterator<char>(environment.terminal.in), {});
  return std::string(environment.files.read(environment.files.absolute(file)).content->bytes());
}

void list(Invocation& invocation, const HandlersOptions& options) {
  SettingsStore store(invocation, SettingsStore::What::kInForce);
  const Terminal& terminal = invocation.environment.terminal;
  nlohmann::json rows = nlohmann::json::array();
  TextTable table;
  for (const std::string& bytes : writers::GetCustomErrors(store.settings())) {
    const std::string name = store.utf8(bytes);
    const std::string text = textOf(store, name);
    rows.push_back({{"name", name}, {"text", text}});
    const auto lines = base::splitLines(text);
    table.add({name, std::string(base::trim(lines.empty() ? std::string_view() : lines[0]))});
  }
  if (options.json)
    terminal.out << nlohmann::json{{"rows", std::move(rows)}}.dump(2) << "\n";
  else
    terminal.out << table.text(terminal.outIsTerminal ? terminal.width : 0);
}

void show(Invocation& invocation, const HandlersOptions& options) {
  SettingsStore store(invocation, SettingsStore::What::kInForce);
  invocation.environment.terminal.out << base::replaceAll(textOf(store, options.name), base::kCrLf, "\n")
                                      << "\n";
}

void set(Invocation& invocation, const HandlersOptions& options) {
  if (base::trim(options.name).empty()) throw WrongUse{"a custom error handler needs a name"};
  const std::string text = asStored(given(invocation.environment, options.file));
  if (text.empty()) throw WrongUse{"the text of custom error handler \"" + options.name + "\" is empty"};
  SettingsStore store(invocation, SettingsStore::What::kStored);
  frame::Settings& settings = store.settings();
  const std::string name = store.bytes(options.name);
  if (!writers::readCustomHandler(settings, name) &&
      writers::GetCustomErrors(settings).size() >= writers::kMaxCustomHandlers)
    throw base::Error(base::errors::kInvalidCall, writers::tooManyCustomHandlers());
  writers::writeCustomHandler(settings, name, store.bytes(text));
}

void remove(Invocation& invocation, const HandlersOptions& options) {
  SettingsStore store(invocation, SettingsStore::What::kStored);
  if (!writers::deleteCustomHandler(store.settings(), store.bytes(options.name)))
    throw noHandler(options.name);
}

}  // namespace

void declareHandlers(CLI::App& parent, Invocation& invocation) {
  auto options = std::make_shared<HandlersOptions>();
  CLI::App* handlers = parent.add_subcommand("handlers", "List and keep your own error handlers");
  handlers->require_subcommand(1);
  handlers->fallthrough();
  const auto declare = [&](const char* name, const std::string& text,
                           void (*work)(Invocation&, const HandlersOptions&)) {
    CLI::App* command = handlers->add_subcommand(name, text);
    command->callback([options, &invocation, work] { work(invocation, *options); });
    return command;
  };
  const auto declareNamed = [&](const char* name, const std::string& text,
                                void (*work)(Invocation&, const HandlersOptions&)) {
    CLI::App* command = declare(name, text, work);
    command->add_option("NAME", options->name, "The handler's name")->required();
    return command;
  };
  declare("list", "The names of the handlers with their first lines", list)
      ->add_flag("--json", options->json, "Print names and texts as JSON");
  declareNamed("show", "Print the text of a handler", show);
  const std::string limit = std::to_string(writers::kMaxCustomHandlers);
  declareNamed("set", "Store a handler, or another text for it; at most " + limit + " are kept", set)
      ->add_option("FILE", options->file, "The text in UTF-8; without it, or for -, standard input");
  declareNamed("delete", "Remove a handler", remove);
}

}  // namespace kolvane::commandline
