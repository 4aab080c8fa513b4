// What the tests of forms share.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/error.h"
#include "forms/forms.h"
#include "forms/menu.h"
#include "forms/scripted_desk.h"
#include "forms/user.h"

namespace kolvane::forms {

// Writes down the events of a form's controls, one word each: "txtName.Change".
class EventLog {
 public:
  void watch(Control& control) {
    const std::string name = control.name();
    control.onClick = [this, name] { add(name + ".Click"); };
    control.onDblClick = [this, name] { add(name + ".DblClick"); };
    control.onChange = [this, name] { add(name + ".Change"); };
    control.onGotFocus = [this, name] { add(name + ".GotFocus"); };
    control.onLostFocus = [this, name] { add(name + ".LostFocus"); };
    control.onValidate = [this, name](bool&) { add(name + ".Validate"); };
  }
  void watchAll(Form& form) {
    for (Control* control : form.controls()) watch(*control);
  }
  void add(const std::string& event) { text_ += text_.empty() ? event : " " + event; }
  // The events since the last call.
  std::string take() { return std::exchange(text_, {}); }

 private:
  std::string text_;
};

// The sentence with which an action is refused, behind its number; "done" when it is not.
template <class Action>
std::string refusal(Action action) {
  try {
    action();
  } catch (const base::Error& error) {
    return std::to_string(error.number()) + ": " + error.description();
  }
  return "done";
}

// A small dialog: a name, a scope, three buttons.
class frmSmall : public Form {
 public:
  explicit frmSmall(Desk& desk, std::string_view name = "frmSmall") : Form(desk, name, "Small") {
    cmdOK.setDefault(true);
    cmdCancel.setCancel(true);
  }

  TextBox txtName{*this, "txtName"};
  ComboBox cboScope{*this, "cboScope", ComboBox::kDropdownList, {"Private", "Public"}};
  CheckBox chkHeader{*this, "chkHeader", "&Header"};
  CommandButton cmdOK{*this, "cmdOK", "OK"};
  CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

  Layout layout() const override {
    return column(row("&Name:", txtName), row("&Scope:", cboScope), chkHeader, buttons(cmdOK, cmdCancel));
  }
};

class FakeFolders final : public FolderSource {
 public:
  std::vector<std::string> drives() override { return {"c:", "d: [DATA]"}; }
  std::vector<std::string> folders(const std::string& path) override {
    if (path == "C:\\") return {"Ledger", "Temp"};
    if (path == "C:\\Ledger") return {"Backup"};
    if (path == "C:\\Ledger\\Backup" || path == "C:\\Temp" || path == "d:\\") return {};
    throw base::Error(base::errors::kPathNotFound);
  }
  std::vector<std::string> files(const std::string& path) override {
    if (path != "C:\\Ledger") return {};
    return {"Ledger.vbp", "modPosting.bas", "frmMain.FRM", "frmMain.frx"};
  }
};

}  // namespace kolvane::forms
