// Which of a module's procedures are called from within the module.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "frame/services.h"
#include "maintenance/word_filter.h"

namespace kolvane::maintenance {

// Gives for each name what a search for its callers in this module, stopping at the first one, would find, in
// one pass over the text for all names.
//
// A line calls a procedure when the first place where its name stands there as a whole word, exact in case,
// has nothing, a blank or "(" in front of it, and a blank or "(" behind it unless the line ends with the name.
// Further places in the line are not looked at. A line that begins with Dim, one that has the name only in its
// comment, and one in the procedure itself calls nothing. A name in a string counts. Of the module's last line
// the first kSearchedColumns characters are looked at.
class ProcedureUses {
 public:
  static constexpr std::size_t kSearchedColumns = 1000;

  // Reads the module. The names are identifiers.
  ProcedureUses(const frame::Services& services, frame::CodeModule& module,
                const std::vector<std::string>& names);

  bool isCalled(std::string_view name) const { return !names_.contains(std::string(name)); }

 private:
  void read(int line, std::string_view text, std::string_view searched);
  bool isCall(int line, std::string_view text, std::size_t at, std::string_view name);

  frame::CodeModule& module_;
  // Each name that was not met yet, and the last line that holds it.
  std::unordered_map<std::string, int> names_;
  WordFilter filter_;
};

}  // namespace kolvane::maintenance
