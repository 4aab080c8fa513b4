#include <array>

#include "automation/json_rpc.h"
#include "automation/methods.h"
#include "automation/session.h"
#include "automation/text_of.h"
#include "forms/drive.h"
#include "forms/snapshot.h"

namespace kolvane::automation::methods {
namespace {

namespace drive = forms::drive;

// ---- state as JSON

class StateWriter {
 public:
  explicit StateWriter(const Session& session) : session_(session) {}

  Json form(const forms::FormState& state) const {
    Json controls = Json::array();
    for (const auto& each : state.controls) controls.push_back(control(each));
    return {{"name", state.name},   {"caption", text(state.caption)}, {"visible", state.visible},
            {"modal", state.modal}, {"focus", state.focus},           {"blockedBy", state.blockedBy},
            {"controls", controls}, {"menus", menus(state.menus)}};
  }

 private:
  std::string text(std::string_view bytes) const { return textOf(session_, bytes); }

  Json control(const forms::ControlState& state) const {
    Json json{{"name", state.name},
              {"kind", forms::kindRow(state.kind).name},
              {"caption", text(state.caption)},
              {"enabled", state.enabled},
              {"visible", state.visible}};
    addFlags(json, state);
    addContent(json, state);
    addSelection(json, state);
    return json;
  }

  // Only where they say yes.
  static void addFlags(Json& json, const forms::ControlState& state) {
    if (state.locked) json["locked"] = true;
    if (state.defaultButton) json["default"] = true;
    if (state.cancelButton) json["cancel"] = true;
    if (!state.picture.empty()) json["picture"] = state.picture;
  }

  void addContent(Json& json, const forms::ControlState& state) const {
    if (state.text) json["text"] = text(*state.text);
    if (state.value) json["value"] = numberOf(*state.value);
    if (state.items) json["items"] = textsOf(session_, *state.items);
    if (state.columns) json["columns"] = textsOf(session_, *state.columns);
    if (state.rows) {
      json["rows"] = Json::array();
      for (const auto& row : *state.rows) json["rows"].push_back(textsOf(session_, row));
    }
    if (state.keys) json["keys"] = textsOf(session_, *state.keys);
    if (state.nodes) json["nodes"] = nodes(*state.nodes);
    if (state.panels) {
      json["panels"] = Json::array();
      for (const auto& panel : *state.panels)
        json["panels"].push_back({{"key", text(panel.key)}, {"text", text(panel.text)}});
    }
    if (state.pages) json["pages"] = textsOf(session_, *state.pages);
    if (state.min) json["min"] = numberOf(*state.min);
    if (state.max) json["max"] = numberOf(*state.max);
  }

  static void addSelection(Json& json, const forms::ControlState& state) {
    if (state.listIndex) json["listIndex"] = *state.listIndex;
    if (state.checked) json["checked"] = *state.checked;
    if (state.selected) json["selected"] = *state.selected;
    if (state.tab) json["tab"] = *state.tab;
    if (state.row) json["row"] = *state.row;
    if (state.column) json["column"] = *state.column;
  }

  Json nodes(const std::vector<forms::NodeState>& states) const {
    Json list = Json::array();
    for (const auto& node : states)
      list.push_back({{"key", text(node.key)},
                      {"text", text(node.text)},
                      {"expanded", node.expanded},
                      {"checked", node.checked},
                      {"selected", node.selected},
                      {"nodes", nodes(node.children)}});
    return list;
  }

  Json menus(const std::vector<forms::MenuState>& states) const {
    Json list = Json::array();
    for (const auto& menu : states)
      list.push_back({{"name", menu.name},
                      {"caption", text(menu.caption)},
                      {"shortcut", menu.shortcut},
                      {"enabled", menu.enabled},
                      {"visible", menu.visible},
                      {"checked", menu.checked},
                      {"items", menus(menu.items)}});
    return list;
  }

  const Session& session_;
};

// ---- what a request aims at

forms::Form& formOf(Session& session, const Arguments& arguments) {
  return drive::openForm(session.desk(), arguments.text("form"));
}

forms::Spot spotOf(const Arguments& arguments) {
  forms::Spot spot;
  if (arguments.has("row")) spot.row = arguments.whole("row");
  if (arguments.has("column")) spot.column = arguments.whole("column");
  spot.node = arguments.optionalText("node");
  return spot;
}

drive::RowOrKey rowOrKey(const Input& value) {
  if (value.is_string()) return value.get<std::string>();
  return value.get<int>();
}

constexpr std::array<std::string_view, 7> kSettable{"text",   "value", "index", "item",
                                                    "select", "check", "tab"};

void requireOneSetting(const Arguments& arguments) {
  int given = 0;
  std::string names;
  for (const std::string_view name : kSettable) {
    if (arguments.has(name)) ++given;
    if (!names.empty()) names += name == kSettable.back() ? " and " : ", ";
    names.append("\"").append(name).append("\"");
  }
  if (given != 1)
    throw RequestError(ErrorCode::kBadParameters, "forms/set needs exactly one of " + names + ".");
}

drive::Setting settingOf(const Arguments& arguments) {
  requireOneSetting(arguments);
  drive::Setting setting;
  setting.text = arguments.optionalText("text");
  setting.item = arguments.optionalText("item");
  if (arguments.has("value")) setting.value = arguments.at("value").get<double>();
  if (arguments.has("index")) setting.index = arguments.whole("index");
  if (arguments.has("tab")) setting.tab = arguments.whole("tab");
  if (arguments.has("select")) {
    const Input& select = arguments.at("select");
    if (select.is_array())
      for (const Input& each : select) setting.select.push_back(rowOrKey(each));
    else
      setting.select.push_back(rowOrKey(select));
  }
  if (arguments.has("check")) {
    const Input& check = arguments.at("check");
    setting.check = drive::Tick{rowOrKey(check.at(check.contains("row") ? "row" : "node")),
                                check.at("value").get<bool>()};
  }
  return setting;
}

}  // namespace

Json formsList(Session& session, const Arguments&) {
  Json list = Json::array();
  for (const forms::OpenForm& open : session.desk().openForms().all())
    list.push_back({{"name", open.form->name()},
                    {"caption", textOf(session, open.form->caption())},
                    {"modal", open.modal}});
  return {{"forms", list}};
}

Json formsGet(Session& session, const Arguments& arguments) {
  return StateWriter(session).form(forms::snapshot(formOf(session, arguments)));
}

Json formsSet(Session& session, const Arguments& arguments) {
  return done(drive::set(formOf(session, arguments), arguments.text("control"), settingOf(arguments)));
}

Json formsClick(Session& session, const Arguments& arguments) {
  return done(drive::click(formOf(session, arguments), arguments.text("control"), spotOf(arguments)));
}

Json formsDoubleClick(Session& session, const Arguments& arguments) {
  return done(drive::doubleClick(formOf(session, arguments), arguments.text("control"), spotOf(arguments)));
}

Json formsKey(Session& session, const Arguments& arguments) {
  const auto control = arguments.optionalText("control");
  return done(drive::key(formOf(session, arguments),
                         control ? std::optional<std::string_view>(*control) : std::nullopt,
                         arguments.whole("key"), arguments.whole("shift")));
}

Json formsFocus(Session& session, const Arguments& arguments) {
  return done(drive::focus(formOf(session, arguments), arguments.text("control")));
}

Json formsClose(Session& session, const Arguments& arguments) {
  return done(drive::close(formOf(session, arguments)));
}

}  // namespace kolvane::automation::methods
