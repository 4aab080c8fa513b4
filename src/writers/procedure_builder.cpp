#include "writers/procedure_builder.h"

#include <algorithm>
#include <initializer_list>

#include "base/error.h"
#include "base/text.h"
#include "source/classes.h"
#include "source/variable_prefixes.h"
#include "writers/builder_text.h"
#include "writers/custom_handlers.h"
#include "writers/error_handlers.h"
#include "writers/line_block.h"
#include "writers/procedure_builder_options.h"
#include "writers/procedure_defaults.h"

namespace kolvane::writers {
namespace {

constexpr std::array kMenus{
    frame::popup(0, "mnuFile", "&File"),
    frame::opens(1, "mnuManageErrors", "Custom &Error Handlers", "Custom Error Handlers"),
    frame::popup(1, "mnuOptions", "&Options"),
    frame::popup(2, "mnuFileProcedureBuilder", "P&rocedure Builder"),
    frame::opens(2, "mnuFileGeneral", "&General", frame::kGeneralOptionsTool),
    frame::leaves(1, "mnuFileExit", "E&xit"),
    frame::popup(0, "mnuHelp", "&Help"),
    frame::helps(1, "mnuHelpContents", "&Contents..."),
    frame::opens(1, "mnuAbout", "&About", frame::kAboutBox),
};
constexpr frame::FormTraits kTraits{.name = "frmProcedureBuilder",
                                    .caption = "Procedure Builder",
                                    .help = "ProcedureBuilder.Html",
                                    .placement = "Procedure Builder",
                                    .savesAtUnload = true,
                                    .fixedSize = false,
                                    .closing = frame::Closing::kAsksAboutChanges,
                                    .menus = kMenus};
constexpr std::string_view kNoName = "Enter a procedure name!";
constexpr std::string_view kNoComponent = "Select a component!";
constexpr int kByRef = 1;
constexpr int kPublic = 1;
constexpr int kFunction = 1;

bool isBlank(std::string_view text) { return base::trim(text).empty(); }

void selectFirst(forms::ComboBox& list) {
  if (list.listCount() > 0) list.setListIndex(0);
}

}  // namespace

frmProcedureBuilder::frmProcedureBuilder(frame::Services& services) : ToolForm(services, kTraits) {
  using namespace forms;
  cmdOK.setDefault(true);
  cancelBy(cmdCancel);
  cmdApply.setEnabled(false);
  tie(kClick, menu("mnuFileProcedureBuilder"), &frmProcedureBuilder::mnuFileProcedureBuilder_Click);
  tie(kChange, txtName, &frmProcedureBuilder::txtName_Change);
  tie(kChange, {&txtDesc, &cboReturns}, [this] { changed(); });
  tie(kClick, cboReturns, [this] { changed(); });
  tie(kClick, cboType, &frmProcedureBuilder::cboType_Click);
  wireRows();
  tie(kClick, cmdApply, &frmProcedureBuilder::cmdApply_Click);
  tie(kClick, cmdOK, &frmProcedureBuilder::cmdOK_Click);
}

void frmProcedureBuilder::wireRows() {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const Row& row = rows_[i];
    tie(forms::kChange, row.name, [this, i] { txtParaName_Change(i); });
    tie(forms::kChange, row.type, [this] { changed(); });
    tie(forms::kClick, row.type, [this] { changed(); });
  }
}

forms::Layout frmProcedureBuilder::layout() const {
  using namespace forms;
  return column(row("&Name:", txtName), row("&Description:", txtDesc), row("&Scope:", cboScope),
                row("T&ype:", cboType), row("Ret&urn Type:", cboReturns), row("&Error Handler:", cboErrors),
                row("Para&meters:", grow(txtParaName1), cboPara1, cboParaByVal1, chkPara1Opt),
                row(grow(txtParaName2), cboPara2, cboParaByVal2, chkPara2Opt),
                row(grow(txtParaName3), cboPara3, cboParaByVal3, chkPara3Opt),
                buttons(cmdApply, cmdOK, cmdCancel));
}

// ---- life

void frmProcedureBuilder::Form_Load() { user_ = frame::GetCurrentUser(services_); }

void frmProcedureBuilder::Form_Unload() {
  for (forms::TextBox* box : {&txtName, &txtDesc, &txtParaName1, &txtParaName2, &txtParaName3})
    box->setText("");
}

void frmProcedureBuilder::prepare() {
  load();
  LoadErrorsAndTypes();
  ApplyDefaults();
  LoadTheClasses();
  cmdApply.setEnabled(false);
}

void frmProcedureBuilder::LoadErrorsAndTypes() {
  AddErrorHandlers(cboErrors, GetCustomErrors(services_.settings));
  source::Generate_DataTypes_For_Combo(services_, {&cboPara1, &cboPara2, &cboPara3, &cboReturns});
}

void frmProcedureBuilder::ApplyDefaults() {
  const ProcedureDefaults defaults = procedureDefaults(
      BuilderDefaults(services_.settings, kProcedureBuilder).inForce(activeProjectName(services_)));
  const NewProcedure& procedure = defaults.procedure;
  cboScope.setListIndex(procedure.isPrivate ? 0 : kPublic);
  cboType.setListIndex(procedure.isFunction ? kFunction : 0);
  cboType_Click();
  cboReturns.setText(procedure.returnType);
  cboErrors.setListIndex(std::max(0, cboErrors.indexOf(procedure.errors)));
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const NewParameter& parameter = procedure.parameters[i];
    rows_[i].passing.setListIndex(parameter.byRef ? kByRef : 0);
    rows_[i].type.setText(parameter.type);
    rows_[i].optional.setChecked(parameter.optional);
    // Last: an array's name sets the passing.
    rows_[i].name.setText(parameter.name);
    txtParaName_Change(i);
  }
  includeClasses_ = defaults.includeClasses;
  moveCursor_ = defaults.moveCursor;
}

void frmProcedureBuilder::LoadTheClasses() {
  if (includeClasses_) source::LoadTheClasses(services_, {&cboPara1, &cboPara2, &cboPara3, &cboReturns});
}

// ---- what follows what

void frmProcedureBuilder::txtName_Change() { cmdApply.setEnabled(!isBlank(txtName.text())); }

void frmProcedureBuilder::cboType_Click() { cboReturns.setEnabled(cboType.listIndex() == kFunction); }

void frmProcedureBuilder::txtParaName_Change(std::size_t index) {
  const Row& row = rows_[index];
  if (Array_Variable(row.name.text())) row.passing.setListIndex(kByRef);
  if (index + 1 < rows_.size()) {
    const Row& below = rows_[index + 1];
    const bool named = !isBlank(row.name.text());
    for (forms::Control* control :
         std::initializer_list<forms::Control*>{&below.name, &below.type, &below.passing, &below.optional})
      control->setEnabled(named);
  }
  changed();
}

// ---- writing

NewProcedure frmProcedureBuilder::wanted() const {
  NewProcedure procedure;
  procedure.name = txtName.text();
  procedure.description = txtDesc.text();
  procedure.isFunction = cboType.listIndex() == kFunction;
  procedure.isPrivate = cboScope.listIndex() != kPublic;
  procedure.returnType = cboReturns.text();
  for (std::size_t i = 0; i < rows_.size(); ++i)
    procedure.parameters[i] = {rows_[i].name.text(), rows_[i].type.text(),
                               rows_[i].passing.listIndex() == kByRef, rows_[i].optional.checked()};
  procedure.errors = cboErrors.text();
  procedure.author = user_;
  return procedure;
}

forms::Control& frmProcedureBuilder::controlOf(const ProcedureFault& fault) {
  switch (fault.field) {
    case ProcedureField::kParameterType:
      return rows_[fault.parameter].type;
    case ProcedureField::kReturnType:
      return cboReturns;
    case ProcedureField::kName:
      break;
  }
  return txtName;
}

bool frmProcedureBuilder::isRefused(const std::optional<ProcedureFault>& fault) {
  if (!fault) return false;
  desk().msgBox(fault->message, forms::box::kNotice, base::kProductName);
  controlOf(*fault).setFocus();
  return true;
}

bool frmProcedureBuilder::apply() {
  const NewProcedure procedure = wanted();
  if (isRefused(faultOf(procedure))) return false;
  const auto component = services_.vbe.SelectedVBComponent();
  const auto module = component ? component->CodeModule() : nullptr;
  if (!module) {
    desk().msgBox(kNoComponent, forms::box::kNotice, base::kProductName);
    return false;
  }
  if (isRefused(faultOf(services_, *module, procedure))) return false;
  if (!Create_Procedure(*module, procedure)) return false;
  savePlacement();
  return true;
}

bool frmProcedureBuilder::Create_Procedure(frame::CodeModule& module, const NewProcedure& procedure) {
  txtName.setText(procedureName(services_, procedure.name));
  txtDesc.setText(descriptionLine(services_, procedure.description));
  if (!writers::Create_Procedure(services_, module, procedure)) return false;
  if (moveCursor_) moveCursor(module, procedure);
  reset();
  return true;
}

void frmProcedureBuilder::moveCursor(frame::CodeModule& module, const NewProcedure& procedure) {
  const auto line = FindLineForCursor(module, procedure.isFunction ? "Function" : "Sub", procedure.errors);
  const auto pane = module.CodePane();
  if (line && pane) putCursor(*pane, *line, 1);
}

// For the next procedure.
void frmProcedureBuilder::reset() {
  cboReturns.setText(kUsualType);
  for (const Row& row : rows_) {
    row.name.setText("");
    row.type.setText(kUsualType);
    selectFirst(row.type);
    row.passing.setListIndex(0);
  }
  txtDesc.setText("");
  txtName.setText("");
  cmdApply.setEnabled(false);
  txtName.setFocus();
}

void frmProcedureBuilder::cmdApply_Click() { apply(); }

void frmProcedureBuilder::cmdOK_Click() {
  if (isBlank(txtName.text())) {
    desk().msgBox(kNoName, forms::box::kNotice, base::kProductName);
    txtName.setFocus();
  } else if (apply()) {
    unload();
  }
}

void frmProcedureBuilder::mnuFileProcedureBuilder_Click() {
  showBuilderOptions<frmProcedureBuilderOptions>(services_);
}

// ---- the tool

void ProcedureBuilder::Show_ProcedureBuilder() {
  const auto form = form_.hold();
  if (!form->visible()) form->prepare();
  form->show();
}

}  // namespace kolvane::writers
