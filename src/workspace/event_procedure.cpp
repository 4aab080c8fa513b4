#include "workspace/event_procedure.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "workspace/class_tables.h"
#include "workspace/component.h"
#include "workspace/designer_tree.h"
#include "workspace/project.h"

namespace kolvane::workspace {
namespace {

namespace errors = base::errors;

struct EventOwner {
  std::string object;
  std::string className;
  bool isArray = false;
};

struct Signature {
  std::string name;
  std::string parameters;
};

// A declaration with its continued lines joined.
std::string logicalLine(const CodeText& code, int line) {
  std::string text(code.line(line));
  while (line < code.countOfLines() && base::rTrim(text).ends_with(" _")) {
    text = base::rTrim(text);
    text.pop_back();
    text += base::trim(code.line(++line));
  }
  return text;
}

// What stands in the first parentheses of a title.
std::string parenthesised(std::string_view text) {
  const std::size_t open = text.find('(');
  if (open == std::string_view::npos) return {};
  int depth = 0;
  bool inText = false;
  for (std::size_t i = open; i < text.size(); ++i) {
    if (text[i] == '"') inText = !inText;
    if (inText) continue;
    if (text[i] == '(') ++depth;
    if (text[i] == ')' && --depth == 0) return std::string(base::trim(text.substr(open + 1, i - open - 1)));
  }
  return {};
}

// An event that a class or control of the project declares itself.
std::optional<Signature> declaredEvent(Component& owner, std::string_view event) {
  if (!owner.hasSource()) return std::nullopt;
  const CodeText& code = owner.code();
  for (const MemberInfo& member : code.members())
    if (member.type == frame::MemberType::kEvent && base::equalNoCase(member.name, event))
      return Signature{member.name, parenthesised(logicalLine(code, member.codeLocation))};
  return std::nullopt;
}

// The project's own class of the name, which may have the project's name in front.
std::shared_ptr<Component> projectClass(const Component& component, std::string_view className) {
  const auto project = component.project();
  const std::size_t dot = className.rfind('.');
  if (dot != std::string_view::npos) {
    if (!base::equalNoCase(className.substr(0, dot), project->name())) return nullptr;
    className.remove_prefix(dot + 1);
  }
  return project->find(className);
}

std::optional<Signature> findSignature(const Component& component, const std::string& className,
                                       std::string_view event) {
  if (const EventInfo* known = findEvent(className, event))
    return Signature{std::string(known->name), std::string(known->parameters)};
  const auto owner = projectClass(component, className);
  return owner ? declaredEvent(*owner, event) : std::nullopt;
}

std::vector<std::string> words(std::string_view line) {
  std::vector<std::string> result;
  std::string word;
  for (const char c : line) {
    if (base::isWordCharacter(c) || c == '.') {
      word += c;
      continue;
    }
    if (!word.empty()) result.push_back(std::exchange(word, {}));
    if (c == '\'') break;
  }
  if (!word.empty()) result.push_back(word);
  return result;
}

// "WithEvents object As class" among the declarations.
std::optional<EventOwner> declaredVariable(Component& component, std::string_view object) {
  const CodeText& code = component.code();
  const int last = code.countOfDeclarationLines();
  for (int line = 1; line <= last; ++line) {
    const std::vector<std::string> parts = words(code.line(line));
    for (std::size_t i = 0; i + 3 < parts.size(); ++i)
      if (base::equalNoCase(parts[i], "WithEvents") && base::equalNoCase(parts[i + 1], object) &&
          base::equalNoCase(parts[i + 2], "As"))
        return EventOwner{parts[i + 1], parts[i + 3]};
  }
  return std::nullopt;
}

std::optional<EventOwner> control(Component& component, std::string_view object) {
  DesignerTree* tree = component.header().designer();
  if (tree == nullptr) return std::nullopt;
  const auto& named = tree->objectsNamed(object);
  if (named.empty()) return std::nullopt;
  const DesignerNode& first = *named.front();
  return EventOwner{std::string(first.name()), std::string(first.className()),
                    first.find("Index") != nullptr};
}

// The component's own events go by a fixed name, whatever the component is called.
std::optional<EventOwner> componentItself(Component& component, std::string_view object) {
  const std::string rootClass = component.type() == frame::ComponentType::kClassModule
                                    ? std::string("Class")
                                    : std::string(component.header().rootClass());
  const std::string_view name = rootClass == "Class" ? std::string_view("Class") : eventObjectName(rootClass);
  if (name.empty() || !base::equalNoCase(name, object)) return std::nullopt;
  return EventOwner{std::string(name), rootClass};
}

bool hasProcedure(const CodeText& code, std::string_view name) {
  try {
    code.procedure(name, frame::ProcKind::kProc);
    return true;
  } catch (const base::Error& error) {
    if (error.number() != errors::kProcedureNotDefined) throw;
    return false;
  }
}

[[noreturn]] void fail(std::string_view event, std::string_view object, std::string_view reason) {
  throw base::Error(errors::kInvalidEventHandler,
                    std::string(object).append("_").append(event).append(": ").append(reason));
}

}  // namespace

std::string eventTitle(Component& component, std::string_view event, std::string_view object) {
  auto source = componentItself(component, object);
  if (!source) source = control(component, object);
  if (!source) source = declaredVariable(component, object);
  if (!source) fail(event, object, "the component has no such object");
  const auto signature = findSignature(component, source->className, event);
  if (!signature) fail(event, object, "the object has no such event");
  const std::string name = source->object + "_" + signature->name;
  if (hasProcedure(component.code(), name)) fail(event, object, "the handler exists");
  std::string parameters = source->isArray ? "Index As Integer" : "";
  if (source->isArray && !signature->parameters.empty()) parameters += ", ";
  return "Private Sub " + name + "(" + parameters + signature->parameters + ")";
}

}  // namespace kolvane::workspace
