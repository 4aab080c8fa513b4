#include "workbench/command_table.h"

#include <array>

#include "workbench/main_window.h"

namespace kolvane::workbench {
namespace {

using W = MainWindow;
using frame::ComponentType;
using frame::ProjectType;
using frame::WindowType;

CodeEditor* editorOf(W& w) {
  CodeWindow* code = w.documents().currentCode();
  return code ? &code->editor() : nullptr;
}

bool hasProject(W& w) { return w.currentProject() != nullptr; }
bool hasComponent(W& w) { return w.currentComponent() != nullptr; }
bool hasSource(W& w) { return hasComponent(w) && w.currentComponent()->hasSource(); }
bool hasFile(W& w) { return hasSource(w) && w.currentComponent()->file().hasPath(); }
bool hasDesigner(W& w) {
  return hasSource(w) && workspace::traitsOf(w.currentComponent()->type()).hasDesigner;
}
bool hasCode(W& w) { return editorOf(w) != nullptr; }
bool canEdit(W& w) { return hasCode(w) && !editorOf(w)->isReadOnly(); }
bool canUndo(W& w) { return canEdit(w) && editorOf(w)->isUndoAvailable(); }
bool canRedo(W& w) { return canEdit(w) && editorOf(w)->isRedoAvailable(); }
bool canCopy(W& w) { return hasCode(w) && editorOf(w)->hasSelectedText(); }
bool canCut(W& w) { return canEdit(w) && editorOf(w)->hasSelectedText(); }
bool hasDocument(W& w) { return w.documents().count() > 0; }

bool hasControls(W& w) {
  const DesignerWindow* designer = w.documents().currentDesigner();
  return designer && designer->component()->Designer()->SelectedVBControls()->Count() > 0;
}
void selectAll(W& w) {
  if (DesignerWindow* designer = w.documents().currentDesigner()) designer->selectAll();
  if (CodeEditor* editor = editorOf(w)) editor->selectAll();
}

template <ProjectType type>
void newProject(W& w) {
  w.files().newProject(type);
}
template <ComponentType type>
void add(W& w) {
  w.files().add(w.currentProject(), type);
}
template <WindowType type>
void showDock(W& w) {
  w.showDock(type);
}

constexpr auto kTable = std::to_array<Command>({
    {"File", "New &Standard EXE", "Ctrl+N", newProject<ProjectType::kStandardExe>, nullptr, false, "",
     QStyle::SP_FileIcon},
    {"File", "New &ActiveX EXE", "", newProject<ProjectType::kActiveXExe>, nullptr},
    {"File", "New ActiveX &DLL", "", newProject<ProjectType::kActiveXDll>, nullptr},
    {"File", "New ActiveX &Control", "", newProject<ProjectType::kActiveXControl>, nullptr},
    {"File", "&Open Project...", "Ctrl+O", [](W& w) { w.files().chooseAndOpen(false); }, nullptr, false, "",
     QStyle::SP_DialogOpenButton},
    {"File", "A&dd Project...", "", [](W& w) { w.files().chooseAndOpen(true); }, nullptr, true},
    {"File", "&Remove Project", "", [](W& w) { w.files().close(w.currentProject()); }, hasProject},
    {"File", "Sa&ve Project", "", [](W& w) { w.files().saveProject(w.currentProject()); }, hasProject, true},
    {"File", "Sav&e Project As...", "", [](W& w) { w.files().saveProjectAs(w.currentProject()); },
     hasProject},
    {"File", "Save A&ll", "Ctrl+Shift+S", [](W& w) { w.files().saveAll(); }, hasProject, false, "",
     QStyle::SP_DriveHDIcon},
    {"File", "&Save {}", "Ctrl+S", [](W& w) { w.files().save(w.currentComponent()); }, hasSource, true,
     "Project Window", QStyle::SP_DialogSaveButton},
    {"File", "Save {} &As...", "", [](W& w) { w.files().saveAs(w.currentComponent()); }, hasSource, false,
     "Project Window"},
    {"File", "Rever&t {}", "", [](W& w) { w.files().revert(w.currentComponent()); }, hasFile, false,
     "Project Window"},
    {"File", "E&xit", "Alt+Q", [](W& w) { w.close(); }, nullptr, true},

    {"Edit", "&Undo", "Ctrl+Z", [](W& w) { editorOf(w)->undo(); }, canUndo, false, "", QStyle::SP_ArrowBack},
    {"Edit", "&Redo", "Ctrl+Y", [](W& w) { editorOf(w)->redo(); }, canRedo, false, "",
     QStyle::SP_ArrowForward},
    {"Edit", "Cu&t", "Ctrl+X", [](W& w) { editorOf(w)->cut(); }, canCut, true, "Code Window"},
    {"Edit", "&Copy", "Ctrl+C", [](W& w) { editorOf(w)->copy(); }, canCopy, false, "Code Window"},
    {"Edit", "&Paste", "Ctrl+V", [](W& w) { editorOf(w)->paste(); }, canEdit, false, "Code Window"},
    {"Edit", "&Delete", "", [](W& w) { w.documents().currentDesigner()->deleteSelected(); }, hasControls,
     false, "Controls"},
    {"Edit", "Select &All", "Ctrl+A", [](W& w) { selectAll(w); }, hasDocument},
    {"Edit", "&Find...", "Ctrl+F", [](W& w) { w.findDialog().present(false); }, hasProject, true},
    {"Edit", "Find &Next", "F3", [](W& w) { w.findDialog().findNext(); }, hasProject},
    {"Edit", "Find Pre&vious", "Shift+F3", [](W& w) { w.findDialog().findPrevious(); }, hasProject},
    {"Edit", "R&eplace...", "Ctrl+H", [](W& w) { w.findDialog().present(true); }, hasProject},
    {"Edit", "&Go to Line...", "Ctrl+L", [](W& w) { w.goToLine(); }, hasCode},

    {"View", "&Code", "F7", [](W& w) { w.showCode(); }, hasSource, false, "Project Window"},
    {"View", "O&bject", "Shift+F7", [](W& w) { w.showObject(); }, hasDesigner, false, "Project Window"},
    {"View", "&Immediate Window", "Ctrl+G", showDock<WindowType::kImmediate>, nullptr, true},
    {"View", "&Project Explorer", "Ctrl+R", showDock<WindowType::kProjectWindow>, nullptr},
    {"View", "Properties &Window", "F4", showDock<WindowType::kPropertyWindow>, nullptr, false, "Controls"},
    {"View", "Toolbo&x", "", showDock<WindowType::kToolbox>, nullptr},

    {"Project", "Add &Form", "", add<ComponentType::kVBForm>, hasProject},
    {"Project", "Add MD&I Form", "", add<ComponentType::kVBMDIForm>, hasProject},
    {"Project", "Add &Module", "", add<ComponentType::kStdModule>, hasProject},
    {"Project", "Add &Class Module", "", add<ComponentType::kClassModule>, hasProject},
    {"Project", "Add &User Control", "", add<ComponentType::kUserControl>, hasProject},
    {"Project", "Add Property Pa&ge", "", add<ComponentType::kPropPage>, hasProject},
    {"Project", "A&dd File...", "Ctrl+D", [](W& w) { w.files().addFile(w.currentProject()); }, hasProject,
     true},
    {"Project", "&Remove {}", "", [](W& w) { w.files().remove(w.currentComponent()); }, hasComponent, false,
     "Project Window"},

    {"Format", "&Bring to Front", "Ctrl+J",
     [](W& w) { w.documents().currentDesigner()->reorderSelected(true); }, hasControls, false, "Controls"},
    {"Format", "&Send to Back", "Ctrl+K",
     [](W& w) { w.documents().currentDesigner()->reorderSelected(false); }, hasControls, false, "Controls"},

    {"Window", "&Close", "Ctrl+F4", [](W& w) { w.documents().closeCurrent(); }, hasDocument},
    {"Window", "&Next", "Ctrl+F6", [](W& w) { w.documents().next(1); }, hasDocument},
    {"Window", "&Previous", "Ctrl+Shift+F6", [](W& w) { w.documents().next(-1); }, hasDocument},

    {"Help", "&Contents", "F1", [](W& w) { w.session().desk().showHelp(""); }, nullptr},
    {"Help", "&About KolvaneLite", "", [](W& w) { w.about(); }, nullptr, true},
});

}  // namespace

std::span<const Command> commands() { return kTable; }

}  // namespace kolvane::workbench
