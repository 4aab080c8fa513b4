#include "maintenance/code_maintenance_form.h"

#include <algorithm>
#include <array>
#include <map>

#include "base/error.h"
#include "base/text.h"
#include "frame/options.h"
#include "source/paths.h"
#include "source/read_only_notice.h"

namespace kolvane::maintenance {
namespace {

constexpr std::string_view kCaption = "Code Maintenance";
constexpr std::array kMenus{
    frame::popup(0, "mnuFile", "&File"),
    frame::popup(1, "mnuOptions", "&Options"),
    frame::popup(2, "mnuFileCodeMaintenance", "Code &Maintenance"),
    frame::opens(2, "mnuFileGeneral", "&General", frame::kGeneralOptionsTool),
    frame::leaves(1, "mnuFileExit", "E&xit"),
    frame::popup(0, "mnuHelp", "&Help"),
    frame::helps(1, "mnuFileContents", "&Contents..."),
    frame::opens(1, "mnuHelpAbout", "&About", frame::kAboutBox),
};
constexpr frame::FormTraits kTraits{.name = "frmCodeMaintenance",
                                    .caption = kCaption,
                                    .help = "CodeMaintenance.Html",
                                    .placement = "Code Maintenance",
                                    .menus = kMenus};
constexpr frame::FormTraits kOptionsTraits{.name = "frmCodeMaintenanceOptions",
                                           .caption = "Code Maintenance Options",
                                           .help = "CodeMaintenanceOptions.html",
                                           .placement = "CMS98"};
constexpr frame::Option kDefaultTarget = frame::option("CMDT99");
constexpr std::string_view kShowProgress = "sfdgsfdg624fdzgdfg";

constexpr std::string_view kNothingTicked = "You must select an operation!";
constexpr std::string_view kNumbersAndIndent =
    "You are advised not to run Code Indenting on code with Line Numbers, Do you want to continue?";
constexpr std::array<std::string_view, 2> kNotSaved{
    "You need to save all modules before you can use Code Maintenance!",
    "You need to save the module before you can use Code Maintenance!"};
constexpr std::string_view kContinue = " Continue with operation?";

int storedTarget(const frame::Services& services) {
  return frame::textOf(services, kDefaultTarget) == "1" ? 1 : 0;
}

// ---- reports

using source::clsDeclaration;

struct ReportRow {
  Operation audit;
  std::array<std::string_view, 2> titles;  // by target
  std::string_view count;
  void (*add)(frmReport& report, Target target, const clsDeclaration& finding);
};

void addPrefix(frmReport& report, Target target, const clsDeclaration& finding) {
  const auto add = target == Target::kProject ? &frmReport::Add_ReportVariablePrefixes_Proj_Item
                                              : &frmReport::Add_ReportVariablePrefixes_CM_Item;
  (report.*add)(finding.Updated_Name, finding.Original_Name, finding.Original_Prefix, finding.Updated_Prefix,
                finding.Variable_Type, finding.Scope, finding.Project, finding.Class);
}

void addVariable(frmReport& report, Target target, const clsDeclaration& finding) {
  const auto add = target == Target::kProject ? &frmReport::Add_ReportUnusedVariables_Proj_Item
                                              : &frmReport::Add_ReportUnusedVariables_CM_Item;
  (report.*add)(finding.Updated_Name, finding.Just_Original_Prefix + finding.Original_Name,
                finding.Variable_Type, finding.Scope, finding.Project, finding.Class);
}

void addProcedure(frmReport& report, Target target, const clsDeclaration& finding) {
  const auto add = target == Target::kProject ? &frmReport::Add_ReportUnusedProcedures_Proj_Item
                                              : &frmReport::Add_ReportUnusedProcedures_CM_Item;
  (report.*add)(finding.Updated_Name, finding.Variable_Type, finding.Original_Prefix, finding.Updated_Prefix,
                finding.Scope, finding.Project, finding.Original_Name);
}

constexpr std::array<ReportRow, 3> kReports{{
    {Operation::kVariablePrefixes,
     {report_title::kProjectPrefixes, report_title::kModulePrefixes},
     report_count::kPrefixes,
     addPrefix},
    {Operation::kUnusedVariables,
     {report_title::kProjectUnusedVariables, report_title::kModuleUnusedVariables},
     report_count::kUnusedVariables,
     addVariable},
    {Operation::kUnusedProcedures,
     {report_title::kProjectUnusedProcedures, report_title::kModuleUnusedProcedures},
     report_count::kUnusedProcedures,
     addProcedure},
}};

const ReportRow& reportRow(Operation audit) {
  return *std::find_if(kReports.begin(), kReports.end(),
                       [audit](const ReportRow& row) { return row.audit == audit; });
}

// ---- what the dialog shows of a run

class DialogView final : public RunView {
 public:
  // `progress` is null when nothing is to be shown.
  DialogView(frmCodeMaintenance& form, const frame::Services& services, Reports& reports, Target target,
             std::shared_ptr<frame::frmProgress> progress)
      : form_(form),
        services_(services),
        reports_(reports),
        target_(target),
        progress_(std::move(progress)) {}
  // Reports of a run that ended early are never shown.
  ~DialogView() override {
    for (const auto& [audit, report] : hidden_) report->unload();
  }
  DialogView(const DialogView&) = delete;
  DialogView& operator=(const DialogView&) = delete;

  void setModuleCaption(std::string_view text) override {
    if (progress_) progress_->lblModule.setCaption(text);
  }
  void advance() override {
    if (progress_) progress_->prgModule.advance();
  }
  void restartBar(int maximum) override {
    if (!progress_) return;
    progress_->prgModule.setValue(0);
    if (maximum > 0) progress_->prgModule.setMax(maximum);
  }
  void beginModule(frame::VBComponent& component) override {
    if (target_ == Target::kProject)
      form_.setCaption(std::string(kCaption).append(" - ").append(component.Name()));
  }
  void endProject() override {
    form_.setCaption(kCaption);
    services_.desk.doEvents();
  }
  bool goOnWithout(frame::VBComponent& component) override {
    const std::string notice = source::readOnlyNotice(component.Name());
    if (target_ == Target::kModule) {
      services_.desk.msgBox(notice, forms::box::kNotice, base::kProductName);
      return false;
    }
    return services_.desk.msgBox(notice + std::string(kContinue), forms::box::kYesNo + forms::box::kQuestion,
                                 base::kProductName) == forms::Answer::kYes;
  }
  void tell(const std::string& message) override {
    services_.desk.msgBox(message, forms::box::kNotice, base::kProductName);
  }
  void beginAudit(Operation audit) override {
    const auto report = reports_.create();
    hidden_[audit] = report;
    report->SetupReport(reportRow(audit).titles[static_cast<std::size_t>(target_)]);
  }
  void found(Operation audit, const clsDeclaration& finding) override {
    reportRow(audit).add(*hidden_.at(audit), target_, finding);
  }
  void endAudit(Operation audit) override {
    const auto report = hidden_.at(audit);
    report->ShowCount(reportRow(audit).count);
    report->show();
    hidden_.erase(audit);
  }

 private:
  frmCodeMaintenance& form_;
  const frame::Services& services_;
  Reports& reports_;
  const Target target_;
  std::shared_ptr<frame::frmProgress> progress_;
  std::map<Operation, std::shared_ptr<frmReport>> hidden_;
};

// Takes the progress window away, however the run ends.
class ProgressShown {
 public:
  explicit ProgressShown(forms::FormSlot<frame::frmProgress>& progress) : progress_(progress) {}
  ~ProgressShown() { progress_.unload(); }
  ProgressShown(const ProgressShown&) = delete;
  ProgressShown& operator=(const ProgressShown&) = delete;

 private:
  forms::FormSlot<frame::frmProgress>& progress_;
};

}  // namespace

void LoadOptionsIntoListview(const frame::Services& services, forms::ListView& list,
                             std::string_view target) {
  list.clear();
  const auto found = std::find(kTargets.begin(), kTargets.end(), target);
  if (found == kTargets.end()) return;
  for (const OperationRow& row : kOperations) {
    const OperationItem& item = row.item(static_cast<Target>(found - kTargets.begin()));
    list.add(row.listText, item.key).setChecked(frame::isOn(services, item.option));
  }
}

// ---- the dialog

frmCodeMaintenance::frmCodeMaintenance(const MaintenanceParts& parts)
    : ToolForm(parts.tools.services, kTraits), parts_(parts), progress_(services_.desk) {
  lvwOptions.setCheckBoxes(true);
  cmdOK.setDefault(true);
  cancelBy(cmdCancel);
  tie(forms::kClick, cboType, [this] { LoadOptionsIntoListview(services_, lvwOptions, cboType.text()); });
  tie(forms::kClick, cmdOK, &frmCodeMaintenance::cmdOK_Click);
  tie(forms::kClick, menu("mnuFileCodeMaintenance"),
      [this] { frame::showDialog<frmCodeMaintenanceOptions>(services_); });
}

forms::Layout frmCodeMaintenance::layout() const {
  using namespace forms;
  return column(cboType, grow(lvwOptions), buttons(cmdOK, cmdCancel));
}

void frmCodeMaintenance::Form_Load() {
  LoadOptionsIntoListview(services_, lvwOptions, kTargets[0]);
  Get_Options(true);
}

void frmCodeMaintenance::Get_Options(bool blnLoadingForm) {
  if (blnLoadingForm) cboType.setListIndex(storedTarget(services_));
}

Target frmCodeMaintenance::target() const { return static_cast<Target>(std::max(0, cboType.listIndex())); }

OperationSet frmCodeMaintenance::ticked() {
  OperationSet chosen;
  for (const OperationRow& row : kOperations)
    if (lvwOptions.item(row.item(target()).key).checked()) chosen.add(row.operation);
  return chosen;
}

bool frmCodeMaintenance::allSaved() {
  if (target() == Target::kModule) {
    const auto component = services_.vbe.SelectedVBComponent();
    if (!component) throw base::Error(base::errors::kObjectNotSet);
    return !base::trim(component->FileNames(1)).empty();
  }
  const auto project = services_.vbe.ActiveVBProject();
  if (!project) throw base::Error(base::errors::kObjectNotSet);
  const auto components = project->VBComponents()->items();
  return std::all_of(components.begin(), components.end(),
                     [](const auto& component) { return !base::trim(component->FileNames(1)).empty(); });
}

bool frmCodeMaintenance::mayRun(OperationSet chosen) {
  const auto tell = [this](std::string_view text) {
    services_.desk.msgBox(text, forms::box::kNotice, base::kProductName);
    return false;
  };
  if (chosen.empty()) return tell(kNothingTicked);
  if (chosen.has(Operation::kLineNumbers) && chosen.has(Operation::kIndent) &&
      services_.desk.msgBox(kNumbersAndIndent, forms::box::kAsk, "Warning") != forms::Answer::kYes)
    return false;
  return allSaved() || tell(kNotSaved[static_cast<std::size_t>(target())]);
}

void frmCodeMaintenance::cmdOK_Click() {
  if (running()) return;
  {
    const Run asking(*this, false);
    const OperationSet chosen = ticked();
    if (!mayRun(chosen)) return;
    run(chosen);
  }
  savePlacement();
  unload();
}

void frmCodeMaintenance::run(OperationSet chosen) {
  const Run running(*this);
  const ProgressShown progress(progress_);
  services_.desk.doEvents();
  const bool shows = services_.settings.number(kShowProgress, "0") != 0;
  if (shows) showProgress(chosen);
  if (target() == Target::kProject)
    Format_Project(chosen, shows);
  else
    Format_Module(chosen, shows);
  services_.desk.setBusy(false);
  services_.desk.doEvents();
}

int frmCodeMaintenance::filesOfProject() {
  int files = 0;
  for (const auto& component : services_.vbe.ActiveVBProject()->VBComponents()->items())
    for (int index = 1; index <= component->FileCount(); ++index)
      files += source::IsSourceFileExtension(source::GetFileName(component->FileNames(index), false, true))
                   ? 1
                   : 0;
  return files;
}

void frmCodeMaintenance::showProgress(OperationSet chosen) {
  const auto form = progress_.hold();
  form->Setup("ModuleOnly");
  const int files = target() == Target::kProject ? filesOfProject() : 1;
  form->prgModule.setMax(std::max(1, chosen.count() * files));
  form->lblModule.setCaption("");
  form->setTopMost(true);
  form->show();
}

bool frmCodeMaintenance::Format_Project(OperationSet chosen, bool showProgress) {
  const auto project = services_.vbe.ActiveVBProject();
  DialogView view(*this, services_, parts_.reports, Target::kProject,
                  showProgress ? progress_.hold() : nullptr);
  return formatProject(parts_.tools, *project, chosen, view);
}

void frmCodeMaintenance::Format_Module(OperationSet chosen, bool showProgress) {
  const auto component = services_.vbe.SelectedVBComponent();
  if (!component) throw base::Error(base::errors::kObjectNotSet);
  DialogView view(*this, services_, parts_.reports, Target::kModule,
                  showProgress ? progress_.hold() : nullptr);
  formatModule(parts_.tools, *component, chosen, view);
}

// ---- its options

frmCodeMaintenanceOptions::frmCodeMaintenanceOptions(frame::Services& services)
    : ToolForm(services, kOptionsTraits) {
  lvwOptions.setCheckBoxes(true);
  cmdOK.setDefault(true);
  cancelBy(cmdCancel);
  tie(forms::kClick, cboTarget, [this] { LoadOptionsIntoListview(services_, lvwOptions, cboTarget.text()); });
  tie(forms::kClick, cmdOK, &frmCodeMaintenanceOptions::cmdOK_Click);
}

forms::Layout frmCodeMaintenanceOptions::layout() const {
  using namespace forms;
  return column(group(fraDefaults, row("Default &Target:", cboDefaultTarget), chkShowProgress,
                      row("T&arget:", cboTarget), grow(lvwOptions)),
                buttons(cmdOK, cmdCancel));
}

void frmCodeMaintenanceOptions::Form_Load() {
  LoadOptionsIntoListview(services_, lvwOptions, kTargets[0]);
  cboDefaultTarget.setListIndex(storedTarget(services_));
  cboTarget.setListIndex(storedTarget(services_));
  chkShowProgress.setChecked(services_.settings.number(kShowProgress, "0") != 0);
}

void frmCodeMaintenanceOptions::cmdOK_Click() {
  const auto target = static_cast<Target>(std::max(0, cboTarget.listIndex()));
  frame::Settings& settings = services_.settings;
  settings.store().update([&] {
    settings.saveOption(kDefaultTarget.key, std::to_string(cboDefaultTarget.listIndex()));
    for (const OperationRow& row : kOperations) {
      const OperationItem& item = row.item(target);
      settings.saveOption(item.option.key, lvwOptions.item(item.key).checked() ? "True" : "False");
    }
    settings.saveOption(kShowProgress, chkShowProgress.checked() ? "1" : "0");
  });
  savePlacement();
  unload();
}

// ---- the tool

CodeMaintenance::CodeMaintenance(const MaintenanceTools& tools, Reports& reports)
    : parts_{tools, reports}, form_(parts_) {}

void CodeMaintenance::Show_CodeMaintenance() { form_->show(); }

}  // namespace kolvane::maintenance
