// The settings as commands open them that need no project.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/code_page.h"
#include "commandline/commands.h"
#include "frame/default_settings.h"
#include "frame/settings.h"

namespace kolvane::commandline {

// The settings alone: no project, no host.
class SettingsStore {
 public:
  // What is in force, or what is stored. Of a damaged file the first are the defaults, which is told; to ask for the
  // second raises 321.
  enum class What { kInForce, kStored };

  SettingsStore(Invocation& invocation, What what)
      : codePage_(invocation.environment.codePages->get(
            invocation.global.codePage.value_or(base::CodePage::kDefault))),
        store_(what == What::kInForce
                   ? openSettings(invocation.environment, invocation.global)
                   : frame::openStoredSettings(invocation.environment.openSettings,
                                               settingsPath(invocation.environment, invocation.global))),
        settings_(*store_, codePage_) {
    // A first run writes all defaults. Done here too, so that it cannot write over what is set before it.
    frame::ApplyDefaultSettings(settings_, invocation.environment.user);
  }

  frame::Settings& settings() { return settings_; }
  platform::TreeStore& tree() { return *store_; }
  std::string bytes(const std::string& utf8) const { return codePage_.fromUtf8(utf8); }
  std::string utf8(std::string_view bytes) const { return codePage_.toUtf8(bytes); }

 private:
  const base::CodePage& codePage_;
  std::unique_ptr<platform::TreeStore> store_;
  frame::Settings settings_;
};

}  // namespace kolvane::commandline
