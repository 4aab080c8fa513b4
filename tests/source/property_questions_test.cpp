#include "source/property_questions.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/test_host.h"

namespace kolvane::source {
namespace {

class PropertyQuestions : public testing::Test {
 protected:
  frame::CodeModule& load(std::string_view code) { return host_.addModule(code); }

  test::TestHost host_;
};

TEST_F(PropertyQuestions, OnlyPropertiesExistAsProperties) {
  frame::CodeModule& module = load(
      "Public Size As Long\n"
      "Sub Work()\nEnd Sub\n"
      "Friend Property Let Owner(v)\nEnd Property");
  EXPECT_TRUE(PropertyExists("OWNER", module));
  for (const std::string_view name : {"Work", "Size", "Own", "Owner ", ""})
    EXPECT_FALSE(PropertyExists(name, module)) << name;
}

TEST_F(PropertyQuestions, TheTypeIsTheLastWordOfTheTitle) {
  constexpr std::pair<std::string_view, std::string_view> kTitles[]{
      {"Public Property Get Total( ) As Long", "Long"},
      {"\tProperty Get Total() As Long()  ", "Long()"},
      {"Property Let Total(ByVal NewValue As Long)", "Long"},
      {"Property Let Total(Values() As Long)", "Long"},
      {"Property Let Total(ByVal Values())", "Values()"},
      {"Property Set Order(Index As Long, Value As Shop.clsOrder)", "Shop.clsOrder"},
      {"Property Get Total()", "Total()"},
  };
  for (const auto& [title, type] : kTitles) {
    test::TestHost host;
    EXPECT_EQ(FindPropertiesType(host.addModule(title), 1), type) << title;
  }
}

struct ScopeCase {
  std::string_view get, let, set;  // the words in front of each title; "-" for a method that is not there
  std::string_view scope, declarations;
};

constexpr ScopeCase kScopes[]{
    {"Public ", "-", "-", "", "Get"},
    {"Private ", "-", "-", "", "Get"},
    {"Public ", "Public ", "-", "Read Write", "Get/Let"},
    {"Public ", "Private ", "-", "Read Only", "Get/Let"},
    {"Private ", "Public ", "-", "Write Only", "Get/Let"},
    {"Private ", "Private ", "Private ", "Private", "Get/Let/Set"},
    {"Public ", "-", "Public ", "", "Get/Set"},
    {"Public ", "-", "Friend ", "Read Only", "Get/Set"},
    {"-", "Public ", "", "Write Only", "Let/Set"},
    {"-", "Public ", "Public ", "Read Write", "Let/Set"},
    {"Public ", "Public ", "Private ", "Read Only", "Get/Let/Set"},
    {"-", "-", "-", "", ""},
};

TEST_F(PropertyQuestions, TheScopeIsTheLastThatFits) {
  for (const ScopeCase& each : kScopes) {
    std::string code = "Option Explicit";
    const auto add = [&code](std::string_view scope, std::string_view title) {
      if (scope != "-") code.append("\n").append(scope).append(title).append("\nEnd Property");
    };
    test::TestHost host;
    add(each.get, "Property Get Size() As Long");
    add(each.let, "Property Let Size(v As Long)");
    add(each.set, "Property Set Size(v)");
    frame::CodeModule& module = host.addModule(code);
    EXPECT_EQ(GetPropertiesScope(module, "size"), each.scope) << code;
    EXPECT_EQ(GetPropertyDeclarations(module, "size"), each.declarations) << code;
  }
}

TEST_F(PropertyQuestions, TitlesAreLookedForBehindTheDeclarations) {
  frame::CodeModule& module = load(
      "' see Property Get Size below\n"
      "Private mSize\n"
      "Property Let SizeLimit(v)\nEnd Property\n"
      "Property Set Size(v)\nEnd Property");
  EXPECT_EQ(GetPropertyDeclarations(module, "Size"), "Let/Set") << "a name's beginning counts too";
  EXPECT_EQ(GetPropertyRealStartLine(module, "Size"), 3);
  EXPECT_EQ(GetPropertyRealStartLine(module, "Width"), 0);
  module.DeleteLines(1, module.CountOfLines());
  EXPECT_EQ(GetPropertyDeclarations(module, "Size"), "") << "an empty module";
}

TEST_F(PropertyQuestions, AHandlerInAnyMethodCounts) {
  frame::CodeModule& module = load(
      "Property Get Size()\n    Size = 1\nEnd Property\n"
      "Property Get Width()\nEnd Property\n"
      "Property Let Size(v)\n    On Error Resume Next\nEnd Property\n"
      "Property Let Width(v)\nEnd Property");
  EXPECT_TRUE(DoesPropertyUseErrorHandler(module, "Size"));
  EXPECT_FALSE(DoesPropertyUseErrorHandler(module, "Width"));
  EXPECT_FALSE(DoesPropertyUseErrorHandler(module, "Height"));
}

TEST_F(PropertyQuestions, TheDescriptionStandsAboveTheFirstMethod) {
  frame::CodeModule& module = load(
      "'*  Description  : of the module\n"
      "Private a\n"
      "'*  Description  :  how big it is \n"
      "Property Let Size(v)\nEnd Property\n"
      "'*  Description  : of the Get\n'*\n\n"
      "Property Get Width()\nEnd Property\n"
      "Property Get Height()\nEnd Property\n"
      "'*  Description  : of the Let\n"
      "Property Let Height(v)\nEnd Property");
  EXPECT_EQ(GetPropertiesDescription(host_.services(), module, "Size"), "how big it is");
  EXPECT_EQ(GetPropertiesDescription(host_.services(), module, "Width"), "of the Get");
  EXPECT_EQ(GetPropertiesDescription(host_.services(), module, "Height"), "") << "the Get has none";
  EXPECT_EQ(GetPropertiesDescription(host_.services(), module, "Depth"), "");
  host_.services().settings.saveOption("CoCh10", "-");
  EXPECT_EQ(GetPropertiesDescription(host_.services(), module, "Size"), "") << "another comment character";
}

}  // namespace
}  // namespace kolvane::source
