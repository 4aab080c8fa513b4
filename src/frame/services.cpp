#include "frame/services.h"

#include "base/error.h"
#include "frame/default_settings.h"

namespace kolvane::frame {

std::string GetCurrentUser(const Services& services) { return currentUser(services.settings, services.user); }

void openTool(const Services& services, std::string_view name) {
  if (services.tools == nullptr)
    throw base::Error(base::errors::kNotAvailable, std::string(name) + " is not available.");
  services.tools->open(name);
}

}  // namespace kolvane::frame
