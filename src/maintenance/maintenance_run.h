// The operations of Code Maintenance, run in their order over a module or a project. The dialog and the command line
// both run them from here; what they show, ask and collect meanwhile is a RunView.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "frame/services.h"
#include "maintenance/code_indenter.h"
#include "maintenance/list_my_callers.h"
#include "maintenance/module_audits.h"
#include "maintenance/operation_table.h"
#include "maintenance/project_walk.h"
#include "source/declarations.h"
#include "writers/procedure_failures.h"

namespace kolvane::maintenance {

// What a run works with. All of it must outlive the run.
struct MaintenanceTools {
  frame::Services& services;
  Callers& callers;
  IndentState& indent;  // one a suite
};

// What stops a module. Without an operation it failed before any of them. `error` is null when the operation has told
// the user itself.
struct RunFailure {
  frame::VBComponent& component;
  std::optional<Operation> operation;
  const base::Error* error = nullptr;
};

// What a run tells and asks. By itself it shows nothing, leaves out what cannot be written, and ends at a failure.
class RunView : public WalkProgress {
 public:
  void setModuleCaption(std::string_view) override {}
  void advance() override {}
  // The bar begins at 0 again, with that maximum; 0 leaves the maximum.
  virtual void restartBar(int) {}
  virtual void beginModule(frame::VBComponent&) {}
  // All operations chosen were run over it.
  virtual void endModule(frame::VBComponent&) {}
  // Behind the last component of a project, in front of the sorting.
  virtual void endProject() {}
  // A component that cannot be written is left out of all operations. False ends the run.
  virtual bool goOnWithout(frame::VBComponent&) { return true; }
  virtual void tell(const std::string&) {}
  // The findings of an audit come between these two. A run that ends early has no endAudit.
  virtual void beginAudit(Operation) {}
  virtual void found(Operation, const source::clsDeclaration&) {}
  virtual void endAudit(Operation) {}
  // Procedures that an operation could not treat and left as they were, which is so under care alone. False when nobody
  // has been told of them: the run then ends with one error that names them all.
  virtual bool leftOut(frame::VBComponent&, const std::vector<writers::ProcedureFailure>&) { return false; }
  // True goes on with the next component. False ends the run; an error then passes on.
  virtual bool goOnAfter(const RunFailure&) { return false; }
};

// The project run: all of it is indented first, then each module has the other operations, sorting comes last. False
// when the view ended the run at a component that cannot be written; nothing is sorted then.
bool formatProject(const MaintenanceTools& tools, frame::VBProject& project, OperationSet chosen,
                   RunView& view);

// The module run. Nothing is done to a module without procedures, and to a component without code.
void formatModule(const MaintenanceTools& tools, frame::VBComponent& component, OperationSet chosen,
                  RunView& view);

// ---- without a dialog

struct MaintenanceRequest {
  OperationSet operations;
  // Names of components, without regard to case; empty for the whole project.
  std::vector<std::string> modules;
  AuditReading reading = {};
};

struct MaintenanceSummary {
  struct Module {
    std::string name;
    std::string reason;
    int line = 0;  // of the code, where the reason is in one
  };
  std::vector<std::string> done;   // each operation was run over them
  std::vector<std::string> empty;  // named, but without a procedure: nothing is done to such a module
  std::vector<Module> skipped;     // left out of all operations that write
  std::vector<Module> failed;      // "Sort Procedures: …"; what was written before stays in the module
  struct LeftOut {
    std::string module;
    std::vector<writers::ProcedureFailure> procedures;
  };
  std::vector<LeftOut> leftOut;  // procedures that are as they were; the rest of their module is treated
  std::vector<AuditFinding> findings;  // of the modules done, as they are after all that writes
  bool complete() const { return failed.empty() && skipped.empty() && leftOut.empty(); }
};

// Runs the operations over the project, or over the modules named, each by itself; the audits come last. A module that fails or cannot be
// written does not keep the others from being treated. A name that the project does not have raises 9 before anything
// is changed.
MaintenanceSummary maintain(const MaintenanceTools& tools, frame::VBProject& project,
                            const MaintenanceRequest& request);

}  // namespace kolvane::maintenance
