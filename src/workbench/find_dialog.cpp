#include "workbench/find_dialog.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <tuple>

#include "base/error.h"
#include "qt/text_convert.h"
#include "workspace/module.h"

namespace kolvane::workbench {
namespace {

constexpr std::pair<int, int> startOf(const frame::TextRange& range) {
  return {range.startLine, range.startColumn};
}
constexpr std::pair<int, int> endOf(const frame::TextRange& range) {
  return {range.endLine, range.endColumn};
}

}  // namespace

FindDialog::FindDialog(Session& session, Documents& documents, QWidget* parent)
    : QDialog(parent),
      session_(session),
      documents_(documents),
      target_(new QLineEdit(this)),
      replacement_(new QLineEdit(this)),
      scope_(new QComboBox(this)),
      wholeWord_(new QCheckBox("Find Whole Word &Only", this)),
      matchCase_(new QCheckBox("Match Ca&se", this)),
      pattern_(new QCheckBox("&Use Pattern Matching", this)),
      next_(new QPushButton("Find &Next", this)),
      previous_(new QPushButton("Find &Previous", this)),
      replaceOne_(new QPushButton("&Replace", this)),
      replaceEvery_(new QPushButton("Replace &All", this)),
      message_(new QLabel(this)) {
  setWindowTitle("Find and Replace");
  scope_->addItems({"Current Procedure", "Current Module", "Current Project", "Selected Text"});
  scope_->setCurrentIndex(static_cast<int>(Scope::kModule));
  auto* fields = new QFormLayout;
  fields->addRow("Fin&d What:", target_);
  fields->addRow("Replace &With:", replacement_);
  fields->addRow("Searc&h:", scope_);
  auto* options = new QVBoxLayout;
  for (QCheckBox* option : {wholeWord_, matchCase_, pattern_}) options->addWidget(option);
  message_->setWordWrap(true);
  auto* left = new QVBoxLayout;
  left->addLayout(fields);
  left->addLayout(options);
  left->addWidget(message_);
  left->addStretch(1);
  auto* close = new QPushButton("Close", this);
  auto* buttons = new QVBoxLayout;
  for (QPushButton* button : {next_, previous_, replaceOne_, replaceEvery_, close}) {
    button->setAutoDefault(button == next_);
    buttons->addWidget(button);
  }
  buttons->addStretch(1);
  auto* row = new QHBoxLayout(this);
  row->addLayout(left, 1);
  row->addLayout(buttons);
  next_->setDefault(true);
  connect(next_, &QPushButton::clicked, this, [this] { findNext(); });
  connect(previous_, &QPushButton::clicked, this, [this] { findPrevious(); });
  connect(replaceOne_, &QPushButton::clicked, this, [this] { replace(); });
  connect(replaceEvery_, &QPushButton::clicked, this, [this] { replaceAll(); });
  connect(close, &QPushButton::clicked, this, &QDialog::hide);
  connect(target_, &QLineEdit::textChanged, this, [this] { enableButtons(); });
  // The host's search takes one of the two.
  connect(matchCase_, &QCheckBox::toggled, this, [this](bool on) {
    if (on) pattern_->setChecked(false);
  });
  connect(pattern_, &QCheckBox::toggled, this, [this](bool on) {
    if (on) matchCase_->setChecked(false);
  });
  enableButtons();
}

void FindDialog::enableButtons() {
  for (QPushButton* button : {next_, previous_, replaceOne_, replaceEvery_})
    button->setEnabled(!target_->text().isEmpty());
  message_->clear();
}

void FindDialog::present(bool replacing) {
  within_.reset();
  if (const CodeWindow* code = documents_.currentCode()) {
    auto& editor = const_cast<CodeWindow*>(code)->editor();
    const frame::TextRange selection = editor.selection();
    const bool severalLines = selection.startLine != selection.endLine;
    if (severalLines) within_ = selection;
    scope_->setCurrentIndex(static_cast<int>(severalLines ? Scope::kSelection : Scope::kModule));
    if (!severalLines && editor.hasSelectedText()) target_->setText(editor.selectedText());
  }
  show();
  raise();
  activateWindow();
  (replacing && !target_->text().isEmpty() ? replacement_ : target_)->setFocus();
  target_->selectAll();
}

void FindDialog::say(const QString& text) { message_->setText(text); }

bool FindDialog::findNext() { return find(true); }
bool FindDialog::findPrevious() { return find(false); }

std::vector<FindDialog::ComponentPtr> FindDialog::components() const {
  const ComponentPtr current = documents_.currentComponent();
  if (static_cast<Scope>(scope_->currentIndex()) != Scope::kProject) {
    if (current && documents_.currentCode()) return {current};
    return {};
  }
  std::shared_ptr<workspace::Project> project =
      current ? current->project()
              : std::dynamic_pointer_cast<workspace::Project>(session_.host().ActiveVBProject());
  std::vector<ComponentPtr> all;
  if (!project) return all;
  for (const auto& component : project->components())
    if (component->hasSource()) all.push_back(component);
  // Round from the one that is shown.
  const auto first = std::find(all.begin(), all.end(), current);
  if (first != all.end()) std::rotate(all.begin(), first, all.end());
  return all;
}

frame::TextRange FindDialog::limits(const ComponentPtr& component) const {
  const workspace::CodeText& code = component->code();
  frame::TextRange whole{1, 1, std::max(1, code.countOfLines()), -1};
  const auto scope = static_cast<Scope>(scope_->currentIndex());
  if (scope == Scope::kSelection && within_) return *within_;
  if (scope != Scope::kProcedure) return whole;
  frame::ProcKind kind{};
  const int line = component->pane()->GetSelection().startLine;
  const std::string name = component->code().procOfLine(line, kind);
  if (name.empty()) return {1, 1, std::max(1, code.countOfDeclarationLines()), -1};
  const auto procedure = component->code().procedure(name, kind);
  return {procedure.startLine, 1, procedure.startLine + procedure.countLines - 1, -1};
}

bool FindDialog::searchIn(const ComponentPtr& component, frame::TextRange& range) {
  if (std::tuple(range.startLine, range.startColumn) > std::tuple(range.endLine, range.endColumn) &&
      range.endColumn != -1)
    return false;
  return component->module()->Find(qt::fromQt(session_.codePage(), target_->text()), range,
                                   wholeWord_->isChecked(), matchCase_->isChecked(), pattern_->isChecked());
}

bool FindDialog::searchBack(const ComponentPtr& component, frame::TextRange& range) {
  std::optional<frame::TextRange> last;
  frame::TextRange rest = range;
  while (searchIn(component, rest)) {
    last = rest;
    rest = {last->endLine, std::max(last->endColumn, last->startColumn + 1), range.endLine, range.endColumn};
  }
  if (last) range = *last;
  return last.has_value();
}

bool FindDialog::find(bool forward) {
  if (target_->text().isEmpty()) {
    present(false);
    return false;
  }
  bool found = false;
  session_.attempt([&] {
    const std::vector<ComponentPtr> places = components();
    for (std::size_t i = 0; i <= places.size() && !found && !places.empty(); ++i) {
      // The module that is shown is gone through twice: from the cursor on, and at last up to it.
      const ComponentPtr& component = places[i % places.size()];
      frame::TextRange range = limits(component);
      if (i == 0) {
        const frame::TextRange cursor = component->pane()->GetSelection();
        if (forward) std::tie(range.startLine, range.startColumn) = endOf(cursor);
        if (!forward) std::tie(range.endLine, range.endColumn) = startOf(cursor);
      }
      found = forward ? searchIn(component, range) : searchBack(component, range);
      if (!found) continue;
      session_.host().openCode(component);
      documents_.sync();
      if (CodeWindow* code = documents_.codeOf(*component)) code->editor().select(range);
    }
    say(found ? QString() : QStringLiteral("“%1” was not found.").arg(target_->text()));
  });
  return found;
}

bool FindDialog::isMatch(const ComponentPtr& component, const frame::TextRange& range) {
  frame::TextRange found = range;
  return startOf(range) != endOf(range) && searchIn(component, found) && found == range;
}

void FindDialog::replace() {
  CodeWindow* code = documents_.currentCode();
  if (code == nullptr || code->editor().isReadOnly()) return say("This module cannot be edited.");
  const ComponentPtr component = code->editor().component();
  session_.attempt([&] {
    const frame::TextRange range = component->pane()->GetSelection();
    if (!isMatch(component, range)) return;
    code->editor().replaceSelectedText(replacement_->text());
  });
  findNext();
}

int FindDialog::replaceAll() {
  int count = 0;
  QStringList left;
  SharedUndo& history = documents_.sharedUndo();
  const auto work = [&] {
    session_.attempt([&] {
      for (const ComponentPtr& component : components()) {
        if (!hasMatch(component)) continue;
        if (component->isReadOnly()) {
          left += session_.text(component->name());
          continue;
        }
        history.willChange(component);
        count += replaceIn(component);
      }
    });
  };
  history.begin();
  if (runCommand)
    runCommand(work);
  else
    work();
  history.end();
  QString result = count == 1 ? QStringLiteral("1 replacement was made.")
                              : QStringLiteral("%1 replacements were made.").arg(count);
  if (!left.isEmpty()) result += " Read-only, and left alone: " + left.join(", ") + ".";
  say(result);
  return count;
}

bool FindDialog::hasMatch(const ComponentPtr& component) {
  frame::TextRange range = limits(component);
  return searchIn(component, range);
}

int FindDialog::replaceIn(const ComponentPtr& component) {
  const std::string with = qt::fromQt(session_.codePage(), replacement_->text());
  const auto module = component->CodeModule();
  frame::TextRange range = limits(component);
  const frame::TextRange whole = range;
  int count = 0;
  int grown = 0;  // of the last line, by what was put into it
  while (searchIn(component, range)) {
    std::string line(component->code().line(range.startLine));
    const auto start = static_cast<std::size_t>(range.startColumn) - 1;
    const auto length = static_cast<std::size_t>(range.endColumn - range.startColumn);
    line.replace(start, length, with);
    module->ReplaceLine(range.startLine, line);
    if (range.startLine == whole.endLine && whole.endColumn != -1)
      grown += static_cast<int>(with.size()) - static_cast<int>(length);
    ++count;
    const int behind = range.startColumn + static_cast<int>(with.size()) + (length == 0 ? 1 : 0);
    range = {range.startLine, behind, whole.endLine, whole.endColumn == -1 ? -1 : whole.endColumn + grown};
    if (range.startColumn > static_cast<int>(line.size()) + 1)
      range.startColumn = static_cast<int>(line.size()) + 1;
  }
  return count;
}

}  // namespace kolvane::workbench
