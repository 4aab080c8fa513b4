#include "source/dispatcher.h"

#include <gtest/gtest.h>

#include <set>

#include "base/error.h"
#include "support/test_host.h"

namespace kolvane::source {
namespace {

class Dispatcher : public testing::Test {
 protected:
  Dispatcher() {
    host_.addComponent("Module1.bas", {"Option Explicit", "", "Private Sub One()", "    x = 1", "End Sub"});
    for (const CodeWindowCommand& command : kCodeWindowCommands)
      commands_.bind(command.key, [this, key = command.key](const CodeWindowCall& call) {
        ++runs_;
        key_ = key;
        name_ = call.name;
        word_ = call.word;
        lines_ = {call.line, call.startColumn, call.endLine, 0};
        tabs_ = call.services.CodeTabs;
      });
  }

  void dispatch(std::string_view key) { Get_Name_Of_Current_Procedure(host_.services(), commands_, key); }

  test::TestHost host_;
  CodeWindowCommands commands_;
  int runs_ = 0;
  std::string_view key_;
  std::string name_;
  std::string_view word_;
  frame::TextRange lines_;
  std::string tabs_;
};

TEST_F(Dispatcher, TakesLineNameAndColumnsFromTheSelection) {
  host_.activate("Module1.bas", {4, 3, 5, 2});
  for (const CodeWindowCommand& command : kCodeWindowCommands) {
    dispatch(command.key);
    EXPECT_EQ(key_, command.key);
    EXPECT_EQ(name_, "One");
    EXPECT_EQ(word_, command.word);
    EXPECT_EQ(lines_, (frame::TextRange{4, 3, 5, 0}));
  }
  EXPECT_EQ(runs_, 18);
}

TEST_F(Dispatcher, FourCommandsNeedMoreThanOneLine) {
  host_.activate("Module1.bas", {4, 1, 4, 5});
  std::set<std::string_view> silent;
  for (const CodeWindowCommand& command : kCodeWindowCommands) {
    const int before = runs_;
    dispatch(command.key);
    if (runs_ == before) silent.insert(command.routine);
  }
  EXPECT_EQ(silent,
            (std::set<std::string_view>{"Auto_With", "SortCodeModLines", "RemoveLineNumbersFromSelectedCode",
                                        "AddLineNumbersToSelectedCode"}));
}

TEST_F(Dispatcher, TakesAGivenLineNameAndModuleAsTheyAre) {
  host_.activate("Module1.bas", {4, 3, 5, 2});
  const auto module = host_.component("Module1.bas").CodeModule();
  Get_Name_Of_Current_Procedure(host_.services(), commands_, "CPRProHe80", 3, "Given", module);
  EXPECT_EQ(name_, "Given");
  EXPECT_EQ(lines_, (frame::TextRange{3, 0, 0, 0}));
}

TEST_F(Dispatcher, DoesNothingWithoutAPaneOrForAnotherKey) {
  host_.activate("Module1.bas", {4, 1, 4, 1});
  dispatch("cprprohe80");
  dispatch("");
  host_.deactivate();
  dispatch("CPRProHe80");
  EXPECT_EQ(runs_, 0);
}

TEST_F(Dispatcher, RebuildsTheTabsOfGeneratedCode) {
  host_.activate("Module1.bas", {4, 1, 4, 1});
  dispatch("CPRProHe80");
  EXPECT_EQ(tabs_, "\t");
  host_.services().settings.SaveSetting("Options", "TaCo3", "3");
  dispatch("CPRProHe80");
  EXPECT_EQ(tabs_, "\t\t\t");
  host_.services().settings.SaveSetting("Options", "IC2", "0");
  dispatch("CPRProHe80");
  EXPECT_EQ(tabs_, "");
}

TEST_F(Dispatcher, ACommandWithoutItsRoutineSaysSo) {
  host_.activate("Module1.bas", {4, 1, 4, 1});
  const CodeWindowCommands none;
  EXPECT_FALSE(none.isBound("CPRUCTx85"));
  try {
    Get_Name_Of_Current_Procedure(host_.services(), none, "CPRUCTx85");
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), 445);
    EXPECT_EQ(error.description(), "Upper case is not available in this version.");
  }
  EXPECT_THROW(commands_.bind("nothing", nullptr), base::Error);
}

}  // namespace
}  // namespace kolvane::source
