#include "source/variable_prefixes.h"

#include <gtest/gtest.h>

#include "forms/form.h"
#include "frame/option_tables.h"
#include "source/classes.h"
#include "source/names.h"
#include "source/procedure_description.h"
#include "support/test_host.h"

namespace kolvane::source {
namespace {

class VariablePrefixes : public testing::Test {
 protected:
  const frame::Services& services() { return host_.services(); }
  void save(std::string_view prefix, std::string_view type) {
    host_.services().settings.SaveSetting(frame::kVariablePrefixSection, prefix, type);
  }
  void clear() { host_.services().settings.DeleteSetting(frame::kVariablePrefixSection); }

  std::string tagged(std::string name, std::string_view type, bool hasGet = false, bool hasSet = false) {
    TagVariable(services(), name, type, hasGet, hasSet);
    return name;
  }
  std::string builderTagged(std::string name, std::string_view type) {
    procedure_builder::TagVariable(services(), name, type);
    return name;
  }

  test::TestHost host_;
};

TEST_F(VariablePrefixes, ReadTheTableBothWays) {
  EXPECT_EQ(Get_Prefix_From_Type(services(), "STRING"), "str");
  EXPECT_EQ(Get_Prefix_From_Type(services(), "adodb.recordset"), "rec");
  EXPECT_EQ(Get_Prefix_From_Type(services(), "clsOrder"), "");
  EXPECT_EQ(Get_Type_From_Prefix(services(), "lng", "Count"), "Long");
  EXPECT_EQ(Get_Type_From_Prefix(services(), "Lng", "Count"), "");
  EXPECT_EQ(GetCurrentTypes(services()),
            "String,Boolean,Integer,Long,Single,Double,ADODB.Recordset,Date,Object,Byte,Variant,Collection,");
  save("Cur", "Currency");
  EXPECT_EQ(Get_Prefix_From_Type(services(), "Currency"), "cur");
  save("var", "variant");
  EXPECT_EQ(Get_Prefix_From_Type(services(), "Variant"), "vnt");
}

TEST_F(VariablePrefixes, AnEmptyTableAnswersWithNothing) {
  clear();
  EXPECT_EQ(Get_Prefix_From_Type(services(), "String"), "");
  EXPECT_EQ(Get_Type_From_Prefix(services(), "str", "Name"), "");
  EXPECT_EQ(GetCurrentTypes(services()), "");
  EXPECT_EQ(tagged("Name", "String"), "Name");
  EXPECT_EQ(builderTagged("name", "Long"), "Name");
  EXPECT_EQ(builderTagged("name", "Collection"), "colName");
}

TEST_F(VariablePrefixes, AnObjectMayBeOfAClassOfItsName) {
  EXPECT_EQ(Get_Type_From_Prefix(services(), "obj", "Customer"), "Object");
  for (const std::string_view file : {"clsCustomer.cls", "Customer.cls", "tblCustomer.cls", "modX.bas"})
    host_.addComponent(file, {});
  EXPECT_EQ(Get_Type_From_Prefix(services(), "obj", "Customer"), "tblCustomer");
  EXPECT_EQ(Get_Type_From_Prefix(services(), "obj", "tomer"), "Customer");
  EXPECT_EQ(Get_Type_From_Prefix(services(), "obj", "customer"), "Object");
  EXPECT_EQ(Get_Type_From_Prefix(services(), "str", "Customer"), "String");
  host_.services().settings.saveOption("O269fs", "tblC");
  EXPECT_EQ(Get_Type_From_Prefix(services(), "obj", "ustomer"), "tblCustomer");
}

TEST_F(VariablePrefixes, ClassesOfTheActiveProjectComeFirst) {
  EXPECT_TRUE(Find_Classes_Collections(services()).empty());
  frame::VBE& vbe = services().vbe;
  for (const std::string_view file : {"clsZ.cls", "modA.bas", "clsB.cls"}) host_.addComponent(file, {});
  const auto active = vbe.ActiveVBProject();
  const auto other = vbe.VBProjects()->Add(frame::ProjectType::kActiveXDll);
  other->setName("Aaa");
  vbe.setActiveVBProject(active);
  const std::vector<std::string> expected{"clsB", "clsZ", "Aaa.Class1"};
  EXPECT_EQ(Find_Classes_Collections(services()), expected);
  vbe.setActiveVBProject(other);
  EXPECT_EQ(Find_Classes_Collections(services()),
            (std::vector<std::string>{"Class1", "Project1.clsB", "Project1.clsZ"}));
}

TEST_F(VariablePrefixes, CombosTakeTypesAndClasses) {
  class TwoCombos : public forms::Form {
   public:
    TwoCombos(forms::Desk& desk) : Form(desk, "frmTwo", "Two") {}
    forms::ComboBox cboA{*this, "cboA"};
    forms::ComboBox cboB{*this, "cboB"};
  };
  TwoCombos form(host_.services().desk);
  form.cboA.addItem("old");
  Generate_DataTypes_For_Combo(services(), {&form.cboA, nullptr, &form.cboB});
  EXPECT_EQ(form.cboA.listCount(), 12);
  EXPECT_EQ(form.cboB.list(0), "String");
  EXPECT_TRUE(LoadTheClasses(services(), {&form.cboA}));
  EXPECT_EQ(form.cboA.listCount(), 12);
  host_.addComponent("clsOrder.cls", {});
  EXPECT_TRUE(LoadTheClasses(services(), {&form.cboA, nullptr}));
  EXPECT_EQ(form.cboA.list(12), "clsOrder");
  EXPECT_EQ(form.cboB.listCount(), 12);
}

TEST_F(VariablePrefixes, TagAPropertysVariable) {
  EXPECT_EQ(tagged("Name", " String "), "strName");
  EXPECT_EQ(tagged("Rows", "ADODB.Recordset", true, true), "recRows");
  EXPECT_EQ(tagged("Rows", "Collection"), "Rows");
  EXPECT_EQ(tagged("Order", "clsOrder"), "objOrder");
  EXPECT_EQ(tagged("Order", "objOrder"), "objOrder");
  EXPECT_EQ(tagged("Orders", "colOrders"), "colOrders");
  EXPECT_EQ(tagged("Order", "Order"), "Order");
  EXPECT_EQ(tagged("Order", "Order", true, false), "Order");
  EXPECT_EQ(tagged("Order", "Order", true, true), "objOrder");
  EXPECT_EQ(tagged("Orders", "Orders", true, true), "colOrders");
}

TEST_F(VariablePrefixes, TagForTheProcedureBuilder) {
  EXPECT_EQ(builderTagged("strName", "Long"), "strName");
  EXPECT_EQ(builderTagged("Name", "Long"), "lngName");
  EXPECT_EQ(builderTagged("name", "clsOrder"), "objName");
  EXPECT_EQ(builderTagged("name", "Order"), "Name");
  EXPECT_EQ(builderTagged("name", "Collection"), "colName");
  EXPECT_EQ(builderTagged("name", "Class"), "objName");
  EXPECT_EQ(builderTagged("xyzName", "COLORDERS"), "colXyzName");
  EXPECT_EQ(builderTagged("", "Long"), "lng");
}

TEST_F(VariablePrefixes, RaiseLettersBehindUnderscores) {
  EXPECT_EQ(Cap(services(), " on_\xE4nderung_x_ "), "on_\xC4nderung_X_");
  EXPECT_EQ(procedure_builder::Cap(services(), "load_all"), "Load_All");
  EXPECT_EQ(procedure_builder::Cap(services(), "m_name"), "m_Name");
  EXPECT_EQ(procedure_builder::Cap(services(), "G_name"), "G_Name");
  EXPECT_EQ(procedure_builder::Cap(services(), ""), "");
}

TEST(Names, PrefixOfAName) {
  EXPECT_EQ(GetPossiblePrefix("strName"), "str");
  EXPECT_EQ(GetPossiblePrefix("Name"), "");
  EXPECT_EQ(GetPossiblePrefix("x"), "x");
  EXPECT_EQ(GetPossiblePrefix("name"), "name");
}

TEST(Names, WhatMayBeAName) {
  for (const std::string_view text :
       {"", "  ", "1abc", "_abc", "Dim", "end if", "\xC4nderung", "LONG", " Nothing ", "Else,ElseIf"})
    EXPECT_TRUE(InvalidName(text)) << text;
  for (const std::string_view text : {"a b", "abc!", "Dimension", "string", " x", "End  If"})
    EXPECT_FALSE(InvalidName(text)) << text;
  EXPECT_FALSE(NameReservedVBWord("string"));
  EXPECT_FALSE(NameReservedVBWord(""));
  EXPECT_TRUE(NameReservedVBWord("to"));
}

TEST(ProcedureDescription, IsReadFromTheHeaderAboveTheTitle) {
  test::TestHost host;
  frame::CodeModule& module = host.addModule(
      "Option Explicit\n"
      "'*  Description  : Saves the user's row\n"
      "'*               : and all below\n"
      "'*  Note         : none\n"
      "Private Sub Save()\nEnd Sub\n"
      "    '*  Description  : Indented\n"
      "Private Sub Load()\nEnd Sub\n"
      "'*  Description  :\n"
      "Private Sub Blank()\nEnd Sub\n"
      "Private Sub Bare()\nEnd Sub");
  EXPECT_EQ(GetProceduresDescription(module, "Save", 5), "Saves the users row'* and all below");
  EXPECT_EQ(GetProceduresDescription(module, "Load", 8), "Indented");
  EXPECT_EQ(GetProceduresDescription(module, "Blank", 11), "");
  EXPECT_EQ(GetProceduresDescription(module, "Bare", 13), "");
  EXPECT_EQ(GetProceduresDescription(module, "Bare", 0), "");
}

}  // namespace
}  // namespace kolvane::source
