#include "maintenance/language_calls.h"

#include <algorithm>

#include "maintenance/event_names.h"
#include "source/statements.h"

namespace kolvane::maintenance {
namespace {

constexpr std::string_view kWithEvents = "WithEvents";
constexpr std::string_view kImplements = "Implements";
constexpr std::string_view kAs = "As";
constexpr std::string_view kStart = "Main";

template <typename Accept>
NameSet namesOf(const base::CodePage& codePage, frame::VBComponent& component, Accept accept) {
  NameSet names;
  for (const auto& member : component.CodeModule()->Members()->items())
    if (accept(*member)) names.insert(codePage.upper(member->Name()));
  return names;
}

const NameSet* known(const NameSet& names) { return names.empty() ? nullptr : &names; }

struct Word {
  std::string_view text;
  std::size_t at = 0;
};

std::vector<Word> wordsOf(std::string_view statement) {
  std::vector<Word> words;
  source::forEachWord(statement, [&](std::string_view text, std::size_t at) { words.push_back({text, at}); });
  return words;
}

// "Project1.clsApp": the word at `index` with what a point joins to it.
std::string_view qualifiedName(std::string_view statement, const std::vector<Word>& words,
                               std::size_t index) {
  if (index >= words.size()) return {};
  const std::size_t start = words[index].at;
  std::size_t end = start + words[index].text.size();
  while (++index < words.size() && words[index].at == end + 1 && statement[end] == '.')
    end = words[index].at + words[index].text.size();
  return statement.substr(start, end - start);
}

std::string_view lastName(std::string_view qualified) {
  return qualified.substr(qualified.rfind('.') + 1);  // all of it without a point
}

struct EventVariable {
  std::string_view name;
  std::string_view className;
};

// A line may declare several.
std::vector<EventVariable> eventVariables(std::string_view statement, const std::vector<Word>& words) {
  std::vector<EventVariable> variables;
  for (std::size_t i = 0; i + 1 < words.size(); ++i) {
    if (!base::equalNoCase(words[i].text, kWithEvents)) continue;
    const bool typed = i + 2 < words.size() && base::equalNoCase(words[i + 2].text, kAs);
    variables.push_back(
        {words[i + 1].text, typed ? qualifiedName(statement, words, i + 3) : std::string_view()});
  }
  return variables;
}

}  // namespace

ProjectClasses::Declared* ProjectClasses::find(std::string_view className) {
  if (const std::size_t point = className.find('.'); point != std::string_view::npos) {
    if (!base::equalNoCase(className.substr(0, point), project_.Name())) return nullptr;
    className.remove_prefix(point + 1);
  }
  if (!classes_) {
    classes_.emplace();
    for (const auto& component : project_.VBComponents()->items())
      if (component->Type() == frame::ComponentType::kClassModule)
        classes_->emplace(component->Name(), Declared{component});
  }
  const auto found = classes_->find(className);
  return found == classes_->end() ? nullptr : &found->second;
}

const NameSet* ProjectClasses::eventsOf(std::string_view className) {
  Declared* const declared = find(className);
  if (declared == nullptr) return nullptr;
  if (!declared->events)
    declared->events = namesOf(services_.codePage, *declared->component, [](frame::Member& member) {
      return member.Type() == frame::MemberType::kEvent;
    });
  return known(*declared->events);
}

const NameSet* ProjectClasses::methodsOf(std::string_view className) {
  Declared* const declared = find(className);
  if (declared == nullptr) return nullptr;
  if (!declared->methods)
    declared->methods = namesOf(services_.codePage, *declared->component, [](frame::Member& member) {
      return member.Type() == frame::MemberType::kMethod && member.Scope() == frame::MemberScope::kPublic;
    });
  return known(*declared->methods);
}

LanguageCalls::LanguageCalls(const frame::Services& services, ProjectClasses& classes,
                             frame::VBComponent& component, frame::CodeModule& module)
    : codePage_(services.codePage), type_(component.Type()) {
  const auto add = [&](std::string_view object, const NameSet* names) {
    handlers_.push_back({codePage_.upper(object) + "_", names});
  };
  source::forEachStatement(module, 1, module.CountOfDeclarationLines(),
                           [&](const source::Statement& statement) {
                             const auto words = wordsOf(statement.text);
                             if (words.empty()) return;
                             if (base::equalNoCase(words[0].text, kImplements)) {
                               const std::string_view interface = qualifiedName(statement.text, words, 1);
                               if (!interface.empty()) add(lastName(interface), classes.methodsOf(interface));
                               return;
                             }
                             for (const EventVariable& variable : eventVariables(statement.text, words))
                               add(variable.name, classes.eventsOf(variable.className));
                           });
}

bool LanguageCalls::calls(std::string_view procedure) const {
  if (isRunTimeEvent(codePage_, type_, procedure)) return true;
  if (type_ == frame::ComponentType::kStdModule && base::equalNoCase(procedure, kStart)) return true;
  const std::string name = codePage_.upper(procedure);
  return std::ranges::any_of(handlers_, [&name](const HandlerRow& row) {
    return name.size() > row.start.size() && name.starts_with(row.start) &&
           (row.names == nullptr || row.names->contains(name.substr(row.start.size())));
  });
}

}  // namespace kolvane::maintenance
