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

// ---- why a command cannot be used now

const char* noProject(W& w) { return w.currentProject() ? nullptr : "No project is open."; }
const char* noComponent(W& w) {
  return w.currentComponent() ? nullptr : "No component is open or chosen in the project window.";
}
const char* noSource(W& w) {
  if (const char* reason = noComponent(w)) return reason;
  return w.currentComponent()->hasSource() ? nullptr : "The component has no source of its own.";
}
const char* noFile(W& w) {
  if (const char* reason = noSource(w)) return reason;
  return w.currentComponent()->file().hasPath() ? nullptr : "The component has never been saved.";
}
const char* noDesigner(W& w) {
  if (const char* reason = noSource(w)) return reason;
  return workspace::traitsOf(w.currentComponent()->type()).hasDesigner ? nullptr
                                                                       : "The component has no designer.";
}
const char* noCode(W& w) { return editorOf(w) ? nullptr : "No code window is in front."; }
const char* notEditable(W& w) {
  if (const char* reason = noCode(w)) return reason;
  return editorOf(w)->isReadOnly() ? "The file is read-only." : nullptr;
}
const char* noUndo(W& w) { return w.documents().canUndo() ? nullptr : "There is nothing to undo."; }
const char* noRedo(W& w) { return w.documents().canRedo() ? nullptr : "There is nothing to redo."; }
const char* noText(W& w) {
  if (const char* reason = noCode(w)) return reason;
  return editorOf(w)->hasSelectedText() ? nullptr : "Nothing is selected.";
}
const char* noCut(W& w) {
  const char* reason = notEditable(w);
  return reason ? reason : noText(w);
}
const char* noDocument(W& w) { return w.documents().count() > 0 ? nullptr : "No window is open."; }
const char* noOtherDocument(W& w) {
  if (const char* reason = noDocument(w)) return reason;
  return w.documents().count() > 1 ? nullptr : "No other window is open.";
}
const char* noControls(W& w) {
  const DesignerWindow* designer = w.documents().currentDesigner();
  if (!designer) return "No designer is in front.";
  return designer->component()->Designer()->SelectedVBControls()->Count() > 0 ? nullptr
                                                                              : "No control is selected.";
}

// ---- what the commands do

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
    {"File", "&Remove Project", "", [](W& w) { w.files().close(w.currentProject()); }, noProject},
    {"File", "Sa&ve Project", "", [](W& w) { w.files().saveProject(w.currentProject()); }, noProject, true},
    {"File", "Sav&e Project As...", "", [](W& w) { w.files().saveProjectAs(w.currentProject()); }, noProject},
    {"File", "Save A&ll", "Ctrl+Shift+S", [](W& w) { w.files().saveAll(); }, noProject, false, "",
     QStyle::SP_DriveHDIcon},
    {"File", "&Save {}", "Ctrl+S", [](W& w) { w.files().save(w.currentComponent()); }, noSource, true,
     "Project Window", QStyle::SP_DialogSaveButton},
    {"File", "Save {} &As...", "", [](W& w) { w.files().saveAs(w.currentComponent()); }, noSource, false,
     "Project Window"},
    {"File", "Rever&t {}", "", [](W& w) { w.files().revert(w.currentComponent()); }, noFile, false,
     "Project Window"},
    {"File", "E&xit", "Alt+Q", [](W& w) { w.close(); }, nullptr, true},

    {"Edit", "&Undo", "Ctrl+Z", [](W& w) { w.documents().undo(); }, noUndo, false, "", QStyle::SP_ArrowBack},
    {"Edit", "&Redo", "Ctrl+Y", [](W& w) { w.documents().redo(); }, noRedo, false, "",
     QStyle::SP_ArrowForward},
    {"Edit", "Cu&t", "Ctrl+X", [](W& w) { editorOf(w)->cut(); }, noCut, true, "Code Window"},
    {"Edit", "&Copy", "Ctrl+C", [](W& w) { editorOf(w)->copy(); }, noText, false, "Code Window"},
    {"Edit", "&Paste", "Ctrl+V", [](W& w) { editorOf(w)->paste(); }, notEditable, false, "Code Window"},
    {"Edit", "&Delete", "", [](W& w) { w.documents().currentDesigner()->deleteSelected(); }, noControls,
     false, "Controls"},
    {"Edit", "Select &All", "Ctrl+A", [](W& w) { selectAll(w); }, noDocument},
    {"Edit", "&Find...", "Ctrl+F", [](W& w) { w.findDialog().present(false); }, noProject, true},
    {"Edit", "Find &Next", "F3", [](W& w) { w.findDialog().findNext(); }, noProject},
    {"Edit", "Find Pre&vious", "Shift+F3", [](W& w) { w.findDialog().findPrevious(); }, noProject},
    {"Edit", "R&eplace...", "Ctrl+H", [](W& w) { w.findDialog().present(true); }, noProject},
    {"Edit", "&Go to Line...", "Ctrl+L", [](W& w) { w.goToLine(); }, noCode},

    {"View", "&Code", "F7", [](W& w) { w.showCode(); }, noSource, false, "Project Window"},
    {"View", "O&bject", "Shift+F7", [](W& w) { w.showObject(); }, noDesigner, false, "Project Window"},
    {"View", "&Immediate Window", "Ctrl+G", showDock<WindowType::kImmediate>, nullptr, true},
    {"View", "&Project Explorer", "Ctrl+R", showDock<WindowType::kProjectWindow>, nullptr},
    {"View", "Properties &Window", "F4", showDock<WindowType::kPropertyWindow>, nullptr, false, "Controls"},
    {"View", "Toolbo&x", "", showDock<WindowType::kToolbox>, nullptr},

    {"Project", "Add &Form", "", add<ComponentType::kVBForm>, noProject},
    {"Project", "Add MD&I Form", "", add<ComponentType::kVBMDIForm>, noProject},
    {"Project", "Add &Module", "", add<ComponentType::kStdModule>, noProject},
    {"Project", "Add &Class Module", "", add<ComponentType::kClassModule>, noProject},
    {"Project", "Add &User Control", "", add<ComponentType::kUserControl>, noProject},
    {"Project", "Add Property Pa&ge", "", add<ComponentType::kPropPage>, noProject},
    {"Project", "A&dd File...", "Ctrl+D", [](W& w) { w.files().addFile(w.currentProject()); }, noProject,
     true},
    {"Project", "&Remove {}", "", [](W& w) { w.files().remove(w.currentComponent()); }, noComponent, false,
     "Project Window"},

    {"Format", "&Bring to Front", "Ctrl+J",
     [](W& w) { w.documents().currentDesigner()->reorderSelected(true); }, noControls, false, "Controls"},
    {"Format", "&Send to Back", "Ctrl+K",
     [](W& w) { w.documents().currentDesigner()->reorderSelected(false); }, noControls, false, "Controls"},

    {"Tools", "Care&ful", "", [](W& w) { w.session().setCareful(!w.session().isCareful()); }, nullptr, true,
     "", -1, [](W& w) { return w.session().isCareful(); },
     "Ticked: commands lose no comment, break no code and change nothing more when used again. Unticked: "
     "they do what they always did."},

    {"Window", "&Close", "Ctrl+F4", [](W& w) { w.documents().closeCurrent(); }, noDocument},
    {"Window", "&Next", "Ctrl+F6", [](W& w) { w.documents().next(1); }, noOtherDocument},
    {"Window", "&Previous", "Ctrl+Shift+F6", [](W& w) { w.documents().next(-1); }, noOtherDocument},

    {"Help", "&Contents", "F1", [](W& w) { w.session().desk().showHelp(""); }, nullptr},
    {"Help", "&About KolvaneLite", "", [](W& w) { w.about(); }, nullptr, true},
});

}  // namespace

std::span<const Command> commands() { return kTable; }

}  // namespace kolvane::workbench
