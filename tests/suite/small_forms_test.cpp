// Progress, About, and what asks the machine.
#include "forms/error_form.h"
#include "forms/user.h"
#include "frame/about_form.h"
#include "frame/progress_form.h"
#include "frame/system_programs.h"
#include "suite_fixture.h"

namespace kolvane::suite {
namespace {

// Windows as rows of number, parent and process.
class FixedDesktop final : public platform::Desktop {
 public:
  struct Row {
    long window, parent, process;
  };
  std::vector<Row> rows;
  std::vector<std::string> started;

  long firstWindow() override { return rows.empty() ? 0 : rows[0].window; }
  long nextWindow(long window) override {
    for (std::size_t i = 0; i + 1 < rows.size(); ++i)
      if (rows[i].window == window) return rows[i + 1].window;
    return 0;
  }
  long parentOf(long window) override { return row(window).parent; }
  long processOf(long window) override { return row(window).process; }
  void start(const std::string& what) override { started.push_back(what); }

 private:
  const Row& row(long window) {
    for (const Row& each : rows)
      if (each.window == window) return each;
    throw base::Error(base::errors::kInvalidCall);
  }
};

class SmallFormsTest : public SuiteTest {
 protected:
  // The box that a look for a newer version ends with, with its flags, when the product's page is this. Nothing is
  // read before the click.
  std::string lookedUp(const std::optional<std::string>& page) {
    pages_.pages.clear();
    desk_.runModal = [&](forms::Form& form) {
      if (page) pages_.pages.emplace(frame::kProductAddress, *page);
      forms::user::click(form.control("cmdGetVersionDesc"));
      form.unload();
    };
    suite_.about();
    const auto log = desk_.takeLog();
    return log.size() == 1 ? std::to_string(log[0].flags) + " " + log[0].text : std::to_string(log.size());
  }
};

TEST_F(SmallFormsTest, progressShowsOneBarOrBoth) {
  const struct {
    const char* setup;
    bool project, module;
  } cases[] = {
      {"ProjectOnly", true, false}, {"ModuleOnly", false, true}, {"", true, true}, {"Both", true, true}};
  for (const auto& expected : cases) {
    frame::frmProgress progress(desk_);
    EXPECT_EQ(progress.caption(), "Progress");
    progress.Setup(expected.setup);
    progress.show();
    EXPECT_EQ(progress.lblProject.visible(), expected.project) << expected.setup;
    EXPECT_EQ(progress.prgProject.visible(), expected.project);
    EXPECT_EQ(progress.lblModule.visible(), expected.module);
    EXPECT_EQ(progress.prgModule.visible(), expected.module);
    progress.prgModule.setMax(20);
    progress.prgModule.setValue(5);
    progress.prgProject.setValue(1);
    EXPECT_EQ(progress.prgModule.value(), 5);
  }
  frame::frmProgress one(desk_), both(desk_);
  one.Setup("ModuleOnly");
  both.Setup("");
  EXPECT_LT(one.minimumHeight(), both.minimumHeight());
  EXPECT_TRUE(forms::layoutFaults(one).empty());
}

TEST_F(SmallFormsTest, aboutTellsWhetherThereIsANewerVersion) {
  const auto page = [](const std::string& version) {
    return "<html><META NAME=\"Version\" CONTENT=\"" + version + "\"><p>";
  };
  const std::string newer = " and you are using 3.0.0!";
  const std::string latest = "64 You are using the latest version!";
  EXPECT_EQ(lookedUp(page("3.0.1")), "48 The lastest version available is 3.0.1" + newer);
  EXPECT_EQ(lookedUp(page("10.0.0")), "48 The lastest version available is 10.0.0" + newer);
  EXPECT_EQ(lookedUp(page("3.0.0")), latest);
  EXPECT_EQ(lookedUp(page("2.0.0")), latest);
  EXPECT_EQ(lookedUp(page("2.1")), "48 The lastest version available is 2.1" + newer);
  EXPECT_TRUE(lookedUp(page(" ")).starts_with("48 Unable to get the lastest version details!\r\n"));
  EXPECT_TRUE(lookedUp("nothing").starts_with("48 Unable to get the lastest version details!\r\n"));
  EXPECT_EQ(lookedUp(std::nullopt), "48 Can't connect to the internet at the present time!");
}

TEST_F(SmallFormsTest, aboutStartsTheSystemInformationThatTheRegistryNames) {
  platform::NoWebPages pages;
  FixedDesktop desktop;
  frame::frmAbout about(suite_.services(), pages, desktop);
  EXPECT_EQ(about.caption(), "About KolvaneLite");
  EXPECT_EQ(about.lblVersion.caption(), "Version 3.0.0");
  EXPECT_TRUE(forms::layoutFaults(about).empty());
  about.show();
  about.cmdSysInfo.click();
  EXPECT_EQ(desk_.takeUnattended().size(), 1u);
  const auto write = [&](std::string_view key, std::string_view name, std::string_view text) {
    settings_.WriteRegistryValue(frame::RegistryRoot::kLocalMachine, key, name, 1, text);
  };
  write("SOFTWARE\\Microsoft\\Shared Tools Location", "MSINFO", "C:\\Tools");
  about.cmdSysInfo.click();
  EXPECT_EQ(desk_.takeUnattended().size(), 1u);
  write("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO", "PATH", "C:\\Tools\\info.exe");
  about.cmdSysInfo.click();
  about.cmdEmail.click();
  EXPECT_EQ(desktop.started,
            (std::vector<std::string>{"C:\\Tools\\info.exe", "mailto:kolvane@kolvane.example"}));
  EXPECT_TRUE(desk_.takeUnattended().empty());
}

TEST_F(SmallFormsTest, theWindowOfAProcessIsItsFirstWithoutAParent) {
  FixedDesktop desktop;
  EXPECT_EQ(frame::GetWinHandle(desktop, 7), 0);
  desktop.rows = {{1, 0, 5}, {2, 1, 7}, {3, 0, 7}, {4, 0, 7}};
  EXPECT_EQ(frame::GetWinHandle(desktop, 7), 3);
  EXPECT_EQ(frame::GetWinHandle(desktop, 8), 0);
}

}  // namespace
}  // namespace kolvane::suite
