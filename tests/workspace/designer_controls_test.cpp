// Controls as a collection: finding, adding, removing, renaming, arrays, tab order, selection, and how they
// end.
#include <gtest/gtest.h>

#include "workspace/designer_support.h"

namespace kolvane::workspace {
namespace {

using frame::Value;
using test::DesignerFile;
using test::errorOf;

constexpr std::string_view kForm = R"(VERSION 5.00
Begin VB.Form frmMain 
   ClientHeight    =   3195
   ClientWidth     =   4680
   ScaleHeight     =   3195
   ScaleWidth      =   4680
   Begin VB.Frame fraSide 
      Caption         =   "Side"
      Height          =   1215
      Left            =   120
      TabIndex        =   2
      Top             =   120
      Width           =   2415
      Begin VB.OptionButton optSide 
         Height          =   255
         Index           =   1
         TabIndex        =   4
      End
      Begin VB.OptionButton optSide 
         Height          =   255
         Index           =   0
         TabIndex        =   3
      End
   End
   Begin VB.TextBox txtNote 
      Height          =   495
      TabIndex        =   1
   End
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Height          =   495
      TabIndex        =   0
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
         Shortcut        =   ^Q
      End
   End
End
Attribute VB_Name = "frmMain"
Private Sub cmdOK_Click()
End Sub
)";

std::string names(frame::Collection<frame::VBControl>& controls) {
  std::string all;
  for (const auto& control : controls.items()) {
    all += (all.empty() ? "" : " ") + DesignerFile::nameOf(control);
    if (const Value index = control->Properties()->Item("Index")->value(); index != Value(-1L))
      all += "(" + frame::toText(index) + ")";
  }
  return all;
}

std::string changed(std::string_view sample, std::string_view from, std::string_view to) {
  EXPECT_NE(sample.find(from), std::string_view::npos) << from;
  return base::replaceAll(sample, from, to);
}

TEST(DesignerControls, AreFoundInFileOrderByNameAndElement) {
  DesignerFile file{kForm};
  const auto controls = file.controls();
  EXPECT_EQ(names(*controls), "fraSide optSide(1) optSide(0) txtNote cmdOK mnuFile mnuFileExit");
  EXPECT_EQ(names(*file.host().form()->ContainedVBControls()), "fraSide txtNote cmdOK mnuFile");
  EXPECT_EQ(names(*controls->Item("frasIDE")->ContainedVBControls()), "optSide(1) optSide(0)");
  EXPECT_EQ(controls->Item("optSide")->Properties()->Item("Index")->value(), Value(1L));
  EXPECT_EQ(controls->Item("optSide(0)")->Properties()->Item("Index")->value(), Value(0L));
  EXPECT_EQ(controls->Item("optSide"), controls->Item(2));
  EXPECT_EQ(DesignerFile::nameOf(controls->Item("optSide")->Container()), "fraSide");
  EXPECT_EQ(controls->Item("fraSide")->Container(), nullptr);
  EXPECT_EQ(controls->Item("txtNote")->Parent(), file.host().form());
  EXPECT_EQ(controls->Item("txtNote")->ClassName(), "TextBox");
  EXPECT_EQ(controls->Item("txtNote")->ProgId(), "VB.TextBox");
  EXPECT_EQ(controls->Item("fraSide")->ControlType(), 3);
  for (const char* unknown : {"optSide(7)", "optSide(x)", "cmdok(0)", "", "frmMain"})
    EXPECT_EQ(errorOf([&] { controls->Item(unknown); }), 9) << unknown;
  EXPECT_EQ(errorOf([&] { controls->Item(0); }), 9);
  EXPECT_EQ(errorOf([&] { controls->Item(8); }), 9);
}

TEST(DesignerControls, AreAddedAsTheDesignerDoes) {
  DesignerFile file{kForm};
  file.controls()->Add("VB.CommandButton");
  file.controls()->Add("VB.TextBox", file.control("fraSide"), "txtInside");
  file.controls()->Add("VB.PictureBox");
  file.controls()->Add("VB.Line");
  file.controls()->Add("VB.Timer");
  file.controls()->Add("VB.Menu", nullptr, "mnuHelp");
  file.controls()->Add("VB.Menu", file.control("mnuFile"), "mnuFileBar");
  EXPECT_EQ(file.takeLog(),
            "edited, added Command1, edited, added txtInside, edited, added Picture1, edited, added Line1, "
            "edited, added Timer1, edited, added mnuHelp, edited, added mnuFileBar");
  std::string expected = changed(kForm, "   Begin VB.Frame fraSide \n", R"(   Begin VB.Timer Timer1 
      Left            =   2340
      Top             =   1597
   End
   Begin VB.Line Line1 
      X1              =   1732
      X2              =   2947
      Y1              =   1350
      Y2              =   1845
   End
   Begin VB.PictureBox Picture1 
      Height          =   495
      Left            =   1732
      ScaleHeight     =   435
      ScaleWidth      =   1155
      TabIndex        =   7
      Top             =   1350
      Width           =   1215
   End
   Begin VB.CommandButton Command1 
      Caption         =   "Command1"
      Height          =   495
      Left            =   1732
      TabIndex        =   5
      Top             =   1350
      Width           =   1215
   End
   Begin VB.Frame fraSide 
)");
  expected = changed(expected, "      Width           =   2415\n", R"(      Width           =   2415
      Begin VB.TextBox txtInside 
         Height          =   495
         Left            =   600
         TabIndex        =   6
         Text            =   "txtInside"
         Top             =   360
         Width           =   1215
      End
)");
  expected = changed(expected, "         Shortcut        =   ^Q\n      End\n   End\n",
                     R"(         Shortcut        =   ^Q
      End
      Begin VB.Menu mnuFileBar 
         Caption         =   ""
      End
   End
   Begin VB.Menu mnuHelp 
      Caption         =   ""
   End
)");
  EXPECT_EQ(file.text(), expected);
}

TEST(DesignerControls, TakeTheSmallestFreeNumberAndTheContainersUnits) {
  DesignerFile file{
      "Begin VB.Form a \n   ScaleHeight     =   200\n   ScaleMode       =   3  'Pixel\n"
      "   ScaleWidth      =   400\n   Begin VB.Label Label1 \n      TabIndex        =   0\n   End\n"
      "   Begin VB.Label Label3 \n      TabIndex        =   1\n   End\nEnd\n"};
  const auto label = file.controls()->Add("vb.label");
  EXPECT_EQ(DesignerFile::nameOf(label), "Label2");
  EXPECT_EQ(label->ProgId(), "VB.Label");
  EXPECT_EQ(file.get("Label2", "Width"), Value(81.0));
  EXPECT_EQ(file.get("Label2", "Left"), Value(159.0));
  EXPECT_EQ(DesignerFile::nameOf(file.controls()->Add("MSComctlLib.ListView")), "ListView1");
  EXPECT_EQ(file.get("ListView1", "TabIndex"), Value(3L));
}

TEST(DesignerControls, RefuseWhatCannotBe) {
  DesignerFile file{kForm};
  DesignerFile other{kForm};
  const struct {
    const char* progId;
    const char* container;
    const char* name;
    long error;
  } cases[] = {
      {"VB.TextBox", "cmdOK", "", 5},
      {"VB.TextBox", "mnuFile", "", 5},
      {"VB.Menu", "fraSide", "mnuX", 5},
      {"VB.Form", "", "", 5},
      {"VB.Nothing", "", "", 5},
      {"", "", "", 5},
      {"Some.Thing\r\nEnd", "", "", 5},
      {"VB.Menu", "", "", 50132},
      {"VB.Label", "", "1st", 50132},
      {"VB.Label", "", "a b", 50132},
      {"VB.Label", "", "_a", 50132},
      {"VB.Label", "", "TXTNOTE", 32813},
      {"VB.OptionButton", "", "optSide", 32813},
  };
  for (const auto& each : cases) {
    const auto container = *each.container == '\0' ? nullptr : file.control(each.container);
    EXPECT_EQ(errorOf([&] { file.controls()->Add(each.progId, container, each.name); }), each.error)
        << each.progId << " " << each.name;
  }
  EXPECT_EQ(errorOf([&] { file.controls()->Add("VB.Label", nullptr, std::string(41, 'a')); }), 50132);
  EXPECT_EQ(errorOf([&] { file.controls()->Add("VB.Label", other.control("fraSide")); }), 5);
  EXPECT_EQ(errorOf([&] { file.controls()->Remove(other.control("fraSide")); }), 5);
  EXPECT_EQ(errorOf([&] { file.controls()->Remove(nullptr); }), 91);
  DesignerFile mdi{"Begin VB.MDIForm a \nEnd\n"};
  EXPECT_EQ(errorOf([&] { mdi.controls()->Add("VB.TextBox"); }), 5);
  mdi.controls()->Add("VB.PictureBox");
  EXPECT_EQ(file.text(), kForm);
  EXPECT_EQ(file.takeLog(), "");
}

TEST(DesignerControls, GoWithWhatTheyHoldAndTheOthersCloseTheGap) {
  DesignerFile file{kForm};
  const auto option = file.control("optSide(1)");
  const auto caption = file.property("fraSide", "Caption");
  const auto contained = file.control("fraSide")->ContainedVBControls();
  option->setInSelection(true);
  file.takeLog();
  file.controls()->Remove(file.control("cmdOK"));
  EXPECT_EQ(file.takeLog(), "removed cmdOK, edited");
  file.controls()->Remove(file.control("fraSide"));
  EXPECT_EQ(file.takeLog(), "removed optSide, deselected optSide, removed optSide, removed fraSide, edited");
  EXPECT_EQ(file.text(), R"(VERSION 5.00
Begin VB.Form frmMain 
   ClientHeight    =   3195
   ClientWidth     =   4680
   ScaleHeight     =   3195
   ScaleWidth      =   4680
   Begin VB.TextBox txtNote 
      Height          =   495
      TabIndex        =   0
   End
   Begin VB.Menu mnuFile 
      Caption         =   "&File"
      Begin VB.Menu mnuFileExit 
         Caption         =   "E&xit"
         Shortcut        =   ^Q
      End
   End
End
Attribute VB_Name = "frmMain"
Private Sub cmdOK_Click()
End Sub
)");
  EXPECT_EQ(file.host().form()->SelectedVBControls()->Count(), 0);
  EXPECT_EQ(errorOf([&] { option->ClassName(); }), 91);
  EXPECT_EQ(errorOf([&] { option->Properties(); }), 91);
  EXPECT_EQ(errorOf([&] { option->setInSelection(true); }), 91);
  EXPECT_EQ(errorOf([&] { caption->value(); }), 91);
  EXPECT_EQ(errorOf([&] { caption->setValue(std::string("x")); }), 91);
  EXPECT_EQ(errorOf([&] { contained->Count(); }), 91);
  EXPECT_EQ(errorOf([&] { file.controls()->Remove(option); }), 91);
}

TEST(DesignerControls, AreRenamed) {
  DesignerFile file{kForm};
  file.set("cmdOK", "Name", std::string("cmdClose"));
  file.set("optSide(0)", "Name", std::string("optOther"));
  EXPECT_EQ(file.takeLog(),
            "edited, renamed cmdClose from cmdOK(-1), edited, renamed optOther from optSide(0)");
  std::string expected = changed(kForm, "VB.CommandButton cmdOK ", "VB.CommandButton cmdClose ");
  expected = changed(
      expected, "VB.OptionButton optSide \n         Height          =   255\n         Index           =   0",
      "VB.OptionButton optOther \n         Height          =   255\n         Index           =   0");
  EXPECT_EQ(file.text(), expected);
  EXPECT_EQ(errorOf([&] { file.control("cmdOK"); }), 9);
  EXPECT_EQ(errorOf([&] { file.set("cmdClose", "Name", std::string("txtNote")); }), 32813);
  EXPECT_EQ(errorOf([&] { file.set("cmdClose", "Name", std::string()); }), 50132);
  EXPECT_EQ(errorOf([&] { file.set("txtNote", "Name", std::string("optSide")); }), 32813);
  file.set("optOther", "Name", std::string("optSide"));
  file.set("cmdClose", "Name", std::string("cmdOK"));
  EXPECT_EQ(file.text(), kForm);
  file.set("", "Name", std::string("frmLedger"));
  EXPECT_EQ(file.header().attribute("VB_Name"), "frmLedger");
}

TEST(DesignerControls, FormArraysByTheirIndex) {
  DesignerFile file{kForm};
  file.set("cmdOK", "Index", 0L);
  const auto second = file.controls()->Add("VB.CommandButton");
  file.takeLog();
  EXPECT_EQ(errorOf([&] { file.set("Command1", "Name", std::string("cmdOK")); }), 32813);
  second->Properties()->Item("Index")->setValue(1L);
  second->Properties()->Item("Name")->setValue(std::string("cmdOK"));
  EXPECT_EQ(file.takeLog(),
            "edited, renamed Command1 from Command1(-1), edited, renamed cmdOK from Command1(1)");
  EXPECT_EQ(errorOf([&] { second->Properties()->Item("Index")->setValue(0L); }), 360);
  EXPECT_EQ(errorOf([&] { second->Properties()->Item("Index")->setValue(-1L); }), 32813);
  EXPECT_EQ(file.control("cmdOK(1)"), second);
}

TEST(DesignerControls, KeepADenseTabOrder) {
  DesignerFile file{kForm};
  file.set("txtNote", "TabIndex", 1L);
  EXPECT_EQ(file.takeLog(), "");
  const auto order = [&] {
    std::string all;
    for (const char* name : {"cmdOK", "txtNote", "fraSide", "optSide(0)", "optSide(1)"})
      all += frame::toText(file.get(name, "TabIndex"));
    return all;
  };
  EXPECT_EQ(order(), "01234");
  file.set("optSide(1)", "TabIndex", 1L);
  EXPECT_EQ(order(), "02341");
  file.set("cmdOK", "TabIndex", 99L);
  EXPECT_EQ(order(), "41230");
  EXPECT_EQ(file.takeLog(), "edited, edited");
}

TEST(DesignerControls, KeepTheOrderOfTheirSelection) {
  DesignerFile file{kForm};
  const auto selected = file.host().form()->SelectedVBControls();
  file.control("cmdOK")->setInSelection(true);
  file.control("fraSide")->setInSelection(true);
  file.control("txtNote")->setInSelection(true);
  file.control("fraSide")->setInSelection(true);
  file.control("fraSide")->setInSelection(false);
  file.control("fraSide")->setInSelection(true);
  EXPECT_EQ(names(*selected), "cmdOK txtNote fraSide");
  EXPECT_TRUE(file.control("txtNote")->InSelection());
  EXPECT_EQ(file.takeLog(),
            "selected cmdOK, selected fraSide, selected txtNote, deselected fraSide, selected fraSide");
  EXPECT_EQ(file.text(), kForm);
}

TEST(DesignerControls, KnowShortcuts) {
  DesignerFile file{kForm};
  EXPECT_EQ(file.get("mnuFileExit", "Shortcut"), Value(std::string("^Q")));
  file.set("mnuFileExit", "Shortcut", std::string("+{F3}"));
  EXPECT_EQ(file.text(), changed(kForm, "^Q", "+{F3}"));
  EXPECT_EQ(errorOf([&] { file.set("mnuFileExit", "Shortcut", std::string("a key")); }), 380);
  file.set("mnuFileExit", "Shortcut", std::string());
  EXPECT_EQ(file.text(), changed(kForm, "         Shortcut        =   ^Q\n", ""));
  file.set("mnuFile", "Caption", std::string());
  EXPECT_NE(file.text().find("Caption         =   \"\"\n      Begin VB.Menu"), std::string::npos);
}

// A handler may itself remove what is being removed, or close the form.
TEST(DesignerControls, SurviveHandlersThatGoFurther) {
  const std::string sample = test::crLf(kForm);
  for (const bool closes : {false, true}) {
    std::vector<Problem> problems;
    ComponentHeader header = ComponentHeader::parse(nullptr, sample, "sample.frm", problems);
    std::unique_ptr<DesignerHost> host;
    DesignerCallbacks callbacks;
    std::string log;
    callbacks.controlRemoved = [&](const std::shared_ptr<frame::VBControl>& control) {
      log += DesignerFile::nameOf(control) + " ";
      if (closes) return host.reset();
      const auto controls = control->Parent()->VBControls();
      if (log == "optSide ") controls->Remove(controls->Item("fraSide"));
    };
    host = std::make_unique<DesignerHost>(header, callbacks, nullptr);
    const auto controls = host->form()->VBControls();
    controls->Remove(controls->Item("fraSide"));
    EXPECT_EQ(log, closes ? "optSide " : "optSide optSide optSide fraSide ");
    EXPECT_EQ(header.edited(), !closes);
    if (!closes) {
      EXPECT_EQ(names(*controls), "txtNote cmdOK mnuFile mnuFileExit");
    }
  }
}

TEST(DesignerControls, OfOtherLibrariesBringTheirObjectLine) {
  std::vector<Problem> problems;
  const std::string sample = "VERSION 5.00\nBegin VB.Form a \nEnd\n";
  ComponentHeader header = ComponentHeader::parse(nullptr, sample, "a.frm", problems);
  int asked = 0;
  DesignerCallbacks callbacks;
  callbacks.objectLine = [&](std::string_view progId) {
    ++asked;
    return "\"{1}#1.0#0\"; \"" + std::string(progId) + ".ocx\"";
  };
  DesignerHost host(header, callbacks, nullptr);
  host.form()->VBControls()->Add("Parts.Gauge");
  host.form()->VBControls()->Add("Parts.Gauge");
  host.form()->VBControls()->Add("VB.Label");
  EXPECT_EQ(asked, 1);
  EXPECT_EQ(header.objectLines(), (std::vector<std::string>{"\"{1}#1.0#0\"; \"Parts.Gauge.ocx\""}));
}

// What outlives its form says so, on every call.
TEST(DesignerControls, EndWithTheirForm) {
  DesignerFile file{kForm};
  const auto form = file.host().form();
  const auto controls = form->VBControls();
  const auto control = controls->Item("txtNote");
  const auto properties = file.host().properties();
  const auto caption = properties->Item("Caption");
  const auto font = caption == nullptr ? nullptr : file.property("txtNote", "Font")->Object();
  file.closeHost();
  EXPECT_EQ(errorOf([&] { form->VBControls(); }), 91);
  EXPECT_EQ(errorOf([&] { form->SelectedVBControls(); }), 91);
  EXPECT_EQ(errorOf([&] { form->Parent(); }), 91);
  EXPECT_EQ(errorOf([&] { controls->Count(); }), 91);
  EXPECT_EQ(errorOf([&] { controls->Add("VB.Label"); }), 91);
  EXPECT_EQ(errorOf([&] { control->ProgId(); }), 91);
  EXPECT_EQ(errorOf([&] { control->Container(); }), 91);
  EXPECT_EQ(errorOf([&] { properties->Count(); }), 91);
  EXPECT_EQ(errorOf([&] { caption->setValue(std::string("x")); }), 91);
  EXPECT_EQ(errorOf([&] { font->Item("Bold")->value(); }), 91);
}

}  // namespace
}  // namespace kolvane::workspace
