// What shows one control. There is one class for each group of related kinds, and one table from kind to class.
#pragma once

#include <QLabel>
#include <QObject>
#include <QString>
#include <QWidget>
#include <functional>
#include <vector>

#include "forms/control.h"
#include "qt/form_window.h"

namespace kolvane::qt {

// What is to be looked at again.
struct Changes {
  bool state = false;
  bool content = false;
  bool selection = false;

  bool any() const { return state || content || selection; }
  void add(forms::Aspect aspect);
  static Changes all() { return {true, true, true}; }
};

// A view belongs to its widget and goes with it. It never outlives what is on the stack: widgets are deleted
// when the event that is being handled has ended. While its window is not alive() the control is gone.
class ControlView : public QObject {
 public:
  forms::Control& control() const { return control_; }
  FormWindow& window() const { return window_; }
  // What stands in the layout, and the part of it that has the keyboard.
  QWidget* widget() const { return widget_; }
  virtual QWidget* focusWidget() const { return widget_; }
  // Widgets that take the mouse for the control.
  virtual std::vector<QWidget*> mouseWidgets() const { return {focusWidget()}; }

  // Brings the widget to what the control says.
  void refresh(Changes changes);

  // Whether the widget itself acts on the key, once KeyDown has let it pass. All others go to the form.
  virtual bool takesKey(int, int) const { return false; }
  // A character that KeyPress has let pass. False: the widget's own handling of the key does it.
  virtual bool takeCharacter(QChar, bool /*changed*/) { return false; }
  // The widget has acted on a key.
  virtual void keyHandled() {}
  // The mouse goes down or up on it. The widget handles the event afterwards.
  virtual void pressed(Qt::KeyboardModifiers) {}
  virtual void released() {}

  // Whether it may become higher than it needs: lists and editors of several lines.
  virtual bool growsDown() const { return false; }
  // The label that the layout puts in front of it; it is shown and hidden with the control.
  void setLabel(QLabel* label);

 protected:
  ControlView(FormWindow& window, forms::Control& control, QWidget* widget);

  virtual void showState() {}
  virtual void showContent() {}
  virtual void showSelection() {}

  // True while the widget is being changed: its signals are not the user's then.
  bool refreshing() const { return refreshing_; }
  // What the user did. Nothing happens while nobody could do it; the widget then goes back to what the control
  // says. False when the form has gone: then nothing of it may be touched.
  bool act(const std::function<void()>& gesture) const { return window_.act(control_, gesture); }
  QString text(std::string_view bytes) const { return window_.text(bytes); }

 private:
  void showCommonState();
  QString accessibleName() const;

  FormWindow& window_;
  forms::Control& control_;
  QWidget* widget_;
  QLabel* label_ = nullptr;
  bool refreshing_ = false;
};

// The view of a control that has a place. Its widget has no parent yet.
ControlView* makeView(FormWindow& window, forms::Control& control);

// Keys that belong to the form whatever has the focus: Tab, Esc, function keys and those with Alt.
bool isFormKey(int key, int shift);

// The font of a control: that of its name, or the desk's.
void applyFont(QWidget& widget, const forms::Control& control);

}  // namespace kolvane::qt
