// A host for tests: the workspace with one project "Project1" that was never saved, and services whose clock
// and user stand still (2026-11-22 10:20:30, "ann"). Files, settings and clipboard live in memory.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "forms/scripted_desk.h"
#include "frame/services.h"

namespace kolvane::test {

class TestHost {
 public:
  TestHost();
  ~TestHost();
  TestHost(const TestHost&) = delete;
  TestHost& operator=(const TestHost&) = delete;

  frame::Services& services();

  // "Module1.bas", "Class1.cls", "Form1.frm", "Page1.pag", "Control1.ctl" or "Designer1.dsr"; the name in
  // front of the point is the component's. The code is taken as it is, nothing is re-cased. The component
  // becomes the active one.
  void addComponent(std::string_view fileName, const std::vector<std::string>& lines);
  // "Module1.bas" with the lines of `code`, the cursor at its top.
  frame::CodeModule& addModule(std::string_view code);
  // Makes the component's code pane the active one and the component the selected one.
  void activate(std::string_view fileName, const frame::TextRange& selection);
  // Edits raise 40198 from now on, or no longer.
  void setReadOnly(std::string_view fileName, bool readOnly);
  // No code pane is active and no component is selected.
  void deactivate();

  frame::CodeModule& module(std::string_view fileName);
  frame::VBComponent& component(std::string_view fileName);
  std::vector<std::string> lines(std::string_view fileName);
  frame::TextRange selection(std::string_view fileName);

  // Answers the boxes, and has a record of them.
  forms::ScriptedDesk& desk();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

}  // namespace kolvane::test
