// kolvane commands: the catalogue.
#include <nlohmann/json.hpp>
#include <ostream>
#include <vector>

#include "commandline/commands.h"
#include "commandline/text_table.h"
#include "frame/hot_keys.h"
#include "frame/option_tables.h"

namespace kolvane::commandline {
namespace {

std::string withoutMark(std::string_view caption) {
  std::string text(caption);
  std::erase(text, '&');
  return text;
}

// "menu", "toolbar", "menu, toolbar" or nothing, by the settings.
std::string placesOf(Session& session, const frame::CatalogueRow& row) {
  const auto shown = [&](std::string_view prefix, bool fallback) {
    return session.suite().settings().GetSetting(frame::kOptions, std::string(prefix) + std::string(row.key),
                                                 fallback ? "True" : "False") == "True";
  };
  const bool inMenu = shown(frame::kInMenuPrefix, row.inMenu);
  const bool onToolbar = shown(frame::kOnToolbarPrefix, row.onToolbar);
  if (inMenu && onToolbar) return "menu, toolbar";
  return inMenu ? "menu" : onToolbar ? "toolbar" : "";
}

std::string hotKeyOf(Session& session, const frame::CatalogueRow& row) {
  return session.utf8(
      frame::GetHotKeyText(session.suite().settings().GetSetting(frame::kHotKeySection, row.key)));
}

// Those of this version, or all of the catalogue.
std::vector<const frame::CatalogueRow*> rowsToList(Session& session, bool all) {
  std::vector<const frame::CatalogueRow*> rows;
  for (const frame::CatalogueRow& row : frame::kCatalogue)
    if (all || session.suite().available(row)) rows.push_back(&row);
  return rows;
}

void printText(Session& session, bool all) {
  constexpr const char* kMissingMark = "-";
  TextTable table;
  const auto add = [&](const std::string& mark, std::vector<std::string> cells) {
    if (all) cells.insert(cells.begin(), mark);
    table.add(std::move(cells));
  };
  add("", {"KEY", "NAME", "SHOWN IN", "HOT KEY"});
  for (const frame::CatalogueRow* row : rowsToList(session, all))
    add(session.suite().available(*row) ? "" : kMissingMark,
        {std::string(row->key), withoutMark(row->listName), placesOf(session, *row),
         hotKeyOf(session, *row)});
  session.terminal().out << table.text(session.terminal().outIsTerminal ? session.terminal().width : 0);
  if (all) session.terminal().out << "\n- is not in this version yet\n";
}

nlohmann::json jsonOf(Session& session, const frame::CatalogueRow& row) {
  return {{"key", row.key},
          {"name", withoutMark(row.listName)},
          {"caption", row.menuCaption},
          {"tip", row.toolbarTip},
          {"menuNumber", row.number},
          {"toolbarNumber", row.toolbarNumber},
          {"shownIn", placesOf(session, row)},
          {"hotKey", hotKeyOf(session, row)},
          {"available", session.suite().available(row)}};
}

void printJson(Session& session, bool all) {
  nlohmann::json list = nlohmann::json::array();
  for (const frame::CatalogueRow* row : rowsToList(session, all)) list.push_back(jsonOf(session, *row));
  session.terminal().out << nlohmann::json{{"commands", std::move(list)}}.dump(2) << "\n";
}

}  // namespace

void declareCommands(CLI::App& parent, Invocation& invocation) {
  auto json = std::make_shared<bool>(false);
  auto all = std::make_shared<bool>(false);
  CLI::App* command = parent.add_subcommand("commands", "List the commands of the suite with their keys");
  command->add_flag("--json", *json, "Print the list as JSON");
  command->add_flag("--all", *all, "List those that are not in this version yet, too");
  command->callback([json, all, &invocation] {
    Session session(invocation.environment, invocation.global);
    *json ? printJson(session, *all) : printText(session, *all);
  });
}

}  // namespace kolvane::commandline
