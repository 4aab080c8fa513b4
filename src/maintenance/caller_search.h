// Where a procedure is called from. There is no parser: a call is a place where the procedure's name stands,
// thinned out by tests on its line. A public procedure of a class, form or control counts as called only
// where the object in front of the point can be shown to be of that class.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "frame/services.h"
#include "maintenance/caller_words.h"
#include "source/declarations.h"

namespace kolvane::maintenance {

// A calling line.
struct Caller {
  std::string project;
  std::string module;
  std::string procedure;  // that holds the line; "" in the declarations
  int line = 0;
  std::string text;  // of the line
  bool operator==(const Caller&) const = default;
};

// ---- tests

// Classes, forms, MDI forms, user controls and designers; not nothing.
bool IsComponentObjectType(const std::shared_ptr<frame::VBComponent>& component);
// Whether a variable is of the class, by the declarations: one of that name whose `Project` is strProject and
// whose type is the class, with or without its project. Else whether the variable's name is that of the
// class.
bool TypesMatch(std::string_view strProject, std::string_view strClass, std::string_view strVariable,
                const source::colDeclarations& declarations);
// What stands behind the nearest "With " at or above the line, without comment; "" when there is none. Blocks
// that have ended are not told from open ones.
std::string FindWithVariable(frame::CodeModule& module, int line);

// ---- the search

// The procedure whose callers are sought.
struct SoughtProcedure {
  std::shared_ptr<frame::VBComponent> component;
  std::shared_ptr<frame::CodeModule> module;
  std::string name;
  // Of a public one all projects are searched, of any other its own module.
  bool isPublic = false;
  // Calls count by the class of the object in front of the point.
  bool isObject = false;
};

// "Module.Procedure" of the project, found without regard to case. Raises 5 for a text without a point, 9 for
// an unknown module and 35 for an unknown procedure, each with a sentence that names it.
SoughtProcedure soughtProcedure(frame::VBProject& project, std::string_view moduleAndProcedure);
// One that is known already. Costs no look at the module's members, which is a pass over its text.
SoughtProcedure soughtMember(const std::shared_ptr<frame::VBComponent>& component, frame::Member& member);
// All methods and properties of a component with code, each name once.
std::vector<SoughtProcedure> soughtMembers(const std::shared_ptr<frame::VBComponent>& component);
// The procedure that holds the line; no name outside of one. A component that is left out is no object.
SoughtProcedure soughtAt(const std::shared_ptr<frame::VBComponent>& component,
                         const std::shared_ptr<frame::CodeModule>& module, int line);

// What one pass over a module looks for.
struct FindRequest {
  std::string_view text;
  bool blnObjectType = false;
  std::string_view owner;  // the module that has the procedure
  bool blnAll = true;      // false stops at the first hit
  bool blnCheckOwner = true;
  // Looks at the module's own variables too, not only at those of the procedure that holds the hit.
  bool moduleDeclarations = false;
};

// One search, or several that share what they read of the modules: with `words` declarations are kept for as
// long as the object lives, so that code must not change meanwhile but in comments.
class CallerSearch {
 public:
  using Found = std::function<void(const Caller&)>;

  // `project` is the one of the procedure that is sought. `keepGoing` is asked in front of each module and
  // every few hits; it may be empty, as may `found`.
  CallerSearch(const frame::Services& services, std::string project, Found found, KeepGoing keepGoing,
               const ProjectWords* words = nullptr);

  // True when there was a hit. `words` are those of the module.
  bool FindCallers(const SearchedModule& module, const FindRequest& request,
                   const ModuleWords* words = nullptr);
  // Every caller, in the order of projects, modules and lines.
  void findAll(const SoughtProcedure& sought);
  bool cancelled() const { return cancelled_; }
  void setFound(Found found) { found_ = std::move(found); }
  void setProject(std::string project);

 private:
  friend bool TypesMatch(std::string_view, std::string_view, std::string_view,
                         const source::colDeclarations&);
  struct Variable {
    std::string name;
    std::string type;
    std::string project;
  };
  using Variables = std::vector<Variable>;
  struct Hit {
    int line = 0;
    int column = 0;
    std::string text;
    std::string procedure;
    frame::ProcKind kind = frame::ProcKind::kProc;
  };
  using ProcedureKey = std::tuple<const frame::CodeModule*, std::string, frame::ProcKind>;

  static bool declares(const Variable& declared, std::string_view project, std::string_view className,
                       std::string_view name);
  static Variables variablesOf(const source::colDeclarations& declarations);
  bool goesOn();
  bool isCandidate(const FindRequest& request, const Hit& hit) const;
  bool stands(const SearchedModule& module, const FindRequest& request, const Hit& hit);
  bool isOfClass(const SearchedModule& module, const FindRequest& request, const Hit& hit,
                 std::string_view object);
  std::string statementOf(const SearchedModule& module, const Hit& hit);
  std::string withVariable(frame::CodeModule& module, int line);
  const Variables& localVariables(frame::CodeModule& module, const Hit& hit);
  const Variables& moduleVariables(frame::CodeModule& module);
  void findIn(const SearchedModule& module, const ModuleWords* words, const SoughtProcedure& sought,
              bool moduleDeclarations);

  const frame::Services& services_;
  std::string project_;
  Found found_;
  KeepGoing keepGoing_;
  const ProjectWords* words_;
  bool cancelled_ = false;

  std::map<ProcedureKey, Variables> locals_;
  std::map<const frame::CodeModule*, Variables> modules_;
  // The latest answer of withVariable in this pass.
  const frame::CodeModule* withModule_ = nullptr;
  int withLine_ = 0;
  std::string withVariable_;
};

// All callers of a procedure, without any form.
std::vector<Caller> findCallers(const frame::Services& services, const SoughtProcedure& sought,
                                KeepGoing keepGoing = nullptr, const ProjectWords* words = nullptr);

}  // namespace kolvane::maintenance
