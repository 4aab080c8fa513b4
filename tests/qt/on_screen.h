// A desk with forms on it, and the hands of a user.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QTest>
#include <QTimer>
#include <string>
#include <string_view>
#include <vector>

#include "forms/forms.h"
#include "qt/qt_desk.h"

namespace kolvane::test {

using testing::ElementsAre;
using testing::IsEmpty;
using Events = std::vector<std::string>;

class OnScreen : public testing::Test {
 protected:
  qt::QtDesk desk{{.codePage = base::CodePage::get(1252),
                   .pictures = KOLVANE_SOURCE_DIR "/data",
                   .help = [this](std::string_view topic) { note("help " + std::string(topic)); }}};
  Events events;

  forms::Handler log(std::string_view event) {
    return [this, text = std::string(event)] { note(text); };
  }
  void note(const std::string& event) { events.push_back(event); }
  Events taken() {
    settle();
    return std::exchange(events, {});
  }
  // Everything that is waiting is handled.
  void settle() {
    for (int round = 0; round < 4; ++round) {
      desk.refresh();
      QCoreApplication::processEvents();
    }
  }
  void show(forms::Form& form) {
    form.show();
    settle();
    events.clear();
  }

  template <class Widget>
  Widget* shown(const forms::Control& control) {
    settle();
    auto* const widget = qobject_cast<Widget*>(desk.widget(control));
    EXPECT_TRUE(widget) << control.name() << " is shown by another widget";
    return widget;
  }
  QWidget* windowOf(const forms::Form& form) { return desk.window(form); }

  void press(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(widget, key, modifiers);
    settle();
  }
  // Into whatever has the keyboard of the form.
  void press(const forms::Form& form, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    settle();
    QWidget* const focus = windowOf(form)->focusWidget();
    press(focus ? focus : windowOf(form), key, modifiers);
  }
  void type(QWidget* widget, const char* text) {
    for (const QChar character : QString::fromUtf8(text))
      QTest::sendKeyEvent(QTest::Click, widget, static_cast<Qt::Key>(character.toUpper().unicode()),
                          QString(character), Qt::NoModifier);
    settle();
  }
  void click(const forms::Control& control) {
    QWidget* const widget = shown<QWidget>(control);
    QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, QPoint(8, widget->height() / 2));
    settle();
  }
  // On a cell of a list, tree or table.
  void clickCell(const forms::Control& control, int row, int column = 0,
                 Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    auto* const view = shown<QAbstractItemView>(control);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, centre(*view, row, column));
    settle();
  }
  void doubleClickCell(const forms::Control& control, int row, int column = 0) {
    auto* const view = shown<QAbstractItemView>(control);
    const QPoint at = centre(*view, row, column);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    settle();
  }
  // On the box in front of a row.
  void tickCell(const forms::Control& control, int row) {
    auto* const view = shown<QAbstractItemView>(control);
    const QRect cell = view->visualRect(view->model()->index(row, 0));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(cell.left() + 10, cell.center().y()));
    settle();
  }
  static std::vector<std::string> columnOf(QAbstractItemView& view, int column) {
    std::vector<std::string> texts;
    for (int row = 0; row < view.model()->rowCount(); ++row)
      texts.push_back(view.model()->index(row, column).data().toString().toStdString());
    return texts;
  }
  static std::vector<int> selectedRows(const QAbstractItemView& view) {
    std::vector<int> rows;
    for (const QModelIndex& index : view.selectionModel()->selectedIndexes())
      if (index.column() == 0) rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
  }

  // Runs as soon as it holds, which may be in the event loop of a dialog.
  template <class Condition, class Work>
  static void once(Condition holds, Work work) {
    auto* const timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, holds, work] {
      if (!holds()) return;
      timer->stop();
      timer->deleteLater();
      work();
    });
    timer->start(1);
  }
  // `above`: a box that is asking already, over which the next one comes.
  template <class Work>
  static void whenAsked(Work work, const QWidget* above = nullptr) {
    const auto asks = [above] {
      const QWidget* const box = QApplication::activeModalWidget();
      return box != nullptr && box != above;
    };
    once(asks, [work] { work(QApplication::activeModalWidget()); });
  }

 private:
  static QPoint centre(const QAbstractItemView& view, int row, int column) {
    const QModelIndex index = view.model()->index(row, column);
    EXPECT_TRUE(index.isValid());
    return view.visualRect(index).center();
  }
};

}  // namespace kolvane::test
