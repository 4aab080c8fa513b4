// Which code page a project is in, told by what its files hold, and whether a file is text in a code page at all.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/code_pages.h"
#include "platform/files.h"

namespace kolvane::workspace {

// The page under which most of the files are there that a project names: `inUse` before all that do no better, UTF-8
// before the others. Names in ASCII say nothing.
struct PageByNames {
  const base::CodePage* page = nullptr;  // nothing where the names do not tell
  std::vector<int> alike;                // several that fit the names equally well, better than `inUse`
};
PageByNames pageByNames(platform::Files& files, const platform::CodePages& pages, const base::CodePage& inUse,
                        const std::string& systemFolder, const std::vector<std::string>& names);

// Tells text in a double-byte page by its bytes. Only when there is no doubt: text of many such characters,
// nearly all of them among those that its language uses most, and nearly no byte that is none of them.
class DoubleByteEvidence {
 public:
  void add(std::string_view bytes);
  // 932, 936, 949 or 950; 0 where it is not clear. Text that is UTF-8 is none of them.
  int page() const;

 private:
  struct Tally {
    std::size_t characters = 0;
    std::size_t usual = 0;    // of those: such as the language has most
    std::size_t telling = 0;  // of those: such as its neighbours do not have
    std::size_t broken = 0;   // bytes that are no character
    std::bitset<256> leads;
    std::size_t all() const { return characters + broken; }
  };
  struct Language;
  static const std::array<Language, 4> kLanguages;
  static void add(Tally& tally, const Language& language, std::string_view bytes);

  std::array<Tally, 4> tallies_{};  // by kLanguages
};

// Why the bytes cannot be the text of a project or group; empty when they can be. It may be UTF-16.
std::string whyNotProject(std::string_view bytes);
// Why they cannot be that of a module: UTF-16, a byte order mark, binary data. Runs of NUL at the end and single odd
// bytes do occur in modules.
std::string whyNoModule(std::string_view bytes);

}  // namespace kolvane::workspace
