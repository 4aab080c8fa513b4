// The form that nobody sees. Its timer shows on a toolbar button whether the active project has unsaved
// changes, and feeds the clipboard ring; it is also the shelf for the code of one copied control.
#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

#include "forms/forms.h"
#include "frame/pictures.h"
#include "frame/services.h"

namespace kolvane::frame {

// Index 1 is the newest entry, 15 the oldest, 0 is not used; a blank entry is empty. UTF-8, as the clipboard
// has it.
using ClipboardRing = std::array<std::string, 16>;

class frmTimerForm final : public forms::Form {
 public:
  // Services must outlive the form.
  explicit frmTimerForm(Services& services);

  // "True" when the button of the dirty indicator is on the toolbar, "False" or blank otherwise.
  std::string UsingDirtyProject;
  bool UsingClipboardRing = false;
  bool UsingCopyControlCode = false;

  // Every 1500 milliseconds, from the moment the form is loaded.
  forms::Timer tmrTimer{*this, "tmrTimer", 1500};

  // Finds the indicator's button, when there is one: by the bar's index and the button's place on it, as text. Raises what
  // the host raises when it is not there.
  void SetUpForm(std::string_view toolbarIndex, std::string_view buttonPosition, PictureVariant variant);
  // One tick. Errors are passed over, each at its statement.
  void tmrTimer_Timer();

  // Puts the code of a control on the shelf in place of what is there; nothing while UsingCopyControlCode is
  // False.
  void UpdateCopyControlCode(std::string_view strControlName, std::string_view strCode,
                             std::string_view strClassName);
  // Class names are compared exactly.
  bool CodeForClassAvailable(std::string_view strClassName) const;
  // "" for another class than that on the shelf.
  std::string GetControlCodeForClass(std::string_view strClassName) const;
  std::string GetCopyControlNameOfClass(std::string_view strClassName) const;

  const ClipboardRing& ClipboardRingItems() const { return ring_; }

 private:
  bool usingDirtyProject() const;
  void showDirty();
  void feedRing();

  Services& services_;
  std::shared_ptr<CommandBarControl> dirtyProjectButton_;
  bool shownDirty_ = false;
  PictureVariant variant_ = PictureVariant::k2000;
  std::string lastClipboardText_;
  ClipboardRing ring_;
  std::string copiedName_;
  std::string copiedCode_;
  std::string copiedClass_;
};

}  // namespace kolvane::frame
