#include "maintenance/caller_search.h"

#include <optional>
#include <set>

#include "base/error.h"
#include "base/text.h"
#include "frame/options.h"
#include "source/comments.h"
#include "source/line_numbers.h"
#include "source/line_tests.h"
#include "source/procedure_questions.h"

namespace kolvane::maintenance {
namespace {

using frame::ComponentType;

constexpr std::string_view kModule = "modVBIDEFunctions";
constexpr std::string_view kWith = "With ";
constexpr std::string_view kNew = "New ";
constexpr frame::Option kUseModuleDeclarations = frame::option("srtgkhsdfjh46vsdfgshg");
// Events are let through once for so many hits.
constexpr int kHitsPerStep = 16;

bool isForm(ComponentType type) {
  return type == ComponentType::kVBForm || type == ComponentType::kVBMDIForm;
}

bool mayStandBeside(char c) { return c == '(' || c == ' '; }

// What stands around the hit is what stands around a call.
bool hasCallBoundaries(std::string_view line, int column, std::string_view text, bool checkFront) {
  if (checkFront && column > 1 && !mayStandBeside(line[static_cast<std::size_t>(column) - 2])) return false;
  if (line.ends_with(text)) return true;
  const std::size_t behind = static_cast<std::size_t>(column) - 1 + text.size();
  return behind < line.size() && mayStandBeside(line[behind]);
}

std::optional<std::string> withVariableOn(frame::CodeModule& module, int line) {
  const std::string text = source::lineText(module, line);
  const std::string_view trimmed = source::trimWhite(text);
  if (!trimmed.starts_with(kWith)) return std::nullopt;
  return source::Remove_Comments(trimmed.substr(kWith.size()));
}

std::shared_ptr<frame::Member> findMember(frame::CodeModule& module, std::string_view name) {
  for (const auto& member : module.Members()->items())
    if (base::equalNoCase(member->Name(), name)) return member;
  return nullptr;
}

bool isCallable(frame::Member& member) {
  return member.Type() == frame::MemberType::kMethod || member.Type() == frame::MemberType::kProperty;
}

std::shared_ptr<frame::VBComponent> componentNamed(frame::VBProject& project, const std::string& name) {
  for (const auto& component : project.VBComponents()->items())
    if (base::equalNoCase(component->Name(), name) && component->CodeModule()) return component;
  throw base::Error(base::errors::kSubscript, project.Name() + " has no module " + name + ".");
}

std::string projectNameOf(const SoughtProcedure& sought) {
  const auto component = sought.component ? sought.component : sought.module->Parent();
  return component->VBProject()->Name();
}

}  // namespace

bool IsComponentObjectType(const std::shared_ptr<frame::VBComponent>& component) {
  if (!component) return false;
  switch (component->Type()) {
    case ComponentType::kClassModule:
    case ComponentType::kVBForm:
    case ComponentType::kVBMDIForm:
    case ComponentType::kUserControl:
    case ComponentType::kActiveXDesigner:
      return true;
    default:
      return false;
  }
}

std::string FindWithVariable(frame::CodeModule& module, int line) {
  const base::ErrorScope scope{kModule, "FindWithVariable"};
  for (; line >= 1; --line)
    if (auto variable = withVariableOn(module, line)) return *variable;
  return {};
}

bool CallerSearch::declares(const Variable& declared, std::string_view project, std::string_view className,
                            std::string_view name) {
  if (declared.name != name || declared.project != project) return false;
  if (declared.type.find('.') == std::string::npos) return declared.type == className;
  return declared.type == std::string(project).append(".").append(className);
}

CallerSearch::Variables CallerSearch::variablesOf(const source::colDeclarations& declarations) {
  Variables variables;
  for (const source::clsDeclaration& declaration : declarations) {
    std::string_view type = declaration.Variable_Type;
    if (type.starts_with(kNew)) type.remove_prefix(kNew.size());
    variables.push_back(
        {declaration.Original_Prefix + declaration.Original_Name, std::string(type), declaration.Project});
  }
  return variables;
}

bool TypesMatch(std::string_view strProject, std::string_view strClass, std::string_view strVariable,
                const source::colDeclarations& declarations) {
  if (strVariable == strClass) return true;
  for (const CallerSearch::Variable& variable : CallerSearch::variablesOf(declarations))
    if (CallerSearch::declares(variable, strProject, strClass, strVariable)) return true;
  return false;
}

SoughtProcedure soughtProcedure(frame::VBProject& project, std::string_view moduleAndProcedure) {
  const std::size_t point = moduleAndProcedure.find('.');
  if (point == std::string_view::npos)
    throw base::Error(base::errors::kInvalidCall,
                      std::string(moduleAndProcedure) + " is no name of the form Module.Procedure.");
  const auto component = componentNamed(project, std::string(moduleAndProcedure.substr(0, point)));
  const std::string_view name = moduleAndProcedure.substr(point + 1);
  const auto member = findMember(*component->CodeModule(), name);
  if (!member || !isCallable(*member))
    throw base::Error(base::errors::kProcedureNotDefined,
                      component->Name() + " has no procedure " + std::string(name) + ".");
  return soughtMember(component, *member);
}

SoughtProcedure soughtMember(const std::shared_ptr<frame::VBComponent>& component, frame::Member& member) {
  return {component, component->CodeModule(), member.Name(), member.Scope() == frame::MemberScope::kPublic,
          IsComponentObjectType(component)};
}

std::vector<SoughtProcedure> soughtMembers(const std::shared_ptr<frame::VBComponent>& component) {
  std::vector<SoughtProcedure> all;
  std::set<std::string> known;
  for (const auto& member : component->CodeModule()->Members()->items())
    if (isCallable(*member) && known.insert(member->Name()).second)
      all.push_back(soughtMember(component, *member));
  return all;
}

SoughtProcedure soughtAt(const std::shared_ptr<frame::VBComponent>& component,
                         const std::shared_ptr<frame::CodeModule>& module, int line) {
  SoughtProcedure sought{component, module, module->ProcOfLine(line), false,
                         IsComponentObjectType(component)};
  const auto member = sought.name.empty() ? nullptr : findMember(*module, sought.name);
  sought.isPublic = member && member->Scope() == frame::MemberScope::kPublic;
  return sought;
}

CallerSearch::CallerSearch(const frame::Services& services, std::string project, Found found,
                           KeepGoing keepGoing, const ProjectWords* words)
    : services_(services),
      project_(std::move(project)),
      found_(std::move(found)),
      keepGoing_(std::move(keepGoing)),
      words_(words) {}

void CallerSearch::setProject(std::string project) {
  if (project == project_) return;
  project_ = std::move(project);
  locals_.clear();
  modules_.clear();
}

bool CallerSearch::goesOn() {
  if (!cancelled_ && keepGoing_ && !keepGoing_()) cancelled_ = true;
  return !cancelled_;
}

bool CallerSearch::FindCallers(const SearchedModule& module, const FindRequest& request,
                               const ModuleWords* words) {
  const base::ErrorScope scope{kModule, "FindCallers"};
  bool any = false;
  int hits = 0;
  withModule_ = nullptr;
  for (LineHits lines(*module.code, request.text, words); lines.next();) {
    if (++hits % kHitsPerStep == 0 && !goesOn()) return any;
    Hit hit{lines.line(), lines.column(), source::lineText(*module.code, lines.line()), {}, {}};
    hit.procedure = module.code->ProcOfLine(hit.line, hit.kind);
    if (!isCandidate(request, hit) || !stands(module, request, hit) ||
        !hasCallBoundaries(hit.text, hit.column, request.text, !request.blnObjectType))
      continue;
    if (!request.blnAll) return true;
    any = true;
    if (found_) found_({module.project, module.name, hit.procedure, hit.line, hit.text});
  }
  return any;
}

// Code and no comment, not the procedure itself, no declaration.
bool CallerSearch::isCandidate(const FindRequest& request, const Hit& hit) const {
  return hit.procedure != request.text && !source::Is_Dim_Line(hit.text) &&
         source::RemoveComments(hit.text).find(request.text) != std::string_view::npos;
}

bool CallerSearch::stands(const SearchedModule& module, const FindRequest& request, const Hit& hit) {
  if (!request.blnObjectType) return true;
  // In the procedure's own module every mention of it stands, whatever object is in front.
  if (module.name == request.owner) return true;
  const std::string statement = statementOf(module, hit);
  const std::size_t point = statement.find('.');
  if (point == std::string::npos) return !request.blnCheckOwner;
  return isOfClass(module, request, hit, std::string_view(statement).substr(0, point));
}

bool CallerSearch::isOfClass(const SearchedModule& module, const FindRequest& request, const Hit& hit,
                             std::string_view object) {
  if (object == request.owner) return true;
  const auto anyOf = [&](const Variables& variables) {
    for (const Variable& variable : variables)
      if (declares(variable, project_, request.owner, object)) return true;
    return false;
  };
  return anyOf(localVariables(*module.code, hit)) ||
         (request.moduleDeclarations && anyOf(moduleVariables(*module.code)));
}

std::string CallerSearch::statementOf(const SearchedModule& module, const Hit& hit) {
  std::string statement(source::trimWhite(hit.text));
  if (source::Is_With_Member_Line(statement)) statement.insert(0, withVariable(*module.code, hit.line));
  return std::string(source::Strip_Line_Number(statement));
}

// FindWithVariable. Hits come from the top down, so that no line is read twice for it.
std::string CallerSearch::withVariable(frame::CodeModule& module, int line) {
  const int known = withModule_ == &module && withLine_ <= line ? withLine_ : 0;
  std::string answer = known > 0 ? withVariable_ : std::string();
  for (int at = line; at > known; --at)
    if (auto variable = withVariableOn(module, at)) {
      answer = *variable;
      break;
    }
  withModule_ = &module;
  withLine_ = line;
  withVariable_ = answer;
  return answer;
}

const CallerSearch::Variables& CallerSearch::localVariables(frame::CodeModule& module, const Hit& hit) {
  static const Variables kNone;
  if (hit.procedure.empty()) return kNone;
  const ProcedureKey key{&module, hit.procedure, hit.kind};
  if (const auto found = locals_.find(key); found != locals_.end()) return found->second;
  if (!words_) locals_.clear();
  const int start = module.ProcStartLine(hit.procedure, hit.kind);
  const int end = start + module.ProcCountLines(hit.procedure, hit.kind);
  return locals_[key] = variablesOf(source::Get_Module_Declarations(services_, project_, module, start, end));
}

const CallerSearch::Variables& CallerSearch::moduleVariables(frame::CodeModule& module) {
  if (const auto found = modules_.find(&module); found != modules_.end()) return found->second;
  if (!words_) modules_.clear();
  Variables variables = variablesOf(source::Get_Module_Declarations(services_, module));
  // The scan takes the active project for the sought one.
  for (Variable& variable : variables) variable.project = project_;
  return modules_[&module] = std::move(variables);
}

void CallerSearch::findIn(const SearchedModule& module, const ModuleWords* words,
                          const SoughtProcedure& sought, bool moduleDeclarations) {
  const std::string owner = sought.module->Name();
  if (module.project == project_ && module.name == owner) {
    FindCallers(module, {.text = sought.name, .blnObjectType = sought.isObject, .owner = owner}, words);
    return;
  }
  FindCallers(module,
              {.text = sought.name,
               .blnObjectType = sought.isObject,
               .owner = sought.isObject ? std::string_view(owner) : std::string_view(module.name),
               .moduleDeclarations = sought.isObject && moduleDeclarations},
              words);
  if (!sought.component || !isForm(sought.component->Type())) return;
  const std::string qualified = sought.component->Name() + "." + sought.name;
  FindCallers(module, {.text = qualified, .owner = module.name, .blnCheckOwner = false}, words);
}

void CallerSearch::findAll(const SoughtProcedure& sought) {
  if (sought.name.empty()) return;
  if (!sought.isPublic) {
    const auto component = sought.component ? sought.component : sought.module->Parent();
    if (!goesOn() || !isSearchedType(component->Type())) return;
    const std::string name = component->Name();
    FindCallers({project_, name, component->Type(), sought.module},
                {.text = sought.name, .owner = name, .blnCheckOwner = false},
                words_ ? words_->find(*sought.module) : nullptr);
    return;
  }
  const bool moduleDeclarations = frame::isOn(services_, kUseModuleDeclarations);
  if (const auto* const holders = words_ ? words_->modulesWith(sought.name) : nullptr) {
    for (const std::uint32_t module : *holders) {
      if (!goesOn()) return;
      findIn(words_->modules()[module], &words_->wordsOf(module), sought, moduleDeclarations);
    }
    return;
  }
  for (const SearchedModule& module : searchedModules(services_.vbe)) {
    if (!goesOn()) return;
    findIn(module, nullptr, sought, moduleDeclarations);
  }
}

std::vector<Caller> findCallers(const frame::Services& services, const SoughtProcedure& sought,
                                KeepGoing keepGoing, const ProjectWords* words) {
  std::vector<Caller> callers;
  CallerSearch search(
      services, projectNameOf(sought), [&callers](const Caller& caller) { callers.push_back(caller); },
      std::move(keepGoing), words);
  search.findAll(sought);
  return callers;
}

}  // namespace kolvane::maintenance
