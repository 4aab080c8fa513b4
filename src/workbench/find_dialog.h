// Find and replace over the host's own search: a procedure, a module, or the whole project.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <optional>

#include "workbench/documents.h"
#include "workbench/session.h"

namespace kolvane::workbench {

class FindDialog final : public QDialog {
 public:
  enum class Scope { kProcedure, kModule, kProject, kSelection };

  FindDialog(Session& session, Documents& documents, QWidget* parent);

  // Opens with the word that is selected.
  void present(bool replacing);
  // The next match behind the cursor; false, and a line that says so, when there is none.
  bool findNext();
  bool findPrevious();
  // Replaces the match that is selected, and finds the next one.
  void replace();
  // All matches of the scope; how many there were. One step of undo for all modules together. Modules that cannot be
  // edited are left alone, which is said.
  int replaceAll();

  QLineEdit& target() { return *target_; }
  QLineEdit& replacement() { return *replacement_; }
  QComboBox& scope() { return *scope_; }
  QCheckBox& wholeWord() { return *wholeWord_; }
  QCheckBox& matchCase() { return *matchCase_; }
  QCheckBox& pattern() { return *pattern_; }

  std::function<void(const std::function<void()>& work)> runCommand;

 private:
  using ComponentPtr = std::shared_ptr<workspace::Component>;
  bool find(bool forward);
  bool searchIn(const ComponentPtr& component, frame::TextRange& range);
  // Of several matches in the range the last.
  bool searchBack(const ComponentPtr& component, frame::TextRange& range);
  frame::TextRange limits(const ComponentPtr& component) const;
  std::vector<ComponentPtr> components() const;
  bool isMatch(const ComponentPtr& component, const frame::TextRange& range);
  bool hasMatch(const ComponentPtr& component);
  int replaceIn(const ComponentPtr& component);
  void say(const QString& text);
  void enableButtons();

  Session& session_;
  Documents& documents_;
  QLineEdit* target_;
  QLineEdit* replacement_;
  QComboBox* scope_;
  QCheckBox* wholeWord_;
  QCheckBox* matchCase_;
  QCheckBox* pattern_;
  QPushButton* next_;
  QPushButton* previous_;
  QPushButton* replaceOne_;
  QPushButton* replaceEvery_;
  QLabel* message_;
  std::optional<frame::TextRange> within_;  // the selection that the dialog was opened over
};

}  // namespace kolvane::workbench
