// The product's version and address.
#pragma once

#include <string>
#include <string_view>

namespace kolvane::frame {

// "AdVnc1" of the settings holds major and minor.
inline constexpr int kVersionMajor = 3;
inline constexpr int kVersionMinor = 0;
inline constexpr int kVersionRevision = 0;
inline std::string versionText() {
  return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
         std::to_string(kVersionRevision);
}
inline constexpr std::string_view kProductAddress = "https://kolvane.example/";

}  // namespace kolvane::frame
