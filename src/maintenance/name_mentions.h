// Which of some names stand in code.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "base/code_page.h"
#include "maintenance/word_filter.h"

namespace kolvane::maintenance {

// A name is mentioned where it stands as a word of a statement, without regard to case and outside of strings. What
// declares variables mentions nothing. Neither does a member of something else ("Item.Name", "Rows!Name"), unless that
// is the module itself, nor the name of an argument ("Name:=").
class NameMentions {
 public:
  // `module` is the module's own name, "" where no member is looked for. The code page must outlive the object.
  NameMentions(const base::CodePage& codePage, const std::vector<std::string>& names,
               std::string_view module = {});

  // Whether a mention of the name, in upper case, at this place counts. Asked only about names not yet mentioned.
  using Counts = std::function<bool(const std::string& name)>;
  void read(std::string_view statement, const Counts& counts);
  void read(std::string_view statement);

  bool isMentioned(std::string_view name) const { return !open_.contains(codePage_.upper(name)); }

 private:
  bool isOwn(std::string_view statement, std::string_view word, std::size_t at) const;

  const base::CodePage& codePage_;
  std::string module_;
  WordFilter filter_;
  std::unordered_set<std::string> open_;  // in upper case
};

}  // namespace kolvane::maintenance
