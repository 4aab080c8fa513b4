// Steps of undo that go over several modules, such as Replace All in a project: undone and redone as a whole, whether
// their modules are open or not.
//
// The part of a module that is open is a step in the history of its editor. That of another one is kept here as text;
// it becomes history when an editor is opened, and text again when that is closed. A part whose module was changed
// since is out of reach until those changes are undone: the others then go without it, and that is told.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "workbench/code_editor.h"

namespace kolvane::workbench {

class SharedUndo {
 public:
  using ComponentPtr = std::shared_ptr<workspace::Component>;
  // The editor of a module that is open, or nullptr.
  using EditorOf = std::function<CodeEditor*(const workspace::Component&)>;

  explicit SharedUndo(EditorOf editorOf) : editorOf_(std::move(editorOf)) {}

  // What is done to the modules that are named with willChange() in between is one step. At the end the open editors
  // must show it.
  void begin();
  // In front of the first change of a module.
  void willChange(const ComponentPtr& component);
  void end();

  // Whether such a step is what was done last, or undone last, in all modules.
  bool canUndo() const { return latest_ != 0 && !latestIsUndone_; }
  bool canRedo() const { return latest_ != 0 && latestIsUndone_; }
  void undo() { move(latest_, false); }
  void redo() { move(latest_, true); }

  // The life of editors. What one of them undoes or redoes of a shared step, the others do too.
  void opened(CodeEditor& editor);
  void stepped(CodeEditor& editor, CodeEditor::Step step);
  void closing(CodeEditor& editor);

  // Called with the names of modules that a step could not be undone or redone in.
  std::function<void(const std::vector<std::string>& names, bool redone)> onLeft;

 private:
  struct Region {
    int first = 1;  // line
    std::vector<std::string> before, after;
  };
  struct Part {
    int step = 0;
    Region region;
    bool undone = false;
    int depth = 0;  // in the editor's history; 0 in a module that is not open
  };
  // The parts of a module in the order of their making; those that are undone come last.
  struct Track {
    std::weak_ptr<workspace::Component> component;
    unsigned version = 0;  // of the code behind the last part that is not in an editor
    std::vector<Part> parts;
  };
  struct Pending {
    ComponentPtr component;
    std::string text;
    unsigned version;
  };
  static Region difference(std::string_view before, std::string_view after);
  static std::string replaced(const std::string& text, const Region& region, bool redo);
  void record(const Pending& pending);
  void move(int step, bool redo);
  bool movePart(Track& track, Part& part, bool redo);
  bool moveInEditor(CodeEditor& editor, Part& part, bool redo);
  bool moveInModule(Track& track, Part& part, bool redo);
  Track* trackOf(const workspace::Component& component);

  EditorOf editorOf_;
  std::map<const workspace::Component*, Track> tracks_;
  std::vector<Pending> pending_;
  int steps_ = 0;
  int latest_ = 0;  // the number of a step; 0: something else came last
  bool latestIsUndone_ = false;
  bool moving_ = false;
};

}  // namespace kolvane::workbench
