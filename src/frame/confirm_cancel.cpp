#include "frame/confirm_cancel.h"

#include "base/error.h"
#include "frame/options.h"

namespace kolvane::frame {
namespace {

constexpr Option kConfirmCancel = option("CCAMC19");
constexpr std::string_view kQuestion = "You have made changes, are you sure?";

}  // namespace

bool mayDropChanges(const Services& services, bool changed) {
  if (!changed || !isOn(services, kConfirmCancel)) return true;
  return services.desk.msgBox(kQuestion, forms::box::kAsk, base::kProductName) == forms::Answer::kYes;
}

}  // namespace kolvane::frame
