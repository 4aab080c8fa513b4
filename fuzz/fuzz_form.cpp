// Headers and designer blocks: parsing never fails, and what was not edited comes back byte for byte.
#include <cstdlib>
#include <string>
#include <string_view>

#include "base/error.h"
#include "workspace/component_source.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using kolvane::workspace::ComponentHeader;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  std::vector<kolvane::workspace::Problem> problems;
  ComponentHeader header = ComponentHeader::parse(nullptr, bytes, "fuzz.frm", problems);
  if (header.codeOffset() > size) std::abort();
  header.designer();
  header.companions();
  std::string out;
  header.appendBytes(out);
  if (out != bytes.substr(0, header.codeOffset())) std::abort();
  try {
    header.rename("Renamed");
  } catch (const kolvane::base::Error&) {
    // a header that could not be taken apart refuses edits
  }
  out.clear();
  header.appendBytes(out);
  std::vector<kolvane::workspace::Problem> again;
  ComponentHeader::parse(nullptr, out, "fuzz.frm", again);
  return 0;
}
