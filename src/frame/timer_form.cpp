#include "frame/timer_form.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::frame {
namespace {

template <typename Work>
void resumeNext(Work&& work) {
  try {
    work();
  } catch (const base::Error&) {
  }
}

bool isBlank(std::string_view text) {
  return base::trim(text).find_first_not_of("\r\n\t ") == std::string_view::npos;
}

}  // namespace

frmTimerForm::frmTimerForm(Services& services)
    : Form(services.desk, "frmTimerForm", ""), services_(services) {
  tmrTimer.onTimer = [this] { tmrTimer_Timer(); };
}

bool frmTimerForm::usingDirtyProject() const {
  return base::equalNoCase(base::trim(UsingDirtyProject), "True");
}

void frmTimerForm::SetUpForm(std::string_view toolbarIndex, std::string_view buttonPosition,
                             PictureVariant variant) {
  variant_ = variant;
  if (!usingDirtyProject()) return;
  const auto bar = services_.vbe.CommandBars()->Item(static_cast<int>(base::toLong(toolbarIndex)));
  dirtyProjectButton_ = bar->Controls()->Item(static_cast<int>(base::toLong(buttonPosition)));
}

void frmTimerForm::tmrTimer_Timer() {
  if (usingDirtyProject()) resumeNext([this] { showDirty(); });
  if (UsingClipboardRing) resumeNext([this] { feedRing(); });
}

// Without an active project the button keeps its face.
void frmTimerForm::showDirty() {
  const auto project = services_.vbe.ActiveVBProject();
  if (!project || !dirtyProjectButton_) return;
  const bool dirty = project->IsDirty();
  if (dirty == shownDirty_) return;
  PutImageIntoClipboard(services_.clipboard, dirty ? kDirtyPictureKey : kNotDirtyPictureKey, variant_);
  resumeNext([this] { dirtyProjectButton_->PasteFace(); });
  shownDirty_ = dirty;
}

// What this form and the connection put on the clipboard are pictures, so that they are not taken for copies
// of the user's.
void frmTimerForm::feedRing() {
  const auto text = services_.clipboard.text();
  if (!text || services_.clipboard.picture()) return;
  if (*text == lastClipboardText_ || isBlank(*text)) return;
  lastClipboardText_ = *text;
  std::move_backward(ring_.begin() + 1, ring_.end() - 1, ring_.end());
  ring_[1] = *text;
}

void frmTimerForm::UpdateCopyControlCode(std::string_view strControlName, std::string_view strCode,
                                         std::string_view strClassName) {
  if (!UsingCopyControlCode) return;
  copiedName_ = strControlName;
  copiedCode_ = strCode;
  copiedClass_ = strClassName;
}

bool frmTimerForm::CodeForClassAvailable(std::string_view strClassName) const {
  return strClassName == copiedClass_;
}

std::string frmTimerForm::GetControlCodeForClass(std::string_view strClassName) const {
  return CodeForClassAvailable(strClassName) ? copiedCode_ : std::string();
}

std::string frmTimerForm::GetCopyControlNameOfClass(std::string_view strClassName) const {
  return CodeForClassAvailable(strClassName) ? copiedName_ : std::string();
}

}  // namespace kolvane::frame
