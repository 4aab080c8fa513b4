// The code of a component as tools see it, and the pane that shows it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "frame/host.h"
#include "workspace/component.h"

namespace kolvane::workspace {

class Module final : public frame::CodeModule {
 public:
  explicit Module(std::weak_ptr<Component> component) : component_(std::move(component)) {}
  using frame::CodeModule::ProcOfLine;

  std::shared_ptr<frame::VBComponent> Parent() override;
  std::string Name() override;
  std::string Lines(int start, int count) override;
  int CountOfLines() override;
  void VisitLines(int start, int count, const std::function<void(std::string_view line)>& visit) override;
  int CountOfDeclarationLines() override;
  void InsertLines(int line, std::string_view text) override;
  void DeleteLines(int start, int count) override;
  void ReplaceLine(int line, std::string_view text) override;
  void ReplaceLines(int start, int count, std::string_view text) override;
  void AddFromString(std::string_view text) override;
  void AddFromFile(const std::string& path) override;
  int CreateEventProc(std::string_view event, std::string_view object) override;
  std::string ProcOfLine(int line, frame::ProcKind& kind) override;
  int ProcStartLine(std::string_view name, frame::ProcKind kind) override;
  int ProcBodyLine(std::string_view name, frame::ProcKind kind) override;
  int ProcCountLines(std::string_view name, frame::ProcKind kind) override;
  bool Find(std::string_view target, frame::TextRange& range, bool wholeWord, bool matchCase,
            bool patternSearch) override;
  std::shared_ptr<frame::CodePane> CodePane() override;
  std::shared_ptr<frame::Members> Members() override;

 private:
  std::shared_ptr<Component> component() const;
  // The component's code, for an edit.
  CodeText& editable();

  std::weak_ptr<Component> component_;
};

// A cursor or selection and the first line shown. They follow edits: what stands behind an edit moves with
// its text.
class Pane final : public frame::CodePane {
 public:
  explicit Pane(std::weak_ptr<Component> component) : component_(std::move(component)) {}

  std::shared_ptr<frame::CodeModule> CodeModule() override;
  frame::TextRange GetSelection() override;
  void SetSelection(const frame::TextRange& selection) override;
  int TopLine() override;
  void setTopLine(int line) override;
  int CountOfVisibleLines() override;
  std::shared_ptr<frame::Window> Window() override;
  void Show() override;

  // `removed` lines at `line` became `inserted` ones.
  void follow(const CodeText& code, int line, int removed, int inserted);

 private:
  std::shared_ptr<Component> component() const;

  std::weak_ptr<Component> component_;
  frame::TextRange selection_;
  int topLine_ = 1;
};

}  // namespace kolvane::workspace
