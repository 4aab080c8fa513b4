// What the tools' forms share.
#pragma once

#include "forms/form.h"

namespace kolvane::source {

// What a text box does as it gets the focus, so that its text comes up selected when the user reaches it by
// keyboard and not when the mouse does.
struct TabEntry {
  bool tabDown = false;
  bool altDown = false;
  bool textFits = true;  // the text is not wider than the box
};

enum class TabEntryAction {
  kSelectNothing,
  kSelectAll,
  kSelectBackwards,  // send "{End}", then "+{Home}", so that the text's start stays in view
};

constexpr TabEntryAction HighlightOnTabEntry(const TabEntry& entry) {
  if (!entry.tabDown && !entry.altDown) return TabEntryAction::kSelectNothing;
  return entry.textFits ? TabEntryAction::kSelectAll : TabEntryAction::kSelectBackwards;
}

// Keeps the form in front of all other windows.
inline void StayOnTop(forms::Form& form) { form.setTopMost(true); }

}  // namespace kolvane::source
