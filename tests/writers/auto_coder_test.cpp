// The Auto Coder: whole modules through its dialog by the cases of auto_coder.txt, its dialogs, its text functions.
#include "writers/auto_coder.h"

#include <gmock/gmock.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>

#include "base/error.h"
#include "base/text.h"
#include "forms/layout.h"
#include "forms/user.h"
#include "support/case_file.h"
#include "support/test_host.h"
#include "writers/auto_coder_form.h"
#include "writers/auto_coder_text.h"
#include "writers/code_window_commands.h"
#include "writers/custom_handlers.h"

namespace kolvane::writers {
namespace {

namespace user = forms::user;

constexpr std::string_view kLog = "    LogError Err.Number, <Module Name> & \".<Procedure Name>\"";
constexpr std::string_view kTypedName =
    "\xE9"
    "ve ray";  // é
constexpr std::string_view kNoHandler = "";

// ---- what the cases run

struct Run {
  std::string_view handler;
  bool headers = false;
  bool typedName = false;
};

void tick(forms::CheckBox& box, bool ticked) {
  if (box.checked() != ticked) user::click(box);
}

std::string activeCode(const frame::Services& services) {
  const auto module = services.vbe.ActiveCodePane()->CodeModule();
  return module->Lines(1, module->CountOfLines());
}

void runDialog(const AutoCoderTools& tools, const Run& run) {
  const auto form = std::make_shared<frmAutoCoder>(tools);
  form->show();
  tick(form->chkErrorHandlers, run.handler != kNoHandler);
  tick(form->chkProcedureHeaders, run.headers);
  if (run.handler != kNoHandler) user::selectItem(form->cboErrors, run.handler);
  if (run.typedName) {
    tick(form->chkUserName, false);
    form->txtName.setText(kTypedName);
  }
  // A handler that another dialog has deleted meanwhile.
  deleteCustomHandler(tools.context.services.settings, "Gone");
  user::click(form->cmdCreate);
  form->unload();
}

// Again as long as it changes something; the second run must not.
void runTwice(const AutoCoderTools& tools, const Run& run) {
  frame::Services& services = tools.context.services;
  const std::string before = activeCode(services);
  runDialog(tools, run);
  const std::string first = activeCode(services);
  if (first == before || run.handler == "Gone") return;
  runDialog(tools, run);
  EXPECT_EQ(activeCode(services), first) << "the second run changes the text";
}

std::string keyOf(const Run& run) {
  std::string key(run.handler);
  if (run.headers) key += key.empty() ? "headers" : ", headers";
  return "Auto Coder:" + (key.empty() ? key : " " + key) + (run.typedName ? ", by hand" : "");
}

void bind(test::CaseCommands& commands, const Context& context) {
  frame::Settings& settings = context.services.settings;
  writeCustomHandler(settings, "Log", kLog);
  writeCustomHandler(settings, "Gone", "Stop");
  bindCodeWindowCommands(commands.codeWindow, context);
  const auto tools = std::make_shared<AutoCoderTools>(AutoCoderTools{context, commands.codeWindow});
  const auto add = [&](const Run& run) {
    commands.others[keyOf(run)] = [tools, run] { runTwice(*tools, run); };
  };
  for (const std::string_view handler : {"", "Show", "Raise", "Next", "Blank", "Log", "Gone"}) {
    add({handler, false});
    add({handler, true});
  }
  add({kNoHandler, true, true});
}

const bool kRegistered = test::registerCases("AutoCoder", "auto_coder.txt", bind);

// ---- the dialogs

class AutoCoderTest : public testing::Test {
 protected:
  AutoCoderTest() { bindCodeWindowCommands(commands_, context_); }

  std::shared_ptr<frmAutoCoder> show() {
    const auto form = std::make_shared<frmAutoCoder>(tools_);
    form->show();
    return form;
  }
  void load(std::string_view fileName, std::string_view code) {
    host_.addComponent(fileName, base::split(code, "\n"));
    host_.activate(fileName, {});
  }
  std::string code(std::string_view fileName) { return base::join(host_.lines(fileName), "\n"); }
  std::vector<std::string> told() {
    std::vector<std::string> texts;
    for (const forms::BoxRecord& box : host_.desk().takeLog()) texts.push_back(box.text);
    return texts;
  }

  test::TestHost host_;
  frame::Services& services_ = host_.services();
  frame::Settings& settings_ = services_.settings;
  Context context_{services_};
  source::CodeWindowCommands commands_;
  AutoCoderTools tools_{context_, commands_};
};

TEST_F(AutoCoderTest, OpensAsItsOptionsSay) {
  writeCustomHandler(settings_, "Log", kLog);
  auto form = show();
  EXPECT_THAT(forms::layoutFaults(*form), testing::IsEmpty());
  EXPECT_THAT(form->cboErrors.items(), testing::ElementsAre("Show", "Raise", "Next", "Blank", "Log"));
  EXPECT_EQ(form->cboErrors.text(), "Show");
  EXPECT_TRUE(form->chkErrorHandlers.checked() && form->chkProcedureHeaders.checked());
  EXPECT_TRUE(form->chkUserName.checked() && form->txtName.locked());
  EXPECT_EQ(form->txtName.text(), "ann");
  form->unload();

  for (const std::string_view key : {"ACDE65", "ACDPH66", "ACDIU67"}) settings_.saveOption(key, "False");
  settings_.saveOption("ACSE64", "Log");
  form = show();
  EXPECT_EQ(form->cboErrors.text(), "Log");
  EXPECT_FALSE(form->cboErrors.enabled() || form->chkUserName.enabled() || form->txtName.enabled());
  EXPECT_EQ(form->txtName.text(), "");
  user::click(form->chkErrorHandlers);
  user::click(form->chkProcedureHeaders);
  EXPECT_TRUE(form->cboErrors.enabled() && form->chkUserName.enabled() && form->txtName.enabled());
  user::setText(form->txtName, "bob");
  user::click(form->chkUserName);
  EXPECT_EQ(form->txtName.text(), "ann");
  user::click(form->chkUserName);
  EXPECT_EQ(form->txtName.text(), "");
  EXPECT_FALSE(form->txtName.locked());
  form->unload();

  deleteCustomHandler(settings_, "Log");
  EXPECT_EQ(show()->cboErrors.text(), "Show") << "the handler of the options is gone";
}

TEST_F(AutoCoderTest, ABlankNameLeavesTheAuthorBlank) {
  load("Class1.cls", "Option Explicit\n\nSub A()\nEnd Sub");
  const auto form = show();
  tick(form->chkErrorHandlers, false);
  tick(form->chkUserName, false);
  user::click(form->cmdCreate);
  EXPECT_THAT(code("Class1.cls"), testing::HasSubstr("'*  Author       : \n"));
}

TEST_F(AutoCoderTest, TellsWhenThereIsNoCodeWindow) {
  load("Class1.cls", "Sub A()\nEnd Sub");
  host_.deactivate();
  const auto form = show();
  user::click(form->cmdCreate);
  EXPECT_THAT(told(), testing::ElementsAre("No code window open!"));
  EXPECT_TRUE(form->loaded());
  EXPECT_EQ(code("Class1.cls"), "Sub A()\nEnd Sub");
}

TEST_F(AutoCoderTest, ClosesBehindARunAndRemembersItsPlace) {
  settings_.saveOption("seg360nsdgdg", "1");
  load("Class1.cls", "Option Explicit\nSub A()\nEnd Sub");
  const auto form = show();
  form->setPlacement({100, 200, 6600, 5400});
  user::click(form->cmdCreate);
  EXPECT_FALSE(form->loaded());
  EXPECT_EQ(form->prgProgress.value(), form->prgProgress.max());
  EXPECT_FALSE(host_.desk().busy());
  EXPECT_EQ(settings_.option("ACWL605", ""), "100");
}

TEST_F(AutoCoderTest, DoesNotCloseDuringARun) {
  std::string code = "Option Explicit";
  for (int i = 0; i < 400; ++i) code += "\nSub P" + std::to_string(i) + "()\nBeep\nEnd Sub";
  load("Class1.cls", code);
  const auto form = show();
  int turns = 0;
  host_.desk().onDoEvents = [&] {
    ++turns;
    form->cmdCreate.click();
    form->cmdCancel.click();
    EXPECT_FALSE(form->close());
  };
  user::click(form->cmdCreate);
  EXPECT_FALSE(form->loaded());
  EXPECT_GT(turns, 0);
}

TEST_F(AutoCoderTest, AnErrorEndsTheRunAndLeavesWhatWasWritten) {
  load("Class1.cls", "Sub A()\nEnd Sub\nDeclare Sub Sleep Lib \"kernel32\" ()\nSub B()\nEnd Sub");
  EXPECT_THROW(Process_CodeModule_For_Headers(context_, host_.module("Class1.cls"), "ann"), base::Error);
  EXPECT_THAT(code("Class1.cls"), testing::HasSubstr("Name         : A"));
  EXPECT_THAT(code("Class1.cls"), testing::Not(testing::HasSubstr("Name         : B")));
  const auto form = show();
  user::click(form->cmdCreate);
  EXPECT_EQ(host_.desk().takeUnattended().at(0).name, "frmVBError");
  EXPECT_TRUE(form->loaded());
  EXPECT_FALSE(host_.desk().busy());
}

TEST_F(AutoCoderTest, HeadersOfAModuleThatCannotBeEditedAreAnError) {
  load("Class1.cls", "Option Explicit\nSub A()\nEnd Sub");
  host_.setReadOnly("Class1.cls", true);
  try {
    Process_CodeModule_For_Headers(context_, host_.module("Class1.cls"), "ann");
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), 40198);
    EXPECT_EQ(error.source(),
              "KolvaneLite.frmAutoCoder.Create_Header.frmAutoCoder.Process_CodeModule_For_Headers");
  }
}

TEST_F(AutoCoderTest, HandlersWantACodePane) {
  load("Class1.cls", "Sub A()\nEnd Sub");
  host_.deactivate();
  EXPECT_THROW(Process_CodeModule_For_ErrorHandlers(tools_, host_.module("Class1.cls"), "Show"), base::Error);
}

TEST_F(AutoCoderTest, CountsWhatItDid) {
  load("Class1.cls",
       "Option Explicit\nSub A()\nEnd Sub\n\nFriend Sub B()\nEnd Sub\n\nSub C()\nOn Error Resume Next\nEnd "
       "Sub");
  std::vector<int> lines;
  const PassProgress progress{[&](int count) { lines.push_back(count); },
                              [&](int line) { lines.push_back(line); }};
  frame::CodeModule& module = host_.module("Class1.cls");
  const auto handlers = Process_CodeModule_For_ErrorHandlers(tools_, module, "Next", progress);
  EXPECT_EQ(handlers.written, 1);
  EXPECT_EQ(handlers.there, 1);
  EXPECT_EQ(handlers.skipped, 1);
  EXPECT_THAT(lines, testing::ElementsAre(10, 2, 7, 10)) << "the module's lines, then the titles";
  EXPECT_EQ(Process_CodeModule_For_Headers(context_, module, "ann").written, 3);
  EXPECT_EQ(Process_CodeModule_For_Headers(context_, module, "ann").there, 3);
}

TEST_F(AutoCoderTest, UnderCareAProcedureThatFailsIsNamedAndTheOthersGetTheirHandlers) {
  services_.care = frame::Care::careful();
  const std::string tooLong = "Sub A()\n" + base::repeat("    Beep\n", 1001) + "End Sub\n";
  load("Module1.bas", tooLong + "Sub B()\nEnd Sub");
  frame::CodeModule& module = *services_.vbe.ActiveCodePane()->CodeModule();
  const auto result = Process_CodeModule_For_ErrorHandlers(tools_, module, "Blank");
  EXPECT_EQ(result.written, 1);
  ASSERT_EQ(result.failures.size(), 1U);
  EXPECT_EQ(result.failures[0].name, "A");
  EXPECT_EQ(result.failures[0].reason, "it has no End line within 1000 lines");
  EXPECT_NE(code("Module1.bas").find(tooLong + "Sub B()\n\nOn Error GoTo errHandler\n"), std::string::npos);

  auto form = show();
  user::selectItem(form->cboErrors, "Blank");
  user::click(form->cmdCreate);
  EXPECT_NE(code("Module1.bas").find("'*  Name         : B\n"), std::string::npos)
      << "headers came all the same";
  EXPECT_EQ(host_.desk().takeUnattended().at(0).name, "frmVBError");
  EXPECT_TRUE(form->visible());
  form->unload();
}

// ---- the example projects

std::vector<std::string> codeOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
  std::vector<std::string> lines;
  for (const std::string_view line : base::splitLines(bytes))
    if (!line.starts_with("Attribute ")) lines.emplace_back(line);
  return lines;
}

bool keepsEveryLine(const std::vector<std::string>& before, const std::vector<std::string>& after) {
  auto next = before.begin();
  for (const std::string& line : after)
    if (next != before.end() && line == *next) ++next;
  return next == before.end();
}

TEST_F(AutoCoderTest, LosesNoLineOfTheExamplesAndIsDoneAfterOneRun) {
  int modules = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(KOLVANE_SOURCE_DIR "/examples")) {
    if (base::lCase(entry.path().extension().string()) != ".bas") continue;
    ++modules;
    for (const std::string_view kind : {"Show", "Raise", "Next", "Blank"}) {
      test::TestHost host;
      Context context{host.services()};
      source::CodeWindowCommands commands;
      bindCodeWindowCommands(commands, context);
      host.addComponent("Module1.bas", codeOf(entry.path()));
      host.activate("Module1.bas", {});
      const auto before = host.lines("Module1.bas");
      const AutoCoderTools tools{context, commands};
      runTwice(tools, {kind, true});
      EXPECT_TRUE(keepsEveryLine(before, host.lines("Module1.bas"))) << entry.path() << ", " << kind;
      EXPECT_GT(host.lines("Module1.bas").size(), before.size()) << entry.path();
    }
  }
  EXPECT_GE(modules, 5);
}

// ---- texts

struct TitleCase {
  std::string_view title;
  std::string_view parameters;
  std::string_view returns;
};

TEST_F(AutoCoderTest, ParametersAndResultsOfTitles) {
  constexpr std::array<TitleCase, 14> kTitles{{
      {"Sub A()", "None", "Nothing"},
      {"Sub A( )", "None", "Nothing"},
      {"Sub A(ByVal x As Long, ByRef y As String)", "x As Long, y As String", "Nothing"},
      {"Function A(x)", "x", "Nothing"},
      {"Function A() As Long", "None", "Long"},
      {"Function A(a, b, c, d, e) As clsAbout", "a, b,|'*               : c, d,|'*               : e",
       "clsAbout"},
      {"Function A() As clsAssets", "None", "ets"},
      {"Sub A(my_name As String)", "myname As String", "Nothing"},
      {"Sub A(x() As Long, y As Long)", "x() As Long, y As Long", "Nothing"},
      {"Function A(x() As Long) As Long", "x(", "Long"},
      {"Function A() As Long()", ") As Long(", "Nothing"},
      {"Sub A() ' as told", "None", "Nothing"},
      {"Sub A(x, _|        Optional y As Long = 3)", "x, Optional y As Long = 3", "Nothing"},
      {"Sub A", "None", "Nothing"},
  }};
  for (const TitleCase& each : kTitles) {
    test::TestHost host;
    frame::CodeModule& module =
        host.addModule(base::replaceAll(each.title, "|", "\n") + "\n  Call B(1)\nEnd Sub");
    const std::string parameters = auto_coder::Find_Parameter_String(services_, module, 1);
    EXPECT_EQ(base::replaceAll(parameters, "\r", "|"), each.parameters) << each.title;
    EXPECT_EQ(auto_coder::Find_Procedure_Return_Type(module, 1), each.returns) << each.title;
  }
}

TEST_F(AutoCoderTest, LinesAroundAProcedure) {
  frame::CodeModule& module = host_.addModule("\n\n\nDim a\n\n\n\nPublic Function A()\nEnd Function");
  EXPECT_EQ(auto_coder::Get_Back_Count(module, 1), -1);
  EXPECT_EQ(auto_coder::Get_Back_Count(module, 4), 2);
  EXPECT_EQ(auto_coder::Get_Back_Count(module, 5), -1);
  EXPECT_EQ(auto_coder::Get_Back_Count(module, 8), 2);
  EXPECT_EQ(auto_coder::Find_Procedure_Type(module, 2), "Function");
  EXPECT_EQ(auto_coder::Find_Procedure_Type(module, 9), "");
  auto_coder::Delete_Blank_Lines(module, 5, 2);
  auto_coder::Delete_Blank_Lines(module, 1, -1);
  EXPECT_EQ(module.Lines(1, 9), "\r\n\r\n\r\nDim a\r\n\r\nPublic Function A()\r\nEnd Function");
}

TEST_F(AutoCoderTest, HeadersAreKnownByTheCommentCharacter) {
  settings_.saveOption("CoCh10", "=");
  frame::CodeModule& module =
      host_.addModule("Option Explicit\n\n'=========\nSub A()\nEnd Sub\n'========\nSub B()\nEnd Sub");
  EXPECT_TRUE(auto_coder::Header_Exists(services_, module, 2, 4));
  EXPECT_FALSE(auto_coder::Header_Exists(services_, module, 6, 7)) << "eight are no rule";
}

}  // namespace
}  // namespace kolvane::writers
