// Keys and mouse on their way to the widgets of a form: what the form has to hear first, and what goes there
// instead.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <map>
#include <set>

#include "qt/form_window.h"

namespace kolvane::qt {

// A key press is either the form's as a whole (user::key: access keys, Tab, Enter, Esc, keys of controls that are
// not edited), or an editor's: then KeyDown, KeyPress and KeyUp are asked and the widget does the rest.
class InputRouter final : public QObject {
 public:
  explicit InputRouter(FormWindow& window);

  // Watches the widgets of the view until they are deleted.
  void watch(ControlView& view);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  ControlView* viewOf(QObject* watched) const;
  bool wantsBefore(const QKeyEvent& event) const;
  bool keyPressed(ControlView* view, QKeyEvent& event);
  bool edit(ControlView& view, QKeyEvent& event, int key, int shift);
  bool characterDropped(ControlView& view, const QKeyEvent& event, int key);
  bool keyReleased(QKeyEvent& event);
  bool mousePressed(ControlView& view, const QMouseEvent& event);
  void focusArrived(ControlView& view, Qt::FocusReason reason);

  FormWindow& window_;
  std::map<const QObject*, ControlView*> views_;
  std::set<int> down_;                    // keys of editors that are held
  const ControlView* refused_ = nullptr;  // the press that brought the focus there is not to be seen
  const QEvent* passing_ = nullptr;       // on its way to the widget, asked already
};

}  // namespace kolvane::qt
