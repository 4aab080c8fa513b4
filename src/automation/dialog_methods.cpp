// dialogs/… and clipboard/….
#include "automation/methods.h"
#include "automation/session.h"
#include "automation/text_of.h"

namespace kolvane::automation::methods {

Json dialogsAnswer(Session& session, const Arguments& arguments) {
  for (const Input& answer : arguments.at("answers")) session.desk().answer(answer.get<std::string>());
  return done();
}

Json dialogsLog(Session& session, const Arguments&) {
  Json list = Json::array();
  for (const forms::BoxRecord& box : session.desk().takeLog())
    list.push_back({{"kind", box.kind},
                    {"text", textOf(session, box.text)},
                    {"title", textOf(session, box.title)},
                    {"flags", box.flags},
                    {"answer", textOf(session, box.answer)}});
  return {{"boxes", list}};
}

Json clipboardGet(Session& session, const Arguments&) {
  const auto held = [](const std::optional<std::string>& value) { return value ? Json(*value) : Json(); };
  return {{"text", held(session.clipboard().text())}, {"picture", held(session.clipboard().picture())}};
}

Json clipboardSet(Session& session, const Arguments& arguments) {
  session.clipboard().clear();
  if (arguments.has("text")) session.clipboard().setText(arguments.text("text"));
  if (arguments.has("picture")) session.clipboard().setPicture(arguments.text("picture"));
  return done();
}

}  // namespace kolvane::automation::methods
