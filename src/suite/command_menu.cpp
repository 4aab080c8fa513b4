#include "suite/command_menu.h"

#include <algorithm>
#include <utility>

#include "frame/context_menus.h"

namespace kolvane::suite {
namespace {

using frame::Action;
using frame::CatalogueRow;

const CatalogueRow* rowOfKey(std::string_view dispatcherKey) {
  for (const CatalogueRow& row : frame::kCatalogue)
    if (row.action == Action::kDispatcher && row.target == dispatcherKey) return &row;
  return nullptr;
}

constexpr bool popupHasAllDispatcherRows() {
  return std::all_of(frame::kCatalogue.begin(), frame::kCatalogue.end(), [](const CatalogueRow& row) {
    return row.action != Action::kDispatcher ||
           std::any_of(frame::kProcRecoderPopup.begin(), frame::kProcRecoderPopup.end(),
                       [&row](const frame::PopupItem& item) { return item.target == row.target; });
  });
}
static_assert(popupHasAllDispatcherRows(), "every command of the code window stands in its menu");

bool showsForm(const CatalogueRow& row) {
  return row.action == Action::kModelessForm || row.action == Action::kModalForm;
}

bool startsAtOnce(const CatalogueRow& row) { return row.action == Action::kAtOnce; }

}  // namespace

std::vector<MenuLine> commandMenu(const std::function<bool(const CatalogueRow&)>& available) {
  std::vector<MenuLine> lines;
  for (const auto belongs : {showsForm, startsAtOnce}) {
    bool begins = !lines.empty();
    for (const CatalogueRow& row : frame::kCatalogue)
      if (belongs(row) && available(row))
        lines.push_back({0, row.menuCaption, &row, {}, std::exchange(begins, false)});
  }
  lines.push_back(
      {0, frame::kListMyCallersEntry.caption, nullptr, frame::kListMyCallersEntry.handler, !lines.empty()});
  for (const frame::PopupItem& item : frame::kProcRecoderPopup) {
    if (item.level == 0 || item.kind == frame::PopupKind::kCustomErrors) continue;
    if (item.level == 1 && lines.back().isPopup()) lines.pop_back();
    const CatalogueRow* row = rowOfKey(item.target);
    if (item.kind == frame::PopupKind::kPopup || available(*row))
      lines.push_back({item.level - 1, item.caption, row, {}, false});
  }
  if (lines.back().isPopup()) lines.pop_back();
  return lines;
}

}  // namespace kolvane::suite
