// Hot keys as the settings hold them: the key's code, "/", and its modifiers (1 Alt, 2 Control, 4 Shift).
#pragma once

#include <string>
#include <string_view>

namespace kolvane::frame {

// What stands before the "/", and behind it; empty when there is none.
std::string_view GetHotKey(std::string_view value);
std::string_view GetHotMod(std::string_view value);
// For people: "80/6" is "CTRL + SHIFT + P". Empty for "Not Found" and for what is no hot key.
std::string GetHotKeyText(std::string_view value);

}  // namespace kolvane::frame
