// What the suite says when the host refuses to change a module.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "frame/services.h"

namespace kolvane::source {

// "Either the file Module1 is readonly or it's checked in within Source Code control."
std::string readOnlyNotice(std::string_view name);

// Runs `work`, which changes `module`. Host error 40198 is told to the user in the sentence above and ends
// the work; what it had written stays. Any other error passes on. True when the work ran to its end.
bool withReadOnlyNotice(const frame::Services& services, frame::CodeModule& module,
                        const std::function<void()>& work);

}  // namespace kolvane::source
