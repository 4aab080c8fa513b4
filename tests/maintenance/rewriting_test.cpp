// What the operations that rewrite modules do to whole projects on (memory) disk, and what they must leave alone.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "base/text.h"
#include "generate/generator.h"
#include "maintenance/code_indenter.h"
#include "maintenance/comment_formatter.h"
#include "maintenance/module_line_numbers.h"
#include "maintenance/procedure_sorter.h"
#include "source/line_tests.h"
#include "source/tab_width.h"
#include "support/memory_services.h"
#include "support/test_host.h"

namespace kolvane::maintenance {
namespace {

using Lines = std::vector<std::string>;

// A host over projects in memory.
struct ProjectHost : test::MemoryServices {
  void open(const std::string& path) {
    project = host->open(path).at(0);
    for (const auto& problem : host->problems()) ADD_FAILURE() << problem.text();
  }
  // Those with code.
  std::vector<std::shared_ptr<frame::VBComponent>> components() {
    auto all = project->VBComponents()->items();
    std::erase_if(all, [](const auto& component) { return !component->CodeModule(); });
    return all;
  }

  std::shared_ptr<frame::VBProject> project;
};

struct Progress final : WalkProgress {
  void setModuleCaption(std::string_view text) override { captions.emplace_back(text); }
  void advance() override { ++steps; }
  Lines captions;
  int steps = 0;
};

// ---- meaning

using Operation = std::function<void(const frame::Services&, frame::VBProject&)>;

void indentAll(const frame::Services& services, frame::VBProject& project) {
  IndentState state;
  std::string message;
  EXPECT_TRUE(CodeIndentProjectLevel(services, state, project, message));
  EXPECT_EQ(message, "");
  EXPECT_EQ(state, IndentState());
}
void formatAll(const frame::Services& services, frame::VBProject& project) {
  for (const auto& component : project.VBComponents()->items()) {
    const auto module = component->CodeModule();
    if (!module) continue;
    EXPECT_TRUE(
        FormatComments(services, *module, module->CountOfDeclarationLines() + 1, module->CountOfLines()));
  }
}
void invertAll(const frame::Services& services, frame::VBProject& project) {
  for (const auto& component : project.VBComponents()->items())
    EXPECT_TRUE(Invert_LineNumbers_Mod(services, *component));
}
void sortAll(const frame::Services& services, frame::VBProject& project) { sortProject(services, project); }

std::size_t commentBegin(const std::string& line) {
  bool inString = false;
  for (std::size_t at = 0; at < line.size(); ++at) {
    if (line[at] == '"') inString = !inString;
    if (line[at] == '\'' && !inString) return at;
  }
  return line.size();
}

// What indenting may change: blanks outside of strings and comments.
Lines withoutBlanks(const Lines& lines) {
  Lines result;
  for (const std::string& line : lines) {
    const std::size_t comment = commentBegin(line);
    std::string& code = result.emplace_back();
    bool inString = false;
    for (std::size_t at = 0; at < comment; ++at) {
      if (line[at] == '"') inString = !inString;
      if (inString || line[at] != ' ') code.push_back(line[at]);
    }
    code.append(base::rTrim(std::string_view(line).substr(comment)));
  }
  return result;
}

// What formatting comments may change: them, and blank lines.
Lines withoutComments(const Lines& lines) {
  Lines result;
  for (const std::string& line : lines)
    if (std::string code(source::trimWhite(line.substr(0, commentBegin(line)))); !code.empty())
      result.push_back(std::move(code));
  return result;
}

bool isNumbered(const std::string& line) { return source::Is_Numbered_Line(line); }

// What line numbers may change: them, and the blanks around them.
Lines withoutNumbers(const Lines& lines) {
  Lines result;
  for (const std::string& line : lines) {
    const std::size_t digits = std::min(line.find_first_not_of("0123456789"), line.size());
    const bool number = digits == line.size() || line[digits] == ' ' || line[digits] == ':';
    result.emplace_back(base::lTrim(std::string_view(line).substr(number ? digits : 0)));
    if (number && result.back().starts_with(':')) result.back() = base::lTrim(result.back().substr(1));
  }
  return result;
}

// What sorting may change: the order. An attribute line counts as a part of the line in front of it.
Lines inAnyOrder(const Lines& lines) {
  Lines result;
  for (const std::string& line : lines) {
    if (line.starts_with("Attribute ") && !result.empty())
      result.back().append("\n").append(line);
    else if (!source::Is_Blank_Line(line))
      result.emplace_back(base::trim(line));
  }
  std::sort(result.begin(), result.end());
  return result;
}

Lines linesOf(const std::string& bytes) {
  const auto pieces = base::splitLines(bytes);
  return {pieces.begin(), pieces.end()};
}

// The first lines that differ, "" when none do.
std::string difference(const Lines& before, const Lines& after) {
  for (std::size_t i = 0; i < std::max(before.size(), after.size()); ++i) {
    const std::string old = i < before.size() ? before[i] : "(end)",
                      now = i < after.size() ? after[i] : "(end)";
    if (old != now) return "line " + std::to_string(i + 1) + "\n  " + old + "\n  " + now;
  }
  return {};
}

struct Rule {
  const char* name;
  Operation run;
  std::function<Lines(const Lines&)> kept;
  // What a second run does.
  enum class Again { kNothing, kUndo } again;
};
const Rule kRules[] = {
    {"indent", indentAll, withoutBlanks, Rule::Again::kNothing},
    {"comments", formatAll, withoutComments, Rule::Again::kNothing},
    {"numbers", invertAll, withoutNumbers, Rule::Again::kUndo},
    {"sort", sortAll, inAnyOrder, Rule::Again::kNothing},
};

// Runs an operation over the project and compares each file with what it was.
void checkMeaning(ProjectHost& host, const Rule& rule) {
  std::map<std::string, std::string> before;
  for (const auto& component : host.components())
    before[component->Name()] = host.host->pendingBytes(component);
  rule.run(host.services, *host.project);
  std::map<std::string, std::string> after;
  int changed = 0;
  for (const auto& component : host.components()) {
    const std::string& name = component->Name();
    after[name] = host.host->pendingBytes(component);
    changed += after[name] != before[name] ? 1 : 0;
    EXPECT_EQ(difference(rule.kept(linesOf(before[name])), rule.kept(linesOf(after[name]))), "")
        << rule.name << " of " << name;
  }
  EXPECT_GT(changed, 0) << rule.name;
  rule.run(host.services, *host.project);
  for (const auto& component : host.components()) {
    const std::string& name = component->Name();
    const std::string again = host.host->pendingBytes(component);
    const Lines lines = linesOf(before[name]);
    const bool hadNumbers = std::any_of(lines.begin(), lines.end(), isNumbered);
    if (rule.again == Rule::Again::kNothing) {
      EXPECT_EQ(after[name], again) << rule.name << " of " << name << " again";
    } else if (!hadNumbers) {
      EXPECT_EQ(before[name], again) << rule.name << " of " << name << " and back";
    }
  }
  EXPECT_EQ(host.desk.takeLog().size(), 0U);
}

class Meaning : public testing::TestWithParam<int> {
 protected:
  const Rule& rule() const { return kRules[GetParam()]; }
};

TEST_P(Meaning, OfTheExamplesStays) {
  const std::filesystem::path root = std::filesystem::path(KOLVANE_SOURCE_DIR) / "examples";
  for (const char* path : {"Ledger/Ledger.vbp", "Shop/Shop.vbp", "Shop/ShopLib/ShopLib.vbp"}) {
    ProjectHost host;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
      if (!entry.is_regular_file()) continue;
      std::ifstream in(entry.path(), std::ios::binary);
      host.disk.replace("/examples/" + entry.path().lexically_relative(root).string(),
                        std::string(std::istreambuf_iterator<char>(in), {}));
    }
    host.open(std::string("/examples/") + path);
    checkMeaning(host, rule());
  }
}

TEST_P(Meaning, OfGeneratedProjectsStays) {
  for (std::uint64_t seed = 1; seed <= 3; ++seed) {
    generate::Options options;
    options.seed = seed;
    options.files = 40;
    options.lines = 12'000;
    ProjectHost host;
    std::string project;
    for (const auto& file : generate::generate(options)) {
      host.disk.replace("/made/" + file.path, file.bytes);
      if (file.path.ends_with(".vbp")) project = "/made/" + file.path;
    }
    host.open(project);
    checkMeaning(host, rule());
  }
}

INSTANTIATE_TEST_SUITE_P(Rewriting, Meaning, testing::Range(0, static_cast<int>(std::size(kRules))),
                         [](const auto& made) { return std::string(kRules[made.param].name); });

// ---- walks

// A form with a companion, a module and a class, saved below /p.
class SavedProject : public testing::Test {
 protected:
  SavedProject() {
    put("p.vbp", "Type=Exe\r\nForm=Form1.frm\r\nModule=Module1; Module1.bas\r\nClass=Class1; Class1.cls\r\n");
    put("Form1.frm",
        "VERSION 5.00\r\nBegin VB.Form Form1 \r\n   Icon = \"Form1.frx\":0000\r\nEnd\r\nAttribute VB_Name = "
        "\"Form1\"\r\nSub F()\r\nx = 1\r\nEnd Sub\r\n");
    put("Form1.frx", std::string(8, '\0'));
    put("Module1.bas",
        "Attribute VB_Name = \"Module1\"\r\nSub B()\r\nx = 1\r\nEnd Sub\r\nSub A()\r\nEnd Sub\r\n");
    put("Class1.cls",
        "VERSION 1.0 CLASS\r\nAttribute VB_Name = \"Class1\"\r\nFriend Sub Zoom()\r\nAttribute "
        "Zoom.VB_Description = "
        "\"z\"\r\nx = 1 ' a\r\nEnd Sub\r\nProperty Get Item() As Long\r\nAttribute Item.VB_UserMemId = "
        "0\r\nEnd "
        "Property\r\n");
    host_.open("/p/p.vbp");
  }

  void put(const std::string& name, const std::string& bytes) { host_.disk.replace("/p/" + name, bytes); }
  frame::VBComponent& component(std::string_view name) { return *host_.project->VBComponents()->Item(name); }
  std::string code(std::string_view name) {
    const auto module = component(name).CodeModule();
    return module->Lines(1, module->CountOfLines());
  }

  ProjectHost host_;
};

TEST_F(SavedProject, IsIndentedWithoutItsReadOnlyFilesOfWhichACompanionCounts) {
  host_.disk.setAttributes("/p/Form1.frx", platform::kAttributeReadOnly | platform::kAttributeArchive);
  IndentState state;
  std::string message;
  Progress progress;
  EXPECT_TRUE(CodeIndentProjectLevel(host_.services, state, *host_.project, message, &progress));
  EXPECT_EQ(message, kNotIndentedMessage);
  EXPECT_EQ(code("Form1"), "Sub F()\r\nx = 1\r\nEnd Sub");
  EXPECT_EQ(code("Module1"), "Sub B()\r\n    x = 1\r\nEnd Sub\r\nSub A()\r\nEnd Sub");
  EXPECT_EQ(progress.captions, Lines({"Module1 - Code Indenting", "Class1 - Code Indenting"}));
  EXPECT_EQ(progress.steps, 2);
}

TEST_F(SavedProject, AFileThatIsGoneEndsTheIndentingWithAnError) {
  host_.disk.remove("/p/Module1.bas");
  IndentState state;
  std::string message;
  EXPECT_FALSE(CodeIndentProjectLevel(host_.services, state, *host_.project, message));
  EXPECT_EQ(code("Form1"), "Sub F()\r\n    x = 1\r\nEnd Sub");
}

TEST_F(SavedProject, IsNumberedUnlessItsFileIsReadOnly) {
  host_.disk.setAttributes("/p/Form1.frx", platform::kAttributeReadOnly);
  for (const char* name : {"Form1", "Module1"})
    EXPECT_TRUE(Invert_LineNumbers_Mod(host_.services, component(name)));
  EXPECT_EQ(code("Form1"), "Sub F()\r\nx = 1\r\nEnd Sub");
  EXPECT_EQ(code("Module1"), "Sub B()\r\n1   x = 1\r\n2   End Sub\r\nSub A()\r\n1   End Sub");
  bool stop = true;
  EXPECT_TRUE(Remove_Line_Numbers_Mod(host_.services, component("Module1"), stop));
  EXPECT_FALSE(stop);
  EXPECT_EQ(code("Module1"), "Sub B()\r\nx = 1\r\nEnd Sub\r\nSub A()\r\nEnd Sub");
}

TEST_F(SavedProject, KeepsItsHiddenAttributesThroughEveryOperation) {
  for (const Rule& rule : kRules) {
    rule.run(host_.services, *host_.project);
    host_.host->saveProject(host_.project);
    const std::string bytes(host_.disk.read("/p/Class1.cls").content->bytes());
    EXPECT_NE(bytes.find("Friend Sub Zoom()\r\nAttribute Zoom.VB_Description = \"z\"\r\n"), std::string::npos)
        << rule.name << "\n"
        << bytes;
    EXPECT_NE(bytes.find("Property Get Item() As Long\r\nAttribute Item.VB_UserMemId = 0\r\n"),
              std::string::npos)
        << rule.name << "\n"
        << bytes;
  }
}

// ---- one module

TEST(Rewriting, AnUnsavedComponentGetsNoNumbers) {
  test::TestHost host;
  frame::CodeModule& module = host.addModule("Sub A()\nx = 1\nEnd Sub");
  EXPECT_TRUE(Invert_LineNumbers_Mod(host.services(), *module.Parent()));
  EXPECT_EQ(module.Lines(2, 1), "x = 1");
  bool stop = true;
  frame::CodeModule& declarations =
      (host.addComponent("Module2.bas", {"Option Explicit"}), host.module("Module2.bas"));
  EXPECT_FALSE(Add_Line_Numbers_Mod(host.services(), *declarations.Parent(), stop));
  EXPECT_FALSE(stop);
}

TEST(Rewriting, ALongModuleIsTreatedAsAWhole) {
  std::string code = "Option Explicit";
  for (int i = 3000; i > 0; --i) {
    const std::string name = "P" + std::to_string(10000 + i);
    code += "\nSub " + name + "()\nSelect Case x\nCase 1\n' one\n' two\ny = 1 ' " + name +
            "\nEnd Select\nFor i = 1 To 2: Next\n" + "z = 1\nz = 2\nz = 3\nEnd Sub";
  }
  test::TestHost host;
  frame::CodeModule& module = host.addModule(code);
  const int count = module.CountOfLines();
  ASSERT_GT(count, 30'000);
  IndentState state;
  CodeIndentModuleLevel(host.services(), state, module);
  for (int line = 2; line <= count; line += 12) {
    ASSERT_EQ(module.Lines(line + 5, 1).substr(0, 16), "            y = ") << line;
    ASSERT_EQ(module.Lines(line + 8, 1), "    z = 1") << line;
  }
  EXPECT_TRUE(FormatComments(host.services(), module, 2, count));
  EXPECT_EQ(module.CountOfLines(), count + 3000 * 4);
  Do_Procedure_Sort(host.services(), module);
  EXPECT_EQ(module.Lines(2, 1), "Sub P10001()");
  EXPECT_EQ(module.CountOfLines(), count + 3000 * 5);
  EXPECT_EQ(host.services().vbe.SelectedVBComponent()->CodeModule()->ProcStartLine("P12999",
                                                                                   frame::ProcKind::kProc),
            1 + 2998 * 17);
}

// Lines of one statement take a shorter way through the indenter than others. A comment behind them sends them along
// the long one, which must lead to the same place.
TEST(Rewriting, ACommentBehindALineDoesNotMoveIt) {
  for (const std::uint64_t seed : {1U, 2U, 3U}) {
    generate::Options options;
    options.seed = seed;
    options.moduleLines = 4000;
    const std::vector<generate::GeneratedFile> files = generate::generate(options);
    std::string bare, commented;
    for (std::string_view line : base::splitLines(files.at(1).bytes)) {
      line = source::trimWhite(line);
      bare.append(line).push_back('\n');
      const bool endsItself =
          !line.empty() && !line.ends_with('_') && commentBegin(std::string(line)) == line.size();
      commented.append(line).append(endsItself ? " 'c\n" : "\n");
    }
    const auto columns = [](const std::string& code) {
      test::TestHost host;
      frame::CodeModule& module = host.addModule(code);
      IndentState state;
      CodeIndentModuleLevel(host.services(), state, module);
      std::vector<std::size_t> all;
      module.VisitLines(1, module.CountOfLines(),
                        [&all](std::string_view line) { all.push_back(line.find_first_not_of(' ')); });
      return all;
    };
    const std::vector<std::size_t> wanted = columns(commented);
    EXPECT_EQ(columns(bare), wanted) << seed;
    EXPECT_TRUE(std::find(wanted.begin(), wanted.end(), 20U) != wanted.end())
        << "nothing was indented deeply";
  }
}

TEST(Rewriting, TheTabWidthIsTheHosts) {
  test::TestHost host;
  const auto width = [&host](std::string_view text, int type = 4) {
    host.services().settings.WriteRegistryValue(frame::RegistryRoot::kCurrentUser,
                                                "Software\\Microsoft\\VBA\\Microsoft Visual Basic",
                                                "TabWidth", type, text);
    return source::GetTabWidth(host.services());
  };
  EXPECT_EQ(source::GetTabWidth(host.services()), 4);
  EXPECT_EQ(width("0"), 4);
  EXPECT_EQ(width("2"), 2);
  EXPECT_EQ(width("8"), 8);
  frame::CodeModule& module = host.addModule("Sub A()\nx = 1 'c\nEnd Sub");
  IndentState state;
  CodeIndentModuleLevel(host.services(), state, module);
  EXPECT_EQ(module.Lines(2, 1), "        x = 1        'c");
}

TEST(Rewriting, WhatAModuleLeavesOpenGoesOnInTheNext) {
  test::TestHost host;
  IndentState state;
  CodeIndentModuleLevel(host.services(), state, host.addModule("Private Type T\nx As Long"));
  EXPECT_TRUE(state.InTypeOrEnum);
  host.addComponent("Module2.bas", {"If As Long", "End Type", "If a Then", "b", "End If"});
  CodeIndentModuleLevel(host.services(), state, host.module("Module2.bas"));
  EXPECT_EQ(base::join(host.lines("Module2.bas"), "|"), "If As Long|End Type|If a Then|    b|End If");
  EXPECT_EQ(state, IndentState());
}

TEST(Rewriting, OnlyLinesThatChangeAreWritten) {
  test::TestHost host;
  frame::CodeModule& module = host.addModule("Sub A()\n    BEEP if X then\nx = 1\nEnd Sub");
  IndentState state;
  CodeIndentModuleLevel(host.services(), state, module);
  EXPECT_EQ(module.Lines(2, 2), "    BEEP if X then\r\n    x = 1") << "a line that is right is not re-cased";
}

}  // namespace
}  // namespace kolvane::maintenance
