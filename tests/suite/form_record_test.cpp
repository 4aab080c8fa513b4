// What every form does, as text: each form that can be reached is opened, each of its controls is clicked, typed into and
// keyed, and what comes of it is compared with the form's file in form_records/: the entry points that ran, boxes, forms
// that opened and closed, settings and code that were written, and what changed on the form. Each entry point is then made
// to fail, and the source of its error is compared too. With KOLVANE_REWRITE set the files are written anew.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "base/error.h"
#include "base/text.h"
#include "forms/drive.h"
#include "forms/error_form.h"
#include "forms/kinds.h"
#include "forms/lists.h"
#include "forms/menu.h"
#include "forms/snapshot.h"
#include "forms/user.h"
#include "suite/suite_fixture.h"

namespace kolvane::suite {
namespace {

using forms::Control;
using forms::Form;
using forms::Kind;

// One thing that a person does: a command of the menus by its caption, or a gesture on a control of the form in front.
struct Step {
  std::string control;  // empty: a command
  std::string gesture;
};
using Steps = std::vector<Step>;

struct Gesture {
  std::string_view name;
  bool (*run)(Control& control);
  bool (*fits)(Kind kind);
};

bool always(Kind) { return true; }
bool holdsRows(Kind kind) {
  return kind == Kind::kListBox || kind == Kind::kComboBox || kind == Kind::kImageCombo ||
         kind == Kind::kListView || kind == Kind::kGrid || kind == Kind::kTreeView;
}
bool isPlaced(Kind kind) { return kind != Kind::kMenu && kind != Kind::kTimer; }

template <int key, int shift = 0>
bool press(Control& control) {
  if (!forms::user::focus(control)) return false;
  forms::user::key(control.form(), key, shift);
  return true;
}

bool never(Kind) { return false; }

template <int row>
bool tick(Control& control) {
  return forms::user::check(control, forms::Spot{.row = row}, true);
}

// Gives each control of an options dialog another value, then takes them all.
bool changeAllAndClick(Control& ok) {
  if (ok.name() != "cmdOK" || !ok.form().name().ends_with("Options"))
    throw base::Error(base::errors::kInvalidCall);
  for (Control* each : ok.form().controls()) {
    if (!each->obstacle().empty()) continue;
    if (each->kind() == Kind::kCheckBox) forms::user::click(*each);
    if (each->kind() == Kind::kTextBox) forms::user::setText(*each, "77");
    if (each->kind() == Kind::kComboBox && static_cast<forms::ComboBox*>(each)->listCount() > 1)
      forms::user::selectIndex(*each, 1);
    if (each->kind() == Kind::kListView) forms::user::check(*each, forms::Spot{.row = 2}, true);
  }
  return forms::user::click(ok);
}

constexpr std::array<Gesture, 18> kGestures{{
    {"click", [](Control& c) { return forms::user::click(c); }, always},
    {"change all and click", changeAllAndClick, [](Kind kind) { return kind == Kind::kCommandButton; }},
    {"double-click", [](Control& c) { return forms::user::doubleClick(c); }, holdsRows},
    {"enter and leave",
     [](Control& c) {
       if (!forms::user::focus(c)) return false;
       forms::user::key(c.form(), forms::keys::kTab);
       return true;
     },
     isPlaced},
    {"set \"Fee 2_b\"", [](Control& c) { return forms::user::setText(c, "Fee 2_b"); }, isPlaced},
    {"set \"\"", [](Control& c) { return forms::user::setText(c, ""); }, isPlaced},
    {"type \"7x,\"", [](Control& c) { return forms::user::type(c, "7x,"); }, isPlaced},
    {"choose 0", [](Control& c) { return forms::user::selectIndex(c, 0); }, holdsRows},
    {"choose 1", [](Control& c) { return forms::user::selectIndex(c, 1); }, holdsRows},
    {"click row 1", [](Control& c) { return forms::user::click(c, forms::Spot{.row = 1}); }, holdsRows},
    {"click header 0", [](Control& c) { return forms::user::click(c, forms::Spot{.column = 0}); }, holdsRows},
    {"tick row 1", tick<1>, holdsRows},
    // On the way to a report only.
    {"tick row 5", tick<5>, never},
    {"tick row 6", tick<6>, never},
    {"tick row 8", tick<8>, never},
    {"Enter", press<forms::keys::kEnter>, isPlaced},
    {"Escape", press<forms::keys::kEscape>, isPlaced},
    {"Delete", press<forms::keys::kDelete>, isPlaced},
}};

const Gesture& gestureNamed(std::string_view name) {
  return *std::find_if(kGestures.begin(), kGestures.end(),
                       [&](const Gesture& each) { return each.name == name; });
}

constexpr std::string_view kRates =
    "Option Explicit\r\n\r\nPrivate mcurRate As Currency\r\n\r\n"
    "Public Function Interest(ByVal Amount As Currency, Days As Integer) As Currency\r\n"
    "Dim curResult As Currency\r\n    curResult = Amount * mcurRate * Days\r\n    Interest = curResult\r\n"
    "End Function\r\n\r\nPublic Sub Load()\r\n    mcurRate = Interest(1, 2)\r\nEnd Sub\r\n";

// The lines of `after` that `before` does not have, and, of texts where they matter, those that are gone.
std::string difference(std::string_view before, std::string_view after, std::string_view indent, bool gone) {
  std::multiset<std::string_view> old, fresh;
  for (const auto line : base::splitLines(before)) old.insert(line);
  for (const auto line : base::splitLines(after)) fresh.insert(line);
  std::string text;
  const auto tell = [&](std::string_view lines, std::multiset<std::string_view>& others,
                        std::string_view mark) {
    for (const auto line : base::splitLines(lines))
      if (const auto at = others.find(line); at != others.end())
        others.erase(at);
      else
        text.append(indent).append(mark).append(base::trim(line)).append("\n");
  };
  if (gone) tell(before, fresh, "- ");
  tell(after, old, gone ? "+ " : "");
  return text;
}

// One suite on which steps are taken; what the last of them does is observed.
class World : public SuiteTest {
 public:
  explicit World(std::string failing = {}) : failing_(std::move(failing)) {
    workspace_->newProject();
    const auto project = workspace_->ActiveVBProject();
    module_ =
        workspace_->addComponent(project, frame::ComponentType::kStdModule, "Rates", kRates)->CodeModule();
    module_->Parent()->SaveAs("C:\\Rates.bas");
    workspace_->openCode(module_->Parent())->SetSelection({7, 5, 7, 5});
    connect();
    desk_.runModal = [this](Form& form) {
      if (at_ < steps_.size() || looking_)
        takeSteps();
      else if (observing_)
        note("opens " + form.name() + errorSource(form));
    };
    desk_.onEntering = [this](std::string_view module, std::string_view procedure) {
      const std::string entry = std::string(module) + "." + std::string(procedure);
      if (!observing_) return;
      entries.push_back(entry);
      if (entry != failing_) return;
      failing_.clear();
      throw base::Error(base::errors::kInternal, "made to fail");
    };
  }

  // What came of the last step; nothing when it could not be taken.
  std::optional<std::string> take(Steps steps) {
    steps_ = std::move(steps);
    takeSteps();
    return outcome_;
  }

  // The controls of the form that the steps lead to, and the forms that are open beside it.
  std::vector<std::pair<std::string, Kind>> controlsBehind(Steps steps) {
    steps_ = std::move(steps);
    looking_ = true;
    takeSteps();
    return controls_;
  }

  bool isThere(const frame::CatalogueRow& row) const { return suite_.available(row); }

  std::vector<std::string> entries;
  std::set<std::string> opened;
  std::string formInFront;
  std::string dumpInFront;

 private:
  void TestBody() override {}

  void takeSteps() {
    while (at_ < steps_.size()) {
      const Step step = steps_[at_++];
      const bool last = at_ == steps_.size() && !looking_;
      if (const auto* row = frame::findCatalogueRowByName(step.gesture); step.control.empty() && row)
        suite_.click(*row);
      else if (step.control.empty())
        workspace_->click(
            entry(*workspace_->CommandBars()->Item(frame::kCodeWindowMenuIndex)->Controls(), step.gesture));
      else
        gesture(step, last);
    }
    if (looking_ && controls_.empty()) look();
  }

  static std::shared_ptr<frame::CommandBarControl> entry(frame::CommandBarControls& controls,
                                                         std::string_view caption) {
    for (const auto& control : controls.items()) {
      if (control->Caption() == caption) return control;
      if (const auto below = control->Controls())
        if (auto found = entry(*below, caption)) return found;
    }
    return nullptr;
  }

  void look() {
    Form* form = desk_.openForms().active();
    if (!form) return;
    formInFront = form->name();
    dumpInFront = dump(*form);
    for (Control* each : form->controls()) controls_.emplace_back(each->name(), each->kind());
  }

  void gesture(const Step& step, bool observed) {
    Form* form = desk_.openForms().active();
    Control* control = form ? form->findControl(step.control) : nullptr;
    if (!control) return;
    const auto keep = form->shared_from_this();
    const std::string before = dump(*form), settings = allSettings(), code = allCode();
    const std::set<std::string> open = openForms();
    desk_.takeLog();
    observing_ = observed;
    try {
      gestureNamed(step.gesture).run(*control);
    } catch (const base::Error& error) {
      if (error.number() != base::errors::kInvalidCall)
        note("raises " + std::to_string(error.number()));
      else if (observed) {
        observing_ = false;
        return;
      }
    }
    if (!observed) return;
    observing_ = false;
    std::string text;
    for (const std::string& entry : entries) text += "    runs " + entry + "\n";
    text += notes_;
    for (const auto& box : desk_.takeLog())
      text += "    " + box.kind + " \"" + base::replaceAll(box.text, "\r\n", "\\n") + "\"" +
              (box.kind == "message" ? " " + std::to_string(box.flags) : "") + "\n";
    const std::set<std::string> now = openForms();
    for (const std::string& each : now)
      if (!open.contains(each)) {
        text += "    opens " + each + "\n";
        opened.insert(each);
      }
    for (const std::string& each : open)
      if (!now.contains(each)) text += "    closes " + each + "\n";
    text += difference(settings, allSettings(), "    setting ", false);
    text += difference(code, allCode(), "    code ", true);
    if (form->loaded()) text += difference(before, dump(*form), "    ", false);
    outcome_ = text;
  }

  void note(const std::string& text) {
    notes_ += "    " + text + "\n";
    if (text.starts_with("opens ")) opened.insert(text.substr(6, text.find(' ', 6) - 6));
  }

  static std::string errorSource(Form& form) {
    const auto* error = dynamic_cast<forms::frmVBError*>(&form);
    return error ? " " + error->txtSource.text() + ": " + error->txtDescription.text() : "";
  }

  std::set<std::string> openForms() {
    std::set<std::string> names;
    for (const auto& open : desk_.openForms().all()) names.insert(open.form->name());
    return names;
  }

  std::string allSettings() { return settingsBelow(std::string(frame::kCurrentUserKey)); }
  std::string settingsBelow(const std::string& path) {
    std::string text;
    for (const auto& value : store_.values(path))
      text += path.substr(path.rfind('\\') + 1) + "/" + value.name + " = " +
              base::replaceAll(value.text, "\r\n", "\\n") + "\n";
    for (const std::string& key : store_.keys(path)) text += settingsBelow(path + "\\" + key);
    return text;
  }

  std::string allCode() {
    std::string text;
    for (const auto& project : workspace_->VBProjects()->items())
      for (const auto& component : project->VBComponents()->items())
        if (const auto code = component->CodeModule())
          text += component->Name() + ":\n" + code->Lines(1, code->CountOfLines()) + "\n";
    return text;
  }

  std::string failing_;
  std::shared_ptr<frame::CodeModule> module_;
  Steps steps_;
  std::size_t at_ = 0;
  bool looking_ = false;
  bool observing_ = false;
  std::vector<std::pair<std::string, Kind>> controls_;
  std::string notes_;
  std::optional<std::string> outcome_;
};

struct Reached {
  std::string form;
  Steps steps;
  std::string_view only = {};  // what the names of the controls begin with that are tried
};

Steps with(Steps steps, Step step) {
  steps.push_back(std::move(step));
  return steps;
}

// Of a line "opens frmVBError SOURCE: DESCRIPTION".
std::string sourceIn(std::string_view line) {
  const std::string_view rest = line.substr(line.find("frmVBError ") + 11);
  return std::string(rest.substr(0, rest.find(':')));
}

// Records a form and names the forms that it opens.
class Recorder {
 public:
  explicit Recorder(const Reached& reached) : reached_(reached) {}

  std::string record() {
    World first;
    const auto controls = first.controlsBehind(reached_.steps);
    text_ = first.dumpInFront;
    for (const auto& [name, kind] : controls)
      for (const Gesture& gesture : kGestures)
        if (gesture.fits(kind) && name.starts_with(reached_.only)) tryOut({name, std::string(gesture.name)});
    if (!sources_.empty()) text_ += "\nmade to fail\n";
    for (const auto& [entry, steps] : sources_) {
      World world(entry);
      const std::string outcome = world.take(steps).value_or("");
      for (const auto line : base::splitLines(outcome))
        if (line.find("opens frmVBError") != std::string_view::npos)
          text_ += "    " + entry + ": " + sourceIn(line) + "\n";
    }
    return text_;
  }

  const std::vector<Reached>& opened() const { return opened_; }

 private:
  void tryOut(const Step& step) {
    World world;
    const Steps steps = with(reached_.steps, step);
    const auto outcome = world.take(steps);
    if (!outcome || outcome->empty()) return;
    if (step.control != control_) text_ += "\n" + step.control + "\n";
    control_ = step.control;
    const std::string what = step.control + " " + step.gesture;
    const auto [first, isNew] = outcomes_.emplace(*outcome, what);
    text_ += "  " + step.gesture + (isNew ? "\n" + *outcome : ": as " + first->second + "\n");
    for (const std::string& entry : world.entries) sources_.emplace(entry, steps);
    for (const std::string& form : world.opened) opened_.push_back({form, steps});
  }

  const Reached& reached_;
  std::string text_;
  std::string control_;
  std::map<std::string, std::string> outcomes_;  // each with the first gesture that had it
  std::map<std::string, Steps> sources_;
  std::vector<Reached> opened_;
};

// What no single gesture leads to.
std::vector<Reached> furtherOn() {
  const Step maintenance{"", "Code Maintenance"}, module{"cboType", "choose 1"}, run{"cmdOK", "click"};
  const auto audit = [&](const char* row) { return Steps{maintenance, module, {"lvwOptions", row}, run}; };
  return {{"frmReport callers", {{"", "&List My Callers"}}},
          {"frmReport prefixes", audit("tick row 5")},
          {"frmReport unused variables", audit("tick row 6")},
          {"frmReport unused procedures", audit("tick row 8")},
          {"frmProcedureBuilder named", {{"", "Procedure Builder"}, {"txtName", "set \"Fee 2_b\""}}, "cmd"},
          {"frmPropertyBuilder named", {{"", "Property Builder"}, {"txtName", "set \"Fee 2_b\""}}, "cmd"},
          {"frmCustomErrorHandlers with one",
           {{"", "Custom Error Handlers"}, {"txtName", "set \"Fee 2_b\""}, {"cmdAdd", "click"}}}};
}

const std::filesystem::path kRecords = KOLVANE_SOURCE_DIR "/tests/suite/form_records";

std::string recorded(const std::string& form) {
  std::ifstream file(kRecords / (form + ".txt"), std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

TEST(FormRecord, everyFormDoesWhatItsRecordSays) {
  const bool rewrite = std::getenv("KOLVANE_REWRITE") != nullptr;
  std::set<std::string> seen;
  std::deque<Reached> ahead;
  const auto reach = [&](const Reached& reached) {
    if (reached.form != "frmVBError" && seen.insert(reached.form).second) ahead.push_back(reached);
  };
  for (const frame::CatalogueRow& row : frame::kCatalogue)
    if (World world; row.target.starts_with("frm") && world.isThere(row))
      reach({std::string(row.target), {{"", std::string(row.listName)}}});
  for (const Reached& form : furtherOn()) reach(form);
  while (!ahead.empty()) {
    const Reached next = ahead.front();
    ahead.pop_front();
    Recorder recorder(next);
    const std::string text = recorder.record();
    if (rewrite) std::ofstream(kRecords / (next.form + ".txt"), std::ios::binary) << text;
    EXPECT_EQ(recorded(next.form), text) << next.form;
    for (const Reached& form : recorder.opened()) reach(form);
  }
  EXPECT_GT(seen.size(), 10u);
}

}  // namespace
}  // namespace kolvane::suite
