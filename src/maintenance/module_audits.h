// The audits for callers without a dialog: findings as typed values, of code as the language reads it.
//
// audits.h reads words in lines, and what its reports list is settled to the letter. People who act on findings without
// looking at each one want fewer and true ones, so here
//
// - a declaration is one statement: bounds belong to their array, and a colon ends it;
// - a variable is unused when its name stands nowhere else in its procedure's code, whatever its case;
// - of the procedures that the report lists those are left out that a word of the module mentions, or that the language
//   calls by itself (language_calls.h). A procedure that only calls itself stays.
//
// This is no guard of frame::Care: care never changes what a dialog shows, and the workbench's dialogs work under it.
// The front end says which reading it wants.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "frame/services.h"
#include "maintenance/language_calls.h"
#include "maintenance/operation_table.h"
#include "source/local_variables.h"

namespace kolvane::maintenance {

struct AuditReading {
  bool toTheLetter = false;  // all three as the dialog's report has them
  bool allPrivate = false;   // unused procedures as the dialog's report has them
};

struct AuditFinding {
  Operation audit;
  std::string module;
  std::string procedure;
  int line = 0;             // the procedure's first line of code
  std::string subject;      // the variable, with "()" when it is an array; or the procedure
  std::string type;         // as declared; "Sub", "Function", "Static" of a procedure
  std::string prefix = {};  // of a wrong prefix: the one that the variable should have
  bool operator==(const AuditFinding&) const = default;
};

// The audits over modules one after the other. What a project's classes declare is read once, and the variables of a
// module once for its audits in a row: code must not be edited as long as the object lives.
class ModuleAudits {
 public:
  // The services must outlive the object.
  explicit ModuleAudits(const frame::Services& services, AuditReading reading = {});

  // In the module's order; for the types without a row in the table of prefixes, and for components in which unused
  // procedures are not looked for, nothing. Any other operation than an audit raises 5.
  std::vector<AuditFinding> find(Operation audit, frame::VBComponent& component);

 private:
  std::vector<AuditFinding> wrongPrefixes(frame::VBComponent& component);
  std::vector<AuditFinding> unusedVariables(frame::VBComponent& component);
  std::vector<AuditFinding> unusedProcedures(frame::VBComponent& component);
  void keepUncalled(frame::VBComponent& component, std::vector<AuditFinding>& findings);
  const std::vector<source::ProcedureLocals>& localsOf(frame::VBComponent& component);
  ProjectClasses& classesOf(const std::shared_ptr<frame::VBProject>& project);

  const frame::Services& services_;
  AuditReading reading_;
  std::shared_ptr<frame::CodeModule> module_;  // whose variables these are
  std::vector<source::ProcedureLocals> locals_;
  std::shared_ptr<frame::VBProject> project_;  // whose classes these are
  std::optional<ProjectClasses> classes_;
};

}  // namespace kolvane::maintenance
