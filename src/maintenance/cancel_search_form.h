// The dialog that ends a search for callers.
#pragma once

#include "forms/buttons.h"
#include "forms/form.h"

namespace kolvane::maintenance {

// `cancelled` is set when the button is clicked, and must outlive the form.
class frmCancelSearch final : public forms::Form {
 public:
  frmCancelSearch(forms::Desk& desk, bool& cancelled)
      : Form(desk, "frmCancelSearch", "Cancel List My Callers") {
    setFixedSize(true);
    setHelpTopic("ListMyCallers.Html");
    cmdCancel.setCancel(true);
    cmdCancel.onClick = entry("cmdCancel_Click", [this, &cancelled] {
      cancelled = true;
      unload();
    });
    // The search goes on when the user works elsewhere.
    onDeactivate = [this] { this->desk().setBusy(true); };
  }

  forms::Layout layout() const override { return forms::column(forms::buttons(cmdCancel)); }

  forms::CommandButton cmdCancel{*this, "cmdCancel", "&Cancel"};
};

}  // namespace kolvane::maintenance
