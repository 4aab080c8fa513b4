// A suite in a host of its own, everything in memory: settings with their defaults, a clock that stands still,
// the user "ann".
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "forms/scripted_desk.h"
#include "frame/default_settings.h"
#include "platform/keystrokes.h"
#include "platform/memory_files.h"
#include "platform/memory_tree_store.h"
#include "platform/memory_web_pages.h"
#include "suite/suite.h"
#include "workspace/host_files.h"
#include "workspace/workspace.h"

namespace kolvane::suite {

class SuiteTest : public testing::Test {
 protected:
  SuiteTest() { frame::ApplyDefaultSettings(settings_, user_); }

  void set(std::string_view key, std::string_view value) {
    settings_.SaveSetting(frame::kOptions, key, value);
  }

  void connect() {
    suite_.connection().AddinInstance_Initialize();
    suite_.connection().AddinInstance_OnConnection();
    suite_.connection().AddinInstance_OnStartupComplete();
  }

  // The controls of a bar, one a line and indented by their popups: "| " in front of one that begins a group, "- "
  // of a hidden one, its caption or else its tip, and its picture.
  std::string bar(int index) { return lines(*workspace_->CommandBars()->Item(index)->Controls(), ""); }
  std::string bar(std::string_view name) {
    return lines(*workspace_->CommandBars()->Item(name)->Controls(), "");
  }
  static std::string lines(frame::CommandBarControls& controls, const std::string& indent) {
    std::string text;
    for (const auto& control : controls.items()) {
      text += indent + (control->BeginGroup() ? "| " : "") + (control->Visible() ? "" : "- ");
      text += control->Caption().empty() ? control->TooltipText() : control->Caption();
      text += (control->Face().empty() ? "" : " [" + control->Face() + "]") + "\n";
      if (const auto below = control->Controls()) text += lines(*below, indent + "  ");
    }
    return text;
  }

  // Captions, or tips of buttons without one; "|" in front of a control that begins a group, "-" of a hidden
  // one.
  std::string controlsOf(std::string_view bar) {
    std::string text;
    for (const auto& control : workspace_->CommandBars()->Item(bar)->Controls()->items()) {
      if (!text.empty()) text += ", ";
      if (control->BeginGroup()) text += "| ";
      if (!control->Visible()) text += "- ";
      text += control->Caption().empty() ? control->TooltipText() : control->Caption();
    }
    return text;
  }

  // Order tables of a few rows, all of them switched on.
  void order(std::string_view section, std::string_view prefix, const std::vector<std::string_view>& keys) {
    settings_.DeleteSetting(section);
    int number = 0;
    for (const std::string_view key : keys) {
      const std::string whole = std::string(prefix) + std::string(key);
      settings_.SaveSetting(section, std::to_string(++number), whole);
      set(whole, "True");
    }
  }

  platform::MemoryFiles files_;
  platform::MemoryClipboard clipboard_;
  platform::MemoryTreeStore store_;
  platform::FixedClock clock_{{2026, 11, 22, 10, 20, 30}};
  platform::FixedUser user_{"ann"};
  platform::Random random_;
  platform::RecordedKeystrokes keystrokes_;
  forms::ScriptedDesk desk_;
  platform::MemoryWebPages pages_;
  const base::CodePage& page_ = base::CodePage::get(1252);
  frame::Settings settings_{store_, page_};
  std::shared_ptr<workspace::Workspace> workspace_ = workspace::Workspace::create(files_, clipboard_, page_);
  workspace::HostFiles hostFiles_{workspace_->paths()};
  Suite suite_{Ports{*workspace_, store_, desk_, clock_, user_, random_, clipboard_, keystrokes_, hostFiles_,
                     pages_, page_, ""}};
};

}  // namespace kolvane::suite
