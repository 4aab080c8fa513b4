// Composition of the workbench: this machine's files, clock, user, clipboard and window system.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QIcon>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "adapters/clipboard/qt_clipboard.h"
#include "adapters/sqlite/sqlite_tree_store.h"
#include "adapters/system/posix_files.h"
#include "adapters/system/standard_streams.h"
#include "adapters/system/system_services.h"
#include "adapters/web/curl_web_pages.h"
#include "base/error.h"
#include "frame/settings_file.h"
#include "frame/version.h"
#include "platform/code_pages.h"
#include "qt/qt_desk.h"
#include "qt/text_convert.h"
#include "workbench/focus_keystrokes.h"
#include "workbench/help_viewer.h"
#include "workbench/main_window.h"
#include "workbench/session.h"

namespace {

using namespace kolvane;

std::string settingsPath(const QCommandLineParser& arguments) {
  if (arguments.isSet("settings")) return qt::utf8(arguments.value("settings"));
  const char* named = std::getenv("KOLVANE_SETTINGS");
  return named != nullptr && *named != '\0' ? named : adapters::defaultSettingsPath();
}

std::unique_ptr<platform::TreeStore> openSettings(const std::string& path) {
  if (path != ":memory:") adapters::createFolderOf(path);
  return std::make_unique<adapters::SqliteTreeStore>(path);
}

// By the XDG base directories.
QString stateFolder() {
  const QString named = qEnvironmentVariable("XDG_STATE_HOME");
  return (QDir::isAbsolutePath(named) ? named : QDir::homePath() + "/.local/state") + "/kolvane";
}

void declareArguments(QCommandLineParser& arguments) {
  arguments.setApplicationDescription("Visual Basic projects with KolvaneLite's code tools, under a window.");
  arguments.addHelpOption();
  arguments.addVersionOption();
  arguments.addOption({"settings", "Keep the suite's settings in <file> (default: this user's).", "file"});
  arguments.addOption({"code-page",
                       "The code page of the projects (default: what their file names show, or else 1252).",
                       "number", "1252"});
  arguments.addPositionalArgument("project", "Projects, groups or source files to open.", "[project...]");
}

int runWorkbench(const QCommandLineParser& arguments) {
  const auto files = adapters::makePosixFiles();
  const auto clock = adapters::makeSystemClock();
  const auto user = adapters::makeSystemUser();
  const frame::OpenedSettings settings = frame::openSettings(openSettings, settingsPath(arguments));
  adapters::QtClipboard clipboard;
  const platform::CodePages codePages;  // the editor counts a byte for a character
  base::CodePage codePage = codePages.get(arguments.value("code-page").toInt());
  const auto pages = adapters::makeWebPages();
  workbench::FocusKeystrokes keystrokes;
  workbench::Session* session = nullptr;
  const std::string home = adapters::suiteHome();
  qt::DeskParts parts{codePage, home};
  parts.toSuitePath = [&](const std::string& path) { return session->host().paths().toHost(path); };
  parts.toSystemPath = [&](const std::string& path) { return session->host().paths().toSystem(path); };
  std::unique_ptr<workbench::HelpViewer> help;
  parts.help = [&](std::string_view topic) {
    if (!help) help = std::make_unique<workbench::HelpViewer>(home);
    help->open(topic);
  };
  qt::QtDesk desk(std::move(parts));
  workbench::Environment environment{*files,     *clock, *user, *settings.store, clipboard,
                                     keystrokes, *pages, desk,  codePage,        home};
  environment.stateFolder = stateFolder();
  environment.icon = [&](const std::string& face) { return desk.icons().icon(face); };
  workbench::Session own(environment);
  session = &own;
  if (!arguments.isSet("code-page")) own.host().recogniseCodePages(codePage, codePages);
  workbench::MainWindow window(own);
  desk.setMainWindow(&window);
  keystrokes.beforeSending = [&] { window.sync(); };
  window.show();
  QTimer::singleShot(0, &window, [&] {
    if (!settings.problem.empty()) own.tell(qt::utf8(settings.problem));
    for (const QString& path : arguments.positionalArguments()) window.files().open(path);
    window.offerRecovery();
    window.start();
  });
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  adapters::prepareStandardStreams();
  QCoreApplication::setApplicationName("kolvane-workbench");
  QCoreApplication::setApplicationVersion(QString::fromStdString(frame::versionText()));
  // These two need no display.
  {
    const QStringList given(argv, argv + argc);
    QCommandLineParser arguments;
    declareArguments(arguments);
    for (const QString& each : given)
      if (each == "--help" || each == "-h" || each == "--version" || each == "-v") {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        break;
      }
  }
  // By this name desktops find the icon and the name of the window's program.
  QGuiApplication::setDesktopFileName("kolvane-workbench");
  QApplication application(argc, argv);
  QApplication::setWindowIcon(QIcon::fromTheme("kolvane-workbench"));
  QCommandLineParser arguments;
  declareArguments(arguments);
  arguments.process(application);
  try {
    return runWorkbench(arguments);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kolvane-workbench: %s\n", error.what());
    return 1;
  }
}
