#include "maintenance/callers_options_form.h"

#include <array>

#include "frame/option_sheet.h"

namespace kolvane::maintenance {
namespace {

namespace sheet = frame::sheet;
constexpr int kLeastWidth = 50;
constexpr std::array kRows{
    sheet::frame(0, "fraOptions", "&Options"),
    sheet::check(1, "chkModuleDeclarations", "&Use Module Declarations",
                 frame::option("srtgkhsdfjh46vsdfgshg"), frame::Stored::kOneZero),
    sheet::number(1, "txtMaxWidth", "Called From - &Max. Width:", frame::option("etrertretre4fg405ertwrt"),
                  kLeastWidth),
};
constexpr frame::SheetTraits kSheet{{.name = "frmListMyCallersOptions",
                                     .caption = "List My Callers Options",
                                     .help = "ListMyCallers.Html",
                                     .placement = "List My Callers Options"},
                                    kRows};

}  // namespace

void showListMyCallersOptions(frame::Services& services) { frame::showOptionSheet(services, kSheet); }

}  // namespace kolvane::maintenance
