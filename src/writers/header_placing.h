// Puts a header above a title so that it takes the place of a header only: the other comments stay above it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "frame/services.h"
#include "writers/standing_header.h"

namespace kolvane::writers {

struct PlacedHeader {
  std::string lead;                // the blank line above it
  std::vector<std::string> lines;  // from the upper rule to the blank line below it
  // Whether a blank first line of the module stays beside the lead.
  bool keepsFirstLine = true;
  // Comment lines that are to stand above it with the others.
  std::vector<std::string> comments = {};
  // The paragraph that describingParagraph() gave has gone into it: no comments stand above it.
  bool tookParagraph = false;
};

// One edit of the lines above the title, none when they say this already. A header above a directive stays above it.
// A module that cannot be edited raises 40198.
void placeHeader(frame::CodeModule& module, int titleLine, const LinesAbove& above,
                 const PlacedHeader& header);

// The text of the comments that would stand above the header, `comments` among them, when they are one paragraph of
// prose: no rule, no disabled code, no licence, nothing that bears a field's name.
std::optional<std::string> describingParagraph(const LinesAbove& above,
                                               const std::vector<std::string>& comments);

}  // namespace kolvane::writers
