// The window of one form.
#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QIcon>
#include <QString>
#include <functional>
#include <map>
#include <string_view>

#include "forms/form.h"
#include "qt/qt_desk.h"

namespace kolvane::forms {
class CommandButton;
}

class QEventLoop;
class QMenuBar;
class QVBoxLayout;

namespace kolvane::qt {

class ControlView;
class InputRouter;
struct Changes;

inline constexpr int kTwipsAPixel = 15;  // at 96 dots an inch, to which the window system's pixels are scaled

// Hears of changes, remembers them, and brings its widgets up to date soon, and before the user's next key or click.
// What the user does
// goes through forms/user.h. It lives until the desk closes it; what is still on the stack then sees alive() go.
class FormWindow final : public QDialog, public forms::FormView {
 public:
  FormWindow(QtDesk& desk, forms::Form& form, QWidget* owner);
  ~FormWindow() override;

  forms::Form& form() const { return form_; }
  bool alive() const { return alive_; }
  // Shows it where the form wants it.
  void appear();
  // Handles events until it disappears.
  void run();
  // Parts from the form and hides; deletes itself when the event that is being handled has ended.
  void disappear();
  // Brings all that has changed up to date now.
  void refresh();
  bool refreshing() const { return refreshing_; }
  ControlView* view(const forms::Control& control) const;

  // For the views.
  QString text(std::string_view bytes) const;
  QString lines(std::string_view bytes) const;
  QIcon icon(std::string_view name) const { return desk_.icons().icon(name); }
  const base::CodePage& codePage() const { return desk_.codePage(); }
  // Runs what the user did to the control, and shows its errors. See ControlView::act.
  bool act(const forms::Control& control, const std::function<void()>& gesture);
  // The same for what the user did to the form.
  bool act(std::string_view procedure, const std::function<void()>& gesture);
  // Tells at the widget why a text isn't taken.
  void refuse(QWidget& widget, const QString& why);
  // Gives the keyboard to the control that the form says.
  void placeFocus();
  // The button that Esc clicks here where the form leaves Esc alone: an enabled cmdCancel or cmdClose. nullptr: none.
  forms::CommandButton* closingButton() const;
  // The user aims at the control: it gets the focus, if the one that has it lets go.
  bool aim(forms::Control& control);

  void controlChanged(const forms::Control& control, forms::Aspect aspect) override;
  void formChanged() override;
  void layoutChanged() override;
  void focusMoved() override;
  void raised() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  bool event(QEvent* event) override;
  void reject() override;
  void timerEvent(QTimerEvent* event) override;

 private:
  void refreshSoon();
  void build();
  void buildMenus();
  void refreshMenus();
  void refreshFrame();
  void fitToContents();
  void place();
  void tellPlacement();
  void keepTime();

  QtDesk& desk_;
  forms::Form& form_;
  InputRouter* router_;
  QVBoxLayout* frame_;
  QMenuBar* menuBar_ = nullptr;
  QWidget* body_ = nullptr;
  QEventLoop* loop_ = nullptr;
  std::map<const forms::Control*, ControlView*> views_;
  std::map<const forms::Control*, Changes> changed_;
  std::map<const forms::Control*, QAction*> actions_;
  QElapsedTimer refreshed_;
  bool alive_ = true;
  bool settled_ = false;  // shown, and its events told
  bool soon_ = false;
  bool refreshing_ = false;
  bool placing_ = false;  // the form's placement is on its way to the window
  bool layoutChanged_ = true;
  bool frameChanged_ = true;
  bool menusChanged_ = true;
  bool focusMoved_ = true;
  int ticking_ = 0;
};

}  // namespace kolvane::qt
