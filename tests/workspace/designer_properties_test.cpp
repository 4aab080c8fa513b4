// Properties of forms and controls: what is read out of a file, and the file after an edit.
#include <gtest/gtest.h>

#include "workspace/class_tables.h"
#include "workspace/designer_support.h"

namespace kolvane::workspace {
namespace {

using frame::ObjectValue;
using frame::Value;
using test::DesignerFile;
using test::errorOf;

constexpr std::string_view kForm = R"(VERSION 5.00
Begin VB.Form frmOptions 
   BorderStyle     =   3  'Fester Dialog
   Caption         =   "Options"
   ClientHeight    =   3000
   ClientLeft      =   45
   ClientTop       =   330
   ClientWidth     =   4500
   Icon            =   "frmOptions.frx":0000
   LinkTopic       =   "Form1"
   ScaleHeight     =   3000
   ScaleWidth      =   4500
   BeginProperty Font 
      Name            =   "Tahoma"
      Size            =   8.25
      Charset         =   0
      Weight          =   400
      Underline       =   0   'False
      Italic          =   0   'False
      Strikethrough   =   0   'False
   EndProperty
   Begin VB.ListBox lstKinds 
      Height          =   1035
      ItemData        =   "frmOptions.frx":014A
      Left            =   120
      List            =   "frmOptions.frx":0152
      TabIndex        =   2
      Top             =   1800
      Width           =   1215
   End
   Begin VB.TextBox txtPath 
      Alignment       =   2  'Zentriert
      BackColor       =   &H80000005&
      Enabled         =   0   'False
      Height          =   315
      Left            =   120
      TabIndex        =   1
      Text            =   "C:\""a"""
      Top             =   720
      Width           =   1.00090e5
   End
   Begin VB.Label lblPath 
      Height          =   195
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   855
   End
End
Attribute VB_Name = "frmOptions"
)";

// The sample with one piece replaced; fails when the piece is not there.
std::string changed(std::string_view sample, std::string_view from, std::string_view to) {
  EXPECT_NE(sample.find(from), std::string_view::npos) << from;
  return base::replaceAll(sample, from, to);
}

TEST(DesignerProperties, GiveWhatTheFileHoldsAndDefaultsForTheRest) {
  DesignerFile file{kForm};
  EXPECT_EQ(file.get("txtPath", "text"), Value(std::string("C:\\\"a\"")));
  EXPECT_EQ(file.get("txtPath", "Alignment"), Value(2L));
  EXPECT_EQ(file.get("txtPath", "Enabled"), Value(false));
  EXPECT_EQ(file.get("txtPath", "Visible"), Value(true));
  EXPECT_EQ(file.get("txtPath", "BackColor"), Value(-2147483643L));
  EXPECT_EQ(file.get("txtPath", "ForeColor"), Value(-2147483640L));
  EXPECT_EQ(file.get("txtPath", "Width"), Value(100090.0));
  EXPECT_EQ(file.get("txtPath", "Index"), Value(-1L));
  EXPECT_EQ(file.get("txtPath", "Name"), Value(std::string("txtPath")));
  EXPECT_EQ(file.get("lblPath", "Caption"), Value(std::string()));
  EXPECT_EQ(file.get("lstKinds", "List"), Value(ObjectValue{"List", "\"frmOptions.frx\":0152", {}}));
  EXPECT_EQ(file.get("lstKinds", "DragIcon"), Value(ObjectValue{"Picture", "", {}}));
  EXPECT_EQ(file.get("", "Icon"), Value(ObjectValue{"Picture", "\"frmOptions.frx\":0000", {}}));
  EXPECT_EQ(file.get("", "Name"), Value(std::string("frmOptions")));
  EXPECT_EQ(file.get("", "ClientWidth"), Value(4500L));
  EXPECT_EQ(errorOf([&] { file.get("lblPath", "TabStop"); }), 438);
  EXPECT_EQ(errorOf([&] { file.get("", "Index"); }), 438);
}

TEST(DesignerProperties, AreListedByTheAlphabetWithoutRegardToCase) {
  DesignerFile file{kForm};
  const auto properties = file.control("lblPath")->Properties();
  std::vector<std::string> names;
  for (const auto& property : properties->items()) names.push_back(property->Name());
  EXPECT_EQ(static_cast<int>(names.size()), properties->Count());
  EXPECT_TRUE(std::is_sorted(names.begin(), names.end(), base::LessNoCase()));
  for (const char* expected : {"BackStyle", "Caption", "DataSource", "Name", "TabIndex", "UseMnemonic"})
    EXPECT_EQ(std::count(names.begin(), names.end(), expected), 1) << expected;
  EXPECT_EQ(errorOf([&] { properties->Item(0); }), 9);
  EXPECT_EQ(errorOf([&] { properties->Item(properties->Count() + 1); }), 9);
  EXPECT_EQ(errorOf([&] { properties->Item("Nothing"); }), 438);
}

// One edit each, and the whole file after it.
TEST(DesignerProperties, AreWrittenAsTheIdeWritesThem) {
  const struct {
    const char* control;
    const char* property;
    Value value;
    const char* from;
    const char* to;
  } cases[] = {
      {"lblPath", "Caption", std::string("&Path \"x\":"), "lblPath \n",
       "lblPath \n      Caption         =   \"&Path \"\"x\"\":\"\n"},
      {"lblPath", "Alignment", 1L, "lblPath \n", "lblPath \n      Alignment       =   1  'Right Justify\n"},
      {"lblPath", "alignment", std::string("2"), "lblPath \n",
       "lblPath \n      Alignment       =   2  'Center\n"},
      {"lblPath", "WordWrap", true, "      Width           =   855\n",
       "      Width           =   855\n      WordWrap        =   -1  'True\n"},
      {"lblPath", "UseMnemonic", std::string("False"), "      Width           =   855\n",
       "      UseMnemonic     =   0   'False\n      Width           =   855\n"},
      {"lblPath", "WhatsThisHelpID", 70000L, "      Width           =   855\n",
       "      WhatsThisHelpID =   70000\n      Width           =   855\n"},
      {"lblPath", "ForeColor", 255L, "      Height          =   195\n",
       "      ForeColor       =   &H000000FF&\n      Height          =   195\n"},
      {"lblPath", "ForeColor", std::string("&H8000000D&"), "      Height          =   195\n",
       "      ForeColor       =   &H8000000D&\n      Height          =   195\n"},
      {"lblPath", "Top", 62.5, "Top             =   120", "Top             =   62.5"},
      {"lblPath", "Top", 123456.0, "Top             =   120", "Top             =   1.23456e5"},
      {"lblPath", "Left", 0L, "      Left            =   120\n      TabIndex        =   0\n",
       "      Left            =   0\n      TabIndex        =   0\n"},
      {"lblPath", "CausesTrouble", 0L, "", ""},
      {"txtPath", "Alignment", 1L, "2  'Zentriert", "1  'Right Justify"},
      {"txtPath", "Alignment", 0L, "      Alignment       =   2  'Zentriert\n", ""},
      {"txtPath", "Enabled", true, "      Enabled         =   0   'False\n", ""},
      {"txtPath", "Text", std::string(), "      Text            =   \"C:\\\"\"a\"\"\"\n", ""},
      {"txtPath", "ScrollBars", 2L, "      TabIndex        =   1\n",
       "      ScrollBars      =   2  'Vertical\n      TabIndex        =   1\n"},
      {"txtPath", "Index", 4L, "      Left            =   120\n      TabIndex        =   1\n",
       "      Index           =   4\n      Left            =   120\n      TabIndex        =   1\n"},
      {"lstKinds", "List", std::monostate(), "      List            =   \"frmOptions.frx\":0152\n", ""},
      {"", "Caption", std::string(), "   Caption         =   \"Options\"\n", ""},
      {"", "LinkTopic", std::string("Form1"), "", ""},
      {"", "LinkTopic", std::string(), "\"Form1\"", "\"\""},
      {"", "WindowState", 2L, "   BeginProperty Font",
       "   WindowState     =   2  'Maximized\n   BeginProperty Font"},
      {"", "BorderStyle", 2L, "   BorderStyle     =   3  'Fester Dialog\n", ""},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(std::string(each.control) + "." + each.property);
    DesignerFile file{kForm};
    if (std::string_view(each.property) == "CausesTrouble") {
      EXPECT_EQ(errorOf([&] { file.set(each.control, each.property, each.value); }), 438);
      continue;
    }
    file.set(each.control, each.property, each.value);
    const std::string_view from = each.from;
    EXPECT_EQ(file.text(), from.empty() ? std::string(kForm) : changed(kForm, from, each.to));
    EXPECT_EQ(file.header().edited(), !from.empty());
    if (!from.empty() && std::string_view(each.property) != "Index") {
      EXPECT_EQ(file.takeLog(), "edited");
    }
  }
}

TEST(DesignerProperties, StayAsTheyAreWhenTheirOwnValueIsSet) {
  DesignerFile file{kForm};
  for (const auto& control : file.controls()->items())
    for (const auto& property : control->Properties()->items()) {
      property->setValue(property->value());
      property->setValue(frame::toText(property->value()));
    }
  for (const auto& property : file.host().properties()->items())
    if (!property->Name().starts_with("Client")) property->setValue(property->value());
  EXPECT_EQ(file.text(), kForm);
  EXPECT_FALSE(file.header().edited());
  EXPECT_EQ(file.takeLog(), "");
}

TEST(DesignerProperties, RefuseWhatDoesNotFit) {
  DesignerFile file{kForm};
  const struct {
    const char* control;
    const char* property;
    Value value;
    long error;
  } cases[] = {
      {"txtPath", "Enabled", std::string("maybe"), 13},
      {"txtPath", "MaxLength", std::string("ten"), 13},
      {"txtPath", "MaxLength", std::string(), 13},
      {"txtPath", "MaxLength", 3e9, 6},
      {"txtPath", "LinkTimeout", 32768L, 6},
      {"txtPath", "Left", 1e39, 6},
      {"txtPath", "Text", ObjectValue{"Font", "x", {}}, 13},
      {"txtPath", "Text", std::string("two\r\nlines"), 321},
      {"txtPath", "MouseIcon", std::string("icon"), 13},
      {"txtPath", "MouseIcon", ObjectValue{"Picture", "\"x.frx\":0000", {}}, 321},
      {"txtPath", "Font", 12L, 13},
      {"txtPath", "TabIndex", -1L, 380},
      {"txtPath", "Index", -2L, 380},
      {"txtPath", "Nothing", 1L, 438},
      {"", "ClientWidth", 1L, 383},
  };
  for (const auto& each : cases)
    EXPECT_EQ(errorOf([&] { file.set(each.control, each.property, each.value); }), each.error)
        << each.property;
  file.refuseEdits();
  EXPECT_EQ(errorOf([&] { file.set("txtPath", "Text", std::string("new")); }), 40198);
  EXPECT_EQ(errorOf([&] { file.property("txtPath", "Font")->Object()->Item("Bold")->setValue(true); }),
            40198);
  EXPECT_EQ(errorOf([&] { file.set("txtPath", "Name", std::string("new")); }), 40198);
  EXPECT_EQ(errorOf([&] { file.controls()->Add("VB.Label"); }), 40198);
  EXPECT_EQ(errorOf([&] { file.controls()->Remove(file.control("txtPath")); }), 40198);
  EXPECT_EQ(file.text(), kForm);
  EXPECT_FALSE(file.header().edited());
}

TEST(DesignerProperties, FontsAreGroups) {
  DesignerFile file{kForm};
  const auto font = file.property("lblPath", "Font");
  EXPECT_EQ(frame::toText(font->value()), "MS Sans Serif");
  EXPECT_EQ(font->Object()->Count(), 7);
  EXPECT_EQ(font->Object()->Item("Size")->value(), Value(8.25));
  EXPECT_EQ(font->Object()->Item("bold")->value(), Value(false));
  EXPECT_EQ(errorOf([&] { font->Object()->Item("Colour"); }), 438);
  EXPECT_EQ(file.property("lblPath", "Caption")->Object(), nullptr);

  // The defaults change nothing; the first other value brings the whole group.
  font->setValue(std::string("MS Sans Serif"));
  font->Object()->Item("Weight")->setValue(400L);
  EXPECT_EQ(file.text(), kForm);
  font->Object()->Item("Bold")->setValue(true);
  font->Object()->Item("Size")->setValue(std::string("9.75"));
  file.property("", "Font")->Object()->Item("Italic")->setValue(true);
  std::string expected = changed(kForm, "lblPath \n", R"(lblPath 
      BeginProperty Font 
         Name            =   "MS Sans Serif"
         Size            =   9.75
         Charset         =   0
         Weight          =   700
         Underline       =   0   'False
         Italic          =   0   'False
         Strikethrough   =   0   'False
      EndProperty
)");
  expected = changed(expected, "      Italic          =   0   'False\n      Strike",
                     "      Italic          =   -1  'True\n      Strike");
  EXPECT_EQ(file.text(), expected);

  // A font can be given as a whole; one part that does not fit keeps all of it out.
  const Value whole = font->value();
  EXPECT_EQ(errorOf([&] {
              file.set("txtPath", "Font", ObjectValue{"Font", "", {{"Bold", "True"}, {"Size", "large"}}});
            }),
            13);
  EXPECT_EQ(file.text(), expected);
  file.set("txtPath", "Font", whole);
  EXPECT_EQ(file.get("txtPath", "Font"), whole);
  EXPECT_EQ(file.property("txtPath", "Font")->Object()->Item("Bold")->value(), Value(true));
}

TEST(DesignerProperties, OfOtherLibrariesAreWhatTheirFileHolds) {
  constexpr std::string_view kSample = R"(VERSION 5.00
Begin VB.Form a 
   Begin MSFlexGridLib.MSFlexGrid grd 
      Height          =   1035
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
      _ExtentX        =   2143
      Appearance      =   0
      Width           =   3
      BackColorBkg    =   &H80000005&
      Redraw          =   -1  'Verdadero
      FormatString    =   "a|b"
      FontSize        =   8,25
      Notes           =   $"a.frx":0000
      Odd             =   ?%
      BeginProperty Panels {8E3867A5-8586-11D1-B16A-00C0F0283628} 
         NumPanels       =   1
         BeginProperty Panel1 {8E3867AB-8586-11D1-B16A-00C0F0283628} 
            Object.Width           =   1764
            Text            =   "Time"
         EndProperty
      EndProperty
   End
   Begin MSComDlg.CommonDialog dlg 
      Left            =   120
      Top             =   960
      _ExtentX        =   847
   End
End
)";
  DesignerFile file{kSample};
  EXPECT_EQ(file.get("grd", "_ExtentX"), Value(2143L));
  EXPECT_EQ(file.get("grd", "Width"), Value(1215.0));
  EXPECT_EQ(file.get("grd", "Redraw"), Value(true));
  EXPECT_EQ(file.get("grd", "FontSize"), Value(8.25));
  EXPECT_EQ(file.get("grd", "Odd"), Value(std::string("?%")));
  EXPECT_EQ(file.get("grd", "Notes"), Value(ObjectValue{"Text", "$\"a.frx\":0000", {}}));
  EXPECT_EQ(file.get("grd", "TabStop"), Value(true));
  EXPECT_EQ(file.get("grd", "Index"), Value(-1L));
  EXPECT_EQ(errorOf([&] { file.get("dlg", "TabStop"); }), 438);
  EXPECT_EQ(errorOf([&] { file.get("dlg", "Cols"); }), 438);
  const auto panel = file.property("grd", "Panels")->Object()->Item("Panel1")->Object();
  EXPECT_EQ(panel->Item("Object.Width")->value(), Value(1764L));
  for (const auto& control : file.controls()->items())
    for (const auto& property : control->Properties()->items()) property->setValue(property->value());
  EXPECT_EQ(file.text(), kSample);

  panel->Item("Text")->setValue(std::string("Date"));
  file.set("grd", "Width", 2000L);
  file.set("grd", "Redraw", false);
  file.set("grd", "BackColorBkg", 0L);
  file.set("grd", "FontSize", 9.5);
  file.set("grd", "Notes", std::string("inline"));
  file.set("grd", "TabStop", false);
  EXPECT_EQ(errorOf([&] { file.set("grd", "Odd", std::string("other")); }), 383);
  EXPECT_EQ(errorOf([&] { file.set("grd", "Panels", std::string("other")); }), 13);
  std::string expected = changed(kSample, "\"Time\"", "\"Date\"");
  expected = changed(expected, "=   1215", "=   2000");
  expected = changed(expected, "-1  'Verdadero", "0   'False");
  expected = changed(expected, "&H80000005&", "&H00000000&");
  expected = changed(expected, "8,25", "9.5");
  expected = changed(expected, "$\"a.frx\":0000", "\"inline\"");
  expected = changed(expected, "      Top             =   120\n",
                     "      TabStop         =   0   'False\n      Top             =   120\n");
  EXPECT_EQ(file.text(), expected);
}

// A line that other hands have spelled keeps its spelling around the new value.
TEST(DesignerProperties, KeepTheLayoutThatTheyFind) {
  DesignerFile file = DesignerFile::exactly(
      "VERSION 5.00\nBegin VB.Form a\n\tCaption\t= \"x\"  \n\tBegin VB.Label l\n\t\tTop=5\n\tEnd\nEnd\n");
  file.set("", "Caption", std::string("y"));
  file.set("l", "Top", 6L);
  file.set("l", "Visible", false);
  EXPECT_EQ(file.bytes(),
            "VERSION 5.00\nBegin VB.Form a\n\tCaption\t= \"y\"\n\tBegin VB.Label l\n\t\tTop=6\n"
            "\t\tVisible         =   0   'False\n\tEnd\nEnd\n");
}

TEST(DesignerProperties, OfAFormFollowItsClientArea) {
  DesignerFile file{kForm};
  EXPECT_EQ(file.get("", "Left"), Value(0.0));
  EXPECT_EQ(file.get("", "Top"), Value(0.0));
  EXPECT_EQ(file.get("", "Width"), Value(4590.0));
  EXPECT_EQ(file.get("", "Height"), Value(3375.0));
  file.set("", "Width", 6090L);
  file.set("", "Left", 300L);
  file.set("", "ScaleMode", 3L);
  std::string expected = changed(kForm, "ClientWidth     =   4500", "ClientWidth     =   6000");
  expected = changed(expected, "ClientLeft      =   45", "ClientLeft      =   345");
  expected =
      changed(expected, "   ScaleHeight     =   3000\n   ScaleWidth      =   4500\n",
              "   ScaleHeight     =   200\n   ScaleMode       =   3  'Pixel\n   ScaleWidth      =   400\n");
  EXPECT_EQ(file.text(), expected);
  EXPECT_EQ(file.get("", "Width"), Value(6090.0));
  file.set("", "Height", 3525L);
  expected = changed(expected, "ClientHeight    =   3000", "ClientHeight    =   3150");
  expected = changed(expected, "ScaleHeight     =   200", "ScaleHeight     =   210");
  EXPECT_EQ(file.text(), expected);
}

TEST(DesignerProperties, ColoursFollowAFlatAppearance) {
  constexpr std::string_view kSample = R"(Begin VB.Form a 
   Begin VB.CheckBox chk 
      Height          =   495
      TabIndex        =   0
   End
End
)";
  DesignerFile file{kSample};
  file.set("chk", "Appearance", 0L);
  EXPECT_EQ(file.text(),
            changed(kSample, "chk \n",
                    "chk \n      Appearance      =   0  'Flat\n      BackColor       =   &H80000005&\n"
                    "      ForeColor       =   &H80000008&\n"));
  file.set("chk", "Appearance", 1L);
  EXPECT_EQ(file.text(), kSample);
}

TEST(DesignerProperties, OfClassesAndModules) {
  const std::string sample =
      "VERSION 1.0 CLASS\nBEGIN\n  MultiUse = -1  'True\nEND\nAttribute VB_Name = \"clsA\"\n"
      "Attribute VB_GlobalNameSpace = False\nAttribute VB_Creatable = True\nAttribute VB_PredeclaredId = "
      "False\n"
      "Attribute VB_Exposed = False\n";
  for (const long instancing : {1L, 2L, 3L, 4L, 5L, 6L}) {
    DesignerFile file{sample};
    EXPECT_EQ(file.get("", "Instancing"), Value(1L));
    file.set("", "Instancing", instancing);
    EXPECT_EQ(file.get("", "Instancing"), Value(instancing));
    EXPECT_EQ(file.header().edited(), instancing != 1);
  }
  DesignerFile file{sample};
  EXPECT_EQ(file.host().form(), nullptr);
  EXPECT_EQ(file.host().properties()->Count(), 6);
  file.set("", "Persistable", 1L);
  file.set("", "Name", std::string("clsB"));
  EXPECT_EQ(errorOf([&] { file.set("", "Instancing", 7L); }), 380);
  EXPECT_EQ(errorOf([&] { file.set("", "MTSTransactionMode", 9L); }), 380);
  EXPECT_EQ(file.takeLog(), "edited, component renamed");
  EXPECT_EQ(file.text(),
            changed(changed(sample, "'True\n", "'True\n  Persistable = 1  'Persistable\n"), "clsA", "clsB"));

  DesignerFile module{"Attribute VB_Name = \"modA\"\n"};
  EXPECT_EQ(module.host().properties()->Count(), 1);
  EXPECT_EQ(module.get("", "Name"), Value(std::string("modA")));
}

TEST(ClassTables, KnowEventsAndTheirObjects) {
  EXPECT_EQ(eventParameters("TextBox", "mousedown"),
            "Button As Integer, Shift As Integer, X As Single, Y As Single");
  EXPECT_EQ(eventParameters("VB.CommandButton", "Click"), "");
  EXPECT_EQ(eventParameters("CommandButton", "DblClick"), std::nullopt);
  EXPECT_EQ(eventParameters("MSComctlLib.ListView", "Click"), std::nullopt);
  EXPECT_EQ(eventParameters("Data", "Validate"), "Action As Integer, Save As Integer");
  EXPECT_EQ(eventParameters("VB.Form", "QueryUnload"), "Cancel As Integer, UnloadMode As Integer");
  EXPECT_EQ(findEvent("VB.Form", "queryunload")->name, "QueryUnload");
  EXPECT_EQ(eventObjectName("VB.MDIForm"), "MDIForm");
  EXPECT_EQ(eventObjectName("Class"), "Class");
  EXPECT_EQ(eventObjectName("VB.TextBox"), "");
}

}  // namespace
}  // namespace kolvane::workspace
