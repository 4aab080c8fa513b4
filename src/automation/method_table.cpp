#include "automation/method_table.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "automation/json_rpc.h"
#include "base/error.h"
#include "base/text.h"

namespace kolvane::automation {
namespace {

constexpr bool kOptional = true;

constexpr Parameter kComponent{"component", Kind::kText};
constexpr Parameter kProject{"project", Kind::kText, kOptional};
constexpr Parameter kControl{"control", Kind::kText};
constexpr Parameter kName{"name", Kind::kText};
constexpr Parameter kForm{"form", Kind::kText};
constexpr Parameter kPath{"path", Kind::kPath};
constexpr Parameter kPathElsewhere{"path", Kind::kPath, kOptional};
constexpr Parameter kForce{"force", Kind::kTruth, kOptional};
constexpr Parameter kRoot{"root", Kind::kText, kOptional, "currentUser|localMachine"};
constexpr Parameter kKeyPath{"path", Kind::kKeyPath};

// clang-format off
constexpr std::array kMethods = std::to_array<Method>({
  {"session/start",
   {{"settings", Kind::kPath, kOptional}, {"user", Kind::kUnicode, kOptional}, {"now", Kind::kUnicode, kOptional},
    {"codePage", Kind::kUnicode, kOptional}, {"seed", Kind::kWhole, kOptional}, {"home", Kind::kUnicode, kOptional},
    {"decimalSeparator", Kind::kUnicode, kOptional, ".|,"}, {"careful", Kind::kTruth, kOptional}},
   "`version`, and `problems` if there are any", "Starts the session: a host without projects and a suite that is not connected. `settings` is a file's path or "
   "\":memory:\", which is the default and forgotten at the end; `user` the name for headers; at `now` the clock stands "
   "still (\"2026-11-22T10:20:30\"); `seed` starts the random numbers; `home` is the folder with Events, Templates and Show "
   "Form; with `careful` the suite loses no comment and breaks no statement where a command to the letter would. A damaged "
   "settings file is told in `problems`: it stays as it is, and the defaults are in force until the end.",
   methods::sessionStart, false},
  {"session/info", {}, "`version`, `settings`, `codePage`, `suite`, `host`",
   "Where the session stands.", methods::sessionInfo},
  {"session/end", {}, "`done`", "Ends the program once it has answered. Unsaved changes are dropped.",
   methods::sessionEnd, false},

  {"host/open", {kPath}, "`projects`, and `problems` if there are any",
   "Opens a .vbp or .vbg. What is missing or broken below it is told in `problems`; the rest opens.", methods::hostOpen},
  {"host/projects", {}, "`projects`", "The open projects with their components.", methods::hostProjects},
  {"host/newProject",
   {{"type", Kind::kWhole, kOptional, "0|1|2|3"}, {"name", Kind::kText, kOptional}}, "`done`",
   "The host's new project; type 0 is a program with \"Form1\".", methods::hostNewProject},
  {"host/addComponent",
   {{"type", Kind::kWhole}, {"name", Kind::kText, kOptional}, {"code", Kind::kText, kOptional}, kProject}, "`done`",
   "Adds a new component, selects and opens it.", methods::hostAddComponent},
  {"host/addFile", {kPath, kProject, {"related", Kind::kTruth, kOptional}}, "`done`",
   "Adds an existing file, as a related document if `related` says so.", methods::hostAddFile},
  {"host/removeComponent", {kComponent}, "`done`", "Takes a component out of its project; its file stays.",
   methods::hostRemoveComponent},
  {"host/saveProject", {kProject, kPathElsewhere, kForce}, "`done`",
   "Writes what has changed in the project, or saves it under another path. A file that another program has changed "
   "or deleted, or that has other names (hard links), is written only with `force`.", methods::hostSaveProject},
  {"host/saveComponent", {kComponent, kPathElsewhere, kForce}, "`done`",
   "The same for one component.", methods::hostSaveComponent},
  {"host/reload", {kComponent}, "`done`", "Drops all edits and reads the file again.", methods::hostReload},
  {"host/closeProject", {kProject}, "`done`", "Closes a project; unsaved changes are dropped.",
   methods::hostCloseProject},
  {"host/activate", {kProject, {"component", Kind::kText, kOptional}}, "`done`",
   "Makes the project the active one and selects the component, as in the project window.", methods::hostActivate},
  {"host/openCode", {kComponent, {"line", Kind::kWhole, kOptional}, {"column", Kind::kWhole, kOptional}}, "`done`",
   "Opens the code window, makes it the active one and puts the cursor there.", methods::hostOpenCode},
  {"host/select",
   {{"startLine", Kind::kWhole}, {"startColumn", Kind::kWhole}, {"endLine", Kind::kWhole, kOptional},
    {"endColumn", Kind::kWhole, kOptional}, {"component", Kind::kText, kOptional}}, "`done`",
   "Sets the selection of the component's or the active code pane; without an end, the cursor.", methods::hostSelect},
  {"host/selection", {{"component", Kind::kText, kOptional}},
   "`startLine`, `startColumn`, `endLine`, `endColumn`, `topLine`",
   "The selection of the component's or the active code pane, and the first line shown.", methods::hostSelection},
  {"host/text", {kComponent, {"start", Kind::kWhole, kOptional}, {"count", Kind::kWhole, kOptional}},
   "`text`, `lines`", "The code as the code window shows it, all of it or `count` lines from `start` on; `lines` counts "
   "those of the module.", methods::hostText},
  {"host/setText", {kComponent, {"text", Kind::kText}}, "`done`",
   "Replaces all code, as if the text had been loaded.", methods::hostSetText},
  {"host/edit",
   {kComponent, {"op", Kind::kText, false, "insert|delete|replace"}, {"line", Kind::kWhole},
    {"count", Kind::kWhole, kOptional}, {"text", Kind::kText, kOptional}}, "`done`",
   "One edit as a tool makes it: inserts `text` at the line, deletes `count` lines (one without it), or replaces the "
   "line. Keywords are re-cased.", methods::hostEdit},
  {"host/find",
   {kComponent, {"target", Kind::kText}, {"startLine", Kind::kWhole}, {"startColumn", Kind::kWhole},
    {"endLine", Kind::kWhole}, {"endColumn", Kind::kWhole}, {"wholeWord", Kind::kTruth, kOptional},
    {"matchCase", Kind::kTruth, kOptional}, {"pattern", Kind::kTruth, kOptional}},
   "`found`, `startLine`, `startColumn`, `endLine`, `endColumn`",
   "Looks within the four positions and gives those of the match; -1 as an end is the module's or the line's.",
   methods::hostFind},
  {"host/procedures", {kComponent}, "`procedures`: `name`, `kind`, `startLine`, `bodyLine`, `lineCount`",
   "The procedures in their order.", methods::hostProcedures},
  {"host/procAt", {kComponent, {"line", Kind::kWhole}}, "`name`, `kind`",
   "The procedure that a line belongs to; \"\" for the declarations.", methods::hostProcAt},
  {"host/members", {kComponent}, "`members`: `name`, `type`, `scope`, `codeLocation`",
   "The members of the module.", methods::hostMembers},
  {"host/readOnly", {kComponent, {"value", Kind::kTruth}}, "`done`",
   "From now on the module cannot be edited, or can again.", methods::hostReadOnly},
  {"host/controls", {kComponent},
   "`controls`: `name`, `className`, `progId`, `index`, `container`, `selected`, `properties`",
   "All controls and menus of a designer, with the values of their properties.", methods::hostControls},
  {"host/addControl",
   {kComponent, {"progId", Kind::kText}, {"name", Kind::kText, kOptional}, {"index", Kind::kWhole, kOptional},
    {"container", Kind::kText, kOptional}, {"properties", Kind::kScalars, kOptional}}, "`done`",
   "Adds a control, makes it a member of a control array if it gets an index, and sets its properties.",
   methods::hostAddControl},
  {"host/removeControl", {kComponent, kControl}, "`done`", "Removes a control with all that it holds.",
   methods::hostRemoveControl},
  {"host/renameControl", {kComponent, kControl, {"newName", Kind::kText}}, "`done`",
   "Gives a control another name; \"txtName(2)\" gives it an index too.", methods::hostRenameControl},
  {"host/getProperty", {kComponent, {"control", Kind::kText, kOptional}, kName}, "`value`",
   "A property of the control or of the component itself; \"Font.Size\" is a part of one.", methods::hostGetProperty},
  {"host/setProperty", {kComponent, {"control", Kind::kText, kOptional}, kName, {"value", Kind::kScalar}}, "`done`",
   "Sets it.", methods::hostSetProperty},
  {"host/selectControls", {kComponent, {"controls", Kind::kTexts}}, "`done`",
   "Selects these controls of the designer, in that order, and no others.", methods::hostSelectControls},
  {"host/windows", {}, "`windows`: `caption`, `type`", "The windows that stand open.", methods::hostWindows},
  {"host/closeWindow", {{"caption", Kind::kText}}, "`done`", "Closes a window.", methods::hostCloseWindow},
  {"host/commandBars", {}, "`bars`: `name`, `index`, `visible`, `controls`",
   "Every bar with its controls: `caption`, `tooltip`, `visible`, `enabled`, `beginGroup`, and in `children` what a "
   "popup holds.", methods::hostCommandBars},
  {"host/clickBar", {{"bar", Kind::kTextOrWhole}, {"path", Kind::kTexts}}, "`done`",
   "Clicks a control of the bar of that name or index. The path holds captions or tips, the outermost first; \"&\" and "
   "case do not count.", methods::hostClickBar},
  {"host/run", {}, "`done`", "Enters run mode and leaves it again.", methods::hostRun},
  {"host/keys", {}, "`keys`", "The keystrokes that tools have sent since the last call.", methods::hostKeys},
  {"host/fileText", {kPath}, "`text`", "A file as it stands on disk, read in the code page.", methods::hostFileText},

  {"suite/connect", {{"mode", Kind::kText, kOptional, "startup|afterStartup"}}, "`done`",
   "Initialises and connects the suite and completes its start, in the host's order.", methods::suiteConnect},
  {"suite/beginShutdown", {}, "`done`", "The host begins to close.", methods::suiteBeginShutdown},
  {"suite/disconnect", {}, "`done`", "Takes the suite out of the host. It may connect again.", methods::suiteDisconnect},
  {"suite/commands", {},
   "`commands`: `key`, `name`, `caption`, `tip`, `menu`, `toolbar`, `inMenu`, `onToolbar`, `available`",
   "The catalogue: the numbers in the menu's and the toolbar's order, whether the host shows the command there, and "
   "whether this version has it.", methods::suiteCommands},
  {"suite/run", {{"command", Kind::kText}, {"from", Kind::kText, kOptional, "menu|toolbar"}}, "`done`",
   "Clicks a command, named by its key or by its name. A command that is not shown there runs all the same.",
   methods::suiteRun},
  {"suite/dispatch", {{"key", Kind::kText}}, "`done`",
   "Runs the code-window command of this key on what the active code pane holds.", methods::suiteDispatch},
  {"suite/hotKey", {{"command", Kind::kText}}, "`done`", "Does what the command's hot key does.", nullptr},
  {"suite/tick", {{"count", Kind::kWhole, kOptional}}, "`done`", "Lets the background timer tick.", methods::suiteTick},

  {"forms/list", {}, "`forms`: `name`, `caption`, `modal`", "The open forms, the lowest first.", methods::formsList},
  {"forms/get", {kForm}, "`name`, `caption`, `visible`, `modal`, `focus`, `blockedBy`, `controls`, `menus`",
   "The state of a form and of everything on it.", methods::formsGet},
  {"forms/set",
   {kForm, kControl, {"text", Kind::kText, kOptional}, {"value", Kind::kNumber, kOptional},
    {"index", Kind::kWhole, kOptional}, {"item", Kind::kText, kOptional}, {"select", Kind::kRows, kOptional},
    {"check", Kind::kTick, kOptional}, {"tab", Kind::kWhole, kOptional}}, "`done`",
   "Sets one of these as a user would.", methods::formsSet},
  {"forms/click",
   {kForm, kControl, {"row", Kind::kWhole, kOptional}, {"column", Kind::kWhole, kOptional},
    {"node", Kind::kText, kOptional}}, "`done`",
   "A click on a control, on a menu item, or on the part of it that is named: a row, a column's header, a node.",
   methods::formsClick},
  {"forms/doubleClick",
   {kForm, kControl, {"row", Kind::kWhole, kOptional}, {"column", Kind::kWhole, kOptional},
    {"node", Kind::kText, kOptional}}, "`done`", "The same, twice.", methods::formsDoubleClick},
  {"forms/key",
   {kForm, {"control", Kind::kText, kOptional}, {"key", Kind::kWhole}, {"shift", Kind::kWhole, kOptional}}, "`done`",
   "A key press, by its code; `shift` sums 1 Shift, 2 Ctrl and 4 Alt.", methods::formsKey},
  {"forms/focus", {kForm, kControl}, "`done`", "Moves the focus.", methods::formsFocus},
  {"forms/close", {kForm}, "`done`", "As by the window's close button.", methods::formsClose},

  {"dialogs/answer", {{"answers", Kind::kTexts}}, "`done`", "Appends to the queue of answers.", methods::dialogsAnswer},
  {"dialogs/log", {}, "`boxes`: `kind`, `text`, `title`, `flags`, `answer`",
   "The boxes since the last call, the oldest first; empties the record.", methods::dialogsLog},

  {"clipboard/get", {}, "`text`, `picture`", "What the clipboard holds; null for what it does not.",
   methods::clipboardGet},
  {"clipboard/set", {{"text", Kind::kUnicode, kOptional}, {"picture", Kind::kUnicode, kOptional}}, "`done`",
   "Replaces what the clipboard holds.", methods::clipboardSet},

  {"settings/get", {{"section", Kind::kText}, {"key", Kind::kText}, {"default", Kind::kText, kOptional}}, "`text`",
   "A named value, or the default.", methods::settingsGet},
  {"settings/set", {{"section", Kind::kText}, {"key", Kind::kText}, {"text", Kind::kText}}, "`done`",
   "Writes a named value.", methods::settingsSet},
  {"settings/all", {{"section", Kind::kText}}, "`rows`", "All of a section, as pairs of key and value.",
   methods::settingsAll},
  {"settings/delete", {{"section", Kind::kText}, {"key", Kind::kText, kOptional}}, "`done`",
   "Deletes a value or a whole section; error 5 when it is not there.", methods::settingsDelete},
  {"registry/read", {kRoot, kKeyPath, kName}, "`value`",
   "The text of a value, \"Not Found\" when there is none.", methods::registryRead},
  {"registry/write", {kRoot, kKeyPath, kName, {"type", Kind::kWhole, kOptional}, {"value", Kind::kScalar}},
   "`done`", "Writes a value: a number for type 4, else a text.", methods::registryWrite},
  {"registry/keys", {kRoot, kKeyPath}, "`names`", "The keys directly below a key.", methods::registryKeys},
  {"registry/values", {kRoot, kKeyPath}, "`rows`", "The values of a key, as pairs of name and text.",
   methods::registryValues},
  {"registry/deleteKey", {kRoot, kKeyPath}, "`done`", "Deletes a key that has no keys below it.",
   methods::registryDeleteKey},
  {"registry/deleteValue", {kRoot, kKeyPath, kName}, "`done`", "Deletes a value.", methods::registryDeleteValue},
});
// clang-format on

static_assert(
    [] {
      for (std::size_t i = 0; i < kMethods.size(); ++i)
        for (std::size_t j = i + 1; j < kMethods.size(); ++j)
          if (kMethods[i].name == kMethods[j].name) return false;
      return true;
    }(),
    "the names of methods are unique");

struct KindRow {
  Kind kind;
  std::string_view article;
  std::string_view name;
};
constexpr std::array kKinds = std::to_array<KindRow>({
    {Kind::kText, "a ", "text"},
    {Kind::kUnicode, "a ", "text"},
    {Kind::kPath, "a ", "text that is not empty"},
    {Kind::kKeyPath, "a ", "text that is not empty"},
    {Kind::kTexts, "a ", "list of texts"},
    {Kind::kWhole, "a ", "whole number"},
    {Kind::kNumber, "a ", "number or truth value"},
    {Kind::kTruth, "a ", "truth value"},
    {Kind::kTextOrWhole, "a ", "text or whole number"},
    {Kind::kScalar, "a ", "text, number or truth value"},
    {Kind::kScalars, "an ", "object of texts, numbers and truth values"},
    {Kind::kRows, "a ", "row number or key, or a list of them"},
    {Kind::kTick, "an ", "object with \"row\" or \"node\", and \"value\""},
});
static_assert(
    [] {
      for (std::size_t i = 0; i < kKinds.size(); ++i)
        if (kKinds[i].kind != static_cast<Kind>(i)) return false;
      return true;
    }(),
    "the rows stand in the order of the enumeration");

const KindRow& rowOf(Kind kind) { return kKinds[static_cast<std::size_t>(kind)]; }

std::string withArticle(Kind kind) { return std::string(rowOf(kind).article).append(rowOf(kind).name); }

std::vector<std::string> choicesOf(const Parameter& parameter) { return base::split(parameter.choices, "|"); }

// "0, 1 or 2", texts in quotes.
std::string choiceList(const Parameter& parameter) {
  const std::string_view quote = parameter.kind == Kind::kWhole ? "" : "\"";
  const std::vector<std::string> choices = choicesOf(parameter);
  std::string list;
  for (std::size_t i = 0; i < choices.size(); ++i) {
    if (i > 0) list += i + 1 == choices.size() ? " or " : ", ";
    list.append(quote).append(choices[i]).append(quote);
  }
  return list;
}

// ---- the check of one value; each gives false for a value of another kind

// Brings a text into the code page.
class Converter {
 public:
  explicit Converter(const base::CodePage& codePage) : codePage_(codePage) {}

  bool convert(Kind kind, Input& value) const {
    switch (kind) {
      case Kind::kText:
        return text(value);
      case Kind::kUnicode:
        return value.is_string();
      case Kind::kPath:
        return value.is_string() && !value.get_ref<const std::string&>().empty();
      case Kind::kKeyPath:
        return convert(Kind::kPath, value) && text(value);
      case Kind::kTexts:
        return value.is_array() && all(value, [this](Input& each) { return text(each); });
      case Kind::kWhole:
        return whole(value);
      case Kind::kNumber:
        return number(value);
      case Kind::kTruth:
        return value.is_boolean();
      case Kind::kTextOrWhole:
        return text(value) || whole(value);
      case Kind::kScalar:
        return scalar(value);
      case Kind::kScalars:
        return value.is_object() && all(value, [this](Input& each) { return scalar(each); });
      case Kind::kRows:
        return text(value) || whole(value) ||
               (value.is_array() && !value.empty() &&
                all(value, [this](Input& each) { return text(each) || whole(each); }));
      case Kind::kTick:
        return tick(value);
    }
    return false;
  }

 private:
  template <class Test>
  static bool all(Input& list, Test&& test) {
    return std::all_of(list.begin(), list.end(), test);
  }

  bool text(Input& value) const {
    if (!value.is_string()) return false;
    auto& held = value.get_ref<std::string&>();
    held = codePage_.fromUtf8(held);
    return true;
  }

  static bool whole(Input& value) {
    if (!value.is_number()) return false;
    const double held = value.get<double>();
    if (std::floor(held) != held || held < std::numeric_limits<int>::min() ||
        held > std::numeric_limits<int>::max())
      return false;
    value = static_cast<int>(held);
    return true;
  }

  static bool number(Input& value) {
    if (value.is_boolean()) value = value.get<bool>() ? 1 : 0;
    return value.is_number();
  }

  bool scalar(Input& value) const { return text(value) || value.is_number() || value.is_boolean(); }

  bool tick(Input& value) const {
    if (!value.is_object() || value.size() != 2 || !value.contains("value") || !value["value"].is_boolean())
      return false;
    return (value.contains("row") && whole(value["row"])) || (value.contains("node") && text(value["node"]));
  }

  const base::CodePage& codePage_;
};

[[noreturn]] void refuse(const Method& method, const std::string& sentence) {
  throw RequestError(ErrorCode::kBadParameters, std::string(method.name) + " " + sentence);
}

std::string inQuotes(std::string_view text) { return "\"" + std::string(text) + "\""; }

bool isChoice(const Parameter& parameter, const Input& value) {
  if (parameter.choices.empty()) return true;
  const std::vector<std::string> choices = choicesOf(parameter);
  const std::string text = value.is_string() ? value.get<std::string>() : lineOf(value);
  return std::find(choices.begin(), choices.end(), text) != choices.end();
}

void checkValue(const Method& method, const Parameter& parameter, Input& value, const Converter& converter) {
  const std::string about = "takes as " + inQuotes(parameter.name) + " ";
  try {
    if (!converter.convert(parameter.kind, value)) refuse(method, about + withArticle(parameter.kind) + ".");
  } catch (const base::Error& error) {
    refuse(method, "cannot take " + inQuotes(parameter.name) + ": " + error.description());
  }
  if (!isChoice(parameter, value)) refuse(method, about + choiceList(parameter) + ".");
}

}  // namespace

std::span<const Method> allMethods() { return kMethods; }

const Method* findMethod(std::string_view name) {
  const auto found =
      std::find_if(kMethods.begin(), kMethods.end(), [&](const Method& row) { return row.name == name; });
  return found == kMethods.end() ? nullptr : &*found;
}

void checkParameters(const Method& method, Input& params, const base::CodePage& codePage) {
  const Converter converter(codePage);
  for (const auto& given : params.items())
    if (std::none_of(method.parameters.begin(), method.parameters.end(),
                     [&](const Parameter& parameter) { return parameter.name == given.key(); }))
      refuse(method, "has no parameter " + inQuotes(given.key()) + ".");
  for (const Parameter& parameter : method.parameters) {
    const auto value = params.find(parameter.name);
    if (value != params.end())
      checkValue(method, parameter, *value, converter);
    else if (!parameter.optional)
      refuse(method, "needs " + inQuotes(parameter.name) + ", " + withArticle(parameter.kind) + ".");
  }
}

std::string describe(const Parameter& parameter) {
  const std::string name = "`" + std::string(parameter.name) + "`" + (parameter.optional ? "?" : "");
  if (!parameter.choices.empty()) return name + " " + choiceList(parameter);
  const bool isText = parameter.kind <= Kind::kKeyPath;
  return isText ? name : name + " " + std::string(rowOf(parameter.kind).name);
}

}  // namespace kolvane::automation
