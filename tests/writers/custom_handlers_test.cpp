// The user's own error handlers: their store, and the two writers by the cases of custom_handlers.txt.
#include "writers/custom_handlers.h"

#include <gmock/gmock.h>

#include <array>
#include <utility>

#include "support/case_file.h"
#include "support/test_host.h"
#include "writers/custom_handler_writing.h"

namespace kolvane::writers {
namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kHandlers{{
    {"Log", "    LogError Err.Number, <Module Name> & \".<Procedure Name>\"\r\n    Resume Next"},
    {"All",
     "' <Procedure Name>, <Module Name>, <Project Name>, <Username>, <Date>, <Time>; <Procedure Name>"},
    {"Module", "\tRaise <Module Name>"},
    {"Plain", "Stop"},
    {"A&B", "Stop"},
}};

// ---- what the cases run

void runCustom(frame::Services& services, std::string_view name) {
  const auto pane = services.vbe.ActiveCodePane();
  CreateCustomErrorHandler(services, *services.vbe.SelectedVBComponent(), *pane, *pane->CodeModule(), name);
}

void runEvent(frame::Services& services, std::string_view handler) {
  const auto pane = services.vbe.ActiveCodePane();
  const frame::TextRange body = pane->GetSelection();
  Create_Custom_Error(services, *pane->CodeModule(), "Click", "cmdOK", body.startLine, body.endLine,
                      {handler, "Sub", "ann"});
}

void bind(test::CaseCommands& commands, const Context& context) {
  frame::Services& services = context.services;
  for (const auto& [name, text] : kHandlers) writeCustomHandler(services.settings, name, text);
  for (const std::string name : {"Log", "All", "Module", "Plain", "A&B", "&Plain", "Gone"}) {
    commands.others["Custom " + name] = [&services, name] { runCustom(services, name); };
    commands.others["Event " + name] = [&services, name] { runEvent(services, name); };
  }
  commands.others["Custom Plain in B"] = [&services] {
    const auto pane = services.vbe.ActiveCodePane();
    const int line = pane->CodeModule()->ProcBodyLine("B", frame::ProcKind::kProc);
    pane->SetSelection({line, 1, line, 1});
    runCustom(services, "Plain");
  };
}

const bool kRegistered = test::registerCases("CustomHandlers", "custom_handlers.txt", bind);

// ---- the store

class CustomHandlerStoreTest : public testing::Test {
 protected:
  test::TestHost host_;
  frame::Settings& settings_ = host_.services().settings;
};

TEST_F(CustomHandlerStoreTest, NamesComeInTheOrderOfTheirFirstWriting) {
  EXPECT_TRUE(GetCustomErrors(settings_).empty());
  writeCustomHandler(settings_, "Show", "a");
  writeCustomHandler(settings_, "Log", "b");
  writeCustomHandler(settings_, "Blank", "c");
  writeCustomHandler(settings_, "Show", "d");
  EXPECT_THAT(GetCustomErrors(settings_), testing::ElementsAre("Show", "Log", "Blank"));
  EXPECT_TRUE(deleteCustomHandler(settings_, "Log"));
  EXPECT_FALSE(deleteCustomHandler(settings_, "Log"));
  EXPECT_THAT(GetCustomErrors(settings_), testing::ElementsAre("Show", "Blank"));
  EXPECT_EQ(ReturnCustomError(settings_, "Show"), "d");
}

TEST_F(CustomHandlerStoreTest, EachHandlerIsOneTextBelowTheKeyOfTheTool) {
  writeCustomHandler(settings_, "Log", "Beep\r\n\tStop\r\n");
  const auto value =
      settings_.EnumRegistryValue(frame::RegistryRoot::kCurrentUser,
                                  "SOFTWARE\\VB and VBA Program Settings\\KolvaneLite\\ManEs148\\Custom", 0);
  EXPECT_EQ(value.name, "Log");
  EXPECT_EQ(value.type, "1");
  EXPECT_EQ(value.data, "Beep\r\n\tStop\r\n");
}

TEST_F(CustomHandlerStoreTest, OneFormAsksForTheExactNameTheOtherForTheStoresOwn) {
  writeCustomHandler(settings_, "Log", "Beep");
  EXPECT_EQ(ReturnCustomError(settings_, "Log"), "Beep");
  EXPECT_EQ(ReturnCustomError(settings_, "log"), "");
  EXPECT_EQ(readCustomHandler(settings_, "LOG"), "Beep");
  EXPECT_EQ(readCustomHandler(settings_, "Lo"), std::nullopt);
}

// A raw read would take such a value for the end of the key.
TEST_F(CustomHandlerStoreTest, ALongTextHidesNeitherItselfNorTheNextOne) {
  const std::string text(3 * frame::kRegistryBuffer, 'x');
  writeCustomHandler(settings_, "Long", text);
  writeCustomHandler(settings_, "Next", "Stop");
  EXPECT_THAT(GetCustomErrors(settings_), testing::ElementsAre("Long", "Next"));
  EXPECT_EQ(ReturnCustomError(settings_, "Long"), text);
  EXPECT_EQ(ReturnCustomError(settings_, "Next"), "Stop");
}

// ---- the elements

TEST_F(CustomHandlerStoreTest, AnElementThatAnotherBringsInIsReplacedInItsTurn) {
  const ElementValues values{"<Time>", frame::ComponentType::kStdModule, "<Procedure Name>"};
  EXPECT_EQ(replaceElements(host_.services(), "<Procedure Name>-<Username>-<username>", values),
            "10:20-<Procedure Name>-<username>");
}

TEST_F(CustomHandlerStoreTest, TheConstantIsSpelledAsTheCallerWants) {
  ElementValues values{"A", frame::ComponentType::kStdModule, "ann"};
  EXPECT_EQ(replaceElements(host_.services(), "<Module Name>", values), "vb_Module_Name");
  values.moduleNameConstant = "VB_Module_Name";
  EXPECT_EQ(replaceElements(host_.services(), "<Module Name>", values), "VB_Module_Name");
  values.componentType = frame::ComponentType::kVBMDIForm;
  EXPECT_EQ(replaceElements(host_.services(), "<Module Name>", values), "TypeName (Me)");
}

}  // namespace
}  // namespace kolvane::writers
