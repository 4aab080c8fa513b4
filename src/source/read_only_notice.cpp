#include "source/read_only_notice.h"

#include "base/error.h"

namespace kolvane::source {

std::string readOnlyNotice(std::string_view name) {
  return std::string("Either the file ")
      .append(name)
      .append(" is readonly or it's checked in within Source Code control.");
}

bool withReadOnlyNotice(const frame::Services& services, frame::CodeModule& module,
                        const std::function<void()>& work) {
  try {
    work();
    return true;
  } catch (const base::Error& error) {
    if (error.number() != base::errors::kModuleNotEditable) throw;
  }
  services.desk.msgBox(readOnlyNotice(module.Name()), forms::box::kNotice, base::kProductName);
  return false;
}

}  // namespace kolvane::source
