// A dialog: its controls, their layout, what happens to it as a whole.
//
//   class frmNames final : public forms::Form {
//    public:
//     explicit frmNames(forms::Desk& desk) : Form(desk, "frmNames", "Names") {
//       cmdAdd.onClick = entry("cmdAdd_Click", &frmNames::cmdAdd_Click);
//     }
//     forms::TextBox txtName{*this, "txtName"};
//     forms::CommandButton cmdAdd{*this, "cmdAdd", "&Add"};
//     forms::Layout layout() const override { return column(row("&Name:", txtName), buttons(cmdAdd)); }
//   ...
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "forms/control.h"
#include "forms/desk.h"
#include "forms/layout.h"

namespace kolvane::forms {

class CommandButton;
class Menu;

// Why a form is asked to close.
enum class UnloadMode {
  kCloseButton,  // by the window's close button
  kCode,         // by code
  kEnd           // the desk or the suite ends: a refusal is not heard
};

// How the focus came to a control.
enum class FocusCause { kCode, kTab, kAccessKey, kMouse };

enum class WindowState { kNormal, kMinimized, kMaximized };

// In twips.
struct Placement {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const Placement&) const = default;
};

// A renderer that shows one form. It hears of changes and reads the form when it has time for it.
class FormView {
 public:
  virtual ~FormView() = default;
  virtual void controlChanged(const Control& control, Aspect aspect) = 0;
  virtual void formChanged() = 0;    // caption, placement, window state
  virtual void layoutChanged() = 0;  // controls came or went, or the layout differs
  virtual void focusMoved() = 0;
  virtual void raised() {}  // the form is to lie in front
};

using QueryUnloadHandler = std::function<void(bool& cancel, UnloadMode mode)>;

// Order of events. load(): Load, once. show(): Load, Resize, Activate, GotFocus of the first control.
// unload(): QueryUnload, Unload (each may refuse), then Activate of the form that comes to the front. Of two
// forms shown, a change from one to the other raises Deactivate and Activate, and no focus events.
//
// Lifetime. A form that is held by a shared pointer (FormSlot does) outlives its own handlers: unloading it,
// or letting its last owner go, inside one of them destroys it when the outermost has ended. The desk
// outlives its forms.
class Form : public std::enable_shared_from_this<Form> {
 public:
  Form(Desk& desk, std::string_view name, std::string_view caption);
  // Takes it off the desk without events.
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  Desk& desk() const { return desk_; }
  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string_view caption);

  // Controls.
  // In the order of their creation, menus and timers among them.
  const std::vector<Control*>& controls() const { return controls_; }
  Control* findControl(std::string_view name) const;  // without regard to case; nullptr without one
  Control& control(std::string_view name) const;      // raises 5 without one
  const std::vector<Control*>& tabOrder() const { return tabOrder_; }
  std::vector<Menu*> menuBar() const;
  CommandButton* defaultButton() const;
  CommandButton* cancelButton() const;

  // The layout. Overridden by every form that people see; without that, all controls stand in one column.
  virtual Layout layout() const;
  // The layout as last asked for. relayout() asks again, for forms whose layout follows their state.
  const Layout& currentLayout() const;
  const Place& place(const Control& control) const;
  void relayout();

  // Life.
  bool loaded() const { return loaded_; }
  void load();
  bool visible() const { return visible_; }
  bool modal() const { return modal_; }
  // Brings a form that is shown already to the front.
  void show();
  // Returns when the form has been hidden or unloaded. A form that is shown raises 400.
  void showModal();
  // It stays loaded.
  void hide();
  // False when QueryUnload or Unload refused. A form that isn't loaded is just let go by its slot.
  bool unload(UnloadMode mode = UnloadMode::kCode);
  bool close() { return unload(UnloadMode::kCloseButton); }
  void activate();
  // For desks: the form's window is there. Raises Resize, Activate and the first GotFocus, once a showing.
  void shown();

  // Focus.
  Control* focus() const { return focus_; }
  FocusCause focusCause() const { return focusCause_; }  // of the latest move, for GotFocus handlers
  // The control behind `from` in the tab order that Tab can go to, round the end; nullptr without one.
  Control* nextInTabOrder(const Control* from, bool forward = true) const;

  // Window.
  const std::optional<Placement>& placement() const { return placement_; }  // empty: the desk chooses
  // Not below the smallest size. Resize is raised when a shown form's size differs.
  void setPlacement(const Placement& placement);
  WindowState windowState() const { return windowState_; }
  void setWindowState(WindowState state);
  int minimumWidth() const { return minimumWidth_; }
  int minimumHeight() const { return minimumHeight_; }
  void setMinimumSize(int width, int height);
  bool fixedSize() const { return fixedSize_; }
  void setFixedSize(bool fixed);
  bool topMost() const { return topMost_; }
  void setTopMost(bool topMost);
  const std::string& icon() const { return icon_; }
  void setIcon(std::string_view key);

  // The help page that F1 opens; empty: F1 is a key like others. Override it where it follows the form's
  // state.
  virtual std::string helpTopic() const { return helpTopic_; }
  void setHelpTopic(std::string_view topic) { helpTopic_ = topic; }
  void showHelp();

  // Lets `milliseconds` pass for the form's timers. Each ticks at most once, however late it is.
  void advance(int milliseconds);

  // A handler that is an entry point: what it throws is shown in frmVBError, with this form and the procedure
  // in the source path, and goes no further. Takes the arguments of any event.
  template <class Work>
  auto entry(std::string_view procedure, Work work) {
    return [this, procedure = std::string(procedure), work = std::move(work)](auto&&... arguments) {
      runEntry(procedure, [&] { work(arguments...); });
    };
  }
  template <class Self, class... Arguments>
  auto entry(std::string_view procedure, void (Self::*method)(Arguments...)) {
    return [self = static_cast<Self*>(this), procedure = std::string(procedure), method](
               Arguments... arguments) { self->runEntry(procedure, [&] { (self->*method)(arguments...); }); };
  }

  void setView(FormView* view) { view_ = view; }  // one at a time; nullptr for none
  FormView* view() const { return view_; }
  // Called once, when the form has been unloaded; for the slot that owns it.
  void setRelease(Handler release) { release_ = std::move(release); }
  // Runs work that raises events of the form: it stays alive meanwhile, and at the end of the outermost such
  // work the focus leaves a control that can't have it any more.
  void dispatch(const std::function<void()>& work);

  Handler onLoad;
  Handler onActivate;
  Handler onDeactivate;
  Handler onResize;
  QueryUnloadHandler onQueryUnload;
  CancelHandler onUnload;
  KeyHandler onKeyDown;  // before that of the control that has the focus
  KeyHandler onKeyUp;

 private:
  friend class Control;
  friend class UserHand;

  template <class... Parameters, class... Arguments>
  void raise(const std::function<void(Parameters...)>& event, Arguments&&... arguments) {
    if (!event) return;
    const auto handler = event;
    dispatch([&] { handler(std::forward<Arguments>(arguments)...); });
  }
  void runEntry(const std::string& procedure, const std::function<void()>& work);
  void add(Control& control);
  void remove(Control& control);
  void moveInTabOrder(Control& control, int index);
  bool moveFocus(Control& target, FocusCause cause);
  void settleFocus();
  void open(bool modal);
  void takeDown();

  Desk& desk_;
  const std::string name_;
  std::string caption_;
  std::string helpTopic_;
  std::string icon_;
  std::vector<Control*> controls_;
  std::vector<Control*> tabOrder_;
  std::unordered_map<std::string, Control*> byName_;  // lower case
  Control* focus_ = nullptr;
  Control* firstFocus_ = nullptr;
  FocusCause focusCause_ = FocusCause::kCode;
  FormView* view_ = nullptr;
  Handler release_;
  std::optional<Placement> placement_;
  WindowState windowState_ = WindowState::kNormal;
  int minimumWidth_ = 0;
  int minimumHeight_ = 0;
  int depth_ = 0;
  bool fixedSize_ = false;
  bool topMost_ = false;
  bool loaded_ = false;
  bool visible_ = false;
  bool modal_ = false;
  bool announced_ = false;
  bool unloading_ = false;
  mutable std::optional<Layout> layout_;
  mutable std::unordered_map<const Control*, Place> places_;
};

}  // namespace kolvane::forms
