// Programs that belong to the machine, and their windows.
#pragma once

#include <string>

#include "frame/services.h"
#include "platform/desktop.h"

namespace kolvane::frame {

// The first window without a parent that belongs to the process, or 0. Errors count as the end of the list.
long GetWinHandle(platform::Desktop& desktop, long processId);

// The path of the system information program by the local machine's registry. Raises 53 when the registry does
// not name it, or names one that is not there.
std::string systemInformationProgram(const Services& services);

}  // namespace kolvane::frame
