// How one tool opens another, by the name that people know it by.
#pragma once

#include <string_view>

namespace kolvane::frame {

inline constexpr std::string_view kAboutBox = "About";
inline constexpr std::string_view kGeneralOptionsTool = "General Options";

class Tools {
 public:
  virtual ~Tools() = default;
  // A catalogue row by its list name, or kAboutBox. What stands against it is told to the user; a name that is neither
  // raises 445.
  virtual void open(std::string_view name) = 0;
};

}  // namespace kolvane::frame
