#include "forms/scripted_desk.h"

#include <utility>

#include "base/text.h"
#include "forms/form.h"
#include "forms/message_box.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

std::vector<BoxRecord> ScriptedDesk::takeLog() { return std::exchange(log_, {}); }

std::vector<UnattendedForm> ScriptedDesk::takeUnattended() { return std::exchange(unattended_, {}); }

void ScriptedDesk::show(Form& form) { form.shown(); }

void ScriptedDesk::showModal(Form& form) {
  form.shown();
  if (!form.visible()) return;
  if (runModal)
    runModal(form);
  else
    unattended_.push_back({form.name(), dump(form)});
  if (form.visible() && !form.close()) form.unload(UnloadMode::kEnd);
}

void ScriptedDesk::closed(Form&) {}

std::optional<std::string> ScriptedDesk::nextAnswer() {
  if (answers_.empty()) return std::nullopt;
  std::string answer = std::move(answers_.front());
  answers_.pop_front();
  return answer;
}

Answer ScriptedDesk::msgBox(std::string_view text, int flags, std::string_view title) {
  const auto prepared = nextAnswer();
  const auto wanted = prepared ? answerNamed(flags, *prepared) : std::nullopt;
  const Answer answer = wanted.value_or(cautiousAnswer(flags));
  log_.push_back({"message", std::string(text), std::string(title), flags, std::string(answerName(answer))});
  return answer;
}

std::optional<std::string> ScriptedDesk::textAnswer(std::string_view kind, std::string_view text,
                                                    std::string_view title) {
  auto answer = nextAnswer();
  const std::string cancel(answerName(Answer::kCancel));
  if (answer && base::equalNoCase(*answer, cancel)) answer.reset();
  log_.push_back({std::string(kind), std::string(text), std::string(title), 0, answer.value_or(cancel)});
  return answer;
}

std::optional<std::string> ScriptedDesk::inputBox(std::string_view prompt, std::string_view title,
                                                  std::string_view) {
  return textAnswer("input", prompt, title);
}

std::optional<std::string> ScriptedDesk::fileDialog(const FileDialog& dialog) {
  return textAnswer("file", dialog.path, dialog.title);
}

void ScriptedDesk::showHelp(std::string_view topic) {
  log_.push_back({"help", std::string(topic), {}, 0, {}});
}

void ScriptedDesk::doEvents() {
  if (onDoEvents) onDoEvents();
}

}  // namespace kolvane::forms
