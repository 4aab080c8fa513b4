#include "frame/services.h"

#include "frame/default_settings.h"

namespace kolvane::frame {

std::string GetCurrentUser(const Services& services) { return currentUser(services.settings, services.user); }

}  // namespace kolvane::frame
