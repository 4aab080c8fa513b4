#include "writers/procedure_builder_options.h"

#include <algorithm>
#include <initializer_list>

#include "base/text.h"
#include "source/classes.h"
#include "source/variable_prefixes.h"
#include "writers/custom_handlers.h"
#include "writers/error_handlers.h"
#include "writers/procedure_defaults.h"

namespace kolvane::writers {
namespace {

constexpr BuilderOptionsTexts kTexts{
    {.name = "frmProcedureBuilderOptions",
     .caption = "Procedure Builder Options",
     .help = "ProcedureBuilderOptions.html",
     .placement = "PBO36",
     .savesAtUnload = true,
     .closing = frame::Closing::kAsksAboutChanges},
    "&Set Proj. As:",
    "This will clear all defaults for the selected project, are you sure?",
};
constexpr int kFunction = 1;

bool isBlank(std::string_view text) { return base::trim(text).empty(); }

}  // namespace

frmProcedureBuilderOptions::frmProcedureBuilderOptions(frame::Services& services)
    : BuilderOptionsForm(services, kProcedureBuilder, kTexts) {
  chkClasses.setTooltip("Will add the classes of the project group to the dropdowns");
  chkMoveCursor.setTooltip("Moves the cursor to the just created procedure");
  wireFields();
}

void frmProcedureBuilderOptions::wireFields() {
  using namespace forms;
  const std::initializer_list<Control*> plain{
      &cboScope,     &cboErrorHandler, &cboReturns,      &chkClasses,      &chkMoveCursor,  &chkOptional1,
      &chkOptional2, &chkOptional3,    &cboDefaultPara1, &cboDefaultPara2, &cboDefaultPara3};
  tie(kClick, plain, [this] { changed(); });
  tie(kChange, plain, [this] { changed(); });
  const auto rowChanged = [this] {
    enableRows();
    changed();
  };
  for (const Row& row : rows_) {
    tie(kChange, {&row.name, &row.passing}, rowChanged);
    tie(kClick, row.passing, rowChanged);
  }
  tie(kClick, cboType, &frmProcedureBuilderOptions::cboType_Click);
}

forms::Layout frmProcedureBuilderOptions::layout() const {
  using namespace forms;
  return column(projectLayout(), row("Scop&e:", cboScope), row("Procedure T&ype:", cboType),
                row("Function &Return Type:", cboReturns), row("Error &Handler:", cboErrorHandler),
                row("Para&meters:", grow(txtName1), cboParameterType1, cboDefaultPara1, chkOptional1),
                row(grow(txtName2), cboParameterType2, cboDefaultPara2, chkOptional2),
                row(grow(txtName3), cboParameterType3, cboDefaultPara3, chkOptional3), chkClasses,
                chkMoveCursor, buttonLayout());
}

void frmProcedureBuilderOptions::fillLists() {
  AddErrorHandlers(cboErrorHandler, GetCustomErrors(services_.settings));
  const std::initializer_list<forms::ComboBox*> types{&cboDefaultPara1, &cboDefaultPara2, &cboDefaultPara3};
  source::Generate_DataTypes_For_Combo(services_, types);
  source::Generate_DataTypes_For_Combo(services_, {&cboReturns});
  source::LoadTheClasses(services_, types);
  source::LoadTheClasses(services_, {&cboReturns});
}

void frmProcedureBuilderOptions::showValues(const BuilderValues& values) {
  const ProcedureDefaults defaults = procedureDefaults(values);
  const NewProcedure& procedure = defaults.procedure;
  cboScope.setListIndex(procedure.isPrivate ? 0 : 1);
  cboType.setListIndex(procedure.isFunction ? kFunction : 0);
  cboType_Click();
  if (procedure.isFunction) cboReturns.setText(procedure.returnType);
  cboErrorHandler.setListIndex(std::max(0, cboErrorHandler.indexOf(procedure.errors)));
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const NewParameter& parameter = procedure.parameters[i];
    const bool kept = values.has(procedure_default::kParameters[i].passing);
    rows_[i].name.setText(parameter.name);
    rows_[i].passing.setListIndex(parameter.byRef ? 1 : 0);
    rows_[i].type.setText(kept ? parameter.type : std::string());
    rows_[i].optional.setChecked(parameter.optional);
  }
  chkClasses.setChecked(defaults.includeClasses);
  chkMoveCursor.setChecked(defaults.moveCursor);
  enableRows();
}

frame::Settings::Rows frmProcedureBuilderOptions::values() const {
  using namespace procedure_default;
  frame::Settings::Rows rows{{std::string(kScope), std::to_string(cboScope.listIndex())},
                             {std::string(kType), std::to_string(cboType.listIndex())}};
  if (cboType.listIndex() == kFunction) rows.emplace_back(kReturns, cboReturns.text());
  rows.emplace_back(kErrors, cboErrorHandler.text());
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const ParameterKeys& keys = kParameters[i];
    if (!isBlank(rows_[i].name.text())) rows.emplace_back(keys.name, rows_[i].name.text());
    if (rows_[i].passing.listIndex() >= 0)
      rows.emplace_back(keys.passing, std::to_string(rows_[i].passing.listIndex()));
    rows.emplace_back(keys.type, rows_[i].type.text());
    rows.emplace_back(keys.optional, rows_[i].optional.checked() ? "1" : "0");
  }
  rows.emplace_back(kIncludeClasses, base::boolText(chkClasses.checked()));
  rows.emplace_back(kMoveCursor, base::boolText(chkMoveCursor.checked()));
  return rows;
}

void frmProcedureBuilderOptions::cboType_Click() {
  const bool function = cboType.listIndex() == kFunction;
  cboReturns.setEnabled(function);
  if (!function) cboReturns.setText("");
  changed();
}

// A row can be used when the one above it has a name, its default type when it has a passing.
void frmProcedureBuilderOptions::enableRows() {
  bool usable = true;
  for (const Row& row : rows_) {
    row.name.setEnabled(usable);
    row.passing.setEnabled(usable);
    row.type.setEnabled(usable && !isBlank(row.passing.text()));
    row.optional.setEnabled(usable);
    usable = usable && !isBlank(row.name.text());
  }
}

}  // namespace kolvane::writers
