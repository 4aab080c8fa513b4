// The buttons of message boxes.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "forms/desk.h"

namespace kolvane::forms {

namespace box {
// Added to the flags: Enter gives the second button.
inline constexpr int kDefaultSecond = 256;
}  // namespace box

// In their order. Flags without a meaning give OK.
std::vector<Answer> buttonsOf(int flags);
std::string_view answerName(Answer answer);  // "OK", "Cancel", …
// The button of the box with this name, without regard to case.
std::optional<Answer> answerNamed(int flags, std::string_view name);
// What does least: OK where there is nothing else, else Cancel, else No, else Abort.
Answer cautiousAnswer(int flags);

}  // namespace kolvane::forms
