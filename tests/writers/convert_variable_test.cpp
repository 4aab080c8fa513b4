#include "writers/convert_variable.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "support/test_host.h"

namespace kolvane::writers {
namespace {

class ConvertVariable : public testing::Test {
 protected:
  ConvertVariable() { services().settings.saveOption("DH7", "0"); }

  frame::Services& services() { return host_.services(); }
  void load(std::string_view file, std::string_view code) {
    file_ = file;
    host_.addComponent(file, base::split(code, "\n"));
  }
  frame::CodeModule& module() { return host_.module(file_); }
  std::string code() { return base::join(host_.lines(file_), "\n"); }
  void answer(std::initializer_list<std::string_view> answers) {
    for (const std::string_view text : answers) host_.desk().answer(text);
  }
  // "question>answer", one a line.
  std::string boxes() {
    std::string all;
    for (const auto& box : host_.desk().takeLog()) all += box.text + ">" + box.answer + "\n";
    return all;
  }

  test::TestHost host_;
  std::string file_;
};

TEST_F(ConvertVariable, APropertyIsWrittenAroundTheVariable) {
  load("Class1.cls", "Option Explicit\nPrivate mlngTotal As Long ' all of it");
  answer({"Yes", "Yes"});
  EXPECT_TRUE(ConvertVariableToProperty(services(), module(), "mlngTotal"));
  EXPECT_EQ(boxes(), "Convert to property?>Yes\nMake it public?>Yes\n");
  EXPECT_EQ(code(),
            "Option Explicit\nPrivate mlngTotal As Long ' all of it\n"
            "Public Property Get Total( ) As Long\n\n\tTotal= mlngTotal\n\nEnd Property\n \n"
            "Public Property Let Total(ByVal NewValue As Long)\n\n\tmlngTotal = NewValue \n\n"
            "End Property");
}

struct NameCase {
  std::string_view declaration;
  std::string_view variable;
  std::string_view title;  // of the Get
  std::string_view body;   // its first line
};

constexpr NameCase kNames[]{
    {"Dim mTotal As Long", "mTotal", "Get Total( ) As Long", "\tTotal= mTotal"},
    {"Private mtitle$", "mTitle", "Get Title( ) As String", "\tTitle= mtitle"},
    {"Private a, m_curPrice As Currency", "m_curPrice", "Get CurPrice( ) As Currency",
     "\tCurPrice= m_curPrice"},
    {"Private m_intCount%", "m_intCount", "Get Count( ) As Integer", "\tCount= m_intCount"},
    {"Public mcolAll As New Collection", "mcolAll", "Get All( ) As Collection", "\tSet All = mcolAll"},
    {"Private WithEvents mobjOrder As clsOrder", "mobjOrder", "Get Order( ) As clsOrder",
     "\tSet Order = mobjOrder"},
    {"Private mstrCode As String * 8", "mstrCode", "Get Code( ) As String", "\tCode= mstrCode"},
    {"Private mvntValue", "mvntValue", "Get Value( ) As Variant", "\tIf IsObject(mvntValue) Then"},
};

TEST_F(ConvertVariable, ThePropertyIsCalledWhatTheVariableIsWithoutItsTags) {
  int number = 0;
  for (const NameCase& each : kNames) {
    load("Class" + std::to_string(++number) + ".cls", each.declaration);
    answer({"Yes", "No"});
    EXPECT_TRUE(ConvertVariableToProperty(services(), module(), each.variable)) << each.declaration;
    EXPECT_TRUE(code().starts_with(std::string(each.declaration) + "\nPrivate Property " +
                                   std::string(each.title) + "\n\n" + std::string(each.body) + "\n"))
        << code();
  }
}

TEST_F(ConvertVariable, WhatIsNoPlainVariableOfTheModuleStaysWithoutAWord) {
  constexpr std::string_view kCode =
      "Private lngTotal As Long, mlngItems(1 To 3) As Long\n"
      "Private mlngA As Long: Private mlngB As Long\n"
      "Private mlngC As Long, _\n    mlngD As Long\n"
      "Private Const mlngE = 1\n"
      "Sub Work()\n    Dim mlngF As Long\nEnd Sub";
  load("Module1.bas", kCode);
  for (const std::string_view name :
       {"lngTotal", "mlngItems", "mlngA", "mlngB", "mlngC", "mlngE", "mlngF", "Work", "m", ""})
    EXPECT_FALSE(ConvertVariableToProperty(services(), module(), name)) << name;
  for (const std::string_view name : {"mlngItems", "mlngA", "mlngC", "mlngE", "mlngF", "mlngX"})
    EXPECT_FALSE(ConvertVariableToConstant(services(), module(), name)) << name;
  EXPECT_EQ(boxes(), "");
  EXPECT_EQ(code(), kCode);
}

TEST_F(ConvertVariable, NothingIsWrittenWhenTheUserOrTheModuleRefuses) {
  load("Class1.cls", "Private mlngSize As Long\nProperty Get size()\nEnd Property");
  const std::string before = code();
  answer({"No"});
  EXPECT_FALSE(ConvertVariableToProperty(services(), module(), "mlngSize"));
  answer({"Yes", "Yes"});
  EXPECT_FALSE(ConvertVariableToProperty(services(), module(), "mlngSize"));
  EXPECT_TRUE(boxes().ends_with("Property name already used!>OK\n"));
  answer({"Yes", "Cancel"});
  EXPECT_FALSE(ConvertVariableToConstant(services(), module(), "mlngSize"));
  EXPECT_EQ(boxes(), "Convert to Constant?>Yes\nValue for constant - mlngSize>Cancel\n");
  host_.setReadOnly("Class1.cls", true);
  answer({"Yes", "1"});
  EXPECT_FALSE(ConvertVariableToConstant(services(), module(), "mlngSize"));
  EXPECT_EQ(code(), before);
}

TEST_F(ConvertVariable, AConstantTakesTheVariablesPlace) {
  load("Module1.bas", "Option Explicit\n  Private mlngMax As Long\nPrivate a\n\nSub Work()\nEnd Sub");
  answer({"Yes", "Yes", "12"});
  EXPECT_TRUE(ConvertVariableToConstant(services(), module(), "MLNGMAX"));
  EXPECT_EQ(boxes(), "Convert to Constant?>Yes\nMake it public?>Yes\nValue for constant - mlngMax>12\n");
  EXPECT_EQ(code(), "Option Explicit\nPrivate a\nPublic Const mlngMax = 12\n\nSub Work()\nEnd Sub");
}

TEST_F(ConvertVariable, OnlyTheOneDeclarationGoes) {
  constexpr std::pair<std::string_view, std::string_view> kLines[]{
      {"Private mstrText As String   ' what it says", "' what it says"},
      {"Private mstrText As String, b As Long ' two", "Private b As Long ' two"},
      {"Private  a,  mstrText ,  c", "Private  a ,  c"},
      {"Private a, mstrText As String ' two", "Private a ' two"},
  };
  int number = 0;
  for (const auto& [before, after] : kLines) {
    load("Class" + std::to_string(++number) + ".cls", before);
    answer({"Yes", "say \"hi\""});
    EXPECT_TRUE(ConvertVariableToConstant(services(), module(), "mstrText")) << before;
    EXPECT_EQ(code(), std::string(after) + "\nPrivate Const mstrText = \"say \"\"hi\"\"\"");
  }
  EXPECT_EQ(boxes().find("public"), std::string::npos) << "a class has no public constants";
}

}  // namespace
}  // namespace kolvane::writers
