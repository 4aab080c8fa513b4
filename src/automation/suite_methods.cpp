#include "automation/json_rpc.h"
#include "automation/methods.h"
#include "automation/session.h"
#include "automation/text_of.h"
#include "base/error.h"
#include "source/dispatcher.h"

namespace kolvane::automation::methods {
namespace {

using frame::ConnectMode;
using frame::ConnectState;

bool isConnected(Session& session) {
  const ConnectState state = session.suite().connection().state();
  return state == ConnectState::kConnected || state == ConnectState::kRunning ||
         state == ConnectState::kShuttingDown;
}

void requireConnected(Session& session) {
  if (!isConnected(session)) throw base::Error(base::errors::kInvalidCall, "The suite is not connected.");
}

[[noreturn]] void refuse(const std::string& method, const std::string& sentence) {
  throw RequestError(ErrorCode::kBadParameters, method + " " + sentence);
}

void requireAvailable(bool available, std::string_view name) {
  if (!available)
    throw base::Error(base::errors::kNotAvailable, std::string(name) + " is not available in this version.");
}

const frame::CatalogueRow& commandOf(const std::string& name) {
  if (const auto* row = frame::findCatalogueRow(name)) return *row;
  if (const auto* row = frame::findCatalogueRowByName(name)) return *row;
  refuse("suite/run", "knows no command \"" + name + "\".");
}

}  // namespace

Json suiteConnect(Session& session, const Arguments& arguments) {
  if (isConnected(session)) throw base::Error(base::errors::kInvalidCall, "The suite is connected already.");
  frame::Connect& connection = session.suite().connection();
  const bool atStartup = arguments.text("mode", "startup") == "startup";
  connection.AddinInstance_Initialize();
  connection.AddinInstance_OnConnection();
  connection.IDTExtensibility_OnConnection(atStartup ? ConnectMode::kStartup : ConnectMode::kAfterStartup);
  connection.AddinInstance_OnStartupComplete();
  if (atStartup) connection.IDTExtensibility_OnStartupComplete();
  return done();
}

Json suiteBeginShutdown(Session& session, const Arguments&) {
  requireConnected(session);
  session.suite().connection().AddinInstance_OnBeginShutdown();
  return done();
}

Json suiteDisconnect(Session& session, const Arguments&) {
  requireConnected(session);
  session.suite().connection().AddinInstance_OnDisconnection();
  return done();
}

Json suiteCommands(Session& session, const Arguments&) {
  suite::Suite& suite = session.suite();
  Json list = Json::array();
  for (const frame::CatalogueRow& row : frame::kCatalogue)
    list.push_back({{"key", row.key},
                    {"name", row.listName},
                    {"caption", row.menuCaption},
                    {"tip", row.toolbarTip},
                    {"menu", row.number},
                    {"toolbar", row.toolbarNumber},
                    {"inMenu", suite.connection().menuItem(row) != nullptr},
                    {"onToolbar", suite.connection().toolbarButton(row) != nullptr},
                    {"available", suite.available(row)}});
  return {{"commands", list}};
}

Json suiteRun(Session& session, const Arguments& arguments) {
  const frame::CatalogueRow& row = commandOf(arguments.text("command"));
  suite::Suite& suite = session.suite();
  requireAvailable(suite.available(row), row.listName);
  const frame::Connect& connection = suite.connection();
  const auto control =
      arguments.text("from", "menu") == "menu" ? connection.menuItem(row) : connection.toolbarButton(row);
  if (control != nullptr)
    session.host().click(control);
  else
    suite.click(row);
  return done();
}

Json suiteDispatch(Session& session, const Arguments& arguments) {
  const std::string key = arguments.text("key");
  const auto* command = source::findCodeWindowCommand(key);
  if (command == nullptr) refuse("suite/dispatch", "knows no code-window command \"" + key + "\".");
  requireAvailable(session.suite().commands().isBound(key), command->name);
  session.suite().dispatch(key);
  return done();
}

Json suiteTick(Session& session, const Arguments& arguments) {
  requireConnected(session);
  const int count = arguments.whole("count", 1);
  if (count < 0) refuse("suite/tick", "takes as \"count\" no number below 0.");
  frame::frmTimerForm* const timer = session.suite().connection().timerForm();
  for (int i = 0; i < count && timer != nullptr; ++i) timer->tmrTimer.tick();
  return done();
}

}  // namespace kolvane::automation::methods
