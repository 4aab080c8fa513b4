// The settings as one readable text, for backups, for moving to another machine and for version control.
//
//   KolvaneLite settings, format 1
//   tree [HKEY_CURRENT_USER\SOFTWARE\VB and VBA Program Settings\KolvaneLite]
//
//   ; a comment
//   [HKEY_CURRENT_USER\SOFTWARE\VB and VBA Program Settings\KolvaneLite\Options]
//   "DH7"="1"
//   "lines"="first\r\nsecond"
//   "count"=number:7
//   "bytes"=binary:0AFF
//
// UTF-8; keys and values in stored order, a key before the keys below it. In quotes \\ \" \r \n \t and \xHH
// (any byte) stand for what they say; in a key's path control characters and "%" are written %HH. "tree"
// names the part of the store that the text is a picture of, [] all of it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/tree_store.h"

namespace kolvane::frame {

// The key with all below it; the whole store for the empty path. A key that does not exist raises 5.
std::string exportTree(platform::TreeStore& store, const std::string& path = {});

enum class ImportMode : std::uint8_t {
  kReplace,  // the tree that the text names is afterwards exactly what the text says
  kMerge,    // what the text does not mention stays
};

// Takes the text back in one transaction. A fault raises 321 with the line and the reason, and nothing has
// changed.
void importTree(platform::TreeStore& store, std::string_view text, ImportMode mode = ImportMode::kReplace);

}  // namespace kolvane::frame
