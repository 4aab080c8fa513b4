// Where forms and boxes are shown: a window system, a terminal, or a program at the other end of a pipe.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/open_forms.h"

namespace kolvane::forms {

class Form;

// Flags of a message box, as the language numbers them: buttons + icon.
namespace box {
inline constexpr int kOkOnly = 0;
inline constexpr int kOkCancel = 1;
inline constexpr int kAbortRetryIgnore = 2;
inline constexpr int kYesNoCancel = 3;
inline constexpr int kYesNo = 4;
inline constexpr int kRetryCancel = 5;
inline constexpr int kCritical = 16;
inline constexpr int kQuestion = 32;
inline constexpr int kExclamation = 48;
inline constexpr int kInformation = 64;
inline constexpr int kSystemModal = 4096;
inline constexpr int kNotice = kExclamation;        // plain notices of the suite
inline constexpr int kAsk = kExclamation + kYesNo;  // its questions
}  // namespace box

enum class Answer : int { kOk = 1, kCancel = 2, kAbort = 3, kRetry = 4, kIgnore = 5, kYes = 6, kNo = 7 };

struct FileDialog {
  enum class Kind { kOpen, kSave, kFolder };
  Kind kind = Kind::kOpen;
  std::string title;
  std::string filter;  // "Pictures (*.bmp)|*.bmp|All files (*.*)|*.*"
  std::string path;    // proposed
};

// Texts are in the suite's code page.
class Desk {
 public:
  virtual ~Desk() = default;

  // The forms that are shown here.
  OpenForms& openForms() { return openForms_; }
  const OpenForms& openForms() const { return openForms_; }

  // These three are called by Form only. A desk calls form.shown() as soon as the window is there.
  // Shows a form beside others and returns at once.
  virtual void show(Form& form) = 0;
  // Shows a form and returns when it has been closed or hidden: when form.visible() is false. Nests.
  virtual void showModal(Form& form) = 0;
  // Called as a form hides, unloads or is destroyed, so that its window goes. Of the form only the name may
  // be asked; its view may be taken away.
  virtual void closed(Form& form) = 0;

  virtual Answer msgBox(std::string_view text, int flags, std::string_view title) = 0;
  // Nothing when the user cancels.
  virtual std::optional<std::string> inputBox(std::string_view prompt, std::string_view title,
                                              std::string_view proposal) = 0;
  virtual std::optional<std::string> fileDialog(const FileDialog& dialog) = 0;
  virtual void showHelp(std::string_view topic) = 0;

  // Lets what has happened meanwhile be handled: clicks, key presses, requests.
  virtual void doEvents() = 0;
  virtual void setBusy(bool busy) = 0;

  // An entry point begins: called in front of its work. What this throws is shown as the entry point's own error.
  virtual void entering(std::string_view /*module*/, std::string_view /*procedure*/) {}

 private:
  OpenForms openForms_;
};

}  // namespace kolvane::forms
