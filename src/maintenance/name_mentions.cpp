#include "maintenance/name_mentions.h"

#include "base/text.h"
#include "source/local_variables.h"
#include "source/statements.h"

namespace kolvane::maintenance {

NameMentions::NameMentions(const base::CodePage& codePage, const std::vector<std::string>& names,
                           std::string_view module)
    : codePage_(codePage), module_(module) {
  for (const std::string& name : names) {
    if (name.empty()) continue;
    filter_.add(codePage.lower(name));
    filter_.add(*open_.insert(codePage.upper(name)).first);
  }
}

void NameMentions::read(std::string_view statement, const Counts& counts) {
  if (open_.empty() || source::isDim(statement)) return;
  source::forEachWord(statement, [&](std::string_view word, std::size_t at) {
    if (!filter_.mayHold(word)) return;
    const auto name = open_.find(codePage_.upper(word));
    if (name != open_.end() && isOwn(statement, word, at) && counts(*name)) open_.erase(name);
  });
}

void NameMentions::read(std::string_view statement) {
  static const Counts kAll = [](const std::string&) { return true; };
  read(statement, kAll);
}

bool NameMentions::isOwn(std::string_view statement, std::string_view word, std::size_t at) const {
  if (statement.substr(at + word.size()).starts_with(":=")) return false;
  if (at == 0 || (statement[at - 1] != '.' && statement[at - 1] != '!')) return true;
  const std::string_view before = statement.substr(0, at - 1);
  if (module_.empty() || before.size() < module_.size()) return false;
  const std::size_t start = before.size() - module_.size();
  return base::equalNoCase(before.substr(start), module_) &&
         (start == 0 || !base::isWordCharacter(before[start - 1]));
}

}  // namespace kolvane::maintenance
