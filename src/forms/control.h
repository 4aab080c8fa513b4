// What all controls have in common: name, state that people see, focus, events.
//
// Which changes in code raise events, each only when the value differs:
//   TextBox, RichTextBox, ComboBox (its text)   Change
//   CheckBox, ListBox, ComboBox (its index)     Click
//   OptionButton                                Click of the one that is chosen
//   ListBox with check boxes                    ItemCheck
//   Tabs                                        TabClick
//   Grid                                        SelChange, and RowColChange with another current cell
//   DriveList, FolderList, KeyBox               Change
//   FileList                                    Click
//   ImageCombo, ListView, TreeView and others   none; a TreeNode Expand and Collapse
// A user's selections and ticks raise their events in every kind.
// State is changed first, then the event is raised, as the last thing that the change does. A handler may
// therefore disable, hide or unload anything, its own form included.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "forms/kinds.h"

namespace kolvane::forms {

class Form;
struct ControlState;

// Key codes and shift states, as the language numbers them.
namespace keys {
inline constexpr int kBack = 8, kTab = 9, kEnter = 13, kEscape = 27, kSpace = 32, kPageUp = 33,
                     kPageDown = 34, kEnd = 35, kHome = 36, kLeft = 37, kUp = 38, kRight = 39, kDown = 40,
                     kInsert = 45, kDelete = 46, kF1 = 112, kF12 = 123;
inline constexpr int kShift = 1, kCtrl = 2, kAlt = 4;

// The character that a key gives with that shift state, as KeyPress gets it (Ctrl with a letter: 1 to 26); 0
// for a key that gives none. The layout is the US one.
int character(int key, int shift);
// "Ctrl+O", "Shift+F3", "Del": as menus show a shortcut. Empty for key 0.
std::string name(int key, int shift);
}  // namespace keys

using Handler = std::function<void()>;
using KeyPressHandler = std::function<void(int& character)>;  // 0 drops it; another one takes its place
using KeyHandler = std::function<void(int& key, int shift)>;  // 0 takes away the key's usual meaning
using CancelHandler = std::function<void(bool& cancel)>;      // true refuses
using Deed = std::function<void()>;                           // what is still to be done

// The part of a control that a gesture is aimed at. Nothing set: the control as a whole, or its current row.
struct Spot {
  std::optional<int> row = {};           // as the control counts: ListView from 1, ListBox and Grid from 0
  std::optional<int> column = {};        // from 0; without a row: the column's header
  std::optional<std::string> node = {};  // key of a tree node or a list view's row
};

// What a renderer has to look at again.
enum class Aspect { kState, kContent, kSelection };

// A control belongs to one form for life and is known by its name there, without regard to case.
class Control {
 public:
  // A name that the form has already raises 5.
  Control(Form& form, Kind kind, std::string_view name, std::string_view caption = {});
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Form& form() const { return form_; }
  Kind kind() const { return kind_; }
  std::string_view kindName() const { return kindRow(kind_).name; }
  const std::string& name() const { return name_; }  // "cmdOK", a member of an array "txtName(2)"
  const std::string& caption() const { return caption_; }
  void setCaption(std::string_view caption);
  // The control's own setting; obstacle() looks at what holds it too.
  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  bool visible() const { return visible_; }
  void setVisible(bool visible);
  const std::string& tooltip() const { return tooltip_; }
  void setTooltip(std::string_view text);
  const std::string& tag() const { return tag_; }
  void setTag(std::string_view tag) { tag_ = tag; }
  const std::string& font() const { return font_; }  // empty: the desk's usual one
  void setFont(std::string_view name);

  // Place in the form's tab order, from 0. Setting it moves the control there; the others keep their order.
  int tabIndex() const;
  void setTabIndex(int index);
  bool tabStop() const { return tabStop_; }
  void setTabStop(bool stop) { tabStop_ = stop; }
  // False: the control that loses the focus to this one is not asked to validate.
  bool causesValidation() const { return causesValidation_; }
  void setCausesValidation(bool causes) { causesValidation_ = causes; }

  // Why no user can use the control now, as a sentence; empty when one can. Looks at the form, at modal forms
  // above it, at the control, its containers and its tab page.
  std::string obstacle() const;
  bool canFocus() const { return kindRow(kind_).focusable && standing().empty(); }
  bool hasFocus() const;
  // On a form that isn't visible: where the focus goes when it is shown. On a visible one the focus moves at
  // once, unless the control that has it refuses in Validate. A control that can't have it raises 5.
  void setFocus();

  // Whether a user can select more than one row at a time.
  virtual bool selectsSeveral() const { return false; }

  // The current state as a plain value.
  ControlState snapshot() const;

  Handler onClick;
  Handler onDblClick;
  Handler onChange;
  Handler onGotFocus;
  Handler onLostFocus;
  KeyPressHandler onKeyPress;
  KeyHandler onKeyDown;
  KeyHandler onKeyUp;
  CancelHandler onValidate;

 protected:
  // What a user's gestures do to a control of this kind. The functions of user.h call them on a usable
  // control. Each sees first whether the gesture makes sense (else 5, and nothing has changed) and gives what
  // is to be done once the control has got the focus. The defaults refuse.
  virtual Deed takeText(std::string_view text);
  virtual Deed takeValue(double value);
  virtual Deed takeIndex(int index);
  virtual Deed takeItem(std::string_view text);
  virtual Deed takeSelection(const Spot& spot, bool extend);
  virtual Deed takeCheck(const Spot& spot, bool value);
  virtual Deed takeTab(int page);
  // Click and DblClick are raised behind what the kind does by itself.
  virtual Deed takeClick(const Spot& spot);
  virtual Deed takeDoubleClick(const Spot& spot);
  // The usual meaning of a key; true when the control has one for it.
  virtual bool takeKey(int key, int shift);
  // A character that KeyPress let through.
  virtual void takeCharacter(int character);
  // The text that the desk's own editor holds now; its characters have been through KeyPress.
  virtual void takeEdited(std::string_view text, int caret);

  virtual void describe(ControlState& state) const = 0;

  [[noreturn]] void refuse(std::string_view why) const;  // 5: "<name> of <form> <why>."
  // Tells the renderer.
  void touched(Aspect aspect);
  // Raises an event: the form stays alive until the outermost handler has ended.
  template <class... Parameters, class... Arguments>
  void raise(const std::function<void(Parameters...)>& event, Arguments&&... arguments) {
    if (!event) return;
    const auto handler = event;  // a handler may replace itself
    dispatch([&] { handler(std::forward<Arguments>(arguments)...); });
  }
  // See Form::dispatch.
  void dispatch(const std::function<void()>& work);
  // Runs a typed character through KeyPress; 0 when it was dropped.
  int filtered(int character);
  // The same for a line; nothing when a handler has closed the form.
  std::optional<std::string> filteredLine(std::string_view text);

 private:
  friend class Form;
  friend class UserHand;

  // As obstacle(), without regard to the form.
  std::string standing() const;

  Form& form_;
  const Kind kind_;
  const std::string name_;
  std::string caption_;
  std::string tooltip_;
  std::string tag_;
  std::string font_;
  bool enabled_ = true;
  bool visible_ = true;
  bool tabStop_ = true;
  bool causesValidation_ = true;
};

}  // namespace kolvane::forms
