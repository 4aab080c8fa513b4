// The Called From field, over modules and projects, and the words of a project against a search of its text.
#include <gtest/gtest.h>

#include "base/text.h"
#include "forms/drive.h"
#include "generate/generator.h"
#include "maintenance/list_my_callers.h"
#include "support/case_file.h"
#include "support/test_host.h"

namespace kolvane::maintenance {
namespace {

struct Tool {
  explicit Tool(frame::Services& services)
      : reports(services), callers(services, reports), services_(services) {}
  Reports reports;
  Callers callers;

  void updateModule() {
    const auto module = services_.vbe.ActiveCodePane()->CodeModule();
    EXPECT_TRUE(callers.UpdateCalledFrom_CM(*module));
  }

 private:
  frame::Services& services_;
};

[[maybe_unused]] const bool kRegistered = test::registerCases(
    "CalledFrom", "called_from.txt", [](test::CaseCommands& commands, const auto& context) {
      commands.others["UpdateCalledFrom"] = [&services = context.services] { Tool(services).updateModule(); };
    });

std::vector<std::string> lines(std::string_view text) {
  const auto views = base::splitLines(text);
  return {views.begin(), views.end()};
}

void addTwoModules(test::TestHost& host) {
  host.addComponent("Module1.bas", lines("'*  Called From  :\nPublic Sub Foo()\nBar\nEnd Sub"));
  host.addComponent("Module2.bas", lines("'*  Called From  :\nPublic Sub Bar()\nFoo\nEnd Sub"));
}

TEST(CalledFromProject, NeedsNoWindow) {
  test::TestHost host;
  addTwoModules(host);
  host.deactivate();
  Tool tool(host.services());
  std::string told;
  const auto result = tool.callers.UpdateCalledFrom(*host.services().vbe.ActiveVBProject(), nullptr,
                                                    [&](const std::string& name) { told += name + " "; });
  EXPECT_EQ(told, "Module1 Module2 ");
  EXPECT_EQ(result.modules, 2);
  EXPECT_EQ(host.lines("Module1.bas")[0], "'*  Called From  : Module2.Bar");
  EXPECT_EQ(host.lines("Module2.bas")[0], "'*  Called From  : Module1.Foo");
  EXPECT_TRUE(host.desk().openForms().empty());
}

TEST(CalledFromProject, AModuleThatCannotBeChangedIsPassedOver) {
  test::TestHost host;
  addTwoModules(host);
  host.setReadOnly("Module1.bas", true);
  Tool tool(host.services());
  const auto result = tool.callers.UpdateCalledFrom(*host.services().vbe.ActiveVBProject());
  EXPECT_EQ(result.modules, 1);
  EXPECT_EQ(result.notes,
            std::vector<std::string>{"Either the file Module1 is readonly or it's checked in within Source "
                                     "Code control."});
  EXPECT_EQ(host.lines("Module1.bas")[0], "'*  Called From  :");
  EXPECT_EQ(host.lines("Module2.bas")[0], "'*  Called From  : Module1.Foo");
}

TEST(CalledFromProject, CancelLeavesTheFieldsThatWereNotReached) {
  test::TestHost host;
  addTwoModules(host);
  Tool tool(host.services());
  int asked = 0;
  // Two questions while the modules are read, then one in front of each module that is searched.
  const auto result = tool.callers.UpdateCalledFrom(*host.services().vbe.ActiveVBProject(),
                                                    [&asked] { return ++asked <= 4; });
  EXPECT_TRUE(result.cancelled);
  EXPECT_EQ(host.lines("Module1.bas")[0], "'*  Called From  : Module2.Bar");
  EXPECT_EQ(host.lines("Module2.bas")[0], "'*  Called From  :");
}

TEST(CalledFromReport, UpdateWritesWhatIsOnScreen) {
  test::TestHost host;
  addTwoModules(host);
  host.services().settings.saveOption("SCF29", "True");
  host.activate("Module1.bas", {2, 1, 2, 1});
  Tool tool(host.services());
  tool.callers.evtListMyCallers_Click();
  forms::Form& form = forms::drive::openForm(host.desk(), "frmReport");
  forms::drive::click(form, "cmdUpdateHeaders");
  EXPECT_EQ(host.lines("Module1.bas")[0], "'*  Called From  : Module2.Bar");
  EXPECT_FALSE(host.desk().busy());
}

TEST(CalledFromHeader, TextForNewHeaders) {
  test::TestHost host;
  addTwoModules(host);
  host.activate("Module1.bas", {2, 1, 2, 1});
  Tool tool(host.services());
  EXPECT_EQ(tool.callers.callersText(host.module("Module1.bas")), "Module2.Bar");
  EXPECT_EQ(tool.reports.count(), 0);
}

// ---- a project's words

// A component's name and code, without the file's designer part.
std::vector<std::string> codeLines(const std::string& bytes) {
  const auto all = lines(bytes);
  std::size_t last = 0;
  for (std::size_t i = 0; i < all.size(); ++i)
    if (all[i].starts_with("Attribute VB_")) last = i + 1;
  return {all.begin() + static_cast<std::ptrdiff_t>(last), all.end()};
}

void addGenerated(test::TestHost& host, const generate::Options& options) {
  for (const generate::GeneratedFile& file : generate::generate(options)) {
    const std::string name = file.path.substr(file.path.find_last_of('/') + 1);
    const std::string extension = name.substr(name.find('.'));
    if (extension == ".bas" || extension == ".cls" || extension == ".frm" || extension == ".ctl")
      host.addComponent(name, codeLines(file.bytes));
  }
}

TEST(ProjectWords, GiveWhatTheTextGives) {
  test::TestHost host;
  addGenerated(host, {.seed = 3, .files = 30, .lines = 12000});
  auto& services = host.services();
  services.settings.saveOption("srtgkhsdfjh46vsdfgshg", "1");
  const auto modules = searchedModules(services.vbe);
  ASSERT_GT(modules.size(), 20U);
  const ProjectWords words(modules, procedureNames(modules), nullptr);
  CallerSearch shared(services, {}, nullptr, nullptr, &words);
  const auto project = services.vbe.ActiveVBProject();
  shared.setProject(project->Name());
  std::size_t callers = 0, procedures = 0, objects = 0;
  for (const auto& component : project->VBComponents()->items())
    for (const SoughtProcedure& sought : soughtMembers(component)) {
      const std::vector<Caller> plain = findCallers(services, sought);
      std::vector<Caller> indexed;
      shared.setFound([&](const Caller& caller) { indexed.push_back(caller); });
      shared.findAll(sought);
      ASSERT_EQ(plain, indexed) << sought.module->Name() << "." << sought.name;
      ++procedures;
      callers += plain.size();
      objects += sought.isObject && sought.isPublic && !plain.empty() ? 1U : 0U;
    }
  EXPECT_GT(procedures, 150U);
  EXPECT_GT(callers, 200U);
  EXPECT_GT(objects, 5U);
}

TEST(ProjectWords, AModuleWhoseLinesMovedIsSearchedAfresh) {
  test::TestHost host;
  addTwoModules(host);
  const auto modules = searchedModules(host.services().vbe);
  ProjectWords words(modules, procedureNames(modules), nullptr);
  const auto bar = soughtProcedure(*host.services().vbe.ActiveVBProject(), "Module2.Bar");
  const auto line = [&] { return findCallers(host.services(), bar, nullptr, &words).at(0).line; };
  EXPECT_EQ(line(), 3);
  host.module("Module1.bas").InsertLines(1, "' one more");
  EXPECT_EQ(line(), 4);
  words.refresh(host.module("Module1.bas"));
  EXPECT_EQ(line(), 4);
  EXPECT_TRUE(words.find(host.module("Module1.bas"))->isCurrent(host.module("Module1.bas")));
}

}  // namespace
}  // namespace kolvane::maintenance
