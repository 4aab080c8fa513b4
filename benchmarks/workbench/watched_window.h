// A workbench that nobody sees, over real files, and a watch on its event loop.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>

#include "forms/scripted_desk.h"
#include "platform/files.h"
#include "platform/memory_files.h"
#include "platform/memory_tree_store.h"
#include "platform/web_pages.h"
#include "workbench/focus_keystrokes.h"
#include "workbench/main_window.h"
#include "workbench/session.h"

namespace kolvane::benchmarks {

// Counts the paintings of a widget.
class Paintings final : public QObject {
 public:
  // The widget must outlive it.
  explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }
  int count() const { return count_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int count_ = 0;
};

// The longest stretch in which the event loop did not come round: until then no key and no painting got through.
class LoopWatch {
 public:
  LoopWatch();
  void restart();
  double longestSeconds();

 private:
  void tick();

  QTimer timer_;
  QElapsedTimer since_;
  qint64 longest_ = 0;
};

class WatchedWindow {
 public:
  // Shows the window, without a project.
  WatchedWindow();
  // Raises std::runtime_error when the workbench told something: then it did not do what was to be measured.
  void expectNothingTold();

  // Does the work in the event loop and lets the loop run until `done` holds and nothing else is to do. Gives the seconds
  // from its start; raises std::runtime_error when `done` does not hold within a minute.
  double secondsUntil(const std::function<void()>& work, const std::function<bool()>& done);
  // The same for a key; done when the editor has painted.
  double secondsOfKey(workbench::CodeEditor& editor, int key, const QString& text = {});
  // Until nothing is to do.
  void settle();

  // Opens a project, without measuring.
  void open(const std::string& project);
  // Opens the code window of the project's first component and puts the cursor at its middle line.
  workbench::CodeEditor& openMiddle();

  workbench::MainWindow& window() { return *window_; }
  workbench::Session& session() { return *session_; }
  LoopWatch& loop() { return loop_; }

 private:
  std::unique_ptr<platform::Files> files_;
  platform::MemoryTreeStore store_;
  platform::MemoryClipboard clipboard_;
  platform::FixedClock clock_{base::DateTime{2026, 11, 22, 10, 20, 30}};
  platform::FixedUser user_{"ann"};
  workbench::FocusKeystrokes keystrokes_;
  platform::NoWebPages pages_;
  forms::ScriptedDesk desk_;
  workbench::Environment environment_;
  std::unique_ptr<workbench::Session> session_;
  std::unique_ptr<workbench::MainWindow> window_;
  LoopWatch loop_;
};

}  // namespace kolvane::benchmarks
