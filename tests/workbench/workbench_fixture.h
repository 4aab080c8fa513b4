// A workbench without a screen: files in memory, a desk that answers by script, and a user's hands.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <memory>
#include <string>

#include "forms/scripted_desk.h"
#include "platform/memory_files.h"
#include "platform/memory_tree_store.h"
#include "workbench/focus_keystrokes.h"
#include "workbench/main_window.h"
#include "workspace/module.h"

namespace kolvane::workbench {

inline QApplication& application() {
  static int argc = 1;
  static char name[] = "test_workbench";
  static char* argv[] = {name, nullptr};
  static const bool noScreen = qputenv("QT_QPA_PLATFORM", "offscreen");
  static QApplication* application = noScreen ? new QApplication(argc, argv) : nullptr;
  return *application;
}

class WorkbenchTest : public testing::Test {
 protected:
  WorkbenchTest() {
    application();
    write("/p/Demo.vbp", "Type=Exe\r\nModule=modMain; modMain.bas\r\nForm=frmMain.frm\r\nName=\"Demo\"\r\n");
    write("/p/modMain.bas", "Attribute VB_Name = \"modMain\"\r\n" + code_);
    write("/p/frmMain.frm",
          "VERSION 5.00\r\nBegin VB.Form frmMain \r\n   Caption         =   \"Main\"\r\n   ClientHeight    = "
          "  3195\r\n"
          "   ClientLeft      =   60\r\n   ClientTop       =   345\r\n   ClientWidth     =   4680\r\n"
          "   ScaleHeight     =   3195\r\n   ScaleWidth      =   4680\r\n"
          "   Begin VB.CommandButton cmdOK \r\n      Caption         =   \"&OK\"\r\n      Height          =  "
          " 495\r\n"
          "      Left            =   1200\r\n      TabIndex        =   0\r\n      Top             =   600\r\n"
          "      Width           =   1215\r\n   End\r\n"
          "   Begin VB.TextBox txtName \r\n      Height          =   285\r\n      Left            =   240\r\n"
          "      TabIndex        =   1\r\n      Top             =   120\r\n      Width           =   "
          "2175\r\n   End\r\n"
          "End\r\nAttribute VB_Name = \"frmMain\"\r\nOption Explicit\r\n\r\n"
          "Private Sub cmdOK_Click()\r\n    Unload Me\r\nEnd Sub\r\n");
  }
  ~WorkbenchTest() override {
    window_.reset();
    session_.reset();
  }

  void write(const std::string& path, const std::string& bytes) { files_->replace(path, bytes); }
  std::string read(const std::string& path) { return std::string(files_->read(path).content->bytes()); }

  // Starts the program with the project open.
  void start(bool withSuite = false) {
    session_ = std::make_unique<Session>(environment_);
    window_ = std::make_unique<MainWindow>(*session_);
    keystrokes_.beforeSending = [this] { window_->sync(); };
    window_->show();
    activate();
    ASSERT_TRUE(window_->files().open("/p/Demo.vbp"));
    if (withSuite) window_->start();
    window_->sync();
  }
  void activate() {
    window_->activateWindow();
    QApplication::setActiveWindow(window_.get());
    QApplication::processEvents();
  }

  std::shared_ptr<workspace::Component> component(std::string_view name) {
    return session_->host().projects().front()->find(name);
  }
  CodeEditor& openCode(std::string_view name = "modMain") {
    session_->host().openCode(component(name));
    window_->sync();
    CodeEditor& editor = window_->documents().currentCode()->editor();
    editor.setFocus();
    QApplication::processEvents();
    return editor;
  }
  std::string codeOf(std::string_view name = "modMain") {
    const auto module = component(name)->CodeModule();
    return module->Lines(1, module->CountOfLines());
  }
  static std::string textOf(const CodeEditor& editor) {
    return editor.text().replace("\n", "\r\n").toStdString();
  }
  void type(QWidget& widget, const char* text) {
    QTest::keyClicks(&widget, text);
    QApplication::processEvents();
  }
  void press(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers held = {}) {
    QTest::keyClick(&widget, key, held);
    QApplication::processEvents();
  }
  QAction* action(const QString& caption) {
    for (QAction* each : window_->actions())
      if (each->text().remove('&') == caption) return each;
    ADD_FAILURE() << "no action " << caption.toStdString();
    return nullptr;
  }
  void choose(const QString& caption) {
    if (QAction* each = action(caption)) each->trigger();
    QApplication::processEvents();
  }
  std::vector<std::string> told() {
    std::vector<std::string> texts;
    for (const forms::BoxRecord& box : desk_.takeLog()) texts.push_back(box.text);
    return texts;
  }

  std::string code_ =
      "Option Explicit\r\n"
      "\r\n"
      "Public Sub Main()\r\n"
      "    Debug.Print 1\r\n"
      "End Sub\r\n"
      "\r\n"
      "Private Function Total(ByVal Count As Long) As Long\r\n"
      "    Total = Count * 2\r\n"
      "End Function\r\n";
  std::unique_ptr<platform::Files> files_ = platform::makeMemoryFiles();
  platform::MemoryTreeStore store_;
  platform::MemoryClipboard clipboard_;
  platform::FixedClock clock_{{2026, 3, 14, 15, 9, 26}};
  platform::FixedUser user_{"Ann"};
  FocusKeystrokes keystrokes_;
  platform::NoWebPages pages_;
  forms::ScriptedDesk desk_;
  Environment environment_{*files_, clock_,     user_,
                           store_,  clipboard_, keystrokes_,
                           pages_,  desk_,      base::CodePage::get(base::CodePage::kDefault),
                           {}};
  std::unique_ptr<Session> session_;
  std::unique_ptr<MainWindow> window_;
};

}  // namespace kolvane::workbench
