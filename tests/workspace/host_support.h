// A host over files in memory, and a record of its events as text.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/code_page.h"
#include "base/error.h"
#include "base/text.h"
#include "platform/clipboard.h"
#include "platform/memory_files.h"
#include "workspace/workspace.h"

namespace kolvane::workspace::test {

// Samples are written with "\n"; files have CR LF.
inline std::string file(std::string_view text) { return base::replaceAll(text, "\n", "\r\n"); }
inline std::string shown(std::string_view bytes) { return base::replaceAll(bytes, "\r\n", "\n"); }

// "error 40198", or "" when the call raises none.
template <typename Call>
std::string raised(Call&& call) {
  try {
    call();
    return {};
  } catch (const base::Error& error) {
    return "error " + std::to_string(error.number());
  }
}

class Host {
 public:
  void put(const std::string& path, std::string_view text) { files.replace(path, file(text)); }
  std::string text(const std::string& path) { return shown(files.read(path).content->bytes()); }

  std::shared_ptr<frame::VBProject> open(const std::string& path) { return host->open(path).front(); }
  std::shared_ptr<frame::VBComponent> component(std::string_view name) {
    return host->ActiveVBProject()->VBComponents()->Item(name);
  }
  std::shared_ptr<frame::CodeModule> code(std::string_view name) { return component(name)->CodeModule(); }

  // Each open project with its components: "Ledger: modMain(1) frmMain(5)".
  std::string tree() {
    std::string result;
    for (const auto& project : host->VBProjects()->items()) {
      result += project->Name() + ":";
      for (const auto& each : project->VBComponents()->items())
        result += " " + each->Name() + "(" + std::to_string(static_cast<int>(each->Type())) + ")";
      result += "\n";
    }
    return result;
  }

  std::string problems() {
    std::string result;
    for (const Problem& problem : host->problems()) result += problem.text() + "\n";
    return result;
  }

  // Begins to write down every event.
  void record() {
    const auto events = host->Events();
    const auto project = [](const auto& each) { return each->Name(); };
    frame::VBProjectsHandlers projects;
    projects.ItemAdded = [=, this](const auto& each) { note("project added " + project(each)); };
    projects.ItemRemoved = [=, this](const auto& each) { note("project removed " + project(each)); };
    projects.ItemActivated = [=, this](const auto& each) { note("project activated " + project(each)); };
    projects.ItemRenamed = [=, this](const auto& each, const std::string& old) {
      note("project renamed " + project(each) + " from " + old);
    };
    keep(events->VBProjectsEvents(projects));
    keep(events->VBComponentsEvents(nullptr, componentHandlers()));
    keep(events->VBControlsEvents(nullptr, nullptr, controlHandlers()));
    frame::FileControlHandlers fileEvents;
    fileEvents.BeforeLoadFile = [this](const auto&, const std::string& path) { note("before load " + path); };
    fileEvents.AfterAddFile = [this](const auto&, const std::string& path) { note("after add " + path); };
    fileEvents.AfterRemoveFile = [this](const auto&, const std::string& path) {
      note("after remove " + path);
    };
    fileEvents.RequestWriteFile = [this](const auto&, const std::string& path, bool& cancel) {
      note("request write " + path);
      cancel = cancelWrites;
    };
    fileEvents.AfterWriteFile = [this](const auto&, const std::string& path, int result) {
      note("after write " + path + " " + std::to_string(result));
    };
    keep(events->FileControlEvents(nullptr, fileEvents));
    keep(events->VBBuildEvents({[this] { note("design mode"); }, [this] { note("run mode"); }}));
  }
  std::string take() { return std::exchange(log_, {}); }
  void note(const std::string& line) { log_ += line + "\n"; }
  void keep(base::Subscription subscription) { subscriptions_.push_back(std::move(subscription)); }

  frame::VBComponentsHandlers componentHandlers() {
    const auto simple = [this](const std::string& what) {
      return
          [this, what](const std::shared_ptr<frame::VBComponent>& each) { note(what + " " + each->Name()); };
    };
    frame::VBComponentsHandlers handlers;
    handlers.ItemAdded = simple("added");
    handlers.ItemRemoved = simple("removed");
    handlers.ItemActivated = simple("activated");
    handlers.ItemSelected = simple("selected");
    handlers.ItemReloaded = simple("reloaded");
    handlers.ItemRenamed = [this](const auto& each, const std::string& old) {
      note("renamed " + each->Name() + " from " + old);
    };
    return handlers;
  }

  frame::VBControlsHandlers controlHandlers() {
    frame::VBControlsHandlers handlers;
    handlers.ItemAdded = [this](const auto& control) { note("control added " + nameOf(control)); };
    handlers.ItemRemoved = [this](const auto& control) { note("control removed " + nameOf(control)); };
    handlers.ItemRenamed = [this](const auto& control, const std::string& old, int) {
      note("control renamed " + nameOf(control) + " from " + old);
    };
    return handlers;
  }

  static std::string nameOf(const std::shared_ptr<frame::VBControl>& control) {
    return frame::toText(control->Properties()->Item("Name")->value());
  }

  platform::MemoryFiles files;
  platform::MemoryClipboard clipboard;
  std::shared_ptr<Workspace> host =
      Workspace::create(files, clipboard, base::CodePage::get(base::CodePage::kDefault));
  bool cancelWrites = false;

 private:
  std::string log_;
  std::vector<base::Subscription> subscriptions_;
};

// A small project with one component of each kind that matters.
inline constexpr std::string_view kLedgerProject = R"(Type=Exe
Reference=*\G{00020430-0000-0000-C000-000000000046}#2.0#0#..\..\Windows\System32\stdole2.tlb#OLE Automation
Reference=*\G{00000206-0000-0010-8000-00AA006D2EA4}#2.a#0#C:\ado\msado26.tlb#Microsoft ActiveX Data Objects 2.6 Library
Module=modMain; Source\modMain.bas
Form=frmMain.frm
Class=clsAccount; clsAccount.cls
RelatedDoc=readme.txt
Startup="frmMain"
HelpFile=""
Title="The "Ledger" program"
ExeName32="Ledger.exe"
Name="Ledger"
Description="Keeps accounts"
MajorVer=1

[MS Transaction Server]
AutoRefresh=1
)";

inline constexpr std::string_view kMainModule = R"(Attribute VB_Name = "modMain"
Option Explicit

Public Sub Main()
    frmMain.Show
End Sub

' Adds two amounts.
Public Function Sum(ByVal a As Long, ByVal b As Long) As Long
    Sum = a + b
End Function
)";

inline constexpr std::string_view kMainForm = R"(VERSION 5.00
Begin VB.Form frmMain 
   Caption         =   "Ledger"
   ClientHeight    =   3195
   ClientWidth     =   4680
   Icon            =   "frmMain.frx":0000
   ScaleHeight     =   3195
   ScaleWidth      =   4680
   Begin VB.CommandButton cmdOK 
      Caption         =   "OK"
      Height          =   495
      Left            =   120
      TabIndex        =   0
      Top             =   120
      Width           =   1215
   End
   Begin VB.TextBox txtAmount 
      Height          =   285
      Index           =   0
      Left            =   120
      TabIndex        =   1
      Text            =   $"frmMain.frx":0442
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
Private WithEvents mAccount As clsAccount
Attribute mAccount.VB_VarHelpID = -1
Private Sub cmdOK_Click()
    Unload Me
End Sub
)";

inline constexpr std::string_view kAccountClass = R"(VERSION 1.0 CLASS
BEGIN
  MultiUse = -1  'True
END
Attribute VB_Name = "clsAccount"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = False
Attribute VB_Ext_KEY = "SavedWithClassBuilder6" ,"Yes"
Option Explicit
Public Event Changed(ByVal Amount As Currency, _
    Cancel As Boolean)
Public Property Get Balance() As Currency
Attribute Balance.VB_Description = "What is left"
Attribute Balance.VB_UserMemId = 0
End Property
)";

class LedgerHost : public Host {
 public:
  LedgerHost() {
    put("/p/Ledger/Ledger.vbp", kLedgerProject);
    put("/p/Ledger/Source/modMain.bas", kMainModule);
    put("/p/Ledger/frmMain.frm", kMainForm);
    put("/p/Ledger/frmMain.frx", std::string("\1\0\2", 3));
    put("/p/Ledger/clsAccount.cls", kAccountClass);
    put("/p/Ledger/readme.txt", "read me");
  }
  std::shared_ptr<frame::VBProject> ledger() { return open("/p/Ledger/Ledger.vbp"); }
};

}  // namespace kolvane::workspace::test
