// The settings of a run, also where their file is damaged: one behaviour for every front end.
//
// A damaged file is never taken for an empty one and never written: it stays where it is, and each run says so and
// works with the defaults, until the user puts a copy back in its place or starts afresh.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/tree_store.h"

namespace kolvane::frame {

// The path of settings that are forgotten at the end of the run.
inline constexpr std::string_view kForgottenSettings = ":memory:";

// Opens the store of a path, creating it as needed; ":memory:" gives one that is forgotten.
using OpenStore = std::function<std::unique_ptr<platform::TreeStore>(const std::string& path)>;

struct OpenedSettings {
  std::unique_ptr<platform::TreeStore> store;
  std::string problem;  // what the user has to be told, in UTF-8; empty when all is well
};

// The store of the path; where that is damaged, an empty one that is forgotten at the end, and what to say of it. Raises
// what `open` raises otherwise.
OpenedSettings openSettings(const OpenStore& open, const std::string& path);
// For work that is about nothing but what is stored: a damaged file raises 321 with the same sentences.
std::unique_ptr<platform::TreeStore> openStoredSettings(const OpenStore& open, const std::string& path);

// Puts a settings file, with what the store keeps beside it, out of the way: "settings.db.old", with a number where
// that is taken. Returns the name it has now. Raises 53 when there is none.
std::string setSettingsAside(platform::Files& files, const std::string& path);

}  // namespace kolvane::frame
