#include "maintenance/procedure_uses.h"

#include <array>

#include "base/text.h"
#include "source/comments.h"
#include "source/line_tests.h"
#include "source/line_walk.h"
#include "source/pace.h"

namespace kolvane::maintenance {
namespace {

constexpr auto kIsWord = [] {
  std::array<bool, 256> table{};
  for (int c = 0; c < 256; ++c) {
    const bool digit = c >= '0' && c <= '9';
    const bool letter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c >= 128;
    table[static_cast<std::size_t>(c)] = digit || letter || c == '_';
  }
  return table;
}();

bool isWord(char c) { return kIsWord[static_cast<unsigned char>(c)]; }

bool partsCall(char c) { return c == ' ' || c == '('; }

}  // namespace

ProcedureUses::ProcedureUses(const frame::Services& services, frame::CodeModule& module,
                             const std::vector<std::string>& names)
    : module_(module) {
  for (const std::string& name : names) {
    if (name.empty()) continue;
    names_.emplace(name, 0);
    filter_.add(name);
  }
  source::Pace pace(services.desk);
  const int last = module.CountOfLines();
  const auto work = [&](int line, std::string_view text) {
    read(line, text, line == last ? text.substr(0, kSearchedColumns) : text);
  };
  if (!names_.empty()) source::walkLines(module, 1, last, work, [&pace] { pace.step(); });
}

// Words are taken from all of the text, so that one which goes on behind the searched part is no whole word
// there.
void ProcedureUses::read(int line, std::string_view text, std::string_view searched) {
  if (source::lTrimWhite(text).starts_with('\'')) return;  // nothing is called in a comment
  for (std::size_t at = 0; at < searched.size();) {
    if (!filter_.mayBegin(text[at]) || (at > 0 && isWord(text[at - 1]))) {
      ++at;
      continue;
    }
    std::size_t end = at + 1;
    while (end < text.size() && isWord(text[end])) ++end;
    const std::string_view word = text.substr(at, end - at);
    if (end <= searched.size() && filter_.mayHold(word)) {
      const auto name = names_.find(std::string(word));
      if (name != names_.end() && name->second != line) {
        name->second = line;
        if (isCall(line, text, at, word)) names_.erase(name);
      }
    }
    at = end;
  }
}

bool ProcedureUses::isCall(int line, std::string_view text, std::size_t at, std::string_view name) {
  if (at > 0 && !partsCall(text[at - 1])) return false;
  if (!text.ends_with(name) && !partsCall(text[at + name.size()])) return false;
  if (source::Is_Dim_Line(text)) return false;
  if (source::RemoveComments(text).find(name) == std::string_view::npos) return false;
  return module_.ProcOfLine(line) != name;
}

}  // namespace kolvane::maintenance
