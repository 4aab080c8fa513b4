// Who calls a procedure that no line of its module calls: the run time for an event, a client through an interface, the
// start of a program.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "base/text.h"
#include "frame/services.h"

namespace kolvane::maintenance {

using NameSet = std::unordered_set<std::string>;  // in upper case

// What the classes of a project declare. Each is read once, when it is first asked for: to be kept for as long as the
// classes stay as they are.
class ProjectClasses {
 public:
  // Both must outlive the object.
  ProjectClasses(const frame::Services& services, frame::VBProject& project)
      : services_(services), project_(project) {}

  // The events that the class declares, or its public methods. Null for a class that the project does not have or
  // that declares none, so that nothing is known of them. The class may be named with its project in front.
  const NameSet* eventsOf(std::string_view className);
  const NameSet* methodsOf(std::string_view className);

 private:
  struct Declared {
    std::shared_ptr<frame::VBComponent> component;
    std::optional<NameSet> events = {};
    std::optional<NameSet> methods = {};
  };
  Declared* find(std::string_view className);

  const frame::Services& services_;
  frame::VBProject& project_;
  std::optional<std::map<std::string, Declared, base::LessNoCase>> classes_;
};

// Of one module, read from its declarations once.
class LanguageCalls {
 public:
  LanguageCalls(const frame::Services& services, ProjectClasses& classes, frame::VBComponent& component,
                frame::CodeModule& module);

  // The procedure is called without a line that says so: it handles an event of the component or of one of its
  // WithEvents variables, it implements a method of an interface, or the program starts with it. A handler whose
  // class is in the project and has no such event or method is an ordinary procedure.
  bool calls(std::string_view procedure) const;

 private:
  struct HandlerRow {
    std::string start;               // "MOBJAPP_"
    const NameSet* names = nullptr;  // of the events or methods; null when they are not known
  };

  const base::CodePage& codePage_;
  frame::ComponentType type_;
  std::vector<HandlerRow> handlers_;
};

}  // namespace kolvane::maintenance
