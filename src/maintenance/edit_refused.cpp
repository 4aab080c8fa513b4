#include "maintenance/edit_refused.h"

#include "base/error.h"
#include "source/read_only_notice.h"

namespace kolvane::maintenance {

void tellFormattingStops(const frame::Services& services, frame::CodeModule& module) {
  services.desk.msgBox(source::readOnlyNotice(module.Name()), forms::box::kNotice, base::kProductName);
  services.desk.msgBox("Code formatting will now stop.", forms::box::kNotice, base::kProductName);
}

}  // namespace kolvane::maintenance
