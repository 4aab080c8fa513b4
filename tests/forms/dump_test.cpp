// Snapshots, dumps, layouts and access keys.
#include "everything.h"
#include "forms/access_keys.h"
#include "forms/layout.h"
#include "forms/snapshot.h"

namespace kolvane::forms {
namespace {

TEST(Dump, showsEveryKindInLayoutOrder) {
  ScriptedDesk desk;
  frmEverything form(desk);
  form.show();
  EXPECT_EQ(dump(form), R"(frmEverything "Every kind"
  Menu mnuFile "&File"
    Menu mnuOpen "&Open" Ctrl+O
    Menu mnuBar "-"
    Menu mnuWrap "&Wrap", checked
  Menu mnuPrint "&Print", disabled
  Label lblTitle "Everything at once"
  "&Name:" TextBox txtName = "Ann ""the"" author", focus
  "Sec&ret:" TextBox txtSecret = "******"
  RichTextBox txtCode, locked
    | Dim a
    |
    | Dim b
  CheckBox chkHeader "&Header" [x]
  Frame fraScope "&Scope"
    OptionButton optPrivate "Pri&vate" ( )
    OptionButton optPublic "Pu&blic" (o)
    "Sc&ope:" ComboBox cboScope = "Public" of "Private", "Public"
    ImageCombo imgcboIcon = "Question" of "", "Question"
    Picture picIcon picture "Question"
  Tabs tabLists
    page 0 "Lists", shown
      ListBox lstNames
          "alpha"
        > "beta"
          "Gamma"
      ListBox lstTicks
          [ ] "one"
          [x] "two"
      ListView lvwRows
        = "Module" | "Lines"
        > [ ] "modA" | "12"
          [x] "modB" | ""
    page 1 "Trees"
    page 2 "Files"
  "&Key:" KeyBox txtHotKey = "Shift + Ctrl + P"
  "Para&meters:" TextBox txtPara(1) = ""
  TextBox txtPara(2) = ""
  ProgressBar prgDone 10 in 0 to 40
  "Nothing is saved until you press Apply."
  CommandButton cmdApply "&Apply", disabled
  CommandButton cmdClose "&Close", cancel
  StatusBar StatusBar1 "Ready" | RowCount "2 rows"
)");
  const auto pageText = [&](int page) {
    form.tabLists.setTab(page);
    const std::string text = dump(form);
    const auto start = text.find("    page " + std::to_string(page));
    return text.substr(start, text.find("\n    page", start + 1) - start);
  };
  EXPECT_EQ(pageText(1), R"(    page 1 "Trees", shown
      TreeView treParts
          - [ ] "Ledger"
          > [x] "frmMain"
            + [ ] "Modules"
              [ ] "modPosting"
      Grid grdLines
        = "Line" | "Code"
          "10" | "Dim x"
        > "20" | "x = 1")");
  EXPECT_EQ(pageText(2).substr(0, pageText(2).find("\n  \"&Key:\"")), R"(    page 2 "Files", shown
      DriveList Drive1 = "c:" of "c:", "d: [DATA]"
      FolderList Dir1 = "C:\Ledger"
          ".."
          "Backup"
      FileList File1 = "C:\Ledger"
          "modPosting.bas"
          "frmMain.FRM")");
}

TEST(Snapshot, holdsTheValuesOfEveryControl) {
  ScriptedDesk desk;
  frmEverything form(desk);
  form.show();
  const FormState state = snapshot(form);
  EXPECT_EQ(state.focus, "txtName");
  EXPECT_EQ(state.controls.size(), form.controls().size() - 5);  // menus stand apart
  ASSERT_EQ(state.menus.size(), 2u);
  EXPECT_EQ(state.menus[0].items[2].checked, true);
  const auto of = [&](std::string_view name) {
    for (const auto& control : state.controls)
      if (control.name == name) return control;
    throw std::runtime_error("no control " + std::string(name));
  };
  EXPECT_EQ(of("txtName").caption, "&Name:");
  EXPECT_EQ(of("txtSecret").text, "secret");
  EXPECT_EQ(of("lvwRows").checked, std::vector<int>{2});
  EXPECT_EQ(of("lvwRows").selected, std::vector<int>{1});
  EXPECT_EQ(of("grdLines").rows->size(), 3u);
  EXPECT_EQ(of("imgcboIcon").keys, (std::vector<std::string>{"X16", "X32"}));
  EXPECT_EQ(of("txtHotKey").value, 'P' + 256 * 3);
  EXPECT_EQ(of("treParts").nodes->front().children[1].children[0].text, "modPosting");
  EXPECT_EQ(of("tabLists").tab, 0);
  EXPECT_FALSE(of("chkHeader").text.has_value());
}

TEST(Layouts, ofTheSampleHaveNoFaults) {
  ScriptedDesk desk;
  frmEverything everything(desk);
  frmSmall small(desk);
  EXPECT_EQ(layoutFaults(everything), std::vector<std::string>{});
  EXPECT_EQ(accessKeyFaults(everything), std::vector<std::string>{});
  EXPECT_EQ(layoutFaults(small), std::vector<std::string>{});
}

class frmFaulty final : public Form {
 public:
  explicit frmFaulty(Desk& desk) : Form(desk, "frmFaulty", "Faulty") {}
  TextBox txtTwice{*this, "txtTwice"};
  TextBox txtNowhere{*this, "txtNowhere"};
  Tabs tabPages{*this, "tabPages", {"&One", "Two"}};
  CheckBox chkOne{*this, "chkOne", "&Test"};
  CheckBox chkTwo{*this, "chkTwo", "&Try && see"};
  Timer tmrTick{*this, "tmrTick"};
  Menu mnuFile{*this, "mnuFile", "&Tools"};
  Menu mnuA{mnuFile, "mnuA", "&Add"};
  Menu mnuB{mnuFile, "mnuB", "All && &any"};
  Layout layout() const override {
    return column(row("&Nothing:"), txtTwice, group(chkOne, txtTwice), tabs(tabPages, page(chkTwo)), tmrTick);
  }
};

TEST(Layouts, andAccessKeysTellTheirFaults) {
  ScriptedDesk desk;
  frmFaulty form(desk);
  EXPECT_EQ(layoutFaults(form), (std::vector<std::string>{
                                    "frmFaulty: tmrTick is a Timer and has no place.",
                                    "frmFaulty: txtTwice stands in 2 places.",
                                    "frmFaulty: txtNowhere has no place.",
                                    "frmFaulty: the label \"&Nothing:\" has no control behind it.",
                                    "frmFaulty: chkOne groups others but is no Frame.",
                                    "frmFaulty: tabPages has 2 pages, its layout 1.",
                                }));
  EXPECT_EQ(accessKeyFaults(form), (std::vector<std::string>{
                                       "frmFaulty: \"&Test\" and \"&Try && see\" share the access key t.",
                                       "frmFaulty: \"&Test\" and \"&Tools\" share the access key t.",
                                       "frmFaulty: \"&Try && see\" and \"&Tools\" share the access key t.",
                                       "frmFaulty: \"&Add\" and \"All && &any\" share the access key a.",
                                   }));
  EXPECT_EQ(plainCaption("Fish && &Chips&"), "Fish & Chips");
  EXPECT_EQ(accessKey("Fish && Chips"), 0);
}

class frmPages final : public Form {
 public:
  explicit frmPages(Desk& desk) : Form(desk, "frmPages", "Pages") {}
  Tabs tabMain{*this, "tabMain", {"One", "Two"}};
  CheckBox chkOne{*this, "chkOne", "&Test"};
  CheckBox chkTwo{*this, "chkTwo", "&Test"};
  Layout layout() const override { return tabs(tabMain, page(chkOne), page(chkTwo)); }
};

TEST(AccessKeys, ofDifferentPagesDoNotMeetAndLeadToTheShownOne) {
  ScriptedDesk desk;
  frmPages form(desk);
  EXPECT_EQ(accessKeyFaults(form), std::vector<std::string>{});
  form.show();
  form.tabMain.setTab(1);
  EXPECT_TRUE(activateAccessKey(form, 'T'));
  EXPECT_FALSE(form.chkOne.checked());
  EXPECT_TRUE(form.chkTwo.checked());
  EXPECT_FALSE(activateAccessKey(form, 'x'));
}

}  // namespace
}  // namespace kolvane::forms
