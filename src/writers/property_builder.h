// The dialog that asks for a property and writes it into the selected component.
#pragma once

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/form_slot.h"
#include "forms/lists.h"
#include "forms/text_controls.h"
#include "frame/tool_form.h"
#include "writers/property_text.h"

namespace kolvane::writers {

// It stays open after Apply, with an empty name, for the next property. Cancel and the window's close button
// ask before they drop changes, as the general options say.
class frmPropertyBuilder final : public frame::ToolForm {
 public:
  // The services must outlive the form.
  explicit frmPropertyBuilder(frame::Services& services);

  // Fills the lists and sets scope, type and flags from the active project's defaults.
  void prepare();
  forms::Layout layout() const override;

  forms::TextBox txtName{*this, "txtName"};
  forms::TextBox txtDesc{*this, "txtDesc"};
  forms::ComboBox cboScope{*this, "cboScope", forms::ComboBox::kDropdownList, {"Private", "Public"}};
  forms::ComboBox cboTypes{*this, "cboTypes"};
  forms::Frame fraTypes{*this, "fraTypes", "T&ypes"};
  forms::CheckBox chkGet{*this, "chkGet", "&Get"};
  forms::CheckBox chkLet{*this, "chkLet", "&Let"};
  forms::CheckBox chkSet{*this, "chkSet", "&Set"};
  forms::CommandButton cmdApply{*this, "cmdApply", "&Apply"};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

  bool IncludeClasses() const { return includeClasses_; }
  bool UseErrorHandler() const { return useErrorHandler_; }

 private:
  bool hasChanges() const override { return cmdApply.enabled(); }
  void takeFlags();
  void LoadTypes();
  void ApplyDefaults();
  void cboTypes_Click();
  void cmdOK_Click();
  void mnuFilePropertyBuilder_Click();

  // True when the property was written. Messages have been shown otherwise.
  bool apply();
  PropertyValues values() const;
  forms::Control& controlOf(PropertyField field);
  void tell(std::string_view message);

  bool includeClasses_ = true;
  bool useErrorHandler_ = false;
  bool loadingTypes_ = false;
};

// The tool: one a suite. It owns its dialog.
class PropertyBuilder {
 public:
  // The services must outlive the object.
  explicit PropertyBuilder(frame::Services& services) : form_(services) {}

  // Prepares the dialog and shows it; one that is shown already comes to the front as it is.
  void Show_PropertyBuilder();
  frmPropertyBuilder& form() { return *form_; }

 private:
  forms::FormSlot<frmPropertyBuilder> form_;
};

}  // namespace kolvane::writers
