#include "workbench/session.h"

#include <exception>

#include "base/error.h"
#include "forms/message_box.h"
#include "frame/context_menus.h"
#include "frame/default_settings.h"
#include "qt/text_convert.h"

namespace kolvane::workbench {

Session::Session(Environment& environment)
    : environment_(environment),
      workspace_(
          workspace::Workspace::create(environment.files, environment.clipboard, environment.codePage)),
      files_(workspace_->paths()),
      suite_(std::make_unique<suite::Suite>(suite::Ports{
          *workspace_, environment.store, environment.desk, environment.clock, environment.user, random_,
          environment.clipboard, environment.keystrokes, files_, environment.pages, environment.codePage,
          environment.home, frame::storedCare(frame::Settings(environment.store, environment.codePage)),
          suite::MissingCommands::kHidden})) {}

Session::~Session() { disconnectSuite(); }

void Session::connectSuite() {
  if (connected_) return;
  connected_ = true;
  writeFirstSettings();
  frame::Connect& connection = suite_->connection();
  connection.AddinInstance_Initialize();
  connection.AddinInstance_OnConnection();
  connection.IDTExtensibility_OnConnection(frame::ConnectMode::kStartup);
  connection.AddinInstance_OnStartupComplete();
  connection.IDTExtensibility_OnStartupComplete();
}

// Only before the suite's own defaults have been written once: what the user chooses afterwards stays.
void Session::writeFirstSettings() {
  frame::Settings& settings = suite_->settings();
  if (!settings.option(frame::kStoredVersionKey).empty()) return;
  frame::ApplyDefaultSettings(settings, environment_.user);
  for (const frame::PopupItem& item : frame::kProcRecoderPopup)
    if (!item.option.empty()) settings.saveOption(item.option, "True");
}

void Session::disconnectSuite() {
  if (!connected_) return;
  connected_ = false;
  suite_->connection().AddinInstance_OnBeginShutdown();
  suite_->connection().AddinInstance_OnDisconnection();
}

void Session::advance(int milliseconds) {
  if (!connected_) return;
  if (frame::frmTimerForm* form = suite_->connection().timerForm()) form->advance(milliseconds);
}

bool Session::isCareful() { return suite_->services().care.isCareful(); }

void Session::setCareful(bool isCareful) {
  const frame::Care care = frame::Care::when(isCareful);
  frame::storeCare(suite_->settings(), care);
  suite_->services().care = care;
}

bool Session::attempt(const std::function<void()>& work) {
  try {
    work();
    return true;
  } catch (const base::Error& error) {
    tell(text(error.description()), forms::box::kCritical);
  } catch (const std::exception& error) {
    tell(QString::fromLocal8Bit(error.what()), forms::box::kCritical);
  }
  return false;
}

void Session::tell(const QString& message, int icon) {
  desk().msgBox(shown(message), icon, base::kProductName);
}

forms::Answer Session::ask(const QString& message, int buttons) {
  return desk().msgBox(shown(message), forms::box::kExclamation + buttons, base::kProductName);
}

bool Session::agreesToLose(const QString& question) {
  return ask(question, forms::box::kYesNo + forms::box::kDefaultSecond) == forms::Answer::kYes;
}

QString Session::text(std::string_view hostText) const { return qt::toQt(codePage(), hostText); }

std::string Session::shown(const QString& text) const {
  if (const auto whole = qt::tryFromQt(codePage(), text)) return *whole;
  std::string bytes;
  for (const QChar each : text) bytes += qt::tryFromQt(codePage(), QString(each)).value_or("?");
  return bytes;
}

}  // namespace kolvane::workbench
