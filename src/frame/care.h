// How much the suite protects the source that people keep. To the letter, a tool does what its command has always done,
// also where that loses a comment or breaks a statement. Under care it does not: no comment or field is lost, no code
// stops compiling, a second run changes nothing.
//
// Care changes the code that is written and nothing else: a dialog's controls, texts, boxes and order of events are the
// same with and without it. A tool asks for the guard that it means, never for the setting; the front end decides once,
// as it puts the suite together.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kolvane::frame {

enum class Guard : std::uint8_t {
  kNumberPlaces,  // line numbers
  kJumpTargets,
  kNumberColumn,
  kConditionals,
  kComments,  // headers
  kFieldTexts,
  kHandlerPlaces,  // error handlers
  kCommentMarks,   // comments
  kCalledFrom,
  kFailures,  // runs over many procedures
  kAudits,    // findings on the command line
};

struct GuardRow {
  Guard guard;
  // For people: what is kept. The user guide lists these sentences.
  std::string_view keeps;
};

inline constexpr std::array<GuardRow, 11> kGuards{{
    {Guard::kNumberPlaces,
     "Line numbers are put only where the language takes them: not on titles of any kind, conditional "
     "compilation, labels with something behind them, or `Case`."},
    {Guard::kJumpTargets,
     "Removing line numbers keeps those that a `GoTo`, `GoSub`, `Resume`, `On … GoTo` or `Erl` of the "
     "procedure may mean."},
    {Guard::kNumberColumn, "Indenting keeps line numbers in column 1."},
    {Guard::kConditionals, "Sorting keeps a conditional group whole, also where its lines carry numbers."},
    {Guard::kComments, "A header takes the place of a header only; other comments above the title stay."},
    {Guard::kFieldTexts, "A rewritten header loses no field's text."},
    {Guard::kHandlerPlaces,
     "An error handler is written only where the whole procedure has neither an `On Error` nor the label."},
    {Guard::kCommentMarks, "The comment formatter marks a comment's first apostrophe alone."},
    {Guard::kCalledFrom, "The Called From field takes the place of the one before."},
    {Guard::kFailures,
     "A run over many procedures that fails on one names it with the reason, leaves it as it was and "
     "treats the rest."},
    {Guard::kAudits,
     "Audits on the command line read code as the language does: what it calls by itself is used, and array "
     "bounds are no variables."},
}};

constexpr bool isGuardTable(const auto& rows) {
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (static_cast<std::size_t>(rows[i].guard) != i || rows[i].keeps.empty()) return false;
  return true;
}
static_assert(isGuardTable(kGuards));

// The policy that a suite works under. To the letter unless it is told otherwise.
class Care {
 public:
  constexpr Care() = default;
  static constexpr Care toTheLetter() { return Care(); }
  static constexpr Care careful() { return Care(true); }
  static constexpr Care when(bool isCareful) { return Care(isCareful); }

  // Whether the guard holds.
  constexpr bool guards(Guard) const { return careful_; }
  constexpr bool isCareful() const { return careful_; }

 private:
  explicit constexpr Care(bool isCareful) : careful_(isCareful) {}
  bool careful_ = false;
};

// Where a front end with a user of its own keeps the choice. Automation never reads it.
inline constexpr std::string_view kSafetySection = "Safety";
inline constexpr std::string_view kCarefulKey = "Careful";

class Settings;
// The stored choice; careful where nothing is stored.
Care storedCare(const Settings& settings);
void storeCare(Settings& settings, Care care);

}  // namespace kolvane::frame
