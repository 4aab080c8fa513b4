// Which of a procedure's variables are mentioned in its text.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kolvane::maintenance {

// A name counts as used where it stands directly in front of a blank, ".", "(", ")", "," or a carriage return.
// A long text is read once for all names, cut at those six: a name is used when a piece in front of one of them ends
// with it.
class VariableUses {
 public:
  // Both must outlive the object.
  VariableUses(const std::vector<std::string>& names, std::string_view text);

  bool isUsed(std::size_t index) const { return used_[index]; }

 private:
  void leaveOpen(std::size_t index);
  void readPiece(std::string_view piece);

  const std::vector<std::string>& names_;
  std::vector<bool> used_;
  // The names that were not met yet, by their last character; nothing for a short text.
  std::vector<std::vector<std::size_t>> open_;
  std::size_t openCount_ = 0;
};

}  // namespace kolvane::maintenance
