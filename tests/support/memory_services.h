// A workspace without projects over files in memory, and services over it whose clock and user stand still
// (2026-11-22 10:20:30, "ann"). Settings have their defaults; boxes are answered by a script.
#pragma once

#include <memory>

#include "base/code_page.h"
#include "forms/scripted_desk.h"
#include "frame/default_settings.h"
#include "frame/services.h"
#include "platform/memory_files.h"
#include "platform/memory_tree_store.h"
#include "workspace/host_files.h"
#include "workspace/workspace.h"

namespace kolvane::test {

struct MemoryServices {
  MemoryServices() { frame::ApplyDefaultSettings(settings, user); }
  MemoryServices(const MemoryServices&) = delete;
  MemoryServices& operator=(const MemoryServices&) = delete;

  const base::CodePage& codePage = base::CodePage::get(base::CodePage::kDefault);
  platform::MemoryFiles disk;
  platform::MemoryClipboard clipboard;
  platform::RecordedKeystrokes keystrokes;
  platform::MemoryTreeStore store;
  platform::FixedClock clock{base::DateTime{2026, 11, 22, 10, 20, 30}};
  platform::FixedUser user{"ann"};
  platform::Random random;
  forms::ScriptedDesk desk;
  frame::Settings settings{store, codePage};
  std::shared_ptr<workspace::Workspace> host = workspace::Workspace::create(disk, clipboard, codePage);
  workspace::HostFiles files{host->paths()};
  frame::Services services{*host,     settings,   desk,  clock,    user, random,
                           clipboard, keystrokes, files, codePage, {}};
};

}  // namespace kolvane::test
