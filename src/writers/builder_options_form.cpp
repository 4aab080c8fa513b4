#include "writers/builder_options_form.h"

#include <algorithm>
#include <vector>

#include "base/error.h"
#include "source/sorting.h"

namespace kolvane::writers {

BuilderOptionsForm::BuilderOptionsForm(frame::Services& services, const BuilderSection& section,
                                       const BuilderOptionsTexts& texts)
    : ToolForm(services, texts.form), texts_(texts), defaults_(services.settings, section) {
  using forms::kClick;
  cmdOK.setDefault(true);
  cancelBy(cmdCancel);
  cmdApply.setEnabled(false);
  tie(kClick, cboProject, &BuilderOptionsForm::LoadSettingsForCurrentProject);
  tie(kClick, cmdProjectSetup, &BuilderOptionsForm::cmdProjectSetup_Click);
  tie(kClick, cmdClear, &BuilderOptionsForm::cmdClear_Click);
  tie(kClick, cmdApply, &BuilderOptionsForm::Update_Registry);
  tie(kClick, cmdOK, &BuilderOptionsForm::cmdOK_Click);
}

forms::Layout BuilderOptionsForm::projectLayout() const {
  using namespace forms;
  return column(row("&Project:", cboProject, cmdClear),
                row(texts_.otherProjectsLabel, cboOtherProjects, cmdProjectSetup));
}

forms::Layout BuilderOptionsForm::buttonLayout() const { return forms::buttons(cmdApply, cmdOK, cmdCancel); }

void BuilderOptionsForm::LoadForm(std::string_view project) {
  load();
  cboProject.setListIndex(std::max(0, cboProject.indexOf(project)));
}

void BuilderOptionsForm::Form_Load() {
  buttonsToTheEnd();
  fillLists();
  fillProjects();
  cboProject.setListIndex(std::max(0, cboProject.indexOf(activeProjectName(services_))));
}

// The fields of the dialog are made after the buttons.
void BuilderOptionsForm::buttonsToTheEnd() {
  for (forms::CommandButton* button : {&cmdApply, &cmdOK, &cmdCancel})
    button->setTabIndex(static_cast<int>(tabOrder().size()));
}

void BuilderOptionsForm::fillProjects() {
  std::vector<std::string> names;
  for (const auto& project : services_.vbe.VBProjects()->items()) names.push_back(project->Name());
  source::QuickSort(services_, names, 0, static_cast<int>(names.size()) - 1);
  cboProject.addItem(frame::kAnyProject);
  cboProject.addItems(names);
}

void BuilderOptionsForm::LoadSettingsForCurrentProject() {
  showSet(defaults_.inForce(cboProject.text()), false);
  GetOtherProjects();
}

void BuilderOptionsForm::showSet(const BuilderValues& values, bool unsaved) {
  showing_ = true;
  try {
    showValues(values);
  } catch (...) {
    showing_ = false;
    throw;
  }
  showing_ = false;
  cmdApply.setEnabled(unsaved);
}

void BuilderOptionsForm::changed() {
  if (!showing_) cmdApply.setEnabled(true);
}

void BuilderOptionsForm::GetOtherProjects() {
  const std::vector<std::string> others = defaults_.others(cboProject.text());
  cboOtherProjects.clear();
  cboOtherProjects.addItems(others);
  cboOtherProjects.setListIndex(others.empty() ? -1 : 0);
  cboOtherProjects.setEnabled(!others.empty());
  cmdProjectSetup.setEnabled(!others.empty());
}

void BuilderOptionsForm::Update_Registry() {
  defaults_.save(cboProject.text(), values());
  cmdApply.setEnabled(false);
}

bool BuilderOptionsForm::agrees(std::string_view question) {
  return desk().msgBox(question, forms::box::kAsk, base::kProductName) == forms::Answer::kYes;
}

void BuilderOptionsForm::cmdProjectSetup_Click() {
  const std::string& other = cboOtherProjects.text();
  if (agrees("Are you sure you want to setup " + cboProject.text() + " to match " + other + "?"))
    showSet(defaults_.of(other), true);
}

void BuilderOptionsForm::cmdClear_Click() {
  if (!agrees(texts_.clearQuestion)) return;
  defaults_.clear(cboProject.text());
  showSet(BuilderValues(), false);
  GetOtherProjects();
}

void BuilderOptionsForm::cmdOK_Click() {
  if (cmdApply.enabled()) Update_Registry();
  unload();
}

}  // namespace kolvane::writers
