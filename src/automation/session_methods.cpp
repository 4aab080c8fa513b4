#include <array>
#include <charconv>

#include "automation/json_rpc.h"
#include "automation/methods.h"
#include "automation/session.h"
#include "automation/text_of.h"
#include "base/error.h"
#include "frame/version.h"

namespace kolvane::automation::methods {
namespace {

std::string version() {
  return std::to_string(frame::kVersionMajor) + "." + std::to_string(frame::kVersionMinor) + "." +
         std::to_string(frame::kVersionRevision);
}

[[noreturn]] void refuse(const std::string& sentence) {
  throw RequestError(ErrorCode::kBadParameters, "session/start " + sentence);
}

const base::CodePage& codePageOf(const std::string& text) {
  int number = 0;
  const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (status != std::errc() || end != text.data() + text.size())
    refuse("cannot take \"codePage\": \"" + text + "\" is not the number of a code page.");
  try {
    return base::CodePage::get(number);
  } catch (const base::Error& error) {
    refuse("cannot take \"codePage\": " + error.description());
  }
}

base::DateTime momentOf(const std::string& text) {
  if (const auto moment = base::parseIso(text)) return *moment;
  refuse("takes as \"now\" a moment such as \"2026-11-22T10:20:30\".");
}

// In the order of frame::ConnectState.
constexpr std::array<std::string_view, 6> kStates{"created", "initialized",  "connected",
                                                  "running", "shuttingDown", "disconnected"};

// What is in front in the host.
Json hostState(Session& session) {
  workspace::Workspace& host = session.host();
  Json state{{"projects", host.VBProjects()->Count()}};
  state["activeProject"] = nullptr;
  state["selectedComponent"] = nullptr;
  state["activeWindow"] = nullptr;
  if (const auto project = host.ActiveVBProject()) state["activeProject"] = textOf(session, project->Name());
  if (const auto component = host.SelectedVBComponent())
    state["selectedComponent"] = textOf(session, component->Name());
  if (const auto window = host.ActiveWindow()) state["activeWindow"] = textOf(session, window->Caption());
  return state;
}

}  // namespace

Json sessionStart(Session& session, const Arguments& arguments) {
  if (session.started()) throw RequestError(ErrorCode::kInvalidRequest, "The session has started already.");
  Session::Options options;
  options.settings = arguments.text("settings", options.settings);
  options.user = arguments.optionalText("user");
  options.home = arguments.optionalText("home");
  options.decimalSeparator = arguments.optionalText("decimalSeparator");
  if (arguments.has("now")) options.now = momentOf(arguments.text("now"));
  if (arguments.has("seed")) options.seed = arguments.whole("seed");
  if (arguments.has("codePage")) options.codePage = &codePageOf(arguments.text("codePage"));
  options.careful = arguments.truth("careful", false);
  session.start(options);
  Json result{{"version", version()}};
  if (!session.settingsProblem().empty()) result["problems"] = Json::array({session.settingsProblem()});
  return result;
}

Json sessionInfo(Session& session, const Arguments&) {
  const auto state = static_cast<std::size_t>(session.suite().connection().state());
  return {{"version", version()},
          {"settings", session.settingsPath()},
          {"codePage", std::to_string(session.codePage().number())},
          {"suite", kStates.at(state)},
          {"host", hostState(session)}};
}

Json sessionEnd(Session& session, const Arguments&) {
  session.end();
  return done();
}

}  // namespace kolvane::automation::methods
