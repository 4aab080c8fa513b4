// Which family of systems the host runs on. Pictures come in one variant for the old family and one for the
// new.
#pragma once

#include <array>

namespace kolvane::frame {

struct SystemVersion {
  int platform = 0;
  int major = 0;
  int minor = 0;
};

// Code of any system newer than those known.
inline constexpr int kNewerSystem = 10;

constexpr int DetectOSVersion(const SystemVersion& version) {
  if (version.platform == 1 && version.minor == 0) return 0;
  if (version.platform == 1 && version.minor == 10) return 1;
  if (version.platform == 2 && version.major >= 3 && version.major <= 5) return version.major - 1;
  return kNewerSystem;
}

// True for the new family.
constexpr bool isNewFamily(int code) { return code == 2 || code == 3 || code == 4 || code == kNewerSystem; }

static_assert(DetectOSVersion({1, 4, 10}) == 1 && DetectOSVersion({2, 4, 0}) == 3 &&
              DetectOSVersion({1, 4, 90}) == 10);

}  // namespace kolvane::frame
