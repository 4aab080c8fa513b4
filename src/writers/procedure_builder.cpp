#include "writers/procedure_builder.h"

#include <algorithm>
#include <initializer_list>
#include <memory>

#include "base/error.h"
#include "base/text.h"
#include "frame/form_placement.h"
#include "source/classes.h"
#include "source/confirm_cancel.h"
#include "source/form_utilities.h"
#include "source/variable_prefixes.h"
#include "writers/builder_text.h"
#include "writers/custom_handlers.h"
#include "writers/error_handlers.h"
#include "writers/line_block.h"
#include "writers/procedure_builder_options.h"
#include "writers/procedure_defaults.h"

namespace kolvane::writers {
namespace {

constexpr std::string_view kPlacement = "Procedure Builder";
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

frmProcedureBuilder::frmProcedureBuilder(frame::Services& services, const ProcedureBuilderActions& actions)
    : Form(services.desk, "frmProcedureBuilder", "Procedure Builder"),
      services_(services),
      actions_(actions) {
  setHelpTopic("ProcedureBuilder.Html");
  cmdOK.setDefault(true);
  cmdCancel.setCancel(true);
  cmdApply.setEnabled(false);
  onLoad = entry("Form_Load", &frmProcedureBuilder::Form_Load);
  onUnload = entry("Form_Unload", [this](bool&) { Form_Unload(); });
  onQueryUnload = entry("Form_QueryUnload", [this](bool& cancel, forms::UnloadMode mode) {
    if (mode == forms::UnloadMode::kCloseButton)
      cancel = !source::mayDropChanges(services_, cmdApply.enabled());
  });
  mnuManageErrors.onClick =
      entry("mnuManageErrors_Click", [this] { source::runAction(actions_.customErrorHandlers); });
  mnuFileProcedureBuilder.onClick =
      entry("mnuFileProcedureBuilder_Click", &frmProcedureBuilder::mnuFileProcedureBuilder_Click);
  mnuFileGeneral.onClick =
      entry("mnuFileGeneral_Click", [this] { source::runAction(actions_.generalOptions); });
  mnuFileExit.onClick = entry("mnuFileExit_Click", &frmProcedureBuilder::cmdCancel_Click);
  mnuHelpContents.onClick = entry("mnuHelpContents_Click", [this] { showHelp(); });
  mnuAbout.onClick = entry("mnuAbout_Click", [this] { source::runAction(actions_.about); });
  txtName.onChange = entry("txtName_Change", &frmProcedureBuilder::txtName_Change);
  txtDesc.onChange = entry("txtDesc_Change", [this] { changed(); });
  cboType.onClick = entry("cboType_Click", &frmProcedureBuilder::cboType_Click);
  cboReturns.onChange = entry("cboReturns_Change", [this] { changed(); });
  cboReturns.onClick = entry("cboReturns_Click", [this] { changed(); });
  wireRows();
  cmdApply.onClick = entry("cmdApply_Click", &frmProcedureBuilder::cmdApply_Click);
  cmdOK.onClick = entry("cmdOK_Click", &frmProcedureBuilder::cmdOK_Click);
  cmdCancel.onClick = entry("cmdCancel_Click", &frmProcedureBuilder::cmdCancel_Click);
}

void frmProcedureBuilder::wireRows() {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const Row& row = rows_[i];
    row.name.onChange = entry(row.name.name() + "_Change", [this, i] { txtParaName_Change(i); });
    row.type.onChange = entry(row.type.name() + "_Change", [this] { changed(); });
    row.type.onClick = entry(row.type.name() + "_Click", [this] { changed(); });
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

void frmProcedureBuilder::Form_Load() {
  frame::restorePlacement(*this, services_.settings, kPlacement);
  user_ = frame::GetCurrentUser(services_);
}

void frmProcedureBuilder::Form_Unload() {
  frame::savePlacement(*this, services_.settings, kPlacement);
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
  frame::savePlacement(*this, services_.settings, kPlacement);
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

void frmProcedureBuilder::cmdCancel_Click() {
  if (source::mayDropChanges(services_, cmdApply.enabled())) unload();
}

void frmProcedureBuilder::mnuFileProcedureBuilder_Click() {
  const auto options = std::make_shared<frmProcedureBuilderOptions>(services_);
  options->LoadForm(activeProjectName(services_));
  options->showModal();
  options->unload();
}

// ---- the tool

ProcedureBuilder::ProcedureBuilder(frame::Services& services, ProcedureBuilderActions actions)
    : actions_(std::move(actions)), form_(services, actions_) {}

void ProcedureBuilder::Show_ProcedureBuilder() {
  const auto form = form_.hold();
  if (!form->visible()) form->prepare();
  form->show();
}

}  // namespace kolvane::writers
