#include "maintenance/list_my_callers.h"

#include <chrono>
#include <set>

#include "base/error.h"
#include "base/text.h"
#include "forms/error_form.h"
#include "frame/options.h"
#include "maintenance/called_from_field.h"
#include "maintenance/methods_of.h"
#include "source/read_only_notice.h"

namespace kolvane::maintenance {
namespace {

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr std::string_view kNoCallers = "No callers found!";
constexpr frame::Option kSearchTimeLimit = frame::option("43tsdfvsdfgsdfgsdfg");

std::chrono::seconds sinceEpoch(const base::DateTime& moment) {
  using namespace std::chrono;
  const sys_days date =
      year{moment.year} / month{static_cast<unsigned>(moment.month)} / day{static_cast<unsigned>(moment.day)};
  return date.time_since_epoch() + hours{moment.hour} + minutes{moment.minute} + seconds{moment.second};
}

// Puts a selection back at the end, whatever happens.
class KeptSelection {
 public:
  explicit KeptSelection(std::shared_ptr<frame::CodePane> pane)
      : pane_(std::move(pane)), selection_(pane_->GetSelection()) {}
  ~KeptSelection() {
    try {
      pane_->SetSelection(selection_);
    } catch (const base::Error&) {
      // The module has gone meanwhile, and its cursor with it.
    }
  }
  KeptSelection(const KeptSelection&) = delete;
  KeptSelection& operator=(const KeptSelection&) = delete;

 private:
  std::shared_ptr<frame::CodePane> pane_;
  frame::TextRange selection_;
};

bool hasCalledFrom(const frame::Services& services, frame::CodeModule& module, const std::string& procedure) {
  try {
    return calledFromLine(services, module, procedure) > 0;
  } catch (const base::Error& error) {
    if (error.number() == base::errors::kProcedureNotDefined) return false;
    throw;
  }
}

}  // namespace

class Callers::Running {
 public:
  explicit Running(Callers& callers) : callers_(callers) { callers_.running_ = true; }
  ~Running() { callers_.running_ = false; }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  Callers& callers_;
};

Callers::Callers(frame::Services& services, Reports& reports)
    : services_(services),
      reports_(reports),
      pace_(services.desk),
      cancelDialog_(services, searchCancelled_) {}

Callers::~Callers() = default;

void Callers::startSearch(bool showCancelDialog) {
  searchCancelled_ = false;
  services_.desk.doEvents();
  cancelDialog_.unload();
  if (showCancelDialog) cancelDialog_->show();
  searchTimeLimit_ = frame::textOf(services_, kSearchTimeLimit);
  searchStartTime_ = services_.clock.now();
  cancelDialogShown_ = !showCancelDialog;
}

void Callers::endSearch() {
  cancelDialog_.unload();
  services_.desk.setBusy(false);
}

bool Callers::keepGoing() {
  if (batches_ > 0)
    pace_.step();
  else
    services_.desk.doEvents();
  if (asked_ && !asked_()) searchCancelled_ = true;
  if (!cancelDialogShown_ && !searchCancelled_) {
    const auto elapsed = sinceEpoch(services_.clock.now()) - sinceEpoch(searchStartTime_);
    if (elapsed.count() > base::toLong(searchTimeLimit_)) {
      cancelDialogShown_ = true;
      cancelDialog_->show();
    }
  }
  return !searchCancelled_;
}

CallerSearch& Callers::batchSearch() {
  if (batchSearch_) return *batchSearch_;
  const KeepGoing goesOn = [this] { return keepGoing(); };
  auto modules = searchedModules(services_.vbe);
  NameTable names = procedureNames(modules);
  words_ = std::make_unique<ProjectWords>(std::move(modules), std::move(names), goesOn);
  batchSearch_ = std::make_unique<CallerSearch>(services_, std::string(), nullptr, goesOn, words_.get());
  return *batchSearch_;
}

void Callers::search(const SoughtProcedure& sought, frmReport& report) {
  const auto component = sought.component ? sought.component : sought.module->Parent();
  const std::string project = component->VBProject()->Name();
  const CallerSearch::Found add = [&report](const Caller& caller) {
    report.Add_ListMyCalllers_Item(caller.project, caller.module, caller.procedure,
                                   std::to_string(caller.line));
  };
  if (batches_ == 0) {
    CallerSearch(services_, project, add, [this] { return keepGoing(); }).findAll(sought);
    return;
  }
  CallerSearch& shared = batchSearch();
  if (searchCancelled_) return;
  shared.setProject(project);
  shared.setFound(add);
  shared.findAll(sought);
  shared.setFound(nullptr);
}

std::shared_ptr<frmReport> Callers::ListMyCallers(std::shared_ptr<frame::VBComponent> component, bool show,
                                                  std::shared_ptr<frame::CodeModule> module) {
  const base::ErrorScope scope{kModule, "ListMyCallers"};
  if (running_) return nullptr;
  if (component) module = component->CodeModule();
  if (!module) throw base::Error(base::errors::kObjectNotSet);
  const SoughtProcedure sought = soughtAt(component, module, module->CodePane()->GetSelection().startLine);
  return sought.name.empty() ? nullptr : list(sought, show);
}

// The search and its report.
std::shared_ptr<frmReport> Callers::list(const SoughtProcedure& sought, bool show) {
  if (show)
    if (const auto earlier = shownReport_.lock()) earlier->unload();
  const auto report = reports_.create();
  int count = 0;
  try {
    const Running running(*this);
    services_.desk.setBusy(true);
    report->SetupReport(report_title::kListMyCallers);
    if (batches_ == 0) startSearch(true);
    search(sought, *report);
    count = report->ShowCount_ListMyCallers(sought.name);
  } catch (...) {
    report->unload();
    endSearch();
    throw;
  }
  if (batches_ == 0) endSearch();
  if (!show) return report;
  if (count < 1) {
    report->unload();
    services_.desk.msgBox(kNoCallers, forms::box::kNotice, base::kProductName);
    return nullptr;
  }
  shownReport_ = report;
  report->show();
  return nullptr;
}

void Callers::evtListMyCallers_Click() {
  forms::showErrors(services_.desk, "Connect", "evtListMyCallers_Click", [this] {
    const auto pane = services_.vbe.ActiveCodePane();
    if (pane) ListMyCallers(pane->CodeModule()->Parent(), true);
  });
}

std::string Callers::callersText(frame::CodeModule& module) {
  const auto component = module.Parent();
  const auto report = ListMyCallers(component, false);
  if (!report) return {};
  std::string text = report->GetCallers(component.get());
  report->unload();
  return text;
}

// False when the user cancelled.
bool Callers::updateField(const std::shared_ptr<frame::VBComponent>& component, frame::Member& member) {
  const auto module = component->CodeModule();
  const int line = source::GetProcedureRealStartLine(
      *module, module->ProcStartLine(member.Name(), frame::ProcKind::kProc));
  module->CodePane()->SetSelection({line, 1, line, 1});
  const auto report = list(soughtMember(component, member), false);
  try {
    if (!searchCancelled_) report->UpdateCalledFrom(component, module);
  } catch (...) {
    report->unload();
    throw;
  }
  report->unload();
  return !searchCancelled_;
}

bool Callers::UpdateCalledFrom_CM(frame::CodeModule& module,
                                  std::vector<writers::ProcedureFailure>* failures) {
  const base::ErrorScope scope{kModule, "UpdateCalledFrom_CM"};
  if (running_) return true;
  const Batch batch(*this);
  const auto component = module.Parent();
  const KeptSelection selection(module.CodePane());
  std::vector<writers::ProcedureFailure> own;
  auto& failed = failures ? *failures : own;
  std::set<std::string> done;
  for (const auto& member : methodsOf(module)) {
    const std::string name = member->Name();
    // Most headers do not have the field: then there is nothing to search for.
    if (!done.insert(name).second || !hasCalledFrom(services_, module, name)) continue;
    bool goesOn = true;
    const bool went =
        writers::attemptProcedure(services_, failed, name, [&] { goesOn = updateField(component, *member); });
    if (!goesOn) return false;
    // Nothing of such a module can be written.
    if (!went && failed.back().number == base::errors::kModuleNotEditable) {
      failed.pop_back();
      throw base::Error(base::errors::kModuleNotEditable);
    }
  }
  if (words_) words_->refresh(module);
  writers::raiseFailures(own);
  return true;
}

CalledFromResult Callers::UpdateCalledFrom(frame::VBProject& project, KeepGoing keepGoing,
                                           const std::function<void(const std::string&)>& progress) {
  CalledFromResult result;
  const Batch batch(*this, false);
  asked_ = std::move(keepGoing);
  for (const auto& component : project.VBComponents()->items()) {
    const auto module = component->CodeModule();
    if (!module) continue;
    if (progress) progress(component->Name());
    try {
      std::vector<writers::ProcedureFailure> failures;
      result.cancelled = !UpdateCalledFrom_CM(*module, &failures);
      for (const auto& failure : failures)
        result.notes.push_back(component->Name() + "." + failure.name + ": " + failure.reason);
      if (result.cancelled) break;
      ++result.modules;
    } catch (const base::Error& error) {
      if (error.number() != base::errors::kModuleNotEditable) throw;
      result.notes.push_back(source::readOnlyNotice(component->Name()));
    }
  }
  return result;
}

Callers::Batch::Batch(Callers& callers, bool showCancelDialog) : callers_(callers) {
  if (callers_.batches_++ == 0) callers_.startSearch(showCancelDialog);
}

Callers::Batch::~Batch() {
  if (--callers_.batches_ > 0) return;
  callers_.batchSearch_.reset();
  callers_.words_.reset();
  callers_.asked_ = nullptr;
  try {
    callers_.endSearch();
  } catch (const base::Error&) {
    // The dialog's close is no part of what was asked for.
  }
}

}  // namespace kolvane::maintenance
