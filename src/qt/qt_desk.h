// The desk on a window system: forms are windows, boxes are dialogs.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/code_page.h"
#include "forms/control.h"
#include "forms/desk.h"
#include "qt/picture_icons.h"

namespace kolvane::qt {

class FormWindow;

// What the desk needs from its program. Functions that are empty do nothing, those that map give what they got.
struct DeskParts {
  const base::CodePage& codePage;                   // of the texts of forms and boxes; outlives the desk
  std::string pictures = {};                        // folder that holds "Pictures" (PictureIcons)
  std::function<void(std::string_view)> help = {};  // shows a page, such as "Search.Html"
  // Paths of file dialogs, in UTF-8: the suite's ("C:\work\a.bas") and those of the file system.
  std::function<std::string(const std::string&)> toSuitePath = {};
  std::function<std::string(const std::string&)> toSystemPath = {};
};

// Needs a QApplication, which outlives it, and lives in its thread. Modal forms and boxes run an event loop of
// their own and block every window but those that are shown after them. Timers tick while their form is shown;
// for a form that is loaded only, who loaded it calls Form::advance.
// An error that leaves an event handler is shown in frmVBError and ends there.
class QtDesk final : public forms::Desk {
 public:
  explicit QtDesk(DeskParts parts);
  // Closes the windows that are left, without events.
  ~QtDesk() override;

  // Windows of forms stay above this one and are placed over it. nullptr for none.
  void setMainWindow(QWidget* window) { mainWindow_ = window; }
  // The form's window, nullptr while it is not shown.
  QWidget* window(const forms::Form& form) const;
  // The widget that shows the control of a form that is shown; nullptr for one that has no place.
  QWidget* widget(const forms::Control& control) const;
  const PictureIcons& icons() const { return icons_; }
  const base::CodePage& codePage() const { return parts_.codePage; }
  // Brings every window to what its form says now. Windows do so by themselves, some thirty times a second
  // at most, and before a user's key or click.
  void refresh();
  bool busy() const { return busy_; }

  void show(forms::Form& form) override;
  void showModal(forms::Form& form) override;
  void closed(forms::Form& form) override;
  forms::Answer msgBox(std::string_view text, int flags, std::string_view title) override;
  std::optional<std::string> inputBox(std::string_view prompt, std::string_view title,
                                      std::string_view proposal) override;
  std::optional<std::string> fileDialog(const forms::FileDialog& dialog) override;
  void showHelp(std::string_view topic) override;
  // Handles what is waiting and returns.
  void doEvents() override;
  // Shows the pointer of a program at work.
  void setBusy(bool busy) override;

 private:
  FormWindow& open(forms::Form& form);
  QWidget* ownerOfNext() const;

  DeskParts parts_;
  PictureIcons icons_;
  QPointer<QWidget> mainWindow_;
  std::map<const forms::Form*, FormWindow*> windows_;
  bool busy_ = false;
};

}  // namespace kolvane::qt
