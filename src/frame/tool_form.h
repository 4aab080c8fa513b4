// The base of the tools' dialogs: what is the same in all of them follows from a row of traits.
//
//   constexpr std::array kMenus{
//       frame::popup(0, "mnuFile", "&File"),
//       frame::leaves(1, "mnuExit", "E&xit"),
//       frame::popup(0, "mnuHelp", "&Help"),
//       frame::helps(1, "mnuContents", "&Contents..."),
//       frame::opens(1, "mnuAbout", "&About", frame::kAboutBox)};
//   constexpr frame::FormTraits kTraits{
//       .name = "frmNames", .caption = "Names", .help = "Names.html", .placement = "Names", .menus = kMenus};
//
//   frmNames::frmNames(frame::Services& services) : ToolForm(services, kTraits) {
//     cancelBy(cmdCancel);
//     tie(forms::kClick, cmdOK, &frmNames::cmdOK_Click);
//   }
#pragma once

#include <cstdint>
#include <initializer_list>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "forms/buttons.h"
#include "forms/events.h"
#include "forms/form.h"
#include "forms/menu.h"
#include "frame/services.h"

namespace kolvane::frame {

enum class MenuDoes : std::uint8_t {
  kHolds,   // the entries below it; or what its form ties to it
  kLeaves,  // what the cancel button does
  kHelps,   // opens the form's help page
  kOpens,   // another tool
};

// One entry of a form's menus, in their order.
struct MenuRow {
  int level = 0;  // 0 in the menu bar, one more below each entry
  std::string_view name;
  std::string_view caption;
  MenuDoes does = MenuDoes::kHolds;
  std::string_view tool = {};
};

constexpr MenuRow popup(int level, std::string_view name, std::string_view caption) {
  return {level, name, caption};
}
constexpr MenuRow leaves(int level, std::string_view name, std::string_view caption) {
  return {level, name, caption, MenuDoes::kLeaves};
}
constexpr MenuRow helps(int level, std::string_view name, std::string_view caption) {
  return {level, name, caption, MenuDoes::kHelps};
}
constexpr MenuRow opens(int level, std::string_view name, std::string_view caption, std::string_view tool) {
  return {level, name, caption, MenuDoes::kOpens, tool};
}

// What a form says of the user's changes as it is closed by its close button.
enum class Closing : std::uint8_t { kPlain, kAsksAboutChanges };

struct FormTraits {
  std::string_view name;
  std::string_view caption;
  std::string_view help = {};       // the page that F1 opens
  std::string_view placement = {};  // a name of kPlacements: restored as the form loads
  bool savesAtUnload = false;       // its placement; else the form says when, by savePlacement()
  bool fixedSize = true;
  Closing closing = Closing::kPlain;
  std::span<const MenuRow> menus = {};
};

// While a run is on, the form does not unload and its cancel button does nothing.
class ToolForm : public forms::Form {
 public:
  bool running() const { return running_; }

 protected:
  // The services must outlive the form; the traits are a constant.
  ToolForm(Services& services, const FormTraits& traits);

  // Marks a run, and shows the busy pointer unless it is told not to, until it goes. Runs nest.
  class Run {
   public:
    explicit Run(ToolForm& form, bool busy = true);
    ~Run();
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

   private:
    ToolForm& form_;
    const bool before_;
    const bool busy_;
  };

  // Ties a handler to an event of a control, or of several, or of the form. It is an entry point under the name that
  // control and event give it; what it throws is shown.
  template <class Owner, class Handles, class Work>
  void tie(const forms::Event<Owner, Handles>& event, forms::Control& control, Work work) {
    control.*event.handler = entryOf(forms::procedureName(event, control), work);
  }
  template <class Owner, class Handles, class Work>
  void tie(const forms::Event<Owner, Handles>& event, std::initializer_list<forms::Control*> controls,
           Work work) {
    for (forms::Control* control : controls) tie(event, *control, work);
  }
  template <class Handles, class Work>
  void tie(const forms::Event<forms::Form, Handles>& event, Work work) {
    this->*event.handler = entryOf(forms::procedureName(event), work);
  }

  // The button that leaves the form, and the entries of its menus that do the same.
  void cancelBy(forms::CommandButton& button);
  // Asks about changes if the options say so, and unloads; while a run is on it only shows the busy pointer.
  void leave();

  // An entry of the traits' menus.
  forms::Menu& menu(std::string_view name) { return *menus_.at(std::string(name)); }
  // Remembers where the form stands, as the options say.
  void savePlacement();

  // What the form does as it loads, behind the placement.
  virtual void Form_Load() {}
  // What the form does as it unloads, behind the placement; only where the traits save it then.
  virtual void Form_Unload() {}
  // Whether closing would lose something.
  virtual bool hasChanges() const { return false; }

  Services& services_;

 private:
  template <class Work>
  auto entryOf(const std::string& procedure, Work work) {
    if constexpr (std::is_member_function_pointer_v<Work>)
      return entry(procedure, work);
    else
      return entry(procedure, std::move(work));
  }
  void addMenus();
  void wireMenu(forms::Menu& menu, const MenuRow& row);
  void refuseToClose(bool& cancel, forms::UnloadMode mode);

  const FormTraits& traits_;
  std::map<std::string, std::unique_ptr<forms::Menu>, std::less<>> menus_;
  bool running_ = false;
};

// Shows a dialog and returns when it has been closed.
template <class Dialog, class... Arguments>
void showDialog(Arguments&&... arguments) {
  const auto form = std::make_shared<Dialog>(std::forward<Arguments>(arguments)...);
  form->showModal();
  form->unload();
}

}  // namespace kolvane::frame
