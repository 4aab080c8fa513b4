// A code window: the lists of objects and procedures above the text, both in step with the cursor.
#pragma once

#include <QComboBox>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/code_editor.h"

namespace kolvane::workbench {

// Asks for its entries when it is opened, so that a long list costs nothing before.
class LateComboBox final : public QComboBox {
 public:
  using QComboBox::QComboBox;
  std::function<void()> beforeOpening;
  // Shows a text without the list behind it.
  void show(const QString& text);
  void showPopup() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
};

// One line of the list of procedures.
struct ProcedureEntry {
  std::string label;  // "Total", "Rate [PropertyGet]"
  std::string name;   // as the module knows it
  frame::ProcKind kind = frame::ProcKind::kProc;
  bool exists = true;
};

// What the two lists hold, reckoned from the module and its designer.
class CodeOutline {
 public:
  explicit CodeOutline(std::shared_ptr<workspace::Component> component) : component_(std::move(component)) {}

  // "(General)" first, the component's own object next, then the controls by name.
  std::vector<std::string> objects();
  // Of "(General)" the procedures that belong to no object, in the order of the alphabet, "(Declarations)"
  // first; of an object its events, those with a handler and those without.
  std::vector<ProcedureEntry> procedures(const std::string& object);
  // The entry that a line of the code belongs to.
  std::pair<std::string, std::string> placeOf(int line);
  // The object's own name for the list, and the event that a double click is about.
  std::string ownObject();
  std::string usualEvent(const std::string& object);
  // The first line of a procedure's body; writes the handler of an event that has none.
  int open(const std::string& object, const ProcedureEntry& entry);

 private:
  std::string objectOf(std::string_view procedure);
  std::string classOf(const std::string& object);

  std::shared_ptr<workspace::Component> component_;
};

inline constexpr const char* kGeneral = "(General)";
inline constexpr const char* kDeclarations = "(Declarations)";

class CodeWindow final : public QWidget {
 public:
  CodeWindow(std::shared_ptr<workspace::Component> component, const base::CodePage& codePage,
             QWidget* parent = nullptr);

  CodeEditor& editor() { return *editor_; }
  QComboBox& objectList() { return *objects_; }
  QComboBox& procedureList() { return *procedures_; }
  // The handler of a control, or of the component itself for an empty name: the one that comes first to mind. It is
  // written when it is not there.
  void openHandler(const std::string& control);
  // Both lists show where the cursor is.
  void followCursor();

 private:
  void fillObjects();
  void fillProcedures();
  void openProcedure(int index);
  void openObject(int index);
  void go(int line);

  const base::CodePage& codePage_;
  CodeOutline outline_;
  CodeEditor* editor_;
  LateComboBox* objects_;
  LateComboBox* procedures_;
  std::vector<ProcedureEntry> entries_;
  std::string object_ = kGeneral;
  int shownLine_ = 0;
  unsigned shownVersion_ = 0;
};

}  // namespace kolvane::workbench
