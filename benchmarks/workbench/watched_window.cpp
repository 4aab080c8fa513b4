#include "workbench/watched_window.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <stdexcept>

#include "adapters/system/posix_files.h"

namespace kolvane::benchmarks {

namespace {

constexpr int kTickMilliseconds = 1;
constexpr qint64 kMostMilliseconds = 60'000;

// One round of the event loop; the ticking of LoopWatch keeps it from waiting for long.
void turn() { QApplication::processEvents(QEventLoop::WaitForMoreEvents); }

}  // namespace

bool Paintings::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Paint) ++count_;
  return QObject::eventFilter(watched, event);
}

LoopWatch::LoopWatch() {
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, [this] { tick(); });
  since_.start();
  timer_.start(kTickMilliseconds);
}

void LoopWatch::restart() {
  longest_ = 0;
  since_.start();
}

void LoopWatch::tick() {
  longest_ = std::max(longest_, since_.nsecsElapsed());
  since_.start();
}

double LoopWatch::longestSeconds() {
  tick();
  return static_cast<double>(longest_) / 1e9;
}

WatchedWindow::WatchedWindow()
    : files_(adapters::makePosixFiles()),
      environment_{*files_, clock_,     user_,
                   store_,  clipboard_, keystrokes_,
                   pages_,  desk_,      base::CodePage::get(base::CodePage::kDefault),
                   {}},
      session_(std::make_unique<workbench::Session>(environment_)),
      window_(std::make_unique<workbench::MainWindow>(*session_)) {
  keystrokes_.beforeSending = [this] { window_->sync(); };
  window_->show();
  window_->activateWindow();
  settle();
}

void WatchedWindow::expectNothingTold() {
  if (const auto boxes = desk_.takeLog(); !boxes.empty()) throw std::runtime_error(boxes.front().text);
}

double WatchedWindow::secondsUntil(const std::function<void()>& work, const std::function<bool()>& done) {
  QElapsedTimer time;
  bool begun = false;
  QTimer::singleShot(0, window_.get(), [&] {
    time.start();
    loop_.restart();
    begun = true;
    work();
  });
  QElapsedTimer patience;
  patience.start();
  while (!begun || !done()) {
    turn();
    if (patience.elapsed() > kMostMilliseconds) throw std::runtime_error("the window did not answer");
  }
  // What the painting left to do, the look at the host before the loop waits included.
  turn();
  const double seconds = static_cast<double>(time.nsecsElapsed()) / 1e9;
  expectNothingTold();
  return seconds;
}

double WatchedWindow::secondsOfKey(workbench::CodeEditor& editor, int key, const QString& text) {
  const Paintings paintings(*editor.viewport());
  return secondsUntil(
      [&] {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
          QKeyEvent event(type, key, Qt::NoModifier, text);
          QApplication::sendEvent(&editor, &event);
        }
      },
      [&] { return paintings.count() > 0; });
}

void WatchedWindow::settle() {
  constexpr int kTurns = 20;
  for (int i = 0; i < kTurns; ++i) turn();
}

void WatchedWindow::open(const std::string& project) {
  if (!window_->files().open(QString::fromStdString(project)))
    throw std::runtime_error(project + ": was not opened");
  settle();
  expectNothingTold();
}

workbench::CodeEditor& WatchedWindow::openMiddle() {
  const auto component = session_->host().projects().front()->components().front();
  window_->run([&] { session_->host().openCode(component); });
  workbench::CodeWindow* code = window_->documents().currentCode();
  if (code == nullptr) throw std::runtime_error("no code window was opened");
  workbench::CodeEditor& editor = code->editor();
  editor.setFocus();
  const int middle = editor.lines() / 2;
  editor.select({middle, 1, middle, 1});
  settle();
  return editor;
}

}  // namespace kolvane::benchmarks
