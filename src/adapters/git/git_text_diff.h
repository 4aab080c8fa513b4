// Line differences by libgit2.
#pragma once

#include <memory>

#include "platform/text_diff.h"

namespace kolvane::adapters {

std::unique_ptr<platform::TextDiff> makeGitTextDiff();

}  // namespace kolvane::adapters
