// The file system of a POSIX machine.
#pragma once

#include <memory>

#include "platform/files.h"

namespace kolvane::adapters {

std::unique_ptr<platform::Files> makePosixFiles();

}  // namespace kolvane::adapters
