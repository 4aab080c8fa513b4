// The Procedure Builder: what it writes, and its dialogs as people use them.
#include "writers/procedure_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/text.h"
#include "forms/layout.h"
#include "forms/user.h"
#include "frame/default_settings.h"
#include "frame/option_tables.h"
#include "source/parameter_text.h"
#include "source/procedure_list.h"
#include "source/procedure_questions.h"
#include "support/test_host.h"
#include "writers/builder_defaults.h"
#include "writers/custom_handlers.h"
#include "writers/procedure_builder_options.h"
#include "writers/procedure_defaults.h"

namespace kolvane::writers {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
namespace user = forms::user;

class BuilderTest : public testing::Test {
 protected:
  BuilderTest() {
    frame::ApplyDefaultSettings(settings(), host_.services().user);
    set("DH7", "0");
    set("IC2", "1");
    set("TaCo3", "1");
  }

  frame::Services& services() { return host_.services(); }
  frame::Settings& settings() { return host_.services().settings; }
  void set(std::string_view key, std::string_view value) { settings().saveOption(key, value); }
  BuilderDefaults defaults() { return BuilderDefaults(settings(), kProcedureBuilder); }

  void add(std::string_view file, std::string_view code = "") {
    file_ = file;
    host_.addComponent(file, code.empty() ? std::vector<std::string>{} : lines(code));
    host_.activate(file, {1, 1, 1, 1});
  }
  static std::vector<std::string> lines(std::string_view code) {
    const auto views = base::splitLines(code);
    return {views.begin(), views.end()};
  }
  frame::CodeModule& module() { return host_.module(file_); }
  // Tabs as "~", so that they can be seen.
  std::string code() { return base::replaceAll(base::join(host_.lines(file_), "\n"), "\t", "~"); }

  std::vector<std::string> told() {
    std::vector<std::string> texts;
    for (const forms::BoxRecord& box : host_.desk().takeLog()) {
      EXPECT_EQ(box.title, "KolvaneLite");
      texts.push_back(box.text);
    }
    return texts;
  }

  test::TestHost host_;
  std::string file_ = "Module1.bas";
};

NewProcedure sub(std::string_view name, std::string_view errors = "") {
  NewProcedure procedure;
  procedure.name = name;
  procedure.errors = errors;
  return procedure;
}

// ---- the text

struct HandlerCase {
  std::string_view name;
  std::string_view file;
  std::string_view errors;
  std::string_view code;
};

class Handlers : public BuilderTest, public testing::WithParamInterface<HandlerCase> {};

constexpr std::string_view kModuleShow =
    R"(Private Const VB_MODULE_NAME = ".Module1" '* Used in Error Handling

Private Sub Save()

On Error GoTo errHandler



Exit Sub

errHandler:

~With frmVBError
~~Err.Source = Err.Source  & vb_module_name & ".Save"
~~Set .Error = Err

~~.Show vbModal
~~Set frmVBError = Nothing
~End With

End Sub)";

INSTANTIATE_TEST_SUITE_P(
    Kinds, Handlers,
    testing::Values(HandlerCase{"ShowInAModule", "Module1.bas", "Show", kModuleShow},
                    HandlerCase{"ShowInAForm", "Form1.frm", "SHOW", R"(
Private Sub Save()

On Error GoTo errHandler



Exit Sub

errHandler:

~With frmVBError
~~Err.Source = Err.Source & "."& TypeName(Me) & ".Save" 
~~Set .Error = Err

~~.Show vbModal
~~Set frmVBError = Nothing
~End With

End Sub)"},
                    HandlerCase{"ShowInAUserControl", "Control1.ctl", "Show", R"(
Private Sub Save()

On Error GoTo errHandler



Exit Sub

errHandler:

~With frmVBError
~~Set .Error = Err

~~.Show vbModal
~~Set frmVBError = Nothing
~End With

End Sub)"},
                    HandlerCase{"RaiseInAModule", "Module1.bas", "Raise",
                                R"(Private Const VB_MODULE_NAME = ".Module1" '* Used in Error Handling

Private Sub Save()

On Error GoTo errHandler



Exit Sub

errHandler:

~Err.Source = Err.Source  & vb_module_name & ".Save"

~Err.Raise Err.Number, Err.Source, Err.Description

End Sub)"},
                    HandlerCase{"RaiseInAClass", "Class1.cls", "Raise", R"(
Private Sub Save()

On Error GoTo errHandler



Exit Sub

errHandler:

~Err.Source = Err.Source & "."& TypeName(Me) & ".Save" 

~Err.Raise Err.Number, Err.Source, Err.Description

End Sub)"},
                    HandlerCase{"RaiseInAPropertyPage", "Page1.pag", "Raise", R"(
Private Sub Save()

On Error GoTo errHandler



Exit Sub

errHandler:


~Err.Raise Err.Number, Err.Source, Err.Description

End Sub)"},
                    HandlerCase{"Next", "Module1.bas", "Next", R"(
Private Sub Save()

On Error Resume Next


End Sub)"},
                    HandlerCase{"Blank", "Form1.frm", "Blank", R"(
Private Sub Save()

On Error GoTo errHandler



Exit Sub

errHandler:



End Sub)"},
                    HandlerCase{"Nothing", "Class1.cls", "", R"(
Private Sub Save()



End Sub)"},
                    HandlerCase{"None", "Class1.cls", "none", R"(
Private Sub Save()



End Sub)"},
                    HandlerCase{"CustomInAModule", "Module1.bas", "Log",
                                R"(Private Const VB_MODULE_NAME = ".Module1" '* Used in Error Handling

Private Sub Save()

On Error GoTo errHandler



Exit Sub

errHandler:

  Log VB_Module_Name & "Save", "Project1" 'ann 22 Nov 2026 10:20
  Beep
End Sub)"},
                    HandlerCase{"CustomInAForm", "Form1.frm", "Log", R"(
Private Sub Save()

On Error GoTo errHandler



Exit Sub

errHandler:

  Log TypeName (Me) & "Save", "Project1" 'ann 22 Nov 2026 10:20
  Beep
End Sub)"}),
    [](const auto& each) { return std::string(each.param.name); });

TEST_P(Handlers, AreWrittenWholeForTheComponentsType) {
  writeCustomHandler(settings(), "Log",
                     "  Log <Module Name> & \"<Procedure Name>\", \"<Project Name>\" '<Username> <Date> "
                     "<Time>\r\n  Beep");
  add(GetParam().file);
  ASSERT_TRUE(Create_Procedure(services(), module(), sub("Save", GetParam().errors)));
  EXPECT_EQ(code(), GetParam().code);
}

TEST_F(BuilderTest, WritesAFunctionWithItsHeaderAndParameters) {
  set("DH7", "1");
  set("CoNu11", "60");
  add("Module1.bas", "Option Explicit\n\nSub A()\nEnd Sub\n\n\n");
  NewProcedure procedure = sub("  get total");
  procedure.description = "sums up\r\nthe order ";
  procedure.isFunction = true;
  procedure.isPrivate = false;
  procedure.returnType = "Currency";
  procedure.parameters = {{{"order", "clsOrder", false, false},
                           {"strNames()", "String", false, false},
                           {" limit ", "Long", true, true}}};
  ASSERT_TRUE(Create_Procedure(services(), module(), procedure));
  EXPECT_EQ(code(), R"(Option Explicit

Sub A()
End Sub

'************************************************************
'*  Name         : Get_Total
'*  Description  : Sums up the order
'*  Parameters   : objOrder - clsOrder, strNames() - String
'*               : Optional lngLimit - Long
'*  Returns      : Currency
'*  Author       : ann
'*  Date         : 22 Nov 2026
'************************************************************

Public Function Get_Total(ByVal objOrder As clsOrder, ByRef strNames() As String, _ 
                          Optional ByRef lngLimit As Long) As Currency



End Function


)");
}

// What is written reads back as what was wanted.
TEST_F(BuilderTest, WhatItWritesPassesBackThroughTheSourceModel) {
  set("DH7", "1");
  add("Form1.frm");
  NewProcedure procedure = sub("m_find", "Show");
  procedure.isFunction = true;
  procedure.returnType = "Boolean";
  procedure.parameters[0] = {"name", "String", false, false};
  procedure.parameters[1] = {"items()", "clsLine", false, false};
  procedure.parameters[2] = {"longerThanTheOthersAndOnALineOfItsOwn", "Integer", false, true};
  ASSERT_TRUE(Create_Procedure(services(), module(), procedure));
  ASSERT_TRUE(Create_Procedure(services(), module(), sub("Next one")));

  const auto listed = source::listProcedures(module());
  ASSERT_EQ(listed.size(), 2u);
  EXPECT_EQ(listed[0].name, "m_Find");
  EXPECT_EQ(listed[1].name, "Next_One");
  const int title = listed[0].titleLine;
  EXPECT_EQ(source::Find_Procedure_Name(module(), title), "m_Find");
  EXPECT_EQ(source::Find_Procedure_Type(module(), title), "Function");
  EXPECT_EQ(source::Find_Procedure_Return_Type(module(), title), "Boolean");
  EXPECT_EQ(source::Find_Parameter_String(services(), module(), title),
            "strName - String, objItems() - clsLine,\r'*               :  Optional "
            "intLongerThanTheOthersAndOnALineOfItsOwn - Integer");
  EXPECT_TRUE(source::ProcedureExists("Next_One", module()));
}

TEST_F(BuilderTest, RowsCountUpToTheFirstWithoutAName) {
  add("Class1.cls");
  NewProcedure procedure = sub("Save");
  procedure.parameters[0] = {"name", "Order", true, false};
  procedure.parameters[2] = {"lost", "", false, false};
  EXPECT_FALSE(faultOf(procedure));
  Create_Procedure(services(), module(), procedure);
  EXPECT_NE(code().find("Private Sub Save(ByRef Name As Order)\n"), std::string::npos) << code();
}

TEST_F(BuilderTest, HeadersFollowTheirSettings) {
  set("DH7", "1");
  set("CoNu11", "20");
  set("CoCh10", "#");
  set("InHe4", "1");
  set("TaHe5", "1");
  set("BLInH6", "1");
  set("LAH8", "0");
  for (const auto& field : frame::kHeaderFields)
    set(field.key, field.text == "Name" || field.text == "History" ? "True" : "False");
  add("Class1.cls");
  Create_Procedure(services(), module(), sub("A"));
  EXPECT_EQ(code(), R"(
~'####################
~'#  Name         : A
~'# 
~'#  History      : 
~'####################
Private Sub A()



End Sub)");
}

// Rule of 40: 20 characters a line and one for the character; the further lines count by the length.
struct WrapCase {
  int length;
  std::vector<int> lines;
};

TEST_F(BuilderTest, ALongDescriptionGoesOnInFurtherLinesAndLosesNothing) {
  set("DH7", "1");
  set("CoNu11", "40");
  for (const auto& [length, expected] :
       {WrapCase{39, {39}}, WrapCase{40, {40}}, WrapCase{41, {20, 21}}, WrapCase{42, {20, 20, 2}},
        WrapCase{62, {20, 20, 22}}, WrapCase{63, {20, 20, 20, 3}}}) {
    file_ = "Class" + std::to_string(length) + ".cls";
    add(file_);
    NewProcedure procedure = sub("A");
    procedure.description = std::string(static_cast<std::size_t>(length), 'X');
    Create_Procedure(services(), module(), procedure);
    std::vector<int> widths;
    for (const std::string& line : host_.lines(file_))
      if (const auto text = line.find('X'); text != std::string::npos) {
        widths.push_back(static_cast<int>(line.size() - text));
        EXPECT_EQ(line.substr(0, text), widths.size() == 1 ? "'*  Description  : " : "'*               : ");
      }
    EXPECT_EQ(widths, expected) << length;
  }
}

TEST_F(BuilderTest, ParametersOfAHeaderBreakOnceAtTheLastComma) {
  const auto format = [](std::string_view text, int width) {
    return Format_Header_Parameter_String(text, width, 15, "*", "\t");
  };
  EXPECT_EQ(format("a - Long, b - Long", 37), "a - Long, b - Long");
  EXPECT_EQ(format("a - Long, b - Long", 36), "a - Long\r\t'*               : b - Long");
  EXPECT_EQ(format("a - A, b - B, c - C", 0), "a - A, b - B\r\t'*               : c - C");
  EXPECT_EQ(format("aVeryLongName - Long", 0), "aVeryLongName - Long");
}

TEST_F(BuilderTest, NamesAreBroughtIntoForm) {
  EXPECT_EQ(procedureName(services(), " get total "), "Get_Total");
  EXPECT_EQ(procedureName(services(), "g_state"), "g_State");
  EXPECT_EQ(procedureName(services(), "x"), "X");
}

TEST_F(BuilderTest, TheFirstFaultIsTold) {
  const auto fault = [](auto change) {
    NewProcedure procedure = sub("A");
    change(procedure);
    const auto found = faultOf(procedure);
    return found ? found->message : std::string();
  };
  EXPECT_EQ(fault([](NewProcedure&) {}), "");
  EXPECT_EQ(fault([](NewProcedure& p) { p.name = "1st"; }), "Invalid Name!");
  EXPECT_EQ(fault([](NewProcedure& p) { p.name = "loop"; }), "Invalid Name!");
  EXPECT_EQ(fault([](NewProcedure& p) {
              p.parameters[0] = {"a", " "};
            }),
            "You need to specify the type for parameter1!");
  EXPECT_EQ(fault([](NewProcedure& p) {
              p.parameters = {{{"a", "Long"}, {"b", "_x"}, {"c", ""}}};
            }),
            "Invalid type for parameter 2!");
  EXPECT_EQ(fault([](NewProcedure& p) { p.isFunction = true; }),
            "You need to specify the type for the function!");
  EXPECT_EQ(fault([](NewProcedure& p) {
              p.isFunction = true;
              p.returnType = "Loop";
            }),
            "Invalid function return type!");
  EXPECT_EQ(fault([](NewProcedure& p) {
              p.isFunction = true;
              p.returnType = "Long";
            }),
            "");
}

// ---- the dialog

class BuilderForm : public BuilderTest {
 protected:
  frmProcedureBuilder& open() {
    tool_.Show_ProcedureBuilder();
    return tool_.form();
  }

  ProcedureBuilder tool_{services()};
};

std::vector<std::string> enabledRows(const frmProcedureBuilder& form) {
  std::vector<std::string> names;
  for (const forms::TextBox* box : {&form.txtParaName1, &form.txtParaName2, &form.txtParaName3})
    if (box->enabled()) names.push_back(box->name());
  return names;
}

TEST_F(BuilderForm, StartsWithTheFixedDefaults) {
  writeCustomHandler(settings(), "Log", "Beep");
  add("Class1.cls");
  frmProcedureBuilder& form = open();
  EXPECT_TRUE(form.visible());
  EXPECT_EQ(form.caption(), "Procedure Builder");
  EXPECT_EQ(form.cboScope.text(), "Private");
  EXPECT_EQ(form.cboType.text(), "Sub");
  EXPECT_EQ(form.cboErrors.text(), "");
  EXPECT_THAT(form.cboErrors.items(), ElementsAre("", "Show", "Raise", "Next", "Blank", "Log"));
  EXPECT_EQ(form.cboReturns.text(), "String");
  EXPECT_FALSE(form.cboReturns.enabled());
  EXPECT_EQ(form.cboPara3.text(), "String");
  EXPECT_EQ(form.cboPara3.items().back(), "Class1");
  EXPECT_EQ(form.cboParaByVal3.text(), "ByVal");
  EXPECT_FALSE(form.cmdApply.enabled());
  EXPECT_THAT(enabledRows(form), ElementsAre("txtParaName1"));
  EXPECT_TRUE(form.MoveCursor());
  EXPECT_TRUE(form.IncludeClasses());
  EXPECT_THAT(forms::layoutFaults(form), IsEmpty());
}

TEST_F(BuilderForm, WritesAndIsReadyForTheNextProcedure) {
  add("Module1.bas", "Option Explicit");
  frmProcedureBuilder& form = open();
  user::setText(form.txtName, "load all");
  EXPECT_TRUE(form.cmdApply.enabled());
  user::selectItem(form.cboType, "Function");
  user::setText(form.cboReturns, "Long");
  user::selectItem(form.cboErrors, "Blank");
  user::setText(form.txtParaName1, "path");
  EXPECT_THAT(enabledRows(form), ElementsAre("txtParaName1", "txtParaName2"));
  user::setText(form.txtParaName2, "lines()");
  EXPECT_EQ(form.cboParaByVal2.text(), "ByRef");
  user::selectItem(form.cboPara2, "Long");
  user::click(form.cmdApply);
  EXPECT_THAT(told(), IsEmpty());
  EXPECT_EQ(code(), R"(Option Explicit

Private Function Load_All(ByVal strPath As String, ByRef lngLines() As Long) As Long

On Error GoTo errHandler



Exit Function

errHandler:



End Function)");
  EXPECT_EQ(host_.selection(file_).startLine, 7);
  EXPECT_EQ(form.txtName.text(), "");
  EXPECT_EQ(form.txtParaName2.text(), "");
  EXPECT_EQ(form.cboPara2.text(), "String");
  EXPECT_EQ(form.cboReturns.text(), "String");
  EXPECT_EQ(form.cboType.text(), "Function");
  EXPECT_EQ(form.focus(), &form.txtName);
  EXPECT_FALSE(form.cmdApply.enabled());
  EXPECT_THAT(enabledRows(form), ElementsAre("txtParaName1"));

  user::setText(form.txtName, "Load_All");
  user::click(form.cmdOK);
  EXPECT_THAT(told(), ElementsAre("Procedure name already used!"));
  EXPECT_TRUE(form.visible());
  user::setText(form.txtName, "other");
  user::click(form.cmdOK);
  EXPECT_EQ(host_.desk().openForms().find("frmProcedureBuilder"), nullptr);
  EXPECT_TRUE(source::ProcedureExists("Other", module()));
}

TEST_F(BuilderForm, TheCursorGoesToTheFirstStatement) {
  struct Case {
    std::string_view errors;
    int line;
  };
  for (const auto& [errors, line] : {Case{"", 4}, Case{"Next", 5}, Case{"Show", 6}}) {
    file_ = "Class" + std::to_string(line) + ".cls";
    add(file_);
    frmProcedureBuilder& form = open();
    user::selectItem(form.cboErrors, errors);
    user::setText(form.txtName, "Go");
    user::click(form.cmdApply);
    EXPECT_EQ(host_.selection(file_).startLine, line) << errors;
    EXPECT_EQ(host_.lines(file_)[static_cast<std::size_t>(line) - 1], "") << errors;
  }
  defaults().save("Any Project", {{"PBDS37", "0"}, {"serg354sdfgsdgsr", "False"}});
  tool_.form().unload();
  add("Class9.cls");
  frmProcedureBuilder& form = open();
  user::setText(form.txtName, "Go");
  user::click(form.cmdApply);
  EXPECT_EQ(host_.selection(file_).startLine, 1);
}

TEST_F(BuilderForm, TellsWhatIsWrongAndStays) {
  add("Module1.bas", "Option Explicit");
  frmProcedureBuilder& form = open();
  user::click(form.cmdOK);
  EXPECT_THAT(told(), ElementsAre("Enter a procedure name!"));
  user::setText(form.txtName, "Loop");
  user::click(form.cmdApply);
  EXPECT_THAT(told(), ElementsAre("Invalid Name!"));
  EXPECT_EQ(form.focus(), &form.txtName);
  user::setText(form.txtName, "Save");
  user::setText(form.txtParaName1, "a");
  user::setText(form.cboPara1, "");
  user::click(form.cmdApply);
  EXPECT_THAT(told(), ElementsAre("You need to specify the type for parameter1!"));
  EXPECT_EQ(form.focus(), &form.cboPara1);
  user::setText(form.cboPara1, "Long");
  host_.setReadOnly(file_, true);
  user::click(form.cmdOK);
  EXPECT_THAT(told(), ElementsAre("Either the file Module1 is readonly or it's checked in within Source Code "
                                  "control."));
  EXPECT_EQ(form.txtParaName1.text(), "a");
  EXPECT_TRUE(form.visible());
  host_.deactivate();
  user::click(form.cmdApply);
  EXPECT_THAT(told(), ElementsAre("Select a component!"));
  EXPECT_EQ(code(), "Option Explicit");
}

TEST_F(BuilderForm, AsksBeforeChangesAreLost) {
  add("Module1.bas");
  frmProcedureBuilder& form = open();
  user::setText(form.txtName, "Save");
  set("CCAMC19", "1");
  host_.desk().answer("No");
  user::click(form.cmdCancel);
  EXPECT_THAT(told(), ElementsAre("You have made changes, are you sure?"));
  host_.desk().answer("No");
  form.close();
  EXPECT_TRUE(form.visible());
  set("CCAMC19", "0");
  user::click(form.control("mnuFileExit"));
  EXPECT_EQ(host_.desk().openForms().find("frmProcedureBuilder"), nullptr);
  EXPECT_THAT(told(), ElementsAre("You have made changes, are you sure?"));
}

TEST_F(BuilderForm, StaysAsItIsWhenItIsShownAgain) {
  add("Module1.bas");
  user::setText(open().txtName, "Half");
  EXPECT_EQ(open().txtName.text(), "Half");
}

// ---- defaults

TEST_F(BuilderForm, AProjectsOwnDefaultsWinEntirely) {
  add("Module1.bas");
  defaults().save("Any Project", {{"PBDS37", "1"},
                                  {"PBDT38", "1"},
                                  {"PBDR39", "Long"},
                                  {"PBDE40", "Raise"},
                                  {"ee1", "items()"},
                                  {"otee1", "0"},
                                  {"PBDP143", "Variant"},
                                  {"PBDP244", "Date"},
                                  {"oee1", "1"},
                                  {"PBLC42", "0"}});
  {
    const frmProcedureBuilder& form = open();
    EXPECT_EQ(form.cboScope.text(), "Public");
    EXPECT_EQ(form.cboReturns.text(), "Long");
    EXPECT_TRUE(form.cboReturns.enabled());
    EXPECT_EQ(form.cboErrors.text(), "Raise");
    EXPECT_EQ(form.txtParaName1.text(), "items()");
    EXPECT_EQ(form.cboParaByVal1.text(), "ByRef") << "an array";
    EXPECT_EQ(form.cboPara1.text(), "Variant");
    EXPECT_EQ(form.cboPara2.text(), "String") << "a type counts only beside a passing";
    EXPECT_TRUE(form.chkPara1Opt.checked());
    EXPECT_FALSE(form.IncludeClasses());
    EXPECT_FALSE(form.cmdApply.enabled());
  }
  tool_.form().unload();
  defaults().save("Project1", {{"PBDS37", "0"}, {"PBDE40", "Gone"}});
  const frmProcedureBuilder& form = open();
  EXPECT_EQ(form.cboScope.text(), "Private");
  EXPECT_EQ(form.cboType.text(), "Sub");
  EXPECT_EQ(form.cboErrors.text(), "");
  EXPECT_EQ(form.txtParaName1.text(), "");
  EXPECT_TRUE(form.IncludeClasses());
}

class BuilderOptions : public BuilderTest {
 protected:
  frmProcedureBuilderOptions& open(std::string_view project) {
    form_ = std::make_shared<frmProcedureBuilderOptions>(services());
    form_->LoadForm(project);
    form_->show();
    return *form_;
  }
  std::string stored(std::string_view project) {
    std::string text;
    for (const auto& value :
         settings().values(frame::RegistryRoot::kCurrentUser,
                           frame::ProjectSettings(settings(), "PBO36", "PBDS37").path(project)))
      text += value.name + "=" + value.data + "\n";
    return text;
  }

  std::shared_ptr<frmProcedureBuilderOptions> form_;
};

TEST_F(BuilderOptions, ShowsTheOpenProjectsAndTheFixedDefaults) {
  services().vbe.VBProjects()->Add(frame::ProjectType::kStandardExe)->setName("Alpha");
  frmProcedureBuilderOptions& form = open("Project1");
  EXPECT_THAT(form.cboProject.items(), ElementsAre("Any Project", "Alpha", "Project1"));
  EXPECT_EQ(form.cboProject.text(), "Project1");
  EXPECT_EQ(form.cboReturns.text(), "");
  EXPECT_FALSE(form.cboReturns.enabled());
  EXPECT_TRUE(form.chkClasses.checked() && form.chkMoveCursor.checked());
  EXPECT_EQ(form.cboDefaultPara1.text(), "");
  EXPECT_FALSE(form.cboDefaultPara2.enabled() || form.cboDefaultPara3.enabled());
  EXPECT_FALSE(form.cboOtherProjects.enabled() || form.cmdProjectSetup.enabled());
  EXPECT_FALSE(form.cmdApply.enabled());
  EXPECT_THAT(forms::layoutFaults(form), IsEmpty());
  EXPECT_EQ(form.tabOrder().back(), &form.cmdCancel);
  user::setText(form.txtName1, "a");
  EXPECT_TRUE(form.txtName2.enabled());
  user::setText(form.cboParameterType1, "");
  EXPECT_FALSE(form.cboDefaultPara1.enabled());
  EXPECT_TRUE(form.cmdApply.enabled());
}

TEST_F(BuilderOptions, ApplyWritesTheKeyAnew) {
  defaults().save("Project1", {{"PBDS37", "1"}, {"PBDR39", "Long"}, {"old", "x"}});
  frmProcedureBuilderOptions& form = open("Project1");
  EXPECT_EQ(form.cboScope.text(), "Public");
  user::selectItem(form.cboErrorHandler, "Show");
  user::setText(form.txtName1, "a");
  user::selectItem(form.cboDefaultPara1, "Date");
  user::setText(form.cboParameterType2, "");
  user::click(form.cmdApply);
  EXPECT_FALSE(form.cmdApply.enabled());
  EXPECT_EQ(stored("Project1"),
            "PBDS37=1\nPBDT38=0\nPBDE40=Show\nee1=a\notee1=0\nPBDP143=Date\noee1=0\nPBDP244=\noceT2=0\n"
            "tteufee3=0\nPBDP345=\noeufee3=0\nPBLC42=True\nserg354sdfgsdgsr=True\n");
  user::selectItem(form.cboType, "Function");
  user::setText(form.cboReturns, "Byte");
  user::setValue(form.chkMoveCursor, 0);
  user::click(form.cmdOK);
  EXPECT_FALSE(form.visible());
  const ProcedureDefaults read = procedureDefaults(defaults().inForce("Project1"));
  EXPECT_EQ(read.procedure.returnType, "Byte");
  EXPECT_EQ(read.procedure.parameters[0].type, "Date");
  EXPECT_FALSE(read.moveCursor);
}

TEST_F(BuilderOptions, OkOfAnUnchangedFormWritesNothing) {
  defaults().save("Any Project", {{"PBDS37", "1"}});
  frmProcedureBuilderOptions& form = open("Project1");
  EXPECT_EQ(form.cboScope.text(), "Public") << "what counts for the project";
  user::click(form.cmdOK);
  EXPECT_EQ(stored("Project1"), "");
}

TEST_F(BuilderOptions, TakesOverAnotherProjectsValuesAndClears) {
  defaults().save("Old", {{"PBDS37", "1"}, {"PBDE40", "Next"}});
  frmProcedureBuilderOptions& form = open("Nowhere");
  EXPECT_EQ(form.cboProject.text(), "Any Project");
  user::selectItem(form.cboProject, "Project1");
  EXPECT_THAT(form.cboOtherProjects.items(), ElementsAre("Old"));
  host_.desk().answer("No");
  user::click(form.cmdProjectSetup);
  EXPECT_EQ(form.cboErrorHandler.text(), "");
  host_.desk().answer("Yes");
  user::click(form.cmdProjectSetup);
  EXPECT_EQ(form.cboErrorHandler.text(), "Next");
  EXPECT_EQ(stored("Project1"), "") << "ready to be saved";
  user::click(form.cmdApply);
  EXPECT_NE(stored("Project1"), "");
  host_.desk().answer("Yes");
  user::click(form.cmdClear);
  EXPECT_EQ(stored("Project1"), "");
  EXPECT_EQ(form.cboScope.text(), "Private");
  user::selectItem(form.cboProject, "Any Project");
  EXPECT_THAT(form.cboOtherProjects.items(), ElementsAre("Old")) << "a cleared project has no set";
  EXPECT_THAT(told(), ElementsAre("Are you sure you want to setup Project1 to match Old?",
                                  "Are you sure you want to setup Project1 to match Old?",
                                  "This will clear all defaults for the selected project, are you sure?"));
}

TEST_F(BuilderOptions, OpensFromTheBuilderForTheActiveProject) {
  ProcedureBuilder tool(services());
  add("Module1.bas");
  tool.Show_ProcedureBuilder();
  std::string project;
  host_.desk().runModal = [&](forms::Form& form) {
    auto& options = dynamic_cast<frmProcedureBuilderOptions&>(form);
    project = options.cboProject.text();
    user::selectItem(options.cboScope, "Public");
    set("CCAMC19", "1");
    host_.desk().answer("Yes");
    user::click(options.cmdCancel);
  };
  user::click(tool.form().control("mnuFileProcedureBuilder"));
  EXPECT_EQ(project, "Project1");
  EXPECT_THAT(told(), ElementsAre("You have made changes, are you sure?"));
  EXPECT_EQ(stored("Project1"), "");
}

}  // namespace
}  // namespace kolvane::writers
