#include "writers/property_builder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "forms/drive.h"
#include "forms/user.h"
#include "source/property_questions.h"
#include "support/test_host.h"
#include "writers/builder_defaults.h"
#include "writers/property_builder_options.h"

namespace kolvane::writers {
namespace {

class PropertyBuilderTest : public testing::Test {
 protected:
  PropertyBuilderTest() { option("CoNu11", "12"); }

  frame::Services& services() { return host_.services(); }
  void option(std::string_view key, std::string_view text) { services().settings.saveOption(key, text); }
  void load(std::string_view file, std::string_view code) {
    file_ = file;
    std::vector<std::string> lines;
    if (!code.empty()) lines = base::split(code, "\n");
    host_.addComponent(file, lines);
    host_.activate(file, {1, 1, 1, 1});
  }
  frame::CodeModule& module() { return host_.module(file_); }
  // The module's text; a bar at the end of lines that end in a blank.
  std::string code() {
    std::string text;
    for (const std::string& line : host_.lines(file_))
      text += line + (line.ends_with(' ') || line.ends_with('\t') ? "|\n" : "\n");
    return text;
  }
  std::string messages() {
    std::string all;
    for (const auto& box : host_.desk().takeLog()) all += box.text + "\n";
    return all;
  }

  test::TestHost host_;
  std::string file_;
};

constexpr PropertyMethods kValues{true, true, false};

PropertyValues values(std::string_view name, std::string_view type, PropertyMethods methods) {
  PropertyValues property;
  property.name = name;
  property.type = type;
  property.methods = methods;
  return property;
}

// ---- the text

TEST_F(PropertyBuilderTest, WritesAVariableAndItsGetAndLet) {
  load("Class1.cls", "Option Explicit\n\nPrivate Sub Class_Initialize()\nEnd Sub\n\n");
  PropertyValues property = values("total", "Long", kValues);
  property.description = " what all orders\r\ncome to ";
  ASSERT_TRUE(Create_Property(services(), module(), property));
  EXPECT_EQ(code(), R"(Option Explicit
Private mlngTotal As Long    '* Private Property Variable

Private Sub Class_Initialize()
End Sub

'************
'*
'*  Name         : Total
'*  Description  : What all orders come to
'*
'************

Public Property Get Total( ) As Long

	Total= mlngTotal

End Property
 |
'************
'*
'*  Name         : Total
'*  Description  : What all orders come to
'*
'************

Public Property Let Total(ByVal NewValue As Long)

	mlngTotal = NewValue |

End Property


)");
  EXPECT_TRUE(source::PropertyExists("TOTAL", module()));
  EXPECT_EQ(source::GetPropertyDeclarations(module(), "Total"), "Get/Let");
  EXPECT_EQ(source::GetPropertiesScope(module(), "Total"), "Read Write");
  EXPECT_FALSE(source::DoesPropertyUseErrorHandler(module(), "Total"));
  EXPECT_EQ(source::GetPropertiesDescription(services(), module(), "Total"), "What all orders come to");
  EXPECT_EQ(source::FindPropertiesType(module(), source::GetPropertyRealStartLine(module(), "Total")),
            "Long");
}

TEST_F(PropertyBuilderTest, AVariantAsksWhatItHoldsAndAModuleNamesItself) {
  load("Module1.bas", "' tools");
  option("DH7", "0");
  PropertyValues property = values("last value", "Variant", {true, true, true});
  property.isPublic = false;
  property.useHandler = true;
  ASSERT_TRUE(Create_Property(services(), module(), property));
  EXPECT_EQ(code(), R"(' tools
Private mvntLast_Value As Variant    '* Private Property Variable
Private Const VB_MODULE_NAME = ".Module1" '* Used in Error Handling
Private Property Get Last_Value( ) As Variant

On Error GoTo errHandler

	If IsObject(mvntLast_Value) Then
		Set Last_Value = mvntLast_Value
	Else
		Last_Value= mvntLast_Value
	End If

Exit Property

errHandler:

		err.source = err.source  & vb_module_name  & ".Last_Value"
 |
	Err.raise err.number, err.source, err.description

End Property
 |
Private Property Let Last_Value(ByVal NewValue As Variant)

On Error GoTo errHandler

	mvntLast_Value = NewValue |

Exit Property

errHandler:

		err.source = err.source  & vb_module_name  & ".Last_Value"
 |
	Err.raise err.number, err.source, err.description

End Property
 |
Private Property Set Last_Value(ByVal NewValue As Variant)

On Error GoTo errHandler

	Set mvntLast_Value = NewValue |

Exit Property

errHandler:

		err.source = err.source  & vb_module_name  & ".Last_Value"
 |
	Err.raise err.number, err.source, err.description

End Property
)");
  EXPECT_TRUE(source::DoesPropertyUseErrorHandler(module(), "Last_Value"));
  EXPECT_EQ(source::GetPropertyDeclarations(module(), "Last_Value"), "Get/Let/Set");
  EXPECT_EQ(source::GetPropertiesScope(module(), "Last_Value"), "Private");
}

TEST_F(PropertyBuilderTest, AnObjectIsReadWithSetAndFollowsTheHeadersOptions) {
  load("Form1.frm", "Option Explicit\nPrivate mobjCustomer As clsCustomer\n\n");
  for (const auto& [key, text] : {std::pair{"CoCh10", "-"},
                                  {"InHe4", "1"},
                                  {"TaHe5", "1"},
                                  {"LAH8", "0"},
                                  {"BLInH6", "1"},
                                  {"SN25", "False"},
                                  {"IC2", "0"}})
    option(key, text);
  PropertyValues property = values("Order", "clsOrder", {true, false, true});
  property.useHandler = true;
  ASSERT_TRUE(Create_Property(services(), module(), property));
  EXPECT_EQ(code(), R"(Option Explicit
Private mobjCustomer As clsCustomer
Private mobjOrder As clsOrder    '* Private Property Variable

	'------------
	'-
	'-  Name         : Order
	'-  Description  : |
	'-
	'------------
Public Property Get Order( ) As clsOrder

On Error GoTo errHandler

Set Order = mobjOrder

Exit Property

errHandler:

	err.source = err.source  & "." &  typename(Me)  & ".Order"
 |
	Err.raise err.number, err.source, err.description

End Property
 |
	'------------
	'-
	'-  Name         : Order
	'-  Description  : |
	'-
	'------------
Public Property Set Order(ByVal NewValue As clsOrder)

On Error GoTo errHandler

Set mobjOrder = NewValue |

Exit Property

errHandler:

	err.source = err.source  & "." &  typename(Me)  & ".Order"
 |
	Err.raise err.number, err.source, err.description

End Property


)");
}

struct MemberCase {
  std::string_view name;
  std::string_view type;
  PropertyMethods methods;
  std::string_view first;  // line of the module
};

constexpr MemberCase kMembers[]{
    {"Buyer", "Customer", {true, false, false}, "Private mBuyer As Customer"},
    {"Buyer", "Customer", {true, false, true}, "Private mobjBuyer As Customer"},
    {"Buyers", "Customers", {true, false, true}, "Private mcolBuyers As Customers"},
    {"objOwner", "objPerson", {true, false, false}, "Private mobjobjOwner As objPerson"},
    {"colItems", "Collection", {true, false, false}, "Private mcolItems As Collection"},
    {"  first_name of all ", " string ", {false, true, false}, "Private mstrFirst_Name_Of_All As String"},
};

TEST_F(PropertyBuilderTest, TheVariableIsNamedForItsType) {
  for (const MemberCase& each : kMembers) {
    load(std::string(each.first.substr(9, each.first.find(" As ") - 9)) + ".bas", "");
    ASSERT_TRUE(Create_Property(services(), module(), values(each.name, each.type, each.methods)));
    EXPECT_TRUE(code().starts_with(std::string(each.first) + "    '* Private Property Variable\n")) << code();
  }
}

TEST_F(PropertyBuilderTest, AVariableThatIsThereIsNotDeclaredAgain) {
  load("Module1.bas", "Private mlngsize As Long");
  option("DH7", "0");
  ASSERT_TRUE(Create_Property(services(), module(), values("Size", "Long", {false, true, false})));
  EXPECT_EQ(code(),
            "Private mlngsize As Long\n |\nPublic Property Let Size(ByVal NewValue As Long)\n\n"
            "\tmlngSize = NewValue |\n\nEnd Property\n");
  const std::string before = code();
  EXPECT_TRUE(Create_Property(services(), module(), values("Other", "Long", {})));
  EXPECT_EQ(code(), before) << "no method, no property";
}

TEST_F(PropertyBuilderTest, AModuleThatCannotBeEditedIsToldAndStaysAsItIs) {
  load("Module1.bas", "Option Explicit");
  host_.setReadOnly("Module1.bas", true);
  EXPECT_FALSE(Create_Property(services(), module(), values("Size", "Long", kValues)));
  EXPECT_EQ(messages(),
            "Either the file Module1 is readonly or it's checked in within Source Code control.\n");
  EXPECT_EQ(code(), "Option Explicit\n");
}

// ---- the dialog

class PropertyBuilderDialog : public PropertyBuilderTest {
 protected:
  PropertyBuilderDialog() { option("DH7", "0"); }

  frmPropertyBuilder& show() {
    tool_.Show_PropertyBuilder();
    return tool_.form();
  }
  bool isOpen() { return services().desk.openForms().find("frmPropertyBuilder") != nullptr; }
  static void set(forms::Form& form, std::string_view control, std::string_view text) {
    forms::drive::set(form, control, {.text = std::string(text)});
  }
  static std::string ticked(const frmPropertyBuilder& form) {
    return std::string(form.chkGet.checked() ? "G" : "-") + (form.chkLet.checked() ? "L" : "-") +
           (form.chkSet.checked() ? "S" : "-");
  }

  PropertyBuilder tool_{services()};
};

TEST_F(PropertyBuilderDialog, StartsWithAStringPropertyAndWritesOneAfterTheOther) {
  load("Class1.cls", "Option Explicit");
  frmPropertyBuilder& form = show();
  EXPECT_TRUE(forms::layoutFaults(form).empty());
  EXPECT_EQ(form.cboScope.text(), "Private");
  EXPECT_EQ(form.cboTypes.text(), "String");
  EXPECT_EQ(ticked(form), "GL-");
  EXPECT_FALSE(form.cmdApply.enabled());
  EXPECT_TRUE(form.txtName.hasFocus());
  set(form, "txtName", "  ");
  EXPECT_FALSE(form.cmdApply.enabled());
  set(form, "txtName", "title");
  forms::drive::click(form, "chkLet");
  forms::drive::set(form, "cboScope", {.item = "Public"});
  forms::drive::click(form, "cmdApply");
  EXPECT_TRUE(isOpen());
  EXPECT_EQ(form.txtName.text(), "");
  EXPECT_TRUE(form.txtName.hasFocus());
  EXPECT_FALSE(form.cmdApply.enabled());
  set(form, "txtName", "count");
  forms::drive::set(form, "cboTypes", {.item = "Integer"});
  forms::drive::click(form, "chkGet");
  forms::drive::click(form, "cmdOK");
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(code(), R"(Option Explicit
Private mstrTitle As String    '* Private Property Variable
Private mintCount As Integer    '* Private Property Variable
Public Property Get Title( ) As String

	Title= mstrTitle

End Property
 |
Public Property Let Count(ByVal NewValue As Integer)

	mintCount = NewValue |

End Property
)");
  EXPECT_EQ(messages(), "");
}

TEST_F(PropertyBuilderDialog, TheTypeChoosesTheMethods) {
  load("Class1.cls", "");
  frmPropertyBuilder& form = show();
  constexpr std::pair<std::string_view, std::string_view> kCases[]{
      {"Variant", "GLS"}, {"LONG", "GL-"},           {"Collection", "G-S"}, {"Currency", "G-S"},
      {"Byte", "GL-"},    {"ClsOrder", "G-S"},       {"boolean", "GL-"},    {"colItems", "G-S"},
      {"Date", "GL-"},    {"ADODB.Recordset", "G-S"}};
  for (const auto& [type, boxes] : kCases) {
    set(form, "cboTypes", type);
    EXPECT_EQ(ticked(form), boxes) << type;
  }
}

TEST_F(PropertyBuilderDialog, TellsTheFirstFaultAndGoesToItsField) {
  load("Class1.cls", "Public Property Get Order_Total()\nEnd Property");
  frmPropertyBuilder& form = show();
  const auto apply = [&](std::string_view name, std::string_view type) {
    set(form, "cboTypes", type);
    set(form, "txtName", name);
    form.cmdApply.click();
    const std::string focus = form.focus() ? form.focus()->name() : "";
    return messages() + focus;
  };
  EXPECT_EQ(apply("ORDER total", "1x"), "Property name already used!\ntxtName");
  EXPECT_EQ(apply("2nd", "1x"), "Invalid Name!\ntxtName");
  EXPECT_EQ(apply("End", ""), "Invalid Name!\ntxtName");
  EXPECT_EQ(apply("Size", " "), "You need to specify the properties type!\ncboTypes");
  EXPECT_EQ(apply("Size", "1x"), "Invalid Type!\ncboTypes");
  set(form, "cboTypes", "Long");
  forms::drive::click(form, "chkGet");
  forms::drive::click(form, "chkLet");
  form.cmdApply.click();
  EXPECT_EQ(messages(), "You must specify the properties methods.\n");
  EXPECT_TRUE(form.chkGet.hasFocus());
  set(form, "txtName", "");
  forms::drive::click(form, "cmdOK");
  EXPECT_EQ(messages(), "You must specify a name!\n");
  EXPECT_TRUE(isOpen());
  EXPECT_EQ(code(), "Public Property Get Order_Total()\nEnd Property\n");
}

TEST_F(PropertyBuilderDialog, WithoutAComponentOrAWritableOneNothingIsLost) {
  load("Class1.cls", "");
  frmPropertyBuilder& form = show();
  set(form, "txtName", "Size");
  host_.deactivate();
  forms::drive::click(form, "cmdOK");
  EXPECT_EQ(messages(), "Select a component!\n");
  host_.activate("Class1.cls", {1, 1, 1, 1});
  host_.setReadOnly("Class1.cls", true);
  forms::drive::click(form, "cmdOK");
  EXPECT_EQ(messages(),
            "Either the file Class1 is readonly or it's checked in within Source Code control.\n");
  ASSERT_TRUE(isOpen());
  EXPECT_EQ(form.txtName.text(), "Size");
}

TEST_F(PropertyBuilderDialog, CancelAsksWhenSomethingWasChangedAndTheOptionsSayso) {
  load("Class1.cls", "");
  option("CCAMC19", "True");
  frmPropertyBuilder& form = show();
  set(form, "txtName", "Size");
  host_.desk().answer("No");
  forms::drive::click(form, "cmdCancel");
  EXPECT_TRUE(isOpen());
  host_.desk().answer("No");
  forms::drive::close(form);
  EXPECT_TRUE(isOpen());
  host_.desk().answer("Yes");
  forms::drive::click(form, "cmdCancel");
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(messages(),
            "You have made changes, are you sure?\nYou have made changes, are you sure?\n"
            "You have made changes, are you sure?\n");
  forms::drive::click(show(), "cmdCancel");
  EXPECT_FALSE(isOpen());
  EXPECT_EQ(messages(), "");
}

TEST_F(PropertyBuilderDialog, FollowsTheProjectsDefaultsAndListsItsClasses) {
  load("clsOrder.cls", "");
  BuilderDefaults defaults(services().settings, kPropertyBuilder);
  defaults.save("Any Project", {{"PrBDS58", "1"}, {"PrBUEH57", "True"}});
  EXPECT_TRUE(show().UseErrorHandler());
  EXPECT_EQ(tool_.form().cboScope.text(), "Public");
  EXPECT_EQ(tool_.form().cboTypes.text(), "String") << "a missing value is the fixed default";
  EXPECT_GE(tool_.form().cboTypes.indexOf("clsOrder"), 0);
  forms::drive::click(tool_.form(), "cmdCancel");
  defaults.save("Project1", {{"PrBDS58", "0"}, {"PrBDT59", "clsOrder"}, {"PrBLC60", "False"}});
  const frmPropertyBuilder& form = show();
  EXPECT_EQ(form.cboScope.text(), "Private") << "the project's own set counts as a whole";
  EXPECT_FALSE(form.UseErrorHandler());
  EXPECT_EQ(form.cboTypes.text(), "clsOrder");
  EXPECT_EQ(form.cboTypes.indexOf("clsOrder"), -1);
  EXPECT_EQ(ticked(form), "G-S");
}

TEST_F(PropertyBuilderDialog, ItsOptionsHoldForTheNextPropertyAndLeaveTheEntriesAlone) {
  load("Class1.cls", "");
  frmPropertyBuilder& form = show();
  set(form, "txtName", "Size");
  set(form, "cboTypes", "Long");
  forms::drive::click(form, "chkLet");
  host_.desk().runModal = [&](forms::Form& options) {
    EXPECT_TRUE(forms::layoutFaults(options).empty());
    EXPECT_EQ(options.caption(), "Property Builder Options");
    auto& dialog = dynamic_cast<frmPropertyBuilderOptions&>(options);
    EXPECT_EQ(dialog.cboProject.text(), "Project1");
    EXPECT_EQ(dialog.cboReturns.text(), "String");
    EXPECT_TRUE(dialog.chkClasses.checked());
    EXPECT_FALSE(dialog.cmdApply.enabled());
    forms::drive::click(options, "chkUseErrorHandling");
    forms::drive::click(options, "chkClasses");
    forms::drive::set(options, "cboScope", {.item = "Public"});
    set(options, "cboReturns", "Currency");
    forms::drive::click(options, "cmdOK");
  };
  forms::drive::click(form, "mnuFilePropertyBuilder");
  EXPECT_EQ(services()
                .settings.values(frame::RegistryRoot::kCurrentUser, frame::sectionPath("PrBO56\\Project1"))
                .size(),
            4U);
  const BuilderValues stored = BuilderDefaults(services().settings, kPropertyBuilder).of("Project1");
  EXPECT_EQ(
      stored.text("PrBDS58") + stored.text("PrBDT59") + stored.text("PrBLC60") + stored.text("PrBUEH57"),
      "1CurrencyFalseTrue");
  EXPECT_TRUE(form.UseErrorHandler());
  EXPECT_FALSE(form.IncludeClasses());
  EXPECT_EQ(form.txtName.text() + form.cboTypes.text() + ticked(form), "SizeLongG--");
  EXPECT_TRUE(form.cmdApply.enabled());
}

TEST_F(PropertyBuilderDialog, OptionsAreClearedAfterAQuestion) {
  load("Class1.cls", "");
  BuilderDefaults defaults(services().settings, kPropertyBuilder);
  defaults.save("Project1", {{"PrBDS58", "1"}, {"PrBDT59", "Date"}, {"PrBLC60", "0"}, {"PrBUEH57", "1"}});
  frmPropertyBuilderOptions options(services());
  options.LoadForm("Project1");
  forms::Form& form = options;
  form.show();
  EXPECT_EQ(options.cboScope.text() + options.cboReturns.text(), "PublicDate");
  EXPECT_TRUE(options.chkUseErrorHandling.checked());
  EXPECT_FALSE(options.chkClasses.checked());
  host_.desk().answer("Yes");
  forms::drive::click(options, "cmdClear");
  EXPECT_EQ(messages(), "This will clear all options for the selected project, are you sure?\n");
  EXPECT_EQ(options.cboScope.text() + options.cboReturns.text(), "PrivateString");
  EXPECT_TRUE(options.chkClasses.checked());
  EXPECT_TRUE(defaults.of("Project1").empty());
}

}  // namespace
}  // namespace kolvane::writers
