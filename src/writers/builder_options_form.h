// What the options dialogs of the builders have in common: one project's set of defaults is shown, changed, cleared
// or taken over from another project. A dialog adds the fields:
//
//   class frmNameOptions final : public BuilderOptionsForm {
//    public:
//     explicit frmNameOptions(frame::Services& services)
//         : BuilderOptionsForm(services, kProcedureBuilder, kTexts) {
//       tie(forms::kClick, cboScope, [this] { changed(); });
//     }
//     forms::Layout layout() const override {
//       return forms::column(projectLayout(), forms::row("&Scope:", cboScope), buttonLayout());
//     }
//   ...
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "forms/buttons.h"
#include "forms/lists.h"
#include "frame/tool_form.h"
#include "writers/builder_defaults.h"

namespace kolvane::writers {

struct BuilderOptionsTexts {
  frame::FormTraits form;
  std::string_view otherProjectsLabel;  // of cboOtherProjects
  std::string_view clearQuestion;
};

// Apply and OK replace the project's set by what the fields hold; OK of an unchanged form writes nothing. Cancel and
// the window's close button ask before they drop changes, as the general options say. Choosing another project
// shows its values and drops changes without asking.
class BuilderOptionsForm : public frame::ToolForm {
 public:
  // Loads the form if it is not loaded yet and chooses the project; "Any Project" when none of that name is open.
  void LoadForm(std::string_view project);

  forms::ComboBox cboProject{*this, "cboProject", forms::ComboBox::kDropdownList};
  forms::ComboBox cboOtherProjects{*this, "cboOtherProjects", forms::ComboBox::kDropdownList};
  forms::CommandButton cmdProjectSetup{*this, "cmdProjectSetup", "Set&up"};
  forms::CommandButton cmdClear{*this, "cmdClear", "&Clear"};
  forms::CommandButton cmdApply{*this, "cmdApply", "&Apply"};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

 protected:
  // The texts are a constant.
  BuilderOptionsForm(frame::Services& services, const BuilderSection& section,
                     const BuilderOptionsTexts& texts);

  // Fills the lists of the fields; called once, as the form loads and before the first showValues.
  virtual void fillLists() = 0;
  // Puts the values into the fields. A missing one gives the field's default, whatever it holds now, so that empty
  // values set all defaults. changed() does nothing meanwhile.
  virtual void showValues(const BuilderValues& values) = 0;
  // What the fields hold, as it is stored.
  virtual frame::Settings::Rows values() const = 0;

  // For the fields' change and click handlers: enables Apply.
  void changed();

  // The rows of the projects, and the buttons: each stands in the layout once.
  forms::Layout projectLayout() const;
  forms::Layout buttonLayout() const;

 private:
  void Form_Load() override;
  bool hasChanges() const override { return cmdApply.enabled(); }
  void LoadSettingsForCurrentProject();
  void GetOtherProjects();
  void Update_Registry();
  void cmdProjectSetup_Click();
  void cmdClear_Click();
  void cmdOK_Click();
  void fillProjects();
  void showSet(const BuilderValues& values, bool unsaved);
  bool agrees(std::string_view question);
  void buttonsToTheEnd();

  const BuilderOptionsTexts& texts_;
  BuilderDefaults defaults_;
  bool showing_ = false;
};

// Shows the defaults of the active project and returns when the dialog has been closed.
template <class Dialog>
void showBuilderOptions(frame::Services& services) {
  const auto options = std::make_shared<Dialog>(services);
  options->LoadForm(activeProjectName(services));
  options->showModal();
  options->unload();
}

}  // namespace kolvane::writers
