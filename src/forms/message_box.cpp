#include "forms/message_box.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace kolvane::forms {

namespace {

struct ButtonRow {
  int flags;
  std::array<Answer, 3> buttons;
  int count;
};
constexpr std::array<ButtonRow, 6> kBoxes{{
    {box::kOkOnly, {Answer::kOk}, 1},
    {box::kOkCancel, {Answer::kOk, Answer::kCancel}, 2},
    {box::kAbortRetryIgnore, {Answer::kAbort, Answer::kRetry, Answer::kIgnore}, 3},
    {box::kYesNoCancel, {Answer::kYes, Answer::kNo, Answer::kCancel}, 3},
    {box::kYesNo, {Answer::kYes, Answer::kNo}, 2},
    {box::kRetryCancel, {Answer::kRetry, Answer::kCancel}, 2},
}};

// By the number of the answer, from 1.
constexpr std::array<std::string_view, 7> kNames{"OK", "Cancel", "Abort", "Retry", "Ignore", "Yes", "No"};

}  // namespace

std::vector<Answer> buttonsOf(int flags) {
  constexpr int kButtonMask = 15;
  for (const auto& row : kBoxes)
    if (row.flags == (flags & kButtonMask)) return {row.buttons.begin(), row.buttons.begin() + row.count};
  return {Answer::kOk};
}

std::string_view answerName(Answer answer) { return kNames[static_cast<std::size_t>(answer) - 1]; }

std::optional<Answer> answerNamed(int flags, std::string_view name) {
  for (const Answer button : buttonsOf(flags))
    if (base::equalNoCase(answerName(button), name)) return button;
  return std::nullopt;
}

Answer cautiousAnswer(int flags) {
  const auto buttons = buttonsOf(flags);
  for (const Answer cautious : {Answer::kCancel, Answer::kNo, Answer::kAbort})
    if (std::find(buttons.begin(), buttons.end(), cautious) != buttons.end()) return cautious;
  return Answer::kOk;
}

}  // namespace kolvane::forms
