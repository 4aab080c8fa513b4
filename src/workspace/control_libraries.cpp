#include "workspace/control_libraries.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "workspace/project.h"

namespace kolvane::workspace {
namespace {

struct Library {
  std::string_view name;
  std::string_view guid;
};
constexpr std::array kLibraries = {
    Library{"ComctlLib", "{6B7E6392-850A-101B-AFC0-4210102A8DA7}"},
    Library{"InetCtlsObjects", "{48E59290-9880-11CF-9754-00AA00C00908}"},
    Library{"MCI", "{C1A8AF25-1257-101B-8FB0-0020AF039CA3}"},
    Library{"MSAdodcLib", "{67397AA1-7FB1-11D0-B148-00A0C922E820}"},
    Library{"MSChart20Lib", "{65E121D4-0C60-11D2-A9FC-0000F8754DA1}"},
    Library{"MSComCtl2", "{86CF1D34-0C5F-11D2-A9FC-0000F8754DA1}"},
    Library{"MSComDlg", "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}"},
    Library{"MSCommLib", "{648A5603-2C6E-101B-82B6-000000000014}"},
    Library{"MSComctlLib", "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}"},
    Library{"MSDataGridLib", "{CDE57A40-8B86-11D0-B3C6-00A0C90AEA82}"},
    Library{"MSDataListLib", "{F0D2F211-CCB0-11D0-A316-00AA00688B10}"},
    Library{"MSFlexGridLib", "{5E9E78A0-531B-11CF-91F6-C2863C385E30}"},
    Library{"MSHierarchicalFlexGridLib", "{0ECD9B60-23AA-11D0-B351-00A0C9055D8E}"},
    Library{"MSMask", "{C932BA88-4374-101B-A56C-00AA003668DC}"},
    Library{"MSWinsockLib", "{248DD890-BB45-11CF-9ABC-0080C7E7B78D}"},
    Library{"PicClip", "{27395F88-0C0C-101B-A3C9-08002B2F49FB}"},
    Library{"RichTextLib", "{3B7C8863-D78F-101B-B9B5-04021C009402}"},
    Library{"SHDocVwCtl", "{EAB22AC0-30C1-11CF-A7EB-0000C05BAE0B}"},
    Library{"SysInfoLib", "{6FBA474E-43AC-11CE-9A0E-00AA0062BB4C}"},
    Library{"TabDlg", "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}"},
};

bool holdsNoCase(std::string_view text, std::string_view guid) {
  return base::lCase(text).find(base::lCase(guid)) != std::string::npos;
}

std::string inDesigners(const Project& project, std::string_view guid) {
  for (const auto& component : project.components()) {
    if (!component->hasSource()) continue;
    for (const std::string& line : component->header().objectLines())
      if (holdsNoCase(line, guid)) return line;
  }
  return {};
}

// "{guid}#2.0#0; MSCOMCTL.OCX" of the project's file in the designers' spelling.
std::string inProjectFile(const Project& project, std::string_view guid) {
  for (const ProjectEntry& entry : project.text().entries()) {
    if (!base::equalNoCase(entry.key, "Object") || !holdsNoCase(entry.value, guid)) continue;
    const std::size_t semicolon = entry.value.find(';');
    if (semicolon == std::string_view::npos) continue;
    return quoted(trimRight(trimLeft(entry.value.substr(0, semicolon)))) + "; " +
           quoted(trimRight(trimLeft(entry.value.substr(semicolon + 1))));
  }
  return {};
}

}  // namespace

std::string objectLineFor(const Project& project, std::string_view progId) {
  const std::string_view library = progId.substr(0, progId.find('.'));
  const auto* known = std::find_if(kLibraries.begin(), kLibraries.end(), [&](const Library& each) {
    return base::equalNoCase(each.name, library);
  });
  if (known == kLibraries.end()) return {};
  std::string line = inDesigners(project, known->guid);
  return line.empty() ? inProjectFile(project, known->guid) : line;
}

}  // namespace kolvane::workspace
