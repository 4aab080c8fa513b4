// The defaults of the Procedure Builder, project by project.
#pragma once

#include <array>
#include <string_view>

#include "forms/buttons.h"
#include "forms/containers.h"
#include "forms/lists.h"
#include "forms/text_controls.h"
#include "writers/builder_options_form.h"
#include "writers/procedure_text.h"

namespace kolvane::writers {

class frmProcedureBuilderOptions final : public BuilderOptionsForm {
 public:
  explicit frmProcedureBuilderOptions(frame::Services& services);

  forms::Layout layout() const override;

  forms::ComboBox cboScope{*this, "cboScope", forms::ComboBox::kDropdownList, {"Private", "Public"}};
  forms::ComboBox cboType{*this, "cboType", forms::ComboBox::kDropdownList, {"Sub", "Function"}};
  forms::ComboBox cboReturns{*this, "cboReturns"};
  forms::ComboBox cboErrorHandler{*this, "cboErrorHandler", forms::ComboBox::kDropdownList};
  forms::TextBox txtName1{*this, "txtName1"};
  forms::ComboBox cboParameterType1{
      *this, "cboParameterType1", forms::ComboBox::kDropdownCombo, {"ByVal", "ByRef"}};
  forms::ComboBox cboDefaultPara1{*this, "cboDefaultPara1"};
  forms::CheckBox chkOptional1{*this, "chkOptional1", "Optional"};
  forms::TextBox txtName2{*this, "txtName2"};
  forms::ComboBox cboParameterType2{
      *this, "cboParameterType2", forms::ComboBox::kDropdownCombo, {"ByVal", "ByRef"}};
  forms::ComboBox cboDefaultPara2{*this, "cboDefaultPara2"};
  forms::CheckBox chkOptional2{*this, "chkOptional2", "Optional"};
  forms::TextBox txtName3{*this, "txtName3"};
  forms::ComboBox cboParameterType3{
      *this, "cboParameterType3", forms::ComboBox::kDropdownCombo, {"ByVal", "ByRef"}};
  forms::ComboBox cboDefaultPara3{*this, "cboDefaultPara3"};
  forms::CheckBox chkOptional3{*this, "chkOptional3", "Optional"};
  forms::CheckBox chkClasses{*this, "chkClasses", "I&nclude Custom Classes of Project(s)"};
  forms::CheckBox chkMoveCursor{*this, "chkMoveCursor", "Mo&ve Cursor to Procedure"};

 protected:
  void fillLists() override;
  void showValues(const BuilderValues& values) override;
  frame::Settings::Rows values() const override;

 private:
  struct Row {
    forms::TextBox& name;
    forms::ComboBox& passing;
    forms::ComboBox& type;
    forms::CheckBox& optional;
  };

  void wireFields();
  void cboType_Click();
  void enableRows();

  const std::array<Row, kBuilderParameters> rows_{
      {{txtName1, cboParameterType1, cboDefaultPara1, chkOptional1},
       {txtName2, cboParameterType2, cboDefaultPara2, chkOptional2},
       {txtName3, cboParameterType3, cboDefaultPara3, chkOptional3}}};
};

}  // namespace kolvane::writers
