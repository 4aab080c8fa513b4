// A desk that a program drives: boxes never wait but take prepared answers, forms are worked through user.h.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "forms/desk.h"

namespace kolvane::forms {

// One box that was shown.
struct BoxRecord {
  std::string kind;  // "message", "input", "file", "help"
  std::string text;  // an input box's prompt, the proposed path of a file dialog, the help topic
  std::string title;
  int flags = 0;  // of a message box
  std::string
      answer;  // "Yes", the text that was entered, the path; "Cancel" for a cancelled one; empty for help

  bool operator==(const BoxRecord&) const = default;
};

// A modal form that was shown while nobody was there to drive it.
struct UnattendedForm {
  std::string name;
  std::string dump;
};

class ScriptedDesk : public Desk {
 public:
  // Drives a modal form: called when it is shown, returns when it is closed. It may handle requests in a loop
  // of its own, other modal forms nest within it. Without it, or when it returns too early, the form is
  // closed as by its close button, and by force when it refuses.
  std::function<void(Form& form)> runModal;
  std::function<void()> onDoEvents;
  // Told of each entry point that begins; throwing makes it fail.
  std::function<void(std::string_view module, std::string_view procedure)> onEntering;

  // Appended to the queue. Every message box, input box and file dialog takes the next one; help takes none.
  // A message box answers with the button of that name; "Cancel" cancels an input box or a file dialog, any
  // other text is what they give. An answer that a box has no button for is used up, and the box answers as
  // without one: with OK where there is only OK, else with Cancel, else No, else Abort; input boxes and file
  // dialogs are cancelled.
  void answer(std::string_view text) { answers_.emplace_back(text); }
  const std::deque<std::string>& answers() const { return answers_; }

  // The boxes since the last call, oldest first; empties the record.
  std::vector<BoxRecord> takeLog();
  // The modal forms since the last call that nobody drove.
  std::vector<UnattendedForm> takeUnattended();

  bool busy() const { return busy_; }

  void show(Form& form) override;
  void showModal(Form& form) override;
  void closed(Form& form) override;
  Answer msgBox(std::string_view text, int flags, std::string_view title) override;
  std::optional<std::string> inputBox(std::string_view prompt, std::string_view title,
                                      std::string_view proposal) override;
  std::optional<std::string> fileDialog(const FileDialog& dialog) override;
  void showHelp(std::string_view topic) override;
  void doEvents() override;
  void setBusy(bool busy) override { busy_ = busy; }
  void entering(std::string_view module, std::string_view procedure) override {
    if (onEntering) onEntering(module, procedure);
  }

 private:
  std::optional<std::string> nextAnswer();
  std::optional<std::string> textAnswer(std::string_view kind, std::string_view text, std::string_view title);

  std::deque<std::string> answers_;
  std::vector<BoxRecord> log_;
  std::vector<UnattendedForm> unattended_;
  bool busy_ = false;
};

}  // namespace kolvane::forms
