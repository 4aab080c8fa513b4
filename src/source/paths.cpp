#include "source/paths.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace kolvane::source {
namespace {

constexpr std::array<std::string_view, 7> kSourceExtensions{".frm", ".bas", ".mod", ".cls",
                                                            ".ctl", ".pag", ".dsr"};

}  // namespace

std::string AddSlashToPath(std::string_view path) {
  std::string result(base::trim(path));
  if (!result.ends_with('\\')) result.push_back('\\');
  return result;
}

std::string_view GetPath(std::string_view path) {
  const int slash = base::inStrRev(path, "\\");
  return slash == 0 ? path : base::left(path, slash);
}

std::string_view GetFileName(std::string_view path, bool keepExtension, bool extensionOnly) {
  const int slash = base::inStrRev(path, "\\");
  if (slash == 0) return {};
  const std::string_view name = base::mid(path, slash + 1);
  const std::size_t point = std::min(name.rfind('.'), name.size());
  if (extensionOnly) return name.substr(point);
  return keepExtension ? name : name.substr(0, point);
}

bool IsSourceFileExtension(std::string_view text) {
  return std::any_of(kSourceExtensions.begin(), kSourceExtensions.end(),
                     [text](std::string_view known) { return base::equalNoCase(text, known); });
}

bool IsFileReadOnly(const frame::Services& services, std::string_view path) {
  if (base::trim(path).empty()) return false;
  const int attributes = services.files.attributes(std::string(path));
  return attributes == platform::kAttributeReadOnly ||
         attributes == (platform::kAttributeReadOnly | platform::kAttributeArchive);
}

}  // namespace kolvane::source
