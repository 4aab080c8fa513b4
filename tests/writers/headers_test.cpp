#include "writers/headers.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "base/text.h"
#include "support/test_host.h"
#include "writers/header_pass.h"
#include "writers/header_reading.h"

namespace kolvane::writers {
namespace {

class Headers : public testing::Test {
 protected:
  frame::CodeModule& load(std::string_view code) { return host_.addModule(code); }
  std::string code() { return base::join(host_.lines("Module1.bas"), "\n"); }
  const frame::Services& services() { return host_.services(); }

  test::TestHost host_;
};

TEST_F(Headers, ANewProcedureCanBeLeftWithoutCallersAndARewriteCannot) {
  host_.services().settings.SaveSetting(frame::kOptions, "SCF29", "True");
  const Context context{host_.services(), [](frame::CodeModule&) { return std::string("Main"); }};
  frame::CodeModule& module = load("Option Explicit\nSub Work()\n    Beep\nEnd Sub");
  Add_Procedure_Header(context, module, "Work", 3, true);
  EXPECT_NE(code().find("'*  Called From  : \n"), std::string::npos) << code();
  Add_Procedure_Header(context, module, "Work", module.CountOfLines(), true);
  EXPECT_EQ(code().find("Called From  : Main"), std::string::npos) << "an End line is not in the procedure";
  Add_Procedure_Header(context, module, "Work", module.CountOfLines() - 1, true);
  EXPECT_NE(code().find("'*  Called From  : Main\n"), std::string::npos) << code();
}

TEST_F(Headers, AreWrittenInPlaceOfABlankLine) {
  for (const auto& field : frame::kHeaderFields)
    host_.services().settings.SaveSetting(frame::kOptions, field.key, "False");
  host_.services().settings.SaveSetting(frame::kOptions, "CoNu11", "3");
  host_.services().settings.SaveSetting(frame::kOptions, "LAH8", "0");
  frame::CodeModule& module = load("Option Explicit\n'old\n\nSub A()\nEnd Sub");
  Create_Header(services(), module, 3, {});
  EXPECT_EQ(code(), "Option Explicit\n\n'***\n'***\nSub A()\nEnd Sub");
}

TEST_F(Headers, AModuleThatCannotBeEditedIsTheCallersMatter) {
  frame::CodeModule& module = load("Sub A()\nEnd Sub");
  host_.setReadOnly("Module1.bas", true);
  try {
    Create_Header(services(), module, 1, {});
    FAIL();
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), 40198);
    EXPECT_EQ(error.source(), "KolvaneLite.modVBIDEFunctions.Create_Header");
  }
}

TEST_F(Headers, APassUnderCareNamesAProcedureThatFailsAndTreatsTheOthers) {
  constexpr std::string_view kCode =
      "Sub A()\n    Beep\nEnd Sub\n\nSub B()\n    Beep\nEnd Sub\n\nSub C()\nEnd Sub";
  host_.services().settings.SaveSetting(frame::kOptions, "SCF29", "True");
  const Context context{host_.services(), [](frame::CodeModule& module) -> std::string {
                          const int line = module.CodePane()->GetSelection().startLine;
                          if (module.ProcOfLine(line) == "B") throw base::Error(5, "no callers today");
                          return "Main";
                        }};
  frame::CodeModule& module = load(kCode);
  EXPECT_THROW(writeHeaders(context, module, HeaderPass::kAll), base::Error) << "to the letter";

  host_.services().care = frame::Care::careful();
  const HeaderPassResult result = writeHeaders(context, module, HeaderPass::kAll);
  ASSERT_EQ(result.failures.size(), 1U);
  EXPECT_EQ(result.failures[0].name, "B");
  EXPECT_EQ(result.failures[0].reason, "no callers today");
  EXPECT_NE(code().find("End Sub\n\nSub B()\n    Beep\nEnd Sub\n\n'***"), std::string::npos) << code();
  EXPECT_NE(code().find("'*  Name         : A\n"), std::string::npos) << code();
}

struct ExistsCase {
  std::string_view code;
  int titleLine;
  bool exists;
};

TEST_F(Headers, AreFoundAboveATitleAndInAForeignStyleWithin) {
  constexpr ExistsCase kCases[] = {
      {"'****\n'*  Name         : A\nSub A()\n    x = 1\nEnd Sub", 3, true},
      {"'****************\n'  Name         : A\nSub A()\n    x = 1\nEnd Sub", 3, true},
      {"'***************\n'  Name         : A\nSub A()\n    x = 1\nEnd Sub", 3, false},
      {"' '*  Name         : A\nSub A()\n    x = 1\nEnd Sub", 2, false},
      {"'****\n'*  Name         : A\nSub A()\n    x = 1\nEnd Sub\nSub B()\n    y = 1\nEnd Sub", 6, false},
      {"'****\n'*  Name         : A\nSub A()\nEnd Sub", 3, false},
      {"Sub A()\n'-----------\n'   Name :  A\n' DESCRIPTION: x\nEnd Sub", 1, true},
      {"Sub A()\n    Exit Sub\n'-----------\n'Name:A\n'Description:x\nEnd Sub", 1, false},
  };
  for (const auto& [text, titleLine, exists] : kCases) {
    test::TestHost host;
    EXPECT_EQ(Header_Exists(host.services(), host.addModule(text), titleLine), exists) << text;
  }
}

TEST_F(Headers, AForeignStyleIsLookedForInEighteenLines) {
  const std::string header = "'*********\n' Name: A\n' Description: x\nEnd Sub";
  for (const int blanks : {17, 18}) {
    test::TestHost host;
    frame::CodeModule& module = host.addModule("Sub A()\n" + base::repeat("\n", blanks) + header);
    EXPECT_EQ(Header_Exists_Within_Procedure(module, 1), blanks == 17);
  }
}

TEST_F(Headers, ReadOneFieldOrOneDescription) {
  frame::CodeModule& module = load(
      "Option Explicit\n"
      "'*  Name         : Size\n"
      "'*  Description  : how   big: in\n"
      "'*               : twips\n"
      "\n"
      "Property Get Size() As Long\n"
      "End Property");
  EXPECT_EQ(Get_Field_From_Procedure_Header(services(), module, 5, "Description"), "how big: intwips");
  EXPECT_EQ(Get_Field_From_Procedure_Header(services(), module, 5, "Author"), "");
  EXPECT_EQ(Get_Field_From_Procedure_Header(services(), module, 0, "Name"), "");
  EXPECT_EQ(GetIndividualPropertyDescription(services(), module, "Property Get Size", "Size"),
            "how   big: in");
  EXPECT_EQ(GetIndividualPropertyDescription(services(), module, "Property Let Size", "Size"), "");
  EXPECT_EQ(propertyDescriptionAbove(services(), module, 4, "Size"), "") << "directly above the title";
  EXPECT_EQ(GetParameterComment(" Optional a - Long the size"), " the size");
  EXPECT_EQ(GetParameterComment("a - Long"), "");
}

}  // namespace
}  // namespace kolvane::writers
