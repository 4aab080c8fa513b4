// The desks without a window: prepared answers, and a terminal.
#include <sstream>

#include "base/code_page.h"
#include "forms/console_desk.h"
#include "forms/error_form.h"
#include "forms/message_box.h"
#include "support.h"

namespace kolvane::forms {
namespace {

TEST(ScriptedDesk, takesPreparedAnswersThenTheCautiousOnes) {
  ScriptedDesk desk;
  for (const char* answer : {"yes", "Retry", "modNew", "Cancel", "C:\\a.bas"}) desk.answer(answer);
  EXPECT_EQ(desk.msgBox("Sure?", box::kAsk, "Ledger"), Answer::kYes);
  EXPECT_EQ(desk.msgBox("Note", box::kNotice, ""), Answer::kOk);  // has no Retry: used up
  EXPECT_EQ(desk.inputBox("Name?", "New", "modOld"), "modNew");
  EXPECT_EQ(desk.inputBox("Name?", "New", "modOld"), std::nullopt);
  EXPECT_EQ(desk.fileDialog({FileDialog::Kind::kOpen, "Open", "*.*", "C:\\"}), "C:\\a.bas");
  desk.showHelp("Search.html");
  EXPECT_EQ(desk.takeLog(), (std::vector<BoxRecord>{{"message", "Sure?", "Ledger", 52, "Yes"},
                                                    {"message", "Note", "", 48, "OK"},
                                                    {"input", "Name?", "New", 0, "modNew"},
                                                    {"input", "Name?", "New", 0, "Cancel"},
                                                    {"file", "C:\\", "Open", 0, "C:\\a.bas"},
                                                    {"help", "Search.html", "", 0, ""}}));
  EXPECT_TRUE(desk.takeLog().empty());
  for (const auto& [flags, answer] :
       std::vector<std::pair<int, Answer>>{{box::kOkOnly, Answer::kOk},
                                           {box::kOkCancel, Answer::kCancel},
                                           {box::kYesNo, Answer::kNo},
                                           {box::kYesNoCancel, Answer::kCancel},
                                           {box::kRetryCancel, Answer::kCancel},
                                           {box::kAbortRetryIgnore, Answer::kAbort}})
    EXPECT_EQ(desk.msgBox("", flags + box::kQuestion + box::kSystemModal, ""), answer) << flags;
  EXPECT_EQ(desk.fileDialog({}), std::nullopt);
}

TEST(ScriptedDesk, closesModalFormsThatNobodyDrives) {
  ScriptedDesk desk;
  frmSmall form(desk);
  form.onQueryUnload = [](bool& cancel, UnloadMode) { cancel = true; };
  form.showModal();
  EXPECT_FALSE(form.visible());
  EXPECT_FALSE(form.loaded());
  const auto unattended = desk.takeUnattended();
  ASSERT_EQ(unattended.size(), 1u);
  EXPECT_EQ(unattended[0].dump.substr(0, 26), "frmSmall \"Small\", modal\n  ");
}

struct Console {
  std::istringstream in;
  std::ostringstream out;
  std::ostringstream errors;
  ConsoleDesk desk;

  explicit Console(const std::string& input, ConsoleDesk::Policy policy = ConsoleDesk::Policy::kAsk)
      : in(input), desk(in, out, errors, base::CodePage::get(1252), policy) {}
};

TEST(ConsoleDesk, asksOnTheTerminalAndStopsAtTheEndOfInput) {
  Console console("perhaps\n y \nno\n\xC3\xA4pfel\nЖ\nbirnen\r\n\n");
  EXPECT_EQ(console.desk.msgBox("Format \xE4lle?", box::kAsk, "Ledger"), Answer::kYes);
  EXPECT_EQ(console.desk.msgBox("Two\r\nlines", box::kYesNoCancel, ""), Answer::kNo);
  EXPECT_EQ(console.desk.inputBox("Fruit:", "", ""), "\xE4pfel");
  EXPECT_EQ(console.desk.inputBox("Fruit:", "", ""), "birnen");
  EXPECT_EQ(console.desk.inputBox("Fruit:", "", "fig"), "fig");
  EXPECT_EQ(console.desk.msgBox("More?", box::kRetryCancel, ""), Answer::kCancel);
  EXPECT_EQ(console.desk.fileDialog({FileDialog::Kind::kSave, "", "", "C:\\x.sql"}), std::nullopt);
  EXPECT_EQ(console.desk.msgBox("Done", box::kNotice, ""), Answer::kOk);
  const std::string refused =
      base::CodePage::get(1252).toUtf8(refusal([] { base::CodePage::get(1252).fromUtf8("Ж"); }).substr(3));
  EXPECT_EQ(console.out.str(),
            "Ledger: Format älle?\n[Yes/No] [Yes/No] Two\nlines\n[Yes/No/Cancel] Fruit: Fruit: " + refused +
                "\nFruit: [fig] More?\n[Retry/Cancel] Cancel\nSave file: [C:\\x.sql] Cancel\nDone\n");
  EXPECT_EQ(console.errors.str(), "");
}

TEST(ConsoleDesk, answersByPolicy) {
  Console yes("no\nno\n", ConsoleDesk::Policy::kYes);
  EXPECT_EQ(yes.desk.msgBox("Sure?", box::kAsk, ""), Answer::kYes);
  EXPECT_EQ(yes.desk.msgBox("Again?", box::kRetryCancel, ""), Answer::kCancel);
  EXPECT_EQ(yes.desk.inputBox("Name?", "", "modA"), "modA");
  EXPECT_EQ(yes.desk.inputBox("Name?", "", ""), std::nullopt);
  EXPECT_EQ(yes.out.str(),
            "Sure?\n[Yes/No] Yes\nAgain?\n[Retry/Cancel] Cancel\nName? [modA] \nName? Cancel\n");
  Console no("yes\n", ConsoleDesk::Policy::kNo);
  EXPECT_EQ(no.desk.msgBox("Sure?", box::kAsk, ""), Answer::kNo);
  EXPECT_EQ(no.desk.msgBox("Sure?", box::kYesNoCancel, ""), Answer::kNo);
  EXPECT_EQ(no.desk.msgBox("Sure?", box::kOkCancel, ""), Answer::kCancel);
  EXPECT_EQ(no.desk.fileDialog({FileDialog::Kind::kOpen, "", "", "C:\\x"}), std::nullopt);
}

TEST(ConsoleDesk, printsFormsAndErrors) {
  Console console("");
  frmSmall modal(console.desk), report(console.desk, "frmReport");
  modal.onQueryUnload = [](bool& cancel, UnloadMode) { cancel = true; };
  report.show();
  report.txtName.setText("3 findings");
  report.cboScope.setListIndex(0);
  modal.showModal();
  EXPECT_FALSE(modal.visible());
  console.desk.printOpenForms();
  EXPECT_EQ(console.out.str(), R"(frmSmall "Small", modal
  "&Name:" TextBox txtName = "", focus
  "&Scope:" ComboBox cboScope = "" of "Private", "Public"
  CheckBox chkHeader "&Header" [ ]
  CommandButton cmdOK "OK", default
  CommandButton cmdCancel "Cancel", cancel
frmReport "Small"
  "&Name:" TextBox txtName = "3 findings", focus
  "&Scope:" ComboBox cboScope = "Private" of "Private", "Public"
  CheckBox chkHeader "&Header" [ ]
  CommandButton cmdOK "OK", default
  CommandButton cmdCancel "Cancel", cancel
)");
  showErrors(console.desk, "frmSmall", "cmdOK_Click",
             [] { throw base::Error(base::errors::kModuleNotEditable, "Can't edit Modul\xE4"); });
  console.desk.msgBox("Out of paper", box::kCritical, "Printer");
  EXPECT_EQ(
      console.errors.str(),
      "Application Error\nNumber: 40198\nSource: KolvaneLite.frmSmall.cmdOK_Click\nDescription: Can't edit "
      "Modulä\nPrinter: Out of paper\n");
}

TEST(MessageBox, namesItsButtons) {
  EXPECT_EQ(answerNamed(box::kAsk, "NO"), Answer::kNo);
  EXPECT_EQ(answerNamed(box::kAsk, "OK"), std::nullopt);
  EXPECT_EQ(buttonsOf(box::kAbortRetryIgnore + box::kCritical).size(), 3u);
}

}  // namespace
}  // namespace kolvane::forms
