#include "source/declarations.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "base/text.h"
#include "support/case_file.h"
#include "support/test_host.h"

namespace kolvane::source {
namespace {

std::string shown(const std::string& text) { return text.empty() ? "-" : text; }

std::vector<std::string> shown(const colDeclarations& declarations) {
  std::vector<std::string> lines;
  for (const clsDeclaration& each : declarations)
    lines.push_back(
        base::join({shown(each.Original_Name), shown(each.Updated_Name), shown(each.Original_Prefix),
                    shown(each.Variable_Type), shown(each.Project), shown(each.Class)},
                   "; "));
  return lines;
}

TEST(Declarations, ReadAsTheCasesSay) {
  for (const test::Case& each : test::readCases(KOLVANE_SOURCE_DIR "/tests/cases/declarations.txt")) {
    SCOPED_TRACE(each.name);
    test::TestHost host;
    const test::CaseComponent& component = each.components.front();
    host.addComponent(component.fileName, component.code.lines);
    frame::CodeModule& module = host.module(component.fileName);
    colDeclarations found;
    for (const test::CaseStep& step : each.steps)
      if (step.kind == test::CaseStep::Kind::kExpect)
        EXPECT_EQ(shown(found), step.code.lines);
      else if (step.argument == "Module")
        found = Get_Module_Declarations(host.services(), module);
      else
        found = Get_Module_Declarations(host.services(), "Project9", module, 1, module.CountOfLines() + 1);
  }
}

TEST(Declarations, FieldsAndKeysOfBothForms) {
  test::TestHost host;
  frame::CodeModule& module =
      host.addModule("Private mstrName As String, mlngCount As Long\nSub A()\nDim strX As String\nEnd Sub");
  const colDeclarations ofModule = Get_Module_Declarations(host.services(), module);
  EXPECT_EQ(ofModule.Item(1),
            (clsDeclaration{"Name", "Name", "mstr", "mstr", "String", "Module", "Project1", "", "str"}));
  EXPECT_EQ(ofModule.Item("2").Original_Name, "Count");
  const colDeclarations local = Get_Module_Declarations(host.services(), "P", module, 2, 5);
  ASSERT_EQ(local.Count(), 1);
  EXPECT_EQ(local.Item(1), (clsDeclaration{"X", "X", "str", "", "String", "Procedure", "P", "String", ""}));
  EXPECT_THROW(local.Item("1"), base::Error);  // has no keys
}

TEST(Declarations, TheFirstLineOfARangeIsReadAndTheLastIsNot) {
  test::TestHost host;
  frame::CodeModule& module = host.addModule("Dim strA As Long\nDim strB As Long\nDim strC As Long");
  const auto count = [&](int first, int last) {
    return Get_Module_Declarations(host.services(), "", module, first, last).Count();
  };
  EXPECT_EQ(count(1, 2), 1);
  EXPECT_EQ(count(2, 2), 1);
  EXPECT_EQ(count(3, 1), 1);
  EXPECT_EQ(count(1, 3), 2);
  EXPECT_EQ(count(1, 99), 3);
  EXPECT_EQ(count(4, 99), 0);
}

TEST(Declarations, PiecesOfOneDeclaration) {
  struct Row {
    std::string_view text, prefix, name, type;
  };
  constexpr Row kRows[] = {
      {"strName As String", "str", "Name", "String"},
      {"strName", "str", "Name", "Variant"},
      {"i As Integer", "i", "", "Integer"},
      {"name", "", "", "Variant"},
      {"Name As String", "", "Name", "String"},
      {"strName() As String", "str", "Name()", "String"},
      {"strA As String ' As Long", "str", "A As", "String"},
      {"", "", "", "Variant"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(Extract_Prefix(row.text), row.prefix) << row.text;
    EXPECT_EQ(Extract_Name(row.text), row.name) << row.text;
    EXPECT_EQ(Extract_Type(row.text), row.type) << row.text;
  }
  std::string project = "Own";
  std::string name = "old";
  Extract_Type("x As Excel.Range.Cell ' a", project, name);
  EXPECT_EQ(project + "/" + name, "Excel/Range.Cell");
  Extract_Type("x As Long", project, name);
  EXPECT_EQ(project + "/" + name, "Excel/Long");
}

TEST(Declarations, ACollectionKeepsOrderAndKeys) {
  colDeclarations list;
  for (const std::string_view key : {"a", "", "C"}) list.Add({.Original_Name = std::string(key)}, key);
  EXPECT_THROW(list.Add({}, "A"), base::Error);
  EXPECT_EQ(list.Count(), 3);
  EXPECT_EQ(list.Item("c").Original_Name, "C");
  list.Remove(1);
  EXPECT_EQ(&list.Item("c"), &list.Item(2));
  EXPECT_THROW(list.Item("a"), base::Error);
  list.Remove("c");
  EXPECT_EQ(list.Count(), 1);
  EXPECT_THROW(list.Item(0), base::Error);
  EXPECT_THROW(list.Remove(2), base::Error);
}

}  // namespace
}  // namespace kolvane::source
