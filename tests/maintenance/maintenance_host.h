// A saved project in memory with the tool Code Maintenance over it, driven through its dialog.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "forms/drive.h"
#include "maintenance/code_maintenance_form.h"
#include "support/memory_services.h"

namespace kolvane::test {

class MaintenanceHost {
 public:
  MaintenanceHost() {
    desk_.onDoEvents = [this] { watch(); };
  }

  // "Module1.bas" or "Class1.cls" with the code below its header; lines end in LF here.
  void put(const std::string& file, std::string_view code) {
    const std::string name = file.substr(0, file.find('.'));
    const bool isClass = file.ends_with(".cls");
    std::string bytes = isClass ? "VERSION 1.0 CLASS\r\nBEGIN\r\n  MultiUse = -1  'True\r\nEND\r\n" : "";
    bytes += "Attribute VB_Name = \"" + name + "\"\r\n";
    bytes += base::replaceAll(code, "\n", "\r\n");
    disk.replace("/p/" + file, bytes);
    vbp_ += (isClass ? "Class=" : "Module=") + name + "; " + file + "\r\n";
  }
  void open() {
    disk.replace("/p/p.vbp", "Type=Exe\r\n" + vbp_ + "Name=\"Project1\"\r\n");
    project = host->open("/p/p.vbp").at(0);
    for (const auto& problem : host->problems()) ADD_FAILURE() << problem.text();
  }
  void makeReadOnly(const std::string& file) {
    disk.setAttributes("/p/" + file, platform::kAttributeReadOnly | platform::kAttributeArchive);
  }
  void select(const std::string& name) { host->select(project->VBComponents()->Item(name)); }

  std::string text(const std::string& name) {
    const auto module = project->VBComponents()->Item(name)->CodeModule();
    return base::replaceAll(module->Lines(1, module->CountOfLines()), "\r\n", "\n") + "\n";
  }

  // ---- the dialog
  maintenance::frmCodeMaintenance& show(maintenance::Target target = maintenance::Target::kProject) {
    tool.Show_CodeMaintenance();
    forms::drive::set(tool.form(), "cboType", {.index = static_cast<int>(target)});
    return tool.form();
  }
  // Ticks these and no others.
  void tick(maintenance::OperationSet chosen) {
    auto& list = tool.form().lvwOptions;
    for (int row = 1; row <= list.count(); ++row)
      list.item(row).setChecked(
          chosen.has(maintenance::kOperations[static_cast<std::size_t>(row - 1)].operation));
  }
  // Shows the dialog for the target, ticks, and clicks OK.
  void run(maintenance::Target target, maintenance::OperationSet chosen) {
    show(target);
    tick(chosen);
    forms::drive::click(tool.form(), "cmdOK");
  }
  bool isOpen() { return desk_.openForms().find("frmCodeMaintenance") != nullptr; }
  maintenance::frmReport* report() {
    return dynamic_cast<maintenance::frmReport*>(desk_.openForms().find("frmReport"));
  }
  // The report that is shown, a line each row; "" without one.
  std::string reportText() {
    const auto* form = report();
    if (!form) return {};
    std::string all;
    for (int row = 0; row < form->grdResults.rows(); ++row) {
      std::vector<std::string> cells;
      for (int column = 0; column < form->grdResults.columns(); ++column)
        cells.push_back(form->grdResults.cell(row, column));
      all.append(base::rTrim(base::join(cells, " | "))).append("\n");
    }
    return all;
  }
  // Texts of the boxes since the last call.
  std::vector<std::string> boxes() {
    std::vector<std::string> texts;
    for (const auto& box : desk_.takeLog()) texts.push_back(box.text);
    return texts;
  }

  forms::ScriptedDesk& desk() { return desk_; }
  frame::Services& services() { return memory_.services; }
  // What the progress form and the dialog's caption showed, each once.
  std::vector<std::string> shown;

 private:
  void note(const std::string& text) {
    if (!text.empty() && (shown.empty() || shown.back() != text)) shown.push_back(text);
  }
  void watch() {
    if (const auto* form = dynamic_cast<frame::frmProgress*>(desk_.openForms().find("frmProgress")))
      note(form->lblModule.caption());
    if (whileRunning) whileRunning();
  }

  MemoryServices memory_;
  forms::ScriptedDesk& desk_ = memory_.desk;
  std::string vbp_;

 public:
  platform::MemoryFiles& disk = memory_.disk;
  const std::shared_ptr<workspace::Workspace>& host = memory_.host;
  std::shared_ptr<frame::VBProject> project;
  maintenance::Reports reports{memory_.services};
  maintenance::Callers callers{memory_.services, reports};
  maintenance::IndentState indent;
  maintenance::CodeMaintenance tool{{memory_.services, callers, indent}, reports};
  std::function<void()> whileRunning;
};

}  // namespace kolvane::test
