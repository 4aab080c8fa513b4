#include "frame/care.h"

#include "base/text.h"
#include "frame/settings.h"

namespace kolvane::frame {

Care storedCare(const Settings& settings) {
  // Only a plain no is one: what cannot be read must not cost anyone a comment.
  const std::string stored = settings.GetSetting(kSafetySection, kCarefulKey, "True");
  return Care::when(!base::equalNoCase(base::trim(stored), "False") && base::trim(stored) != "0");
}

void storeCare(Settings& settings, Care care) {
  settings.SaveSetting(kSafetySection, kCarefulKey, care.isCareful() ? "True" : "False");
}

}  // namespace kolvane::frame
