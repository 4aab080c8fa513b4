#include "maintenance/maintenance_run.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/text.h"
#include "maintenance/audits.h"
#include "maintenance/comment_formatter.h"
#include "maintenance/methods_of.h"
#include "maintenance/module_line_numbers.h"
#include "maintenance/procedure_sorter.h"
#include "source/ide_windows.h"
#include "source/read_only_notice.h"

namespace kolvane::maintenance {
namespace {

using ComponentPointer = std::shared_ptr<frame::VBComponent>;

// The orders in which one module's operations run.
constexpr std::array kProjectOrder{Operation::kComments,         Operation::kLineNumbers,
                                   Operation::kVariablePrefixes, Operation::kUnusedVariables,
                                   Operation::kUnusedProcedures, Operation::kCalledFrom};
constexpr std::array kModuleOrder{Operation::kIndent,           Operation::kComments,
                                  Operation::kLineNumbers,      Operation::kSort,
                                  Operation::kVariablePrefixes, Operation::kUnusedProcedures,
                                  Operation::kUnusedVariables,  Operation::kCalledFrom};
constexpr std::array kAudits{Operation::kVariablePrefixes, Operation::kUnusedVariables,
                             Operation::kUnusedProcedures};

// Keeps the module's code pane open for as long as it lives.
class OpenPane {
 public:
  OpenPane(frame::VBE& vbe, frame::VBComponent& component, frame::CodeModule& module)
      : vbe_(vbe), caption_(component.Name() + " (Code)") {
    if (source::IsCodePaneOpen(vbe_, caption_)) return;
    module.CodePane()->Show();
    opened_ = true;
  }
  void close() {
    if (opened_) source::CloseIDEWindow(vbe_, caption_);
    opened_ = false;
  }
  ~OpenPane() {
    try {
      close();
    } catch (const base::Error&) {
      // The run is ending on another error already.
    }
  }
  OpenPane(const OpenPane&) = delete;
  OpenPane& operator=(const OpenPane&) = delete;

 private:
  frame::VBE& vbe_;
  std::string caption_;
  bool opened_ = false;
};

class Run {
 public:
  Run(const MaintenanceTools& tools, OperationSet chosen, Target target, RunView& view)
      : tools_(tools), services_(tools.services), chosen_(chosen), target_(target), view_(view) {}

  bool project(frame::VBProject& project);
  void module(frame::VBComponent& component);

 private:
  template <std::size_t count>
  bool treat(frame::VBComponent& component, frame::CodeModule& module,
             const std::array<Operation, count>& order);
  template <class Work>
  std::optional<bool> attempt(Operation operation, frame::VBComponent& component, const Work& work);
  bool run(Operation operation, frame::VBComponent& component, frame::CodeModule& module);
  bool perform(Operation operation, frame::VBComponent& component, frame::CodeModule& module);
  void audit(Operation operation, frame::VBComponent& component, frame::CodeModule& module);
  bool updateCalledFrom(frame::VBComponent& component, frame::CodeModule& module);
  void indentProject(frame::VBProject& project);
  WalkStep readOnly(frame::VBComponent& component);
  bool canBeAsked(frame::VBComponent& component);
  void endProject();
  void sort(frame::VBProject& project);

  void tellLeftOut(frame::VBComponent& component, const std::vector<writers::ProcedureFailure>& failures);

  const MaintenanceTools& tools_;
  frame::Services& services_;
  const OperationSet chosen_;
  const Target target_;
  RunView& view_;
  bool refused_ = false;
  // One search for all modules of a project. Between them only comments and line numbers change.
  std::optional<Callers::Batch> batch_;
  std::vector<writers::ProcedureFailure> untold_;
};

source::colDeclarations findingsOf(const frame::Services& services, Operation operation,
                                   frame::VBComponent& component, frame::CodeModule& module) {
  const auto project = component.VBProject();
  switch (operation) {
    case Operation::kVariablePrefixes:
      return ReportOnVariablePrefixes_CodeModule(services, module, project->Name())
          .value_or(source::colDeclarations());
    case Operation::kUnusedVariables:
      return ReportOnUnusedVariables_CodeModule(services, module, project->Name());
    default:
      return ReportOnUnusedProcedure_CodeModule(services, *project, component, module);
  }
}

void Run::audit(Operation operation, frame::VBComponent& component, frame::CodeModule& module) {
  const auto findings = findingsOf(services_, operation, component, module);
  if (target_ == Target::kModule) view_.beginAudit(operation);
  for (const source::clsDeclaration& finding : findings) view_.found(operation, finding);
  if (target_ == Target::kModule) view_.endAudit(operation);
}

void Run::tellLeftOut(frame::VBComponent& component, const std::vector<writers::ProcedureFailure>& failures) {
  if (failures.empty() || view_.leftOut(component, failures)) return;
  for (const writers::ProcedureFailure& failure : failures)
    untold_.push_back({component.Name() + "." + failure.name, failure.number, failure.reason});
}

bool Run::updateCalledFrom(frame::VBComponent& component, frame::CodeModule& module) {
  std::vector<writers::ProcedureFailure> failures;
  std::optional<OpenPane> pane;
  if (target_ == Target::kProject) {
    if (!batch_) batch_.emplace(tools_.callers);
    pane.emplace(services_.vbe, component, module);
  }
  const bool done = tools_.callers.UpdateCalledFrom_CM(module, &failures);
  if (pane) pane->close();
  tellLeftOut(component, failures);
  return done;
}

// False ends the run: the operation has told the user why, or the user has.
bool Run::perform(Operation operation, frame::VBComponent& component, frame::CodeModule& module) {
  switch (operation) {
    case Operation::kIndent:
      return CodeIndentModuleLevel(services_, tools_.indent, module);
    case Operation::kComments:
      return FormatComments(services_, module, module.CountOfDeclarationLines() + 1, module.CountOfLines());
    case Operation::kSort:
      Do_Procedure_Sort(services_, module);
      return true;
    case Operation::kLineNumbers:
      return Invert_LineNumbers_Mod(services_, component);
    case Operation::kCalledFrom:
      return updateCalledFrom(component, module);
    default:
      audit(operation, component, module);
      return true;
  }
}

// False ends the component's turn.
bool Run::run(Operation operation, frame::VBComponent& component, frame::CodeModule& module) {
  view_.setModuleCaption(component.Name().append(rowOf(operation).item(target_).activity));
  services_.desk.doEvents();
  const bool done = perform(operation, component, module);
  view_.advance();
  return done;
}

// Nothing when the work went well, else whether the run goes on.
template <class Work>
std::optional<bool> Run::attempt(Operation operation, frame::VBComponent& component, const Work& work) {
  try {
    if (work()) return std::nullopt;
    return view_.goOnAfter({component, operation});
  } catch (const base::Error& error) {
    if (!view_.goOnAfter({component, operation, &error})) throw;
    return true;
  }
}

// False ends the run.
template <std::size_t count>
bool Run::treat(frame::VBComponent& component, frame::CodeModule& module,
                const std::array<Operation, count>& order) {
  view_.beginModule(component);
  services_.desk.doEvents();
  for (const Operation operation : order) {
    if (!chosen_.has(operation)) continue;
    if (operation == Operation::kUnusedProcedures && !reportsUnusedProcedures(component.Type())) continue;
    const auto goesOn = attempt(operation, component, [&] { return run(operation, component, module); });
    if (goesOn) return *goesOn;
  }
  view_.endModule(component);
  return true;
}

WalkStep Run::readOnly(frame::VBComponent& component) {
  // Sorting has a pass of its own, which passes over what it may not write.
  OperationSet here = chosen_;
  if (target_ == Target::kProject) here.remove(Operation::kSort);
  if (!here.writes()) return WalkStep::kTreat;
  refused_ = !view_.goOnWithout(component);
  return refused_ ? WalkStep::kStop : WalkStep::kSkip;
}

// False for a component whose file has gone, when the run goes on without it.
bool Run::canBeAsked(frame::VBComponent& component) {
  try {
    isReadOnly(services_, decidingFile(component));
    return true;
  } catch (const base::Error& error) {
    if (!view_.goOnAfter({component, std::nullopt, &error})) throw;
    return false;
  }
}

void Run::indentProject(frame::VBProject& project) {
  std::string message;
  CodeIndentProjectLevel(services_, tools_.indent, project, message, &view_,
                         [this](frame::VBComponent& component, const NestedTooDeep& error) {
                           return view_.goOnAfter({component, Operation::kIndent, &error});
                         });
  if (!message.empty()) view_.tell(message);
  view_.advance();
}

void Run::sort(frame::VBProject& project) {
  view_.restartBar(project.VBComponents()->Count());
  ProjectWalk walk;
  walk.activity = rowOf(Operation::kSort).item(Target::kProject).activity;
  walk.wants = [this](frame::VBComponent& component, frame::CodeModule&) { return canBeAsked(component); };
  walk.readOnly = [](frame::VBComponent&) { return WalkStep::kSkip; };
  walk.treat = [this](frame::VBComponent& component, frame::CodeModule& module) {
    return attempt(Operation::kSort, component, [&] { return perform(Operation::kSort, component, module); })
        .value_or(true);
  };
  walkProject(services_, project, walk, &view_);
}

void Run::endProject() {
  for (const Operation operation : kAudits)
    if (chosen_.has(operation)) view_.endAudit(operation);
  view_.endProject();
}

bool Run::project(frame::VBProject& project) {
  view_.restartBar(0);
  for (const Operation operation : kAudits)
    if (chosen_.has(operation)) view_.beginAudit(operation);
  if (chosen_.has(Operation::kIndent)) indentProject(project);
  ProjectWalk walk;
  walk.wants = [this](frame::VBComponent& component, frame::CodeModule&) { return canBeAsked(component); };
  walk.readOnly = [this](frame::VBComponent& component) { return readOnly(component); };
  walk.treat = [this](frame::VBComponent& component, frame::CodeModule& module) {
    return treat(component, module, kProjectOrder);
  };
  const bool wentThrough = walkProject(services_, project, walk, nullptr);
  batch_.reset();
  if (wentThrough) endProject();
  if (!refused_ && chosen_.has(Operation::kSort)) sort(project);
  writers::raiseFailures(untold_);
  return !refused_;
}

void Run::module(frame::VBComponent& component) {
  const auto module = component.CodeModule();
  if (!module) return;
  const int first = module->CountOfDeclarationLines() + 1;
  const int last = module->CountOfLines();
  if (first + 1 == last || first > last) return;
  view_.restartBar(0);
  const DecidingFile file = decidingFile(component);
  if (file.kind == DecidingFile::Kind::kNotCode) return;
  if (isReadOnly(services_, file) && readOnly(component) != WalkStep::kTreat) return;
  treat(component, *module, kModuleOrder);
  writers::raiseFailures(untold_);
}

std::string told(std::optional<Operation> operation, const std::string& reason) {
  return operation ? std::string(rowOf(*operation).listText).append(": ").append(reason) : reason;
}

// Collects what happened.
class SummaryView final : public RunView {
 public:
  explicit SummaryView(MaintenanceSummary& summary) : summary_(summary) {}

  void endModule(frame::VBComponent& component) override { summary_.done.push_back(component.Name()); }
  bool goOnWithout(frame::VBComponent& component) override {
    summary_.skipped.push_back({component.Name(), source::readOnlyNotice(component.Name())});
    return true;
  }
  bool leftOut(frame::VBComponent& component,
               const std::vector<writers::ProcedureFailure>& failures) override {
    summary_.leftOut.push_back({component.Name(), failures});
    return true;
  }
  bool goOnAfter(const RunFailure& failure) override {
    const auto* nested = dynamic_cast<const NestedTooDeep*>(failure.error);
    std::string reason = "stopped";
    if (nested != nullptr)
      reason = NestedTooDeep::reason();
    else if (failure.error != nullptr)
      reason = failure.error->description();
    summary_.failed.push_back(
        {failure.component.Name(), told(failure.operation, reason), nested != nullptr ? nested->line() : 0});
    return true;
  }

 private:
  MaintenanceSummary& summary_;
};

bool isIn(const std::vector<MaintenanceSummary::Module>& modules, const std::string& name) {
  return std::any_of(modules.begin(), modules.end(), [&](const auto& module) { return module.name == name; });
}

// The sort pass says nothing of the modules that it passes over.
void addUnsorted(const frame::Services& services, frame::VBProject& project, MaintenanceSummary& summary) {
  for (const auto& component : project.VBComponents()->items()) {
    const std::string name = component->Name();
    if (!component->CodeModule() || isIn(summary.skipped, name) || isIn(summary.failed, name)) continue;
    if (!isReadOnly(services, decidingFile(*component))) continue;
    summary.skipped.push_back({name, source::readOnlyNotice(name)});
    std::erase(summary.done, name);
  }
}

std::vector<ComponentPointer> namedComponents(frame::VBProject& project,
                                              const std::vector<std::string>& names) {
  std::vector<ComponentPointer> components;
  for (const std::string& name : names) components.push_back(project.VBComponents()->Item(name));
  return components;
}

void maintainModule(const MaintenanceTools& tools, frame::VBComponent& component, OperationSet chosen,
                    MaintenanceSummary& summary) {
  SummaryView view(summary);
  const std::size_t before = summary.done.size() + summary.skipped.size() + summary.failed.size();
  try {
    formatModule(tools, component, chosen, view);
  } catch (const base::Error& error) {
    summary.failed.push_back({component.Name(), error.description()});
  }
  if (summary.done.size() + summary.skipped.size() + summary.failed.size() == before)
    summary.empty.push_back(component.Name());
}

// The chosen audits of one module. False when one of them failed.
bool auditInto(MaintenanceSummary& summary, ModuleAudits& audits, OperationSet chosen,
               frame::VBComponent& component) {
  for (const Operation audit : kAudits) {
    if (!chosen.has(audit)) continue;
    try {
      for (AuditFinding& finding : audits.find(audit, component))
        summary.findings.push_back(std::move(finding));
    } catch (const base::Error& error) {
      summary.failed.push_back({component.Name(), told(audit, error.description())});
      return false;
    }
  }
  return true;
}

// Behind all that writes, so that the findings name lines of the code as it is left.
void auditDone(const MaintenanceTools& tools, frame::VBProject& project, const MaintenanceRequest& request,
               MaintenanceSummary& summary) {
  ModuleAudits audits(tools.services, request.reading);
  std::erase_if(summary.done, [&](const std::string& name) {
    return !auditInto(summary, audits, request.operations, *project.VBComponents()->Item(name));
  });
}

}  // namespace

bool formatProject(const MaintenanceTools& tools, frame::VBProject& project, OperationSet chosen,
                   RunView& view) {
  return Run(tools, chosen, Target::kProject, view).project(project);
}

void formatModule(const MaintenanceTools& tools, frame::VBComponent& component, OperationSet chosen,
                  RunView& view) {
  Run(tools, chosen, Target::kModule, view).module(component);
}

MaintenanceSummary maintain(const MaintenanceTools& tools, frame::VBProject& project,
                            const MaintenanceRequest& request) {
  const base::ErrorScope scope{"modMaintenance", "maintain"};
  MaintenanceSummary summary;
  OperationSet operations = request.operations;
  for (const Operation audit : kAudits) operations.remove(audit);
  if (request.modules.empty()) {
    SummaryView view(summary);
    formatProject(tools, project, operations, view);
    for (const MaintenanceSummary::Module& failed : summary.failed) std::erase(summary.done, failed.name);
    if (operations.has(Operation::kSort)) addUnsorted(tools.services, project, summary);
  } else {
    for (const auto& component : namedComponents(project, request.modules))
      maintainModule(tools, *component, operations, summary);
  }
  auditDone(tools, project, request, summary);
  return summary;
}

}  // namespace kolvane::maintenance
