#include "writers/code_window_commands.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "forms/form.h"
#include "support/test_host.h"
#include "writers/auto_with.h"
#include "writers/error_handlers.h"

namespace kolvane::writers {
namespace {

class CodeWindowCommandsTest : public testing::Test {
 protected:
  CodeWindowCommandsTest() { bindCodeWindowCommands(commands_, context_); }

  void run(std::string_view key) { source::Get_Name_Of_Current_Procedure(host_.services(), commands_, key); }
  std::string code() { return base::join(host_.lines("Module1.bas"), "\n"); }
  void select(const frame::TextRange& selection) { host_.activate("Module1.bas", selection); }

  test::TestHost host_;
  Context context_{host_.services()};
  source::CodeWindowCommands commands_;
};

struct Sample {
  std::string_view code;
  frame::TextRange selection;
};

constexpr std::string_view kProcedure = "Sub A()\n    x = 1\n    y = 2\nEnd Sub";

// Code that the command changes.
Sample sampleFor(const source::CodeWindowCommand& command) {
  constexpr std::string_view kLong = "Sub A()\n    MsgBox \"a long text for a box\", vbOKOnly\nEnd Sub";
  if (command.routine == "Write_Uncomment_Block") return {"'Dim x\n'Dim y", {1, 1, 2, 2}};
  if (command.routine == "LineSplitter") return {kLong, {2, 1, 2, 1}};
  if (command.routine == "JoinLines") return {"Foo a, _\n    b", {2, 1, 2, 1}};
  if (command.routine == "Auto_With") return {"a.x = 1\na.y = 2", {1, 1, 2, 2}};
  if (command.routine == "SortCodeModLines") return {"Dim y\nDim x", {1, 1, 2, 2}};
  if (command.routine == "RemoveLineNumbersFromSelectedCode") return {"10  x = 1\n20  y = 2", {1, 1, 2, 2}};
  if (command.word == "LCASE") return {"Dim ABC", {1, 1, 1, 8}};
  return {kProcedure, {2, 5, 3, 6}};
}

// Runs the command on its sample in a host of its own; the texts of the boxes that it shows.
std::vector<std::string> runOnSample(const source::CodeWindowCommand& command, bool readOnly, bool& changed) {
  const Sample sample = sampleFor(command);
  test::TestHost host;
  host.services().settings.SaveSetting(frame::kOptions, "dsagfadsf3435sdf", "30");
  const Context context{host.services()};
  source::CodeWindowCommands commands;
  bindCodeWindowCommands(commands, context);
  host.addModule(sample.code);
  host.activate("Module1.bas", sample.selection);
  host.setReadOnly("Module1.bas", readOnly);
  source::Get_Name_Of_Current_Procedure(host.services(), commands, command.key);
  changed = base::join(host.lines("Module1.bas"), "\n") != sample.code;
  std::vector<std::string> texts;
  for (const forms::BoxRecord& box : host.desk().takeLog()) texts.push_back(box.text);
  return texts;
}

TEST_F(CodeWindowCommandsTest, EveryCommandTellsOfAModuleThatCannotBeEdited) {
  const std::vector<std::string> notice{
      "Either the file Module1 is readonly or it's checked in within Source Code control."};
  for (const source::CodeWindowCommand& command : source::kCodeWindowCommands) {
    bool changed = false;
    EXPECT_TRUE(runOnSample(command, false, changed).empty()) << command.name;
    EXPECT_TRUE(changed) << command.name;
    EXPECT_EQ(runOnSample(command, true, changed), notice) << command.name;
    EXPECT_FALSE(changed) << command.name;
  }
}

TEST_F(CodeWindowCommandsTest, NoCommandMindsAnEmptyModule) {
  host_.addModule("");
  host_.module("Module1.bas").DeleteLines(1);
  ASSERT_EQ(host_.module("Module1.bas").CountOfLines(), 0);
  for (const source::CodeWindowCommand& command : source::kCodeWindowCommands) {
    ASSERT_NO_THROW(run(command.key)) << command.name;
    EXPECT_EQ(host_.module("Module1.bas").CountOfLines(), 0) << command.name;
  }
  EXPECT_TRUE(host_.desk().takeLog().empty());
}

TEST_F(CodeWindowCommandsTest, WhatBelongsToAProcedureLeavesTheDeclarationsAlone) {
  constexpr std::string_view kCode =
      "Option Explicit\nPrivate a As Long\nPrivate b As Long\n\n' of A\nSub A()\n    x = 1\nEnd Sub\n\n";
  host_.addModule(kCode);
  const std::string before = code();
  for (const source::CodeWindowCommand& command : source::kCodeWindowCommands) {
    if (command.shape != source::ArgumentShape::kProcedure) continue;
    for (const int line : {1, 3, 4, 5, 8, 9}) {
      select({line, 1, line, 1});
      run(command.key);
      EXPECT_EQ(code(), before) << command.name << " at line " << line;
    }
  }
  EXPECT_TRUE(host_.desk().takeLog().empty());
}

TEST_F(CodeWindowCommandsTest, ABareCursorSelectsNothingToSortNumberOrConvert) {
  host_.addModule(kProcedure);
  for (const source::CodeWindowCommand& command : source::kCodeWindowCommands) {
    if (!command.needsSeveralLines && command.shape != source::ArgumentShape::kPaneWord) continue;
    select({2, 5, 2, 5});
    run(command.key);
    EXPECT_EQ(code(), kProcedure) << command.name;
    EXPECT_EQ(host_.selection("Module1.bas"), (frame::TextRange{2, 5, 2, 5})) << command.name;
  }
}

TEST_F(CodeWindowCommandsTest, TheAttributesOfACommentedProcedureComeBackWithIt) {
  const std::string attributes = "Attribute A.VB_Description = \"works\"";
  frame::CodeModule& module = host_.addModule("Sub A()\n" + attributes + "\n    x = 1\nEnd Sub");
  ASSERT_EQ(module.Members()->Item("A")->Description(), "works");
  for (const std::string_view key : {"CPRCoBlo83", "CPRUncBl84"}) {
    select({1, 1, 3, 2});
    run(key);
  }
  EXPECT_EQ(module.Members()->Item("A")->Description(), "works");
  select({1, 1, 1, 1});
  run("CPRBlaErrHaCo79");
  EXPECT_EQ(module.Members()->Item("A")->Description(), "works");
}

TEST_F(CodeWindowCommandsTest, TheListOfHandlersHasTheKindsThenTheUsersOwn) {
  class HandlerForm final : public forms::Form {
   public:
    explicit HandlerForm(forms::Desk& desk) : Form(desk, "frmHandlers", "Handlers") {}
    forms::ComboBox cboHandler{*this, "cboHandler", forms::ComboBox::kDropdownList, {"old"}};
    forms::Layout layout() const override { return {}; }
  } form(host_.desk());
  AddErrorHandlers(form.cboHandler, {"Log", "Mail"});
  EXPECT_EQ(form.cboHandler.items(),
            (std::vector<std::string>{"", "Show", "Raise", "Next", "Blank", "Log", "Mail"}));
  EXPECT_EQ(form.cboHandler.text(), "Show");
}

TEST_F(CodeWindowCommandsTest, TheConstantIsWrittenOnce) {
  frame::CodeModule& module =
      host_.addModule("Option Explicit\n#If X Then\nConst A = 1\n#End If\nSub A()\nEnd Sub");
  EXPECT_TRUE(Ensure_VB_Module_Name_Is_Defined(module));
  EXPECT_FALSE(Ensure_VB_Module_Name_Is_Defined(module));
  EXPECT_EQ(code(),
            "Option Explicit\n#If X Then\nConst A = 1\n#End If\n"
            "Private Const VB_MODULE_NAME = \".Module1\" '* Used in Error Handling\nSub A()\nEnd Sub");
}

TEST_F(CodeWindowCommandsTest, AHandlerIsLookedForInEighteenLines) {
  for (const int blanks : {17, 18}) {
    test::TestHost host;
    frame::CodeModule& module = host.addModule("Sub A()\n" + base::repeat("\n", blanks) +
                                               "    On Error GoTo Failed\nFailed:\nEnd Sub");
    EXPECT_EQ(Handler_Exists(module, 1), blanks == 17);
    EXPECT_TRUE(Handler_Exists(module, 2)) << "as the popup asks, from the cursor on";
  }
}

struct PrefixCase {
  std::vector<std::string> lines;
  int point;
};

TEST_F(CodeWindowCommandsTest, FindTheLongestObjectInFront) {
  const PrefixCase kCases[] = {
      {{"a.b.c.x", "a.b.c.y", "a.b.z"}, 4},
      {{"  Frm.x = 1.5", "  frm.y = 2.5"}, 6},
      {{"a.x = 1.5", "a.x = 1.5"}, -1},
      {{"x = 1", "y = 2"}, -1},
      {{".x", ".y"}, -1},
      {{"'a.x", "'a.y"}, -1},
      {{"a.x", ""}, -1},
      {{"list(\"k\").x", "list(\"k\").y"}, 10},
  };
  for (const auto& [lines, point] : kCases) EXPECT_EQ(Find_With_Prefix(lines), point) << lines[0];
}

}  // namespace
}  // namespace kolvane::writers
