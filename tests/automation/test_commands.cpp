#include "test_commands.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/error.h"
#include "forms/forms.h"

namespace kolvane::test {
namespace {

class frmDetails final : public forms::Form {
 public:
  explicit frmDetails(forms::Desk& desk) : Form(desk, "frmDetails", "Details") {
    cmdClose.onClick = [this] { unload(); };
  }
  forms::CommandButton cmdClose{*this, "cmdClose", "&Close"};
};

// A form that asks, opens another one, refuses to close while its text is "stay", and fails on request.
class frmName final : public forms::Form {
 public:
  explicit frmName(forms::Desk& desk) : Form(desk, "frmName", "Name"), details_(desk) {
    cmdOK.setDefault(true);
    cmdOK.onClick = [this] { hide(); };
    cmdDetails.onClick = [this] { details_.hold()->showModal(); };
    cmdOKAndDetails.onClick = [this] {
      details_.hold()->showModal();
      hide();
    };
    cmdFail.onClick = [this] {
      hide();
      throw base::Error(57, "It failed while it closed.");
    };
    txtEven.onValidate = [this](bool& cancel) { cancel = txtEven.text().size() % 2 != 0; };
    onQueryUnload = [this](bool& cancel, forms::UnloadMode) { cancel = txtName.text() == "stay"; };
  }
  forms::TextBox txtName{*this, "txtName"};
  forms::TextBox txtEven{*this, "txtEven"};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::CommandButton cmdDetails{*this, "cmdDetails", "&Details"};
  forms::CommandButton cmdOKAndDetails{*this, "cmdOKAndDetails", "OK &and Details"};
  forms::CommandButton cmdFail{*this, "cmdFail", "&Fail"};

 private:
  forms::FormSlot<frmDetails> details_;
};

class frmFinder final : public forms::Form {
 public:
  explicit frmFinder(forms::Desk& desk) : Form(desk, "frmFinder", "Finder") {
    cmdSearch.onClick = [this] { search(); };
    cmdCancel.onClick = [this] { cancelled_ = true; };
  }
  forms::CommandButton cmdSearch{*this, "cmdSearch", "&Search"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};
  forms::Label lblSteps{*this, "lblSteps", "0"};

 private:
  void search() {
    cancelled_ = false;
    for (int step = 1; step <= 10 && !cancelled_; ++step) {
      lblSteps.setCaption(std::to_string(step));
      desk().doEvents();
    }
  }
  bool cancelled_ = false;
};

class frmSample final : public forms::Form {
 public:
  explicit frmSample(forms::Desk& desk) : Form(desk, "frmSample", "Sample") {
    txtNotes.setMultiLine(true);
    txtLocked.setLocked(true);
    cmdOff.setEnabled(false);
    lstColours.addItems({"red", "green", "blue"});
    lstTicks.setCheckBoxes(true);
    lstTicks.addItems({"one", "two"});
    lvwRows.addColumn("Name");
    lvwRows.addColumn("Type");
    lvwRows.add("alpha", "a").setCell(1, "Long");
    lvwRows.add("beta", "b").setCell(1, "String");
    lvwRows.onColumnClick = [this](int column) { lblTold.setCaption("column " + std::to_string(column)); };
    auto& root = tvwTree.addRoot("root", "Root");
    tvwTree.add(root, "leaf", "Leaf");
    stbState.setText(1, "Ready");
    mnuExit.onClick = [this] { unload(); };
    lvwRows.onDblClick = [this] { lblTold.setCaption("double"); };
  }
  forms::TextBox txtNotes{*this, "txtNotes"};
  forms::TextBox txtLocked{*this, "txtLocked"};
  forms::CheckBox chkAll{*this, "chkAll", "&All"};
  forms::OptionButton optOne{*this, "optKind(0)", "One"};
  forms::OptionButton optTwo{*this, "optKind(1)", "Two"};
  forms::ComboBox cboScope{*this, "cboScope", forms::ComboBox::kDropdownList, {"Private", "Public"}};
  forms::ListBox lstColours{*this, "lstColours"};
  forms::ListBox lstTicks{*this, "lstTicks"};
  forms::ListView lvwRows{*this, "lvwRows"};
  forms::TreeView tvwTree{*this, "tvwTree"};
  forms::Tabs tabPages{*this, "tabPages", {"First", "Second"}};
  forms::ProgressBar barWork{*this, "barWork"};
  forms::StatusBar stbState{*this, "stbState"};
  forms::CommandButton cmdOff{*this, "cmdOff", "Off"};
  forms::Label lblTold{*this, "lblTold", ""};
  forms::Menu mnuFile{*this, "mnuFile", "&File"};
  forms::Menu mnuExit{mnuFile, "mnuExit", "E&xit"};
};

std::string orNothing(const std::optional<std::string>& text) { return text ? *text : "nothing"; }

}  // namespace

struct TestCommands::Parts {
  explicit Parts(frame::Services& given)
      : services(given), name(given.desk), finder(given.desk), sample(given.desk) {
    const auto bar = services.vbe.CommandBars()->Add("Test");
    const auto add = [&](std::string_view caption, std::function<void()> work) {
      const auto button = bar->Controls()->Add();
      button->setCaption(caption);
      clicks.push_back(
          services.vbe.Events()->CommandBarEvents(button, [work](const auto&, bool&, bool&) { work(); }));
    };
    add("Ask", [this] { ask(); });
    add("Ask and Fail", [this] {
      ask();
      throw base::Error(1002, "It failed behind the form.");
    });
    add("Ask Twice", [this] { ask(), ask(); });
    add("Search", [this] { finder->showModal(); });
    add("Sample", [this] { sample->show(); });
    add("Boxes", [this] { boxes(); });
    add("Fail", [] { throw base::Error(1001, "Caf\xE9 closed"); });
    add("Stray", [] { throw std::runtime_error("a stray fault"); });
  }

  void tell(const std::string& text) {
    const auto before = services.clipboard.text();
    services.clipboard.setText((before ? *before + ";" : std::string()) + services.codePage.toUtf8(text));
  }

  void ask() {
    const auto form = name.hold();
    form->showModal();
    tell(form->txtName.text());
    name.unload();
  }

  void boxes() {
    forms::Desk& desk = services.desk;
    const auto answer = desk.msgBox("Sure?", forms::box::kAsk, "Question");
    desk.msgBox("Caf\xE9", forms::box::kNotice, "Note");
    const auto input = desk.inputBox("Name?", "Input", "me");
    const auto file =
        desk.fileDialog({forms::FileDialog::Kind::kOpen, "Open", "All files (*.*)|*.*", "C:\\a.txt"});
    desk.showHelp("Topic.htm");
    tell(std::to_string(static_cast<int>(answer)));
    tell(orNothing(input));
    tell(orNothing(file));
    services.keystrokes.send("^({Home})", true);
  }

  frame::Services& services;
  forms::FormSlot<frmName> name;
  forms::FormSlot<frmFinder> finder;
  forms::FormSlot<frmSample> sample;
  std::vector<base::Subscription> clicks;
};

TestCommands::TestCommands(frame::Services& services) : parts_(std::make_unique<Parts>(services)) {}
TestCommands::~TestCommands() = default;

}  // namespace kolvane::test
