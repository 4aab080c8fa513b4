// The parts of the audits, and their index against a plain search.
#include "maintenance/audits.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <set>

#include "base/text.h"
#include "frame/option_tables.h"
#include "generate/generator.h"
#include "maintenance/event_names.h"
#include "maintenance/methods_of.h"
#include "source/comments.h"
#include "source/line_tests.h"
#include "support/test_host.h"

namespace kolvane::maintenance {
namespace {

using source::clsDeclaration;
using source::colDeclarations;

// ---- the searches, as they would run without an index

bool mentions(frame::CodeModule& module, const std::string& name, int firstLine, int lastLine) {
  std::string text;
  for (int line = firstLine; line <= lastLine; ++line)
    text += RemoveDeclarations(source::Remove_Comments(module.Lines(line, 1) + "\r"));
  for (const std::string_view end : {" ", ".", "(", ")", ",", "\r"})
    if (text.find(name + std::string(end)) != std::string::npos) return true;
  return false;
}

std::vector<std::string> unusedVariables(frame::CodeModule& module, const colDeclarations& declarations,
                                         int firstLine, int lastLine) {
  std::vector<std::string> names;
  for (const clsDeclaration& each : declarations) {
    std::string name = each.Original_Prefix + each.Original_Name;
    name = name.substr(0, name.find('('));
    if (!mentions(module, name, firstLine, lastLine)) names.push_back(name);
  }
  return names;
}

bool isCalledFrom(frame::CodeModule& module, const frame::TextRange& hit, const std::string& name) {
  const std::string text = module.Lines(hit.startLine, 1);
  if (source::RemoveComments(text).find(name) == std::string_view::npos) return false;
  if (module.ProcOfLine(hit.startLine) == name || source::Is_Dim_Line(text)) return false;
  const std::string_view before = base::mid(text, hit.startColumn - 1 > 0 ? hit.startColumn - 1 : 1, 1);
  if (hit.startColumn > 1 && before != "(" && before != " ") return false;
  const std::string_view behind = base::mid(text, hit.endColumn, 1);
  return text.ends_with(name) || behind == "(" || behind == " ";
}

bool isCalled(frame::CodeModule& module, const std::string& name) {
  for (int line = 1; line <= module.CountOfLines(); ++line) {
    frame::TextRange range{line, 1, module.CountOfLines(), 1000};
    if (!module.Find(name, range, true, true)) return false;
    if (isCalledFrom(module, range, name)) return true;
    line = range.startLine;
  }
  return false;
}

std::vector<std::string> unusedProcedures(frame::CodeModule& module) {
  std::vector<std::string> names;
  for (const auto& member : methodsOf(module))
    if (member->Scope() == frame::MemberScope::kPrivate && !isCalled(module, member->Name()))
      names.push_back(member->Name());
  return names;
}

// ---- the audits' answers in the same form

std::vector<std::string> fullNames(const colDeclarations& found) {
  std::vector<std::string> names;
  for (const clsDeclaration& each : found) {
    const std::string name = each.Original_Prefix + each.Original_Name;
    names.push_back(name.substr(0, name.find('(')));
  }
  return names;
}

std::vector<std::string> reportedProcedures(test::TestHost& host, const std::string& fileName) {
  frame::VBComponent& component = host.component(fileName);
  std::vector<std::string> names;
  for (const clsDeclaration& each : ReportOnUnusedProcedure_CodeModule(
           host.services(), *component.VBProject(), component, host.module(fileName)))
    names.push_back(each.Updated_Name);
  return names;
}

// Lines of a few words in every order, parted by everything that the audits look at.
class NoiseWriter {
 public:
  explicit NoiseWriter(unsigned seed) : random_(seed) {}

  std::string module() {
    std::string code = "Private Foo As Long\n" + line();
    for (const std::string_view title :
         {"Private Sub Foo()", "Private Function FooBar() As Long", "Sub Main(a, ByVal b As Long)",
          "Private Sub Bar()", "Private Static Sub A_B()", "Private Function Foo()"}) {
      code.append("\n").append(title);
      for (unsigned i = pick(8); i > 0; --i) code.append("\n").append(line());
      code.append("\nEnd ").append(title.find("Sub") == std::string_view::npos ? "Function" : "Sub");
    }
    return code;
  }

 private:
  static constexpr std::array<std::string_view, 12> kWords{
      "Foo", "FooBar", "Bar", "A_B", "foo", "strFoo", "Dim ", "ReDim ", "a", "strA", "i", " As Long"};
  static constexpr std::array<std::string_view, 16> kGaps{
      " ", " ", " ", "(", ")", ",", ".", "'", "\"", ":", "=", "  ", "", ", b", "&", "Dim strB As Long"};

  unsigned pick(std::size_t count) { return static_cast<unsigned>(random_() % count); }

  std::string line() {
    std::string text(pick(2) * 4, ' ');
    if (pick(4) == 0) text += "Dim ";
    for (unsigned i = pick(6); i > 0; --i)
      text.append(kWords[pick(kWords.size())]).append(kGaps[pick(kGaps.size())]);
    return text;
  }

  std::mt19937 random_;
};

TEST(Audits, FindOnNoiseWhatPlainSearchesFind) {
  int variables = 0;
  int procedures = 0;
  test::TestHost host;
  frame::CodeModule& module = host.addModule("");
  // Names are looked for in another way where there is much text.
  std::string much;
  for (int i = 0; i < 120; ++i) much += "\r\n" + std::string(80, 'z');
  for (unsigned seed = 1; seed <= 1500; ++seed) {
    const std::string code = NoiseWriter(seed).module() + (seed % 8 == 0 ? much : "");
    module.DeleteLines(1, module.CountOfLines());
    module.InsertLines(1, code);
    const int count = module.CountOfLines();
    const colDeclarations locals =
        source::Get_Module_Declarations(host.services(), "P", module, 1, count + 1);
    for (const int first : {1, 3, count - 3}) {
      const auto expected = unusedVariables(module, locals, first, count);
      ASSERT_EQ(fullNames(GetProcedureVariablesUnused(module, locals, first, count)), expected) << code;
      variables += static_cast<int>(expected.size());
    }
    const auto expected = unusedProcedures(module);
    ASSERT_EQ(reportedProcedures(host, "Module1.bas"), expected) << code;
    procedures += static_cast<int>(expected.size());
  }
  EXPECT_GT(variables, 500);
  EXPECT_GT(procedures, 500);
}

TEST(Audits, FindInARealisticModuleWhatPlainSearchesFind) {
  test::TestHost host;
  const auto files = generate::generate({.seed = 7, .moduleLines = 20'000, .procedures = 700});
  std::vector<std::string> lines;
  for (const std::string_view line : base::splitLines(files[1].bytes))
    if (!line.starts_with("Attribute ")) lines.emplace_back(line);
  host.addComponent("Module1.bas", lines);
  frame::CodeModule& module = host.module("Module1.bas");
  EXPECT_EQ(reportedProcedures(host, "Module1.bas"), unusedProcedures(module));

  std::vector<std::string> expected;
  for (const auto& member : methodsOf(module)) {
    const std::string name = member->Name();
    const int first =
        source::GetProcedureRealStartLine(module, module.ProcStartLine(name, frame::ProcKind::kProc));
    const int last = source::GetProcEndLine(module, first, name);
    const auto locals = source::Get_Module_Declarations(host.services(), "P", module, first, last);
    for (const std::string& each : unusedVariables(module, locals, first, last))
      expected.push_back(name + "." + each);
  }
  std::vector<std::string> found;
  for (const clsDeclaration& each : ReportOnUnusedVariables_CodeModule(host.services(), module, "P")) {
    const std::string full = each.Just_Original_Prefix + each.Original_Name;
    found.push_back(each.Updated_Name + "." + full.substr(0, full.find('(')));
  }
  EXPECT_EQ(found, expected);
}

TEST(Audits, ThreeThousandProcedures) {
  test::TestHost host;
  std::string code;
  for (int i = 0; i < 3000; ++i) {
    const std::string number = std::to_string(i);
    code += "Private Sub P" + number + "()\n    Dim lngA" + number + " As Long\n";
    code += i % 3 == 0 ? "\n" : "    P" + std::to_string(i - 1) + "\n    lngA" + number + " = 1\n";
    code += "End Sub\n";
  }
  frame::CodeModule& module = host.addModule(code);
  EXPECT_EQ(reportedProcedures(host, "Module1.bas").size(), 1000U);
  EXPECT_EQ(ReportOnUnusedVariables_CodeModule(host.services(), module, "P").Count(), 1000);
  EXPECT_EQ(ReportOnVariablePrefixes_CodeModule(host.services(), module, "P")->Count(), 0);
}

TEST(Audits, OfTheLastLineTheFirstThousandColumnsAreSearched) {
  for (const std::size_t blanks : {995U, 996U, 997U, 998U}) {
    test::TestHost host;
    frame::CodeModule& module = host.addModule(
        "Private Sub Foo()\nEnd Sub\nSub Main()\nx =" + std::string(blanks - 3, ' ') + "Foo (1)");
    EXPECT_EQ(reportedProcedures(host, "Module1.bas"), unusedProcedures(module)) << blanks;
  }
}

TEST(Audits, FillTheFieldsOfAFinding) {
  test::TestHost host;
  frame::CodeModule& module = host.addModule(
      "Option Explicit\n"
      "'*  Description  : Loads\n"
      "Private Function Load() As String\n"
      "    Dim lngName As String\n"
      "End Function\n"
      "Sub Main()\nEnd Sub");
  EXPECT_EQ(ReportOnVariablePrefixes_CodeModule(host.services(), module, "P")->Item(1),
            (clsDeclaration{"Name", "Load", "lng", "str", "String", "3", "P", "Module1", ""}));
  EXPECT_EQ(ReportOnUnusedVariables_CodeModule(host.services(), module, "P").Item(1),
            (clsDeclaration{"Name", "Load", "", "", "String", "3", "P", "Module1", "lng"}));
  frame::VBComponent& component = host.component("Module1.bas");
  EXPECT_EQ(
      ReportOnUnusedProcedure_CodeModule(host.services(), *component.VBProject(), component, module).Item(1),
      (clsDeclaration{"Module1", "Load", "String", "Loads", "Function", "3", "Project1", "", ""}));
}

TEST(Audits, TheUsersTableOfPrefixesDecides) {
  test::TestHost host;
  frame::Settings& settings = host.services().settings;
  frame::CodeModule& module = host.addModule("Sub A()\nDim strA As String\nDim lngB As Long\nEnd Sub\n\n");
  settings.DeleteSetting(frame::kVariablePrefixSection);
  EXPECT_FALSE(ReportOnVariablePrefixes_CodeModule(host.services(), module, "P"));
  for (const std::string_view prefix : {"str", "s", "txt"})
    settings.SaveSetting(frame::kVariablePrefixSection, prefix, "String");
  settings.SaveSetting(frame::kVariablePrefixSection, "l", "long");
  const auto found = ReportOnVariablePrefixes_CodeModule(host.services(), module, "P").value();
  ASSERT_EQ(found.Count(), 2);
  EXPECT_EQ(found.Item(1).Updated_Prefix, "s");
  EXPECT_EQ(found.Item(2).Updated_Prefix, "txt");
}

TEST(Audits, EventsOfControlsThatAreOnTheForm) {
  test::TestHost host;
  host.addComponent("Form1.frm", {"Private Sub cmdOK_Click()", "End Sub", "Private Sub CMDOK_MouseDown()",
                                  "End Sub", "Private Sub cmdGone_Click()", "End Sub",
                                  "Private Sub cmd_Old()", "End Sub", "Private Sub NoControl()", "End Sub"});
  const auto controls = host.component("Form1.frm").Designer()->VBControls();
  controls->Add("VB.CommandButton")->Properties()->Item("Name")->setValue(std::string("cmdOK"));
  controls->Add("VB.TextBox")->Properties()->Item("Name")->setValue(std::string("cmd_New"));
  EXPECT_EQ(controlHandlers(host.services().codePage, host.component("Form1.frm")),
            "PRIVATE SUB CMD_NEW_,PRIVATE SUB CMDOK_,");
  EXPECT_EQ(reportedProcedures(host, "Form1.frm"), (std::vector<std::string>{"cmdGone_Click", "NoControl"}));
  EXPECT_FALSE(IsControlEvent(host.services().codePage, "cmdOK_Click", ""));
}

TEST(Audits, DeclarationsAreCutFromALine) {
  constexpr std::pair<std::string_view, std::string_view> kLines[] = {
      {"    Dim x As Long", "    "},
      {"x = 1: Dim y", "x = 1: "},
      {"ReDim x(1)", "ReDim x(1)"},
      {"ReDim x(1): Dim y", "ReDim x(1): Dim y"},
      {"Dim y: ReDim x(1)", ""},
      {"MyDim x", "My"},
      {"Dim", "Dim"},
      {"dim x", "dim x"},
      {"", ""},
  };
  for (const auto& [line, rest] : kLines) EXPECT_EQ(RemoveDeclarations(line), rest) << line;
}

TEST(Audits, EachKindOfComponentHasItsEvents) {
  using Type = frame::ComponentType;
  const base::CodePage& codePage = base::CodePage::get(base::CodePage::kDefault);
  const auto is = [&](Type type, std::string_view name) { return IsStandardEvent(codePage, type, name); };
  EXPECT_TRUE(is(Type::kClassModule, "Class_Initialize"));
  EXPECT_FALSE(is(Type::kClassModule, "CLASS_INITIALIZE"));
  EXPECT_TRUE(is(Type::kVBForm, "form_queryUnload"));
  EXPECT_TRUE(is(Type::kVBMDIForm, "Form_Load"));
  EXPECT_FALSE(is(Type::kVBMDIForm, "MDIForm_Load"));
  EXPECT_TRUE(is(Type::kPropPage, "PropertyPage_Terminate"));
  EXPECT_TRUE(is(Type::kUserControl, "UserControl_AccessKeyPress"));
  EXPECT_FALSE(is(Type::kUserControl, "UserControl_Access"));
  EXPECT_FALSE(is(Type::kStdModule, "Class_Initialize"));
  EXPECT_FALSE(is(Type::kActiveXDesigner, "Class_Initialize"));
}

}  // namespace
}  // namespace kolvane::maintenance
