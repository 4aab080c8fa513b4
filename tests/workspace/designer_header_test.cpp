// What stands in front of the code: where it ends, what it says, that it stays as it was, and what faults do
// to it.
#include <gtest/gtest.h>

#include "workspace/designer_support.h"
#include "workspace/designer_tree.h"

namespace kolvane::workspace {
namespace {

using test::crLf;
using test::DesignerFile;
using test::errorOf;

constexpr std::string_view kClass = R"(VERSION 1.0 CLASS
BEGIN
  MultiUse = -1  'True
  Persistable = 0  'NotPersistable
  DataBindingBehavior = 0  'vbNone
  DataSourceBehavior  = 0  'vbNone
  MTSTransactionMode  = 0  'NotAnMTSObject
END
Attribute VB_Name = "clsAccount"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = False
Attribute VB_Ext_KEY = "SavedWithClassBuilder6" ,"Yes"
Option Explicit
)";

constexpr std::string_view kForm = R"(VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "mscomctl.ocx"
Begin VB.Form frmMain 
   Caption         =   "Main"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   Icon            =   "frmMain.frx":0000
   LinkTopic       =   "Form1"
   ScaleHeight     =   3195
   ScaleWidth      =   4680
   StartUpPosition =   3  'Windows-Standard
   Begin VB.TextBox txtNote 
      Height          =   495
      Left            =   120
      TabIndex        =   0
      Text            =   $"frmMain.frx":0442
      Top             =   120
      Width           =   1215
   End
   Begin VB.PictureBox picLogo 
      Height          =   495
      Left            =   120
      Picture         =   "Shared.frx":12AF
      ScaleHeight     =   435
      ScaleWidth      =   1155
      TabIndex        =   1
      Top             =   720
      Width           =   1215
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit

Private Sub Form_Load()
End Sub
)";

// Each file goes through untouched: with the tree parsed and without, and the code begins where it should.
TEST(ComponentHeader, KeepsEveryByteAndFindsTheCode) {
  const struct {
    const char* what;
    std::string file;
    std::string code;
  } cases[] = {
      {"standard module", crLf("Attribute VB_Name = \"modMain\"\nOption Explicit\n"), "Option Explicit\r\n"},
      {"module without a header", "Option Explicit\n\nSub Main()\nEnd Sub",
       "Option Explicit\n\nSub Main()\nEnd Sub"},
      {"empty file", "", ""},
      {"byte order mark",
       "\xEF\xBB\xBF"
       "Attribute VB_Name = \"a\"\r\nDim a\r\n",
       "Dim a\r\n"},
      {"byte order mark alone",
       "\xEF\xBB\xBF"
       "Dim a\r\n",
       "Dim a\r\n"},
      {"class", crLf(kClass), "Option Explicit\r\n"},
      {"class with LF", std::string(kClass), "Option Explicit\n"},
      {"form with lone CR",
       base::replaceAll(kForm.substr(0, kForm.find("Option")), "\n", "\r") + "Dim a\rDim b", "Dim a\rDim b"},
      {"member attribute is code", "Attribute VB_Name = \"a\"\nAttribute x.VB_VarHelpID = -1\n",
       "Attribute x.VB_VarHelpID = -1\n"},
      {"unknown attributes",
       "Attribute VB_Name = \"a\"\nAttribute VB_Base = \"0{1}\"\nAttribute Odd = 3\nx\n", "x\n"},
      {"blank lines inside the header",
       "VERSION 5.00\n\n\t\nBegin VB.Form a \n\nEnd\n\nAttribute VB_Name = \"a\"\n\nDim a\n", "\nDim a\n"},
      {"tabs and other case",
       "version 5.00\nBEGIN\tVB.Form\ta\n\tCaption\t=\t\"x\"\n\tbegin VB.Timer Timer1\n\tend\t\nEND\nDim a\n",
       "Dim a\n"},
      {"properties named like brackets",
       "VERSION 5.00\nBegin VB.Form a \n   Begin           =   1\n   End = 2\nEnd\nDim a\n", "Dim a\n"},
      {"NULs", "Attribute VB_Name = \"a\"\nDim a" + base::repeat('\0', 637) + "\n",
       "Dim a" + base::repeat('\0', 637) + "\n"},
      {"no line end behind End", "VERSION 5.00\r\nBegin VB.Form a \r\nEnd", ""},
      {"other language behind the header",
       "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\n#Region \"x\"\n", "#Region \"x\"\n"},
      {"oddities of other libraries", crLf(R"(VERSION 5.00
Object = "*\AParts.vbp"
Begin VB.Form a 
   Begin MSComctlLib.Toolbar tbr 
      Height          =   420
      _ExtentX        =   16722
      BeginProperty Buttons {66833FE8-8583-11D1-B16A-00C0F0283628} 
         NumButtons      =   1
         BeginProperty Button1 {66833FEA-8583-11D1-B16A-00C0F0283628} 
            Object.ToolTipText     =   "x = ""y"""
         EndProperty
      EndProperty
      Appearance      =   1
      Appearance      =   0
      FontSize        =   8,25
      Align           =   2  'Unten ausrichten
   End
End
Attribute VB_Name = "a"
Dim a
)"),
       "Dim a\r\n"},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.what);
    DesignerFile file = DesignerFile::exactly(each.file);
    EXPECT_TRUE(file.problems().empty());
    EXPECT_EQ(file.code(), each.code);
    EXPECT_EQ(file.bytes(), each.file);
    if (file.header().designer() != nullptr) {
      EXPECT_NE(file.header().designer()->root(), nullptr);
    }
    EXPECT_EQ(file.bytes(), each.file);
    EXPECT_FALSE(file.header().edited());
  }
}

TEST(ComponentHeader, ReadsWhatItHolds) {
  DesignerFile form{kForm};
  EXPECT_EQ(form.header().rootClass(), "VB.Form");
  EXPECT_EQ(form.header().attribute("VB_Name"), "frmMain");
  EXPECT_EQ(form.header().attribute("vb_predeclaredid"), "True");
  EXPECT_EQ(form.header().attribute("VB_Description"), std::nullopt);
  EXPECT_EQ(form.header().companions(), (std::vector<std::string>{"frmMain.frx", "Shared.frx"}));
  EXPECT_EQ(form.header().objectLines(),
            (std::vector<std::string>{R"("{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "mscomctl.ocx")"}));
  EXPECT_EQ(form.header().classSetting("MultiUse"), std::nullopt);

  DesignerFile cls{kClass};
  EXPECT_EQ(cls.header().rootClass(), "");
  EXPECT_EQ(cls.header().designer(), nullptr);
  EXPECT_EQ(cls.header().classSetting("multiuse"), -1);
  EXPECT_EQ(cls.header().classSetting("MTSTransactionMode"), 0);
  EXPECT_EQ(cls.header().extProperty("savedwithclassbuilder6"), "Yes");
  EXPECT_EQ(cls.header().extProperty("Other"), "");
}

TEST(ComponentHeader, WritesAttributesAndSettingsWhereTheIdeHasThem) {
  DesignerFile file{kClass};
  ComponentHeader& header = file.header();
  header.setAttribute("VB_Name", "clsAccount", true);
  header.setExtProperty("SavedWithClassBuilder6", "Yes");
  header.setClassSetting("Persistable", 0, "other words");
  EXPECT_FALSE(header.edited());

  header.setAttribute("VB_Description", "The \"ledger's\" account", true);
  header.setAttribute("VB_Exposed", "True", false);
  header.setExtProperty("Member0", "Entry");
  header.setClassSetting("MultiUse", 0, "False");
  header.setClassSetting("MTSTransactionMode", 2, "RequiresTransaction");
  header.rename("clsBook");
  EXPECT_EQ(errorOf([&] { header.setAttribute("VB_Description", "two\r\nlines", true); }), 5);
  EXPECT_EQ(file.text(), R"(VERSION 1.0 CLASS
BEGIN
  MultiUse = 0   'False
  Persistable = 0  'NotPersistable
  DataBindingBehavior = 0  'vbNone
  DataSourceBehavior  = 0  'vbNone
  MTSTransactionMode  = 2  'RequiresTransaction
END
Attribute VB_Name = "clsBook"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = True
Attribute VB_Description = "The ""ledger's"" account"
Attribute VB_Ext_KEY = "SavedWithClassBuilder6" ,"Yes"
Attribute VB_Ext_KEY = "Member0" ,"Entry"
Option Explicit
)");
  EXPECT_EQ(header.attribute("VB_Description"), "The \"ledger's\" account");

  DesignerFile old = DesignerFile::exactly("VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\nDim a\n");
  old.header().setClassSetting("DataSourceBehavior", 1, "vbDataSource");
  old.header().setClassSetting("Persistable", 1, "Persistable");
  old.header().setAttribute("VB_Exposed", "True", false);
  old.header().setAttribute("VB_Name", "a", true);
  EXPECT_EQ(old.bytes(),
            "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\n  Persistable = 1  'Persistable\n"
            "  DataSourceBehavior  = 1  'vbDataSource\nEND\nAttribute VB_Name = \"a\"\n"
            "Attribute VB_Exposed = True\nDim a\n");

  DesignerFile bare = DesignerFile::exactly(
      "\xEF\xBB\xBF"
      "Dim a\n");
  bare.header().rename("modA");
  EXPECT_EQ(bare.bytes(),
            "\xEF\xBB\xBF"
            "Attribute VB_Name = \"modA\"\nDim a\n");

  DesignerFile cut = DesignerFile::exactly("VERSION 5.00\nBegin VB.Form a \nEnd");
  cut.header().rename("b");
  EXPECT_EQ(cut.bytes(), "VERSION 5.00\nBegin VB.Form b \nEnd\nAttribute VB_Name = \"b\"\n");
}

TEST(ComponentHeader, RenamesADesignerAndAddsLibraries) {
  DesignerFile file{kForm};
  file.header().rename("frmLedger");
  file.header().addObjectLine(R"("{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0"; "comdlg32.ocx")");
  file.header().addObjectLine(R"("{f9043c88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0"; "comdlg32.ocx")");
  std::string expected = base::replaceAll(kForm, "VB.Form frmMain ", "VB.Form frmLedger ");
  expected = base::replaceAll(expected, "VB_Name = \"frmMain\"", "VB_Name = \"frmLedger\"");
  expected = base::replaceAll(
      expected, "\"mscomctl.ocx\"\n",
      "\"mscomctl.ocx\"\nObject = \"{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0\"; \"comdlg32.ocx\"\n");
  EXPECT_EQ(file.text(), expected);
}

TEST(ComponentHeader, MakesNewOnesThatReadBack) {
  using enum frame::ComponentType;
  for (const auto type :
       {kStdModule, kClassModule, kVBForm, kVBMDIForm, kPropPage, kUserControl, kDocObject}) {
    const ComponentHeader header = ComponentHeader::create(type, "Thing1", "\n");
    EXPECT_EQ(header.attribute("VB_Name"), "Thing1");
    std::string bytes;
    header.appendBytes(bytes);
    std::vector<Problem> problems;
    ComponentHeader again = ComponentHeader::parse(nullptr, bytes, "Thing1", problems);
    EXPECT_TRUE(problems.empty());
    EXPECT_EQ(again.codeOffset(), bytes.size());
    EXPECT_EQ(again.designer() != nullptr, type != kStdModule && type != kClassModule);
    if (again.designer() != nullptr) {
      EXPECT_EQ(again.designer()->root()->name(), "Thing1");
    }
  }
  EXPECT_EQ(errorOf([] { ComponentHeader::create(kResFile, "r", "\n"); }), 445);
}

// One line for each fault, the bytes stay, the code is still found where it can be, and edits are refused.
TEST(ComponentHeader, TellsFaultsAndKeepsTheFile) {
  const struct {
    const char* what;
    std::string file;
    std::string problem;
    std::string code;
  } cases[] = {
      {"cut off", "VERSION 5.00\nBegin VB.Form a \n   Begin VB.Timer t \n      Left = 1\n",
       "sample.frm(3): the file ends before the End of \"Begin VB.Timer t\"", ""},
      {"an End is missing",
       "VERSION 5.00\nBegin VB.Form a \n   Begin VB.Timer t \nEnd\nAttribute VB_Name = \"a\"\nDim a\n",
       "sample.frm(2): no End for \"Begin VB.Form a\"", "Dim a\n"},
      {"an End too many", "VERSION 5.00\nBegin VB.Form a \nEnd\nEnd\nEnd\nAttribute VB_Name = \"a\"\nDim a\n",
       "sample.frm(4): End without Begin", "Dim a\n"},
      {"End closes a group", "VERSION 5.00\nBegin VB.Form a \n   BeginProperty Font \n   End\nEnd\nDim a\n",
       "sample.frm(4): End inside a property group", "Dim a\n"},
      {"EndProperty closes an object", "VERSION 5.00\nBegin VB.Form a \n   EndProperty\nDim a\n",
       "sample.frm(3): EndProperty without BeginProperty", "Dim a\n"},
      {"object in a group",
       "Begin VB.Form a \n   BeginProperty Font \n   Begin VB.Timer t \nEnd\nEndProperty\nEnd\n",
       "sample.frm(3): an object begins inside a property group", ""},
      {"class cut off", "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\n",
       "sample.frm(2): the file ends before the End of \"BEGIN\"", ""},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.what);
    DesignerFile file = DesignerFile::exactly(each.file);
    ASSERT_EQ(file.problems().size(), 1U);
    EXPECT_EQ(file.problems()[0].text(), each.problem);
    EXPECT_TRUE(file.header().opaque());
    EXPECT_EQ(file.code(), each.code);
    EXPECT_EQ(file.bytes(), each.file);
    if (file.header().designer() != nullptr) {
      EXPECT_EQ(file.controls()->Count(), 0);
      EXPECT_EQ(errorOf([&] { file.controls()->Add("VB.Timer"); }), 321);
      EXPECT_EQ(errorOf([&] { file.set("", "Name", std::string("b")); }), 321);
    } else {
      EXPECT_EQ(errorOf([&] { file.header().setClassSetting("MultiUse", 0, "False"); }), 321);
    }
    EXPECT_EQ(file.bytes(), each.file);
    EXPECT_FALSE(file.header().edited());
  }
  EXPECT_EQ((Problem{"a.vbp", 0, "file not found"}.text()), "a.vbp: file not found");
}

// Files that are made to hurt: linear time, no deep recursion, one line each.
TEST(ComponentHeader, SurvivesHostileFiles) {
  const auto nested = [](int levels) {
    return "VERSION 5.00\n" + base::repeat("Begin VB.Frame f \n", levels) + base::repeat("End\n", levels) +
           "Dim a\n";
  };
  const std::string megabyte(1 << 20, 'x');
  const struct {
    const char* what;
    std::string file;
    std::size_t problems;
    std::string code;
  } cases[] = {
      {"as deep as a file may", nested(kMaxNesting), 0, "Dim a\n"},
      {"one too deep", nested(kMaxNesting + 1), 1, "Dim a\n"},
      {"10,000 levels", nested(10000), 1, "Dim a\n"},
      {"a million levels without End", "VERSION 5.00\n" + base::repeat("Begin VB.Frame f \r", 1000000), 1,
       ""},
      {"50 MB without End",
       "VERSION 5.00\nBegin VB.Form a \n" + base::repeat("   Caption = \"" + megabyte + "\"\n", 50), 1, ""},
      {"one line of 50 MB", "VERSION 5.00\nBegin VB.Form " + base::repeat(megabyte, 50), 1, ""},
      {"8 MB of lone CR", "VERSION 5.00\rBegin VB.Form a\r" + base::repeat('\r', 8 << 20), 1, ""},
      {"8 MB of blank lines", base::repeat('\n', 8 << 20), 0, base::repeat('\n', 8 << 20)},
      {"NULs in the tree", "VERSION 5.00\nBegin VB.Form a" + std::string(4096, '\0') + "\n", 1, ""},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.what);
    DesignerFile file = DesignerFile::exactly(each.file);
    ASSERT_EQ(file.problems().size(), each.problems);
    for (const Problem& problem : file.problems()) {
      EXPECT_LT(problem.text().size(), 200U);
      EXPECT_EQ(problem.text().find_first_of(std::string_view("\r\n\0", 3)), std::string::npos);
    }
    EXPECT_TRUE(file.code() == each.code);
    file.header().designer();
    EXPECT_TRUE(file.bytes() == each.file);
  }
}

}  // namespace
}  // namespace kolvane::workspace
