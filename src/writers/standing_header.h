// What stands above a title: the header, told from the comments around it. A header is known by its fields, however
// it is indented, whatever character, width and fields it was written with; everything else is a comment that somebody
// wrote.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/services.h"

namespace kolvane::writers {

struct StandingField {
  std::string_view label;  // as in frame::kHeaderFields
  std::string value;       // behind the colon, trimmed
  // The lines below that belong to it: what follows the comment mark, as it stands.
  std::vector<std::string> further;

  bool hasText() const;
};

struct StandingHeader {
  // Places in LinesAbove::lines, rules included; `end` is the place behind the last one.
  std::size_t begin = 0;
  std::size_t end = 0;
  std::vector<StandingField> fields;
  // Comment lines within it that belong to no field.
  std::vector<std::string> unfit;

  // Nothing without the field.
  const StandingField* field(std::string_view label) const;
};

// The comments, blank lines and compiler directives between a title and the code above it.
struct LinesAbove {
  int first = 0;  // of the module
  std::vector<std::string> lines;
  // Behind the last directive: what stands from here on touches the title.
  std::size_t touching = 0;
  std::optional<StandingHeader> header;
};

// `name` is the procedure's. Of several headers the one with that name counts, else the one next to the title; above
// a directive only one with that name does. A module's own header is none of a procedure.
LinesAbove readAbove(const frame::Services& services, frame::CodeModule& module, int titleLine,
                     std::string_view name);

// A comment of one character all along, as it stands above and below a header.
bool isRule(std::string_view text);
// `Rem` lines too.
bool isAnyComment(std::string_view text);

}  // namespace kolvane::writers
