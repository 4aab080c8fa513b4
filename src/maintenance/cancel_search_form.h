// The dialog that ends a search for callers.
#pragma once

#include "forms/buttons.h"
#include "frame/tool_form.h"

namespace kolvane::maintenance {

inline constexpr frame::FormTraits kCancelSearchTraits{
    .name = "frmCancelSearch", .caption = "Cancel List My Callers", .help = "ListMyCallers.Html"};

// `cancelled` is set when the button is clicked, and must outlive the form.
class frmCancelSearch final : public frame::ToolForm {
 public:
  frmCancelSearch(frame::Services& services, bool& cancelled) : ToolForm(services, kCancelSearchTraits) {
    cmdCancel.setCancel(true);
    tie(forms::kClick, cmdCancel, [this, &cancelled] {
      cancelled = true;
      unload();
    });
    // The search goes on when the user works elsewhere.
    onDeactivate = [this] { desk().setBusy(true); };
  }

  forms::Layout layout() const override { return forms::column(forms::buttons(cmdCancel)); }

  forms::CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
};

}  // namespace kolvane::maintenance
