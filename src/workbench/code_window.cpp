#include "workbench/code_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <set>

#include "base/error.h"
#include "base/text.h"
#include "qt/text_convert.h"
#include "workspace/class_tables.h"

namespace kolvane::workbench {
namespace {

constexpr std::array<std::string_view, 4> kKindMarks = {"", " [PropertyLet]", " [PropertySet]",
                                                        " [PropertyGet]"};

// Where it is not Click.
struct UsualEvent {
  std::string_view className;
  std::string_view event;
};
constexpr std::array kUsualEvents = {
    UsualEvent{"ComboBox", "Change"},
    UsualEvent{"Data", "Validate"},
    UsualEvent{"DirListBox", "Change"},
    UsualEvent{"DriveListBox", "Change"},
    UsualEvent{"Form", "Load"},
    UsualEvent{"HScrollBar", "Change"},
    UsualEvent{"MDIForm", "Load"},
    UsualEvent{"OLE", "Updated"},
    UsualEvent{"TextBox", "Change"},
    UsualEvent{"Timer", "Timer"},
    UsualEvent{"UserControl", "Initialize"},
    UsualEvent{"VScrollBar", "Change"},
    UsualEvent{"PropertyPage", "Initialize"},
};

}  // namespace

// ---- the list that fills itself

void LateComboBox::show(const QString& text) {
  if (count() == 1 && itemText(0) == text) return;
  const QSignalBlocker quiet(this);
  clear();
  addItem(text);
  setCurrentIndex(0);
}

void LateComboBox::showPopup() {
  if (beforeOpening) beforeOpening();
  QComboBox::showPopup();
}

void LateComboBox::keyPressEvent(QKeyEvent* event) {
  // The list is not there yet for keys that walk through it.
  if (count() <= 1 && beforeOpening) beforeOpening();
  QComboBox::keyPressEvent(event);
}

// ---- outline

std::vector<std::string> CodeOutline::objects() {
  std::vector<std::string> names;
  if (const auto form = component_->Designer()) {
    std::set<std::string, base::LessNoCase> sorted;
    for (const auto& control : form->VBControls()->items())
      sorted.insert(frame::toText(control->Properties()->Item("Name")->value()));
    names.assign(sorted.begin(), sorted.end());
  }
  if (const std::string own = ownObject(); !own.empty()) names.insert(names.begin(), own);
  names.insert(names.begin(), kGeneral);
  return names;
}

// Of all objects whose name and "_" begin the procedure's, the longest.
std::string CodeOutline::objectOf(std::string_view procedure) {
  if (procedure.find('_') == std::string_view::npos) return kGeneral;
  std::string best = kGeneral;
  std::size_t length = 0;
  for (const std::string& object : objects()) {
    if (object.size() < length || procedure.size() <= object.size() || procedure[object.size()] != '_')
      continue;
    if (!base::equalNoCase(procedure.substr(0, object.size()), object)) continue;
    best = object;
    length = object.size();
  }
  return best;
}

std::string CodeOutline::classOf(const std::string& object) {
  if (base::equalNoCase(object, ownObject()))
    return object == "Class" ? "Class" : std::string(component_->header().rootClass());
  const auto form = component_->Designer();
  return form ? form->VBControls()->Item(object)->ClassName() : std::string();
}

// What the handlers of the component itself begin with: "Form", "Class"; empty for a module.
std::string CodeOutline::ownObject() {
  if (component_->Type() == frame::ComponentType::kClassModule) return "Class";
  return std::string(workspace::eventObjectName(component_->header().rootClass()));
}

std::string CodeOutline::usualEvent(const std::string& object) {
  const workspace::ClassInfo* info = workspace::findClass(classOf(object));
  if (info == nullptr) return {};
  for (const UsualEvent& usual : kUsualEvents)
    if (usual.className == info->name) return std::string(usual.event);
  return workspace::findEvent(info->name, "Click") != nullptr ? "Click" : std::string();
}

std::vector<ProcedureEntry> CodeOutline::procedures(const std::string& object) {
  std::vector<ProcedureEntry> entries;
  std::set<std::string, base::LessNoCase> handled;
  const bool general = object == kGeneral;
  const std::vector<std::string> all = objects();
  for (const workspace::ProcedureInfo& procedure : component_->code().procedures()) {
    if (!base::equalNoCase(objectOf(procedure.name), object)) continue;
    const std::string own = general ? procedure.name : procedure.name.substr(object.size() + 1);
    handled.insert(own);
    entries.push_back({own + std::string(kKindMarks[static_cast<std::size_t>(procedure.kind)]),
                       procedure.name, procedure.kind, true});
  }
  if (!general)
    if (const workspace::ClassInfo* info = workspace::findClass(classOf(object)))
      for (const workspace::EventInfo& event : info->events)
        if (!handled.contains(std::string(event.name)))
          entries.push_back(
              {std::string(event.name), std::string(event.name), frame::ProcKind::kProc, false});
  std::stable_sort(entries.begin(), entries.end(), [](const ProcedureEntry& a, const ProcedureEntry& b) {
    return base::LessNoCase{}(a.label, b.label);
  });
  if (general) entries.insert(entries.begin(), {kDeclarations, "", frame::ProcKind::kProc, true});
  return entries;
}

std::pair<std::string, std::string> CodeOutline::placeOf(int line) {
  frame::ProcKind kind{};
  const std::string name = component_->code().procOfLine(line, kind);
  if (name.empty()) return {kGeneral, kDeclarations};
  const std::string object = objectOf(name);
  const std::string own = object == kGeneral ? name : name.substr(object.size() + 1);
  return {object, own + std::string(kKindMarks[static_cast<std::size_t>(kind)])};
}

int CodeOutline::open(const std::string& object, const ProcedureEntry& entry) {
  if (!entry.exists) return component_->CodeModule()->CreateEventProc(entry.name, object) + 1;
  if (entry.name.empty()) return 1;
  return component_->CodeModule()->ProcBodyLine(entry.name, entry.kind) + 1;
}

// ---- window

CodeWindow::CodeWindow(std::shared_ptr<workspace::Component> component, const base::CodePage& codePage,
                       QWidget* parent)
    : QWidget(parent),
      codePage_(codePage),
      outline_(component),
      editor_(new CodeEditor(std::move(component), codePage, this)),
      objects_(new LateComboBox(this)),
      procedures_(new LateComboBox(this)) {
  objects_->setAccessibleName("Object");
  objects_->setToolTip("Object");
  procedures_->setAccessibleName("Procedure");
  procedures_->setToolTip("Procedure");
  for (LateComboBox* list : {objects_, procedures_}) {
    list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    list->setMaxVisibleItems(20);
  }
  auto* lists = new QHBoxLayout;
  lists->setContentsMargins(2, 2, 2, 2);
  lists->setSpacing(2);
  lists->addWidget(objects_, 1);
  lists->addWidget(procedures_, 1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(lists);
  column->addWidget(editor_, 1);
  setFocusProxy(editor_);
  objects_->beforeOpening = [this] { fillObjects(); };
  procedures_->beforeOpening = [this] { fillProcedures(); };
  connect(objects_, &QComboBox::activated, this, [this](int index) { openObject(index); });
  connect(procedures_, &QComboBox::activated, this, [this](int index) { openProcedure(index); });
  editor_->onCursorMoved = [this] { followCursor(); };
  followCursor();
}

void CodeWindow::followCursor() {
  const int line = editor_->cursorLine();
  const unsigned version = editor_->component()->codeVersion();
  if (line == shownLine_ && version == shownVersion_) return;
  shownLine_ = line;
  shownVersion_ = version;
  const auto [object, procedure] = outline_.placeOf(line);
  object_ = object;
  objects_->show(qt::toQt(codePage_, object));
  procedures_->show(qt::toQt(codePage_, procedure));
}

void CodeWindow::fillObjects() {
  const QSignalBlocker quiet(objects_);
  const QString current = objects_->currentText();
  objects_->clear();
  for (const std::string& object : outline_.objects()) objects_->addItem(qt::toQt(codePage_, object));
  objects_->setCurrentText(current);
}

void CodeWindow::fillProcedures() {
  const QSignalBlocker quiet(procedures_);
  const QString current = procedures_->currentText();
  entries_ = outline_.procedures(object_);
  procedures_->clear();
  for (const ProcedureEntry& entry : entries_) {
    procedures_->addItem(qt::toQt(codePage_, entry.label));
    if (object_ == kGeneral || !entry.exists) continue;
    QFont bold = procedures_->font();
    bold.setBold(true);
    procedures_->setItemData(procedures_->count() - 1, bold, Qt::FontRole);
  }
  procedures_->setCurrentText(current);
}

// Goes to a handler of the object, the first one that there is.
void CodeWindow::openObject(int index) {
  object_ = qt::fromQt(codePage_, objects_->itemText(index));
  fillProcedures();
  const auto found = std::find_if(entries_.begin(), entries_.end(),
                                  [](const ProcedureEntry& entry) { return entry.exists; });
  if (found != entries_.end()) openProcedure(static_cast<int>(found - entries_.begin()));
}

void CodeWindow::openHandler(const std::string& control) {
  object_ = control.empty() ? outline_.ownObject() : control;
  const std::string event = outline_.usualEvent(object_);
  fillProcedures();
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const ProcedureEntry& entry) {
    return base::equalNoCase(entry.label, event);
  });
  if (found != entries_.end()) openProcedure(static_cast<int>(found - entries_.begin()));
}

void CodeWindow::openProcedure(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= entries_.size()) return;
  try {
    editor_->beginCommand();
    const int line = outline_.open(object_, entries_[static_cast<std::size_t>(index)]);
    editor_->endCommand();
    go(line);
  } catch (const base::Error& error) {
    editor_->endCommand();
    if (editor_->onRefused) editor_->onRefused(qt::toQt(codePage_, error.description()));
  }
}

void CodeWindow::go(int line) {
  editor_->select({line, 1, line, 1});
  shownLine_ = 0;
  followCursor();
  editor_->setFocus();
}

}  // namespace kolvane::workbench
