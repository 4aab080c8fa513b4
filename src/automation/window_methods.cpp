// host/…: windows, command bars, run mode and keystrokes.
#include "automation/json_rpc.h"
#include "automation/methods.h"
#include "automation/session.h"
#include "automation/text_of.h"
#include "base/error.h"
#include "base/text.h"

namespace kolvane::automation::methods {
namespace {

using ControlsPtr = std::shared_ptr<frame::CommandBarControls>;

Json barControlsJson(const Session& session, const ControlsPtr& controls) {
  Json list = Json::array();
  if (controls == nullptr) return list;
  for (const auto& control : controls->items())
    list.push_back({{"caption", textOf(session, control->Caption())},
                    {"tooltip", textOf(session, control->TooltipText())},
                    {"visible", control->Visible()},
                    {"enabled", control->Enabled()},
                    {"beginGroup", control->BeginGroup()},
                    {"children", barControlsJson(session, control->Controls())}});
  return list;
}

std::shared_ptr<frame::CommandBar> barOf(Session& session, const Input& bar) {
  const auto bars = session.host().CommandBars();
  try {
    return bar.is_string() ? bars->Item(bar.get<std::string>()) : bars->Item(bar.get<int>());
  } catch (const base::Error& error) {
    if (error.number() != base::errors::kSubscript) throw;
    throw base::Error(error.number(),
                      "There is no command bar " +
                          (bar.is_string() ? "\"" + bar.get<std::string>() + "\"" : bar.dump()) + ".");
  }
}

std::shared_ptr<frame::CommandBarControl> controlOf(frame::CommandBarControls& controls,
                                                    const std::string& caption) {
  try {
    return controls.Item(caption);
  } catch (const base::Error& error) {
    if (error.number() != base::errors::kSubscript) throw;
    throw base::Error(error.number(), "There is no \"" + caption + "\" there.");
  }
}

}  // namespace

Json hostWindows(Session& session, const Arguments&) {
  Json list = Json::array();
  for (const auto& window : session.host().Windows()->items())
    if (window->Visible())
      list.push_back(
          {{"caption", textOf(session, window->Caption())}, {"type", static_cast<int>(window->Type())}});
  return {{"windows", list}};
}

Json hostCloseWindow(Session& session, const Arguments& arguments) {
  const std::string caption = arguments.text("caption");
  for (const auto& window : session.host().Windows()->items()) {
    if (!window->Visible() || !base::equalNoCase(window->Caption(), caption)) continue;
    window->Close();
    return done();
  }
  throw base::Error(base::errors::kSubscript, "There is no window \"" + caption + "\".");
}

Json hostCommandBars(Session& session, const Arguments&) {
  Json list = Json::array();
  for (const auto& bar : session.host().CommandBars()->items())
    list.push_back({{"name", textOf(session, bar->Name())},
                    {"index", bar->Index()},
                    {"visible", bar->Visible()},
                    {"controls", barControlsJson(session, bar->Controls())}});
  return {{"bars", list}};
}

Json hostClickBar(Session& session, const Arguments& arguments) {
  ControlsPtr controls = barOf(session, arguments.at("bar"))->Controls();
  std::shared_ptr<frame::CommandBarControl> control;
  for (const Input& caption : arguments.at("path")) {
    if (controls == nullptr)
      throw base::Error(base::errors::kObjectNotSet,
                        "\"" + control->Caption() + "\" is a button: nothing stands below it.");
    control = controlOf(*controls, caption.get<std::string>());
    controls = control->Controls();
  }
  if (control == nullptr)
    throw RequestError(ErrorCode::kBadParameters, "host/clickBar needs at least one caption in \"path\".");
  session.host().click(control);
  return done();
}

Json hostRun(Session& session, const Arguments&) {
  session.host().enterRunMode();
  session.host().leaveRunMode();
  return done();
}

Json hostKeys(Session& session, const Arguments&) {
  return {{"keys", textsOf(session, session.keystrokes().take())}};
}

}  // namespace kolvane::automation::methods
