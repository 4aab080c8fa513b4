// What a header that is written anew takes over from the one that stood there: every text that somebody may have
// written into it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/services.h"
#include "writers/header_layout.h"
#include "writers/standing_header.h"

namespace kolvane::writers {

struct KeptFields {
  HeaderValues values;
  // Comment lines for texts that no field takes, such as the comment of a parameter that has gone.
  std::vector<std::string> unfit;
};

// `fresh` has what the title says: Name, Parameters and Returns follow it, and what stands behind the old ones stays.
// The other fields keep their texts, with all their lines, and so do those that are switched off now. A fresh Called
// From text counts, an empty one leaves the old. `indent` stands in front of the further lines of a value.
KeptFields keptFields(const frame::Services& services, const StandingHeader& header, HeaderValues fresh,
                      std::string_view indent);

// The parameters of `fresh`, a text of the Parameters field, with the comments that those of the same name have in
// `old`, the field's lines without their starts. Commas in a comment belong to it, and a line may begin with a
// parameter. What belongs to none of them goes into `unfit`.
std::string withComments(const frame::Services& services, std::string_view fresh,
                         const std::vector<std::string>& old, std::vector<std::string>& unfit);

}  // namespace kolvane::writers
