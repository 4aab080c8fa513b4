#include "forms/console_desk.h"

#include <algorithm>
#include <istream>
#include <ostream>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "forms/error_form.h"
#include "forms/form.h"
#include "forms/message_box.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

void ConsoleDesk::print(std::ostream& stream, std::string_view text) {
  stream << codePage_.toUtf8(base::replaceAll(text, base::kCrLf, "\n"));
}

// Forms

void ConsoleDesk::print(Form& form) {
  const auto* error = dynamic_cast<const frmVBError*>(&form);
  if (!error) return print(out_, dump(form));
  print(errors_, form.caption() + "\nNumber: " + error->txtErrorNo.text() + "\nSource: " +
                     error->txtSource.text() + "\nDescription: " + error->txtDescription.text() + "\n");
  errors_.flush();
}

void ConsoleDesk::printOpenForms() {
  for (const auto& open : openForms().all()) print(*open.form);
}

void ConsoleDesk::show(Form& form) { form.shown(); }

void ConsoleDesk::showModal(Form& form) {
  form.shown();
  if (!form.visible()) return;
  print(form);
  if (!form.close()) form.unload(UnloadMode::kEnd);
}

// Boxes

std::optional<Answer> ConsoleDesk::answerByPolicy(int flags) const {
  const auto buttons = buttonsOf(flags);
  const auto has = [&](Answer answer) {
    return std::find(buttons.begin(), buttons.end(), answer) != buttons.end();
  };
  switch (policy_) {
    case Policy::kAsk:
      return std::nullopt;
    case Policy::kYes:
      for (const Answer wanted : {Answer::kYes, Answer::kOk})
        if (has(wanted)) return wanted;
      return cautiousAnswer(flags);
    case Policy::kNo:
      return has(Answer::kNo) ? Answer::kNo : cautiousAnswer(flags);
  }
  return cautiousAnswer(flags);
}

Answer ConsoleDesk::ask(std::ostream& stream, int flags) {
  const auto buttons = buttonsOf(flags);
  std::string names;
  for (const Answer button : buttons) names.append(names.empty() ? "" : "/").append(answerName(button));
  while (true) {
    stream << "[" << names << "] " << std::flush;
    if (const auto given = answerByPolicy(flags)) {
      stream << answerName(*given) << "\n";
      return *given;
    }
    const auto line = readLine();
    if (!line) {
      stream << answerName(cautiousAnswer(flags)) << "\n";
      return cautiousAnswer(flags);
    }
    const std::string_view typed = base::trim(*line);
    for (const Answer button : buttons)
      if (!typed.empty() && base::startsWithNoCase(answerName(button), typed)) return button;
  }
}

Answer ConsoleDesk::msgBox(std::string_view text, int flags, std::string_view title) {
  constexpr int kIconMask = 0x70;
  std::ostream& stream = (flags & kIconMask) == box::kCritical ? errors_ : out_;
  if (!title.empty()) print(stream, std::string(title) + ": ");
  print(stream, text);
  stream << "\n";
  if (buttonsOf(flags).size() > 1) return ask(stream, flags);
  stream.flush();
  return Answer::kOk;
}

std::optional<std::string> ConsoleDesk::readLine() {
  std::string line;
  if (!std::getline(in_, line)) return std::nullopt;
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return line;
}

std::optional<std::string> ConsoleDesk::readText(std::string_view proposal) {
  while (true) {
    if (!proposal.empty()) print(out_, "[" + std::string(proposal) + "] ");
    out_.flush();
    std::optional<std::string> line;
    if (policy_ == Policy::kAsk) line = readLine();
    if (policy_ == Policy::kYes && !proposal.empty()) line = std::string();
    if (!line) {
      out_ << answerName(Answer::kCancel) << "\n";
      return std::nullopt;
    }
    if (line->empty()) {
      if (policy_ == Policy::kYes) out_ << "\n";
      return std::string(proposal);
    }
    try {
      return codePage_.fromUtf8(*line);
    } catch (const base::Error& error) {
      if (error.number() != base::errors::kInvalidCall) throw;
      print(out_, error.description() + "\n");
    }
  }
}

std::optional<std::string> ConsoleDesk::inputBox(std::string_view prompt, std::string_view title,
                                                 std::string_view proposal) {
  if (!title.empty()) print(out_, std::string(title) + ": ");
  print(out_, std::string(prompt) + " ");
  return readText(proposal);
}

std::optional<std::string> ConsoleDesk::fileDialog(const FileDialog& dialog) {
  static constexpr std::string_view kTitles[] = {"Open file", "Save file", "Folder"};
  const std::string title =
      dialog.title.empty() ? std::string(kTitles[static_cast<std::size_t>(dialog.kind)]) : dialog.title;
  print(out_, title + ": ");
  auto path = readText(dialog.path);
  if (path && path->empty()) path.reset();
  return path;
}

void ConsoleDesk::showHelp(std::string_view topic) {
  print(out_, "Help: " + std::string(topic) + "\n");
  out_.flush();
}

}  // namespace kolvane::forms
