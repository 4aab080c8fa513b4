// A desk on a terminal: boxes as lines of text, modal forms printed and closed.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "base/code_page.h"
#include "forms/desk.h"

namespace kolvane::forms {

// Reads and writes UTF-8. Never waits for more than the input has: at its end every question gets the answer
// that does least (Cancel, else No), every input is cancelled.
class ConsoleDesk final : public Desk {
 public:
  enum class Policy {
    kAsk,  // questions are read from the input
    kYes,  // they are answered Yes or OK, inputs take what is proposed; "Retry" is cancelled
    kNo    // they are answered No, else with what does least; inputs are cancelled
  };

  // The streams and the code page outlive the desk. Boxes and forms go to `out`; boxes with the critical icon
  // and frmVBError go to `errors`.
  ConsoleDesk(std::istream& in, std::ostream& out, std::ostream& errors, const base::CodePage& codePage,
              Policy policy = Policy::kAsk)
      : in_(in), out_(out), errors_(errors), codePage_(codePage), policy_(policy) {}

  // Prints the forms that stand open, the lowest first: what a person would have on the screen at the end of
  // a command, such as a report. A form shown beside others is filled later: it is printed only here.
  void printOpenForms();

  void show(Form& form) override;
  // Prints the form and closes it as by its close button; by force when it refuses.
  void showModal(Form& form) override;
  void closed(Form&) override {}
  Answer msgBox(std::string_view text, int flags, std::string_view title) override;
  // An empty line takes the proposal.
  std::optional<std::string> inputBox(std::string_view prompt, std::string_view title,
                                      std::string_view proposal) override;
  // An empty line takes the proposed path; without one it cancels.
  std::optional<std::string> fileDialog(const FileDialog& dialog) override;
  void showHelp(std::string_view topic) override;
  void doEvents() override {}
  void setBusy(bool) override {}

 private:
  void print(std::ostream& stream, std::string_view text);
  void print(Form& form);
  std::optional<Answer> answerByPolicy(int flags) const;
  Answer ask(std::ostream& stream, int flags);
  std::optional<std::string> readLine();
  std::optional<std::string> readText(std::string_view proposal);

  std::istream& in_;
  std::ostream& out_;
  std::ostream& errors_;
  const base::CodePage& codePage_;
  Policy policy_;
};

}  // namespace kolvane::forms
