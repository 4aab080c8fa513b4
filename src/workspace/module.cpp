#include "workspace/module.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "workspace/event_procedure.h"
#include "workspace/workspace.h"

namespace kolvane::workspace {
namespace {

namespace errors = base::errors;

constexpr int kVisibleLines = 40;

std::shared_ptr<Component> checkedComponent(const std::weak_ptr<Component>& weak) {
  auto component = weak.lock();
  if (component == nullptr || component->isRemoved()) throw base::Error(errors::kObjectNotSet);
  return component;
}

class MemberObject final : public frame::Member {
 public:
  explicit MemberObject(MemberInfo info) : info_(std::move(info)) {}
  std::string Name() override { return info_.name; }
  frame::MemberType Type() override { return info_.type; }
  frame::MemberScope Scope() override { return info_.scope; }
  bool Static() override { return info_.isStatic; }
  int CodeLocation() override { return info_.codeLocation; }
  std::string Description() override { return info_.description; }
  long HelpContextID() override { return info_.helpContextId; }
  long StandardMethod() override { return info_.standardMethod; }
  bool Hidden() override { return (info_.memberFlags & kHiddenFlag) != 0; }

 private:
  static constexpr unsigned kHiddenFlag = 0x40;
  MemberInfo info_;
};

// Read anew after each edit of the code; between edits a look-up costs no reading.
class MemberList final : public frame::Members {
 public:
  explicit MemberList(std::weak_ptr<Component> component) : component_(std::move(component)) {}

  int Count() override { return static_cast<int>(list().size()); }
  std::shared_ptr<frame::Member> Item(int index) override {
    const auto& members = list();
    if (index < 1 || static_cast<std::size_t>(index) > members.size()) throw base::Error(errors::kSubscript);
    return members[static_cast<std::size_t>(index) - 1];
  }
  std::shared_ptr<frame::Member> Item(std::string_view name) override {
    for (const auto& member : list())
      if (base::equalNoCase(member->Name(), name)) return member;
    throw base::Error(errors::kSubscript);
  }

 private:
  const std::vector<std::shared_ptr<MemberObject>>& list() {
    const auto component = checkedComponent(component_);
    if (!read_ || version_ != component->codeVersion()) {
      list_.clear();
      for (MemberInfo& info : component->code().members())
        list_.push_back(std::make_shared<MemberObject>(std::move(info)));
      read_ = true;
      version_ = component->codeVersion();
    }
    return list_;
  }

  std::weak_ptr<Component> component_;
  std::vector<std::shared_ptr<MemberObject>> list_;
  unsigned version_ = 0;
  bool read_ = false;
};

// The position in the text that is next to `line` and `column`.
void clip(const CodeText& code, int& line, int& column) {
  const int count = code.countOfLines();
  if (count == 0) {
    line = column = 1;
    return;
  }
  const bool behind = line > count;
  line = std::clamp(line, 1, count);
  const int end = static_cast<int>(code.line(line).size()) + 1;
  column = behind ? end : std::clamp(column, 1, end);
}

// Where a line went to when `removed` lines at `line` became `inserted` ones.
int followed(int position, int line, int removed, int inserted) {
  if (position < line) return position;
  if (position >= line + removed) return position + inserted - removed;
  return std::min(position, line + std::max(inserted, 1) - 1);
}

}  // namespace

// ---- Module

std::shared_ptr<Component> Module::component() const { return checkedComponent(component_); }

CodeText& Module::editable() {
  const auto owner = component();
  owner->requireEditable();
  return owner->code();
}

std::shared_ptr<frame::VBComponent> Module::Parent() { return component(); }
std::string Module::Name() { return component()->name(); }
std::string Module::Lines(int start, int count) { return component()->code().lines(start, count); }
void Module::VisitLines(int start, int count, const std::function<void(std::string_view line)>& visit) {
  component()->code().visitLines(start, count, visit);
}
int Module::CountOfLines() { return component()->code().countOfLines(); }
int Module::CountOfDeclarationLines() { return component()->code().countOfDeclarationLines(); }
void Module::InsertLines(int line, std::string_view text) { editable().insertLines(line, text); }
void Module::DeleteLines(int start, int count) { editable().deleteLines(start, count); }
void Module::ReplaceLine(int line, std::string_view text) { editable().replaceLine(line, text); }
void Module::ReplaceLines(int start, int count, std::string_view text) {
  editable().replaceLines(start, count, text);
}
void Module::AddFromString(std::string_view text) { editable().addFromString(text); }

// The file's code as its code window would show it: without header and attribute lines.
void Module::AddFromFile(const std::string& path) {
  CodeText& code = editable();
  const auto owner = component()->workspace();
  const platform::ReadFile file = owner->files().read(owner->paths().toSystem(path));
  std::vector<Problem> ignored;
  const auto header = ComponentHeader::parse(file.content, file.content->bytes(), path, ignored);
  const CodeText text(CodeKind::kStandardModule, file.content,
                      file.content->bytes().substr(header.codeOffset()));
  code.addFromString(text.lines(1, text.countOfLines()));
}

int Module::CreateEventProc(std::string_view event, std::string_view object) {
  CodeText& code = editable();
  const auto owner = component();
  const std::string title = eventTitle(*owner, event, object);
  std::string text = code.countOfLines() > 0 ? std::string(base::kCrLf) : std::string();
  text.append(title).append("\r\n\r\nEnd Sub");
  code.insertLines(code.countOfLines() + 1, text);
  return code.countOfLines() - 2;
}

std::string Module::ProcOfLine(int line, frame::ProcKind& kind) {
  return component()->code().procOfLine(line, kind);
}

int Module::ProcStartLine(std::string_view name, frame::ProcKind kind) {
  return component()->code().procedure(name, kind).startLine;
}

int Module::ProcBodyLine(std::string_view name, frame::ProcKind kind) {
  return component()->code().procedure(name, kind).bodyLine;
}

int Module::ProcCountLines(std::string_view name, frame::ProcKind kind) {
  return component()->code().procedure(name, kind).countLines;
}

bool Module::Find(std::string_view target, frame::TextRange& range, bool wholeWord, bool matchCase,
                  bool patternSearch) {
  const auto owner = component();
  return owner->code().find(target, range, wholeWord, matchCase, patternSearch,
                            owner->project()->workspace()->paths().codePage());
}

std::shared_ptr<frame::CodePane> Module::CodePane() { return component()->pane(); }

std::shared_ptr<frame::Members> Module::Members() {
  component();
  return std::make_shared<MemberList>(component_);
}

// ---- Pane

std::shared_ptr<Component> Pane::component() const { return checkedComponent(component_); }

std::shared_ptr<frame::CodeModule> Pane::CodeModule() { return component()->CodeModule(); }

frame::TextRange Pane::GetSelection() {
  component();
  return selection_;
}

void Pane::SetSelection(const frame::TextRange& selection) {
  const auto owner = component();
  frame::TextRange clipped = selection;
  clip(owner->code(), clipped.startLine, clipped.startColumn);
  clip(owner->code(), clipped.endLine, clipped.endColumn);
  if (std::pair(clipped.endLine, clipped.endColumn) < std::pair(clipped.startLine, clipped.startColumn)) {
    std::swap(clipped.startLine, clipped.endLine);
    std::swap(clipped.startColumn, clipped.endColumn);
  }
  selection_ = clipped;
}

int Pane::TopLine() {
  component();
  return topLine_;
}

void Pane::setTopLine(int line) {
  const auto owner = component();
  if (line < 1) throw base::Error(errors::kInvalidCall);
  topLine_ = std::max(1, std::min(line, owner->code().countOfLines()));
}

int Pane::CountOfVisibleLines() {
  component();
  return kVisibleLines;
}

std::shared_ptr<frame::Window> Pane::Window() { return component()->window(frame::WindowType::kCodeWindow); }

void Pane::Show() {
  const auto owner = component();
  owner->workspace()->show(owner, frame::WindowType::kCodeWindow);
}

void Pane::follow(const CodeText& code, int line, int removed, int inserted) {
  if (code.countOfLines() == inserted)
    return SetSelection(selection_);  // nothing was there that could have moved
  selection_.startLine = followed(selection_.startLine, line, removed, inserted);
  selection_.endLine = followed(selection_.endLine, line, removed, inserted);
  clip(code, selection_.startLine, selection_.startColumn);
  clip(code, selection_.endLine, selection_.endColumn);
  // Lines put in at the top of the window come into view.
  const int top = topLine_ == line ? topLine_ : followed(topLine_, line, removed, inserted);
  topLine_ = std::max(1, std::min(top, code.countOfLines()));
}

}  // namespace kolvane::workspace
