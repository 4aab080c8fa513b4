// The walk over a project's components that indenting, sorting and the maintenance driver share: which file of a
// component decides whether it may be written, what is left out, what is shown meanwhile.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "frame/host.h"
#include "frame/progress_form.h"
#include "frame/services.h"

namespace kolvane::maintenance {

// The file whose attributes tell whether a component is read-only. Of a form with a companion it is the companion.
struct DecidingFile {
  enum class Kind {
    kNone,     // the component was never saved
    kFile,     // the file at `path`
    kNotCode,  // the only file is none of code
  };
  Kind kind = Kind::kNone;
  std::string path;
};
DecidingFile decidingFile(frame::VBComponent& component);
// Raises 53 for a file that is gone. False without a file.
bool isReadOnly(const frame::Services& services, const DecidingFile& file);

// False for a component without code, such as a resource file. Raises nothing.
bool ComponentHasCodeModule(const std::shared_ptr<frame::VBComponent>& component);
// True when one of the lines is not the empty text; a line of blanks counts as code.
bool DoesCodeModuleHaveCode(frame::CodeModule& module);

// Where a walk shows how far it is. The progress form and the command line's bar stand behind it.
class WalkProgress {
 public:
  virtual ~WalkProgress() = default;
  // Shows the text above the bar of modules at once.
  virtual void setModuleCaption(std::string_view text) = 0;
  // Adds 1 to the bar of modules.
  virtual void advance() = 0;
};

// On the progress form, whose bar has had its maximum set.
class FormProgress final : public WalkProgress {
 public:
  explicit FormProgress(frame::frmProgress& form) : form_(form) {}
  void setModuleCaption(std::string_view text) override { form_.lblModule.setCaption(text); }
  void advance() override { form_.prgModule.advance(); }

 private:
  frame::frmProgress& form_;
};

enum class WalkStep { kTreat, kSkip, kStop };

// How one walk differs from the others. What is empty is left out.
struct ProjectWalk {
  // What stands behind the component's name in the caption: " - Code Indenting". Without it the walk shows nothing and
  // leaves the bar to `treat`.
  std::string_view activity;
  // Asked first, for components with a code module.
  std::function<bool(frame::VBComponent&, frame::CodeModule&)> wants;
  // Asked about a component whose file is read-only; without it such components are treated.
  std::function<WalkStep(frame::VBComponent&)> readOnly;
  // False ends the walk.
  std::function<bool(frame::VBComponent&, frame::CodeModule&)> treat;
};

// Goes through the components in their order, with a turn for the host's events behind each one that was treated. A
// component whose only file is none of code ends the walk; one without a code module is passed over. `progress` may be
// null. False when `readOnly` or `treat` stopped the walk.
bool walkProject(const frame::Services& services, frame::VBProject& project, const ProjectWalk& walk,
                 WalkProgress* progress);

}  // namespace kolvane::maintenance
