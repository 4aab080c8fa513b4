// The dialog that writes a whole Sub or Function behind the code of the selected component.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "forms/buttons.h"
#include "forms/form_slot.h"
#include "forms/lists.h"
#include "forms/text_controls.h"
#include "frame/tool_form.h"
#include "writers/procedure_text.h"

namespace kolvane::writers {

class frmProcedureBuilder final : public frame::ToolForm {
 public:
  // The services must outlive the form.
  explicit frmProcedureBuilder(frame::Services& services);

  // What Show_ProcedureBuilder does in front of the first show: fills the lists, applies the defaults of the active
  // project, adds the open projects' classes to the types when the defaults say so. Changes count from then on.
  void prepare();

  bool MoveCursor() const { return moveCursor_; }
  bool IncludeClasses() const { return includeClasses_; }

  forms::Layout layout() const override;

  forms::TextBox txtName{*this, "txtName"};
  forms::TextBox txtDesc{*this, "txtDesc"};
  forms::ComboBox cboScope{*this, "cboScope", forms::ComboBox::kDropdownList, {"Private", "Public"}};
  forms::ComboBox cboType{*this, "cboType", forms::ComboBox::kDropdownList, {"Sub", "Function"}};
  forms::ComboBox cboReturns{*this, "cboReturns"};
  forms::ComboBox cboErrors{*this, "cboErrors", forms::ComboBox::kDropdownList};
  forms::TextBox txtParaName1{*this, "txtParaName1"};
  forms::ComboBox cboPara1{*this, "cboPara1"};
  forms::ComboBox cboParaByVal1{*this, "cboParaByVal1", forms::ComboBox::kDropdownList, {"ByVal", "ByRef"}};
  forms::CheckBox chkPara1Opt{*this, "chkPara1Opt", "Opt&ional"};
  forms::TextBox txtParaName2{*this, "txtParaName2"};
  forms::ComboBox cboPara2{*this, "cboPara2"};
  forms::ComboBox cboParaByVal2{*this, "cboParaByVal2", forms::ComboBox::kDropdownList, {"ByVal", "ByRef"}};
  forms::CheckBox chkPara2Opt{*this, "chkPara2Opt", "Op&tional"};
  forms::TextBox txtParaName3{*this, "txtParaName3"};
  forms::ComboBox cboPara3{*this, "cboPara3"};
  forms::ComboBox cboParaByVal3{*this, "cboParaByVal3", forms::ComboBox::kDropdownList, {"ByVal", "ByRef"}};
  forms::CheckBox chkPara3Opt{*this, "chkPara3Opt", "Optiona&l"};
  forms::CommandButton cmdApply{*this, "cmdApply", "&Apply"};
  forms::CommandButton cmdOK{*this, "cmdOK", "OK"};
  forms::CommandButton cmdCancel{*this, "cmdCancel", "Cancel"};

 private:
  struct Row {
    forms::TextBox& name;
    forms::ComboBox& type;
    forms::ComboBox& passing;
    forms::CheckBox& optional;
  };

  void Form_Load() override;
  void Form_Unload() override;
  bool hasChanges() const override { return cmdApply.enabled(); }
  void LoadErrorsAndTypes();
  void ApplyDefaults();
  void LoadTheClasses();
  void mnuFileProcedureBuilder_Click();
  void cmdApply_Click();
  void cmdOK_Click();
  void txtName_Change();
  void txtParaName_Change(std::size_t index);
  void cboType_Click();

  void wireRows();
  // Checks, writes and clears the form; false when something stood against it, which the user has been told.
  bool apply();
  bool isRefused(const std::optional<ProcedureFault>& fault);
  bool Create_Procedure(frame::CodeModule& module, const NewProcedure& procedure);
  void moveCursor(frame::CodeModule& module, const NewProcedure& procedure);
  void reset();
  NewProcedure wanted() const;
  forms::Control& controlOf(const ProcedureFault& fault);
  void changed() { cmdApply.setEnabled(true); }

  const std::array<Row, kBuilderParameters> rows_{{{txtParaName1, cboPara1, cboParaByVal1, chkPara1Opt},
                                                   {txtParaName2, cboPara2, cboParaByVal2, chkPara2Opt},
                                                   {txtParaName3, cboPara3, cboParaByVal3, chkPara3Opt}}};
  std::string user_;
  bool moveCursor_ = true;
  bool includeClasses_ = true;
};

// The tool: one a suite. It owns its dialog.
class ProcedureBuilder {
 public:
  // `services` must outlive the object.
  explicit ProcedureBuilder(frame::Services& services) : form_(services) {}

  // Shows the dialog and returns at once. One that is shown already comes to the front as it is.
  void Show_ProcedureBuilder();
  frmProcedureBuilder& form() { return *form_; }

 private:
  forms::FormSlot<frmProcedureBuilder> form_;
};

}  // namespace kolvane::writers
