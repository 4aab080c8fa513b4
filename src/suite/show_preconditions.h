// What must hold before a tool's form opens, or for a command to have something to work on, and what the user is told
// when it does not: one table for the forms, one for the commands without a form.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "frame/context_menus.h"
#include "frame/services.h"

namespace kolvane::suite {

enum class Precondition : std::uint8_t {
  kCodeWindow,  // a code window is open
  kComponent,   // a component is selected
  kFormLike,    // … of a type that people design: a form, a user control or the like
  kDesigner,    // … with a designer that can be worked on
  kControls,    // … and controls on it
  kAnswerYes,   // the user agrees; asked only when `option` is set
  // Of commands without a form only: they begin all the same, and end without a word.
  kOtherWindow,   // a code window or designer that is not the active window
  kOptionIsOne,   // `option` is 1
  kModuleHeader,  // a header text is stored for the selected component's type
  kSeveralLines,  // the selection in the active code window spans more than one line
  kSelectedText,  // … holds at least one character
};

struct ShowPrecondition {
  std::string_view form;  // the catalogue row's target
  Precondition condition;
  std::string_view message;      // on failure; the question. "<name>" stands for the component's name
  std::string_view option = {};  // of section "Options"
};

// A form's rows are tested in their order; the first that fails is told. A form without a row opens always.
inline constexpr std::array<ShowPrecondition, 26> kShowPreconditions{{
    {"frmSearch", Precondition::kCodeWindow, "You need to open a code window."},
    {"frmMassPropertyUpdater", Precondition::kFormLike, "Select a valid component type!"},
    {"frmMassPropertyUpdater", Precondition::kDesigner, "Select a valid module type!"},
    {"frmMassPropertyUpdater", Precondition::kControls, "No controls on <name>!"},
    {"frmStandardsMonitor", Precondition::kComponent, "Select a component!"},
    {"frmStandardsMonitor", Precondition::kFormLike, "Select a valid component type!"},
    {"frmStandardsMonitor", Precondition::kDesigner, "Select a valid module type!"},
    {"frmStandardsMonitor", Precondition::kControls, "No controls on <name>!"},
    {"frmTemplateCoder", Precondition::kComponent, "Select a component!"},
    {"frmTemplateCoder", Precondition::kFormLike, "Select a valid component type!"},
    {"frmTemplateCoder", Precondition::kDesigner, "Select a valid module type!"},
    {"frmTemplateCoder", Precondition::kControls, "No controls on <name>!"},
    {"frmTabController", Precondition::kComponent, "Select a component!"},
    {"frmTabController", Precondition::kDesigner, "Select a valid module type!"},
    {"frmTabController", Precondition::kControls, "No controls on <name>!"},
    {"frmControlCoder", Precondition::kComponent, "Select a component!"},
    {"frmControlCoder", Precondition::kFormLike, "Select a valid component type!"},
    {"frmControlCoder", Precondition::kDesigner, "Select a valid module type!"},
    {"frmControlCoder", Precondition::kControls, "No controls on <name>!"},
    {"frmControlDefaulter", Precondition::kComponent, "Select a component!"},
    {"frmControlDefaulter", Precondition::kFormLike, "Select a valid component type!"},
    {"frmControlDefaulter", Precondition::kDesigner, "Select a valid module type!"},
    {"frmControlDefaulter", Precondition::kControls, "No controls on <name>!"},
    {"frmMenuCopier", Precondition::kComponent, "Select a component!"},
    {"frmGetLatestVersions", Precondition::kAnswerYes, "Are you sure you want the latest versions?",
     "So303Vdfsdrm"},
    {"frmMultiCheckIn", Precondition::kAnswerYes, "Are you sure you want to do a multi check in?",
     "td305fhrwm"},
}};

// By the row's target or the handler's name. What commands of the code window need beside these stands in the
// dispatcher's table.
inline constexpr std::array<ShowPrecondition, 6> kCommandPreconditions{{
    {"CloseInactiveWindows", Precondition::kOtherWindow, "No other window is open."},
    {"AddModuleHeader", Precondition::kComponent, "Select a component!"},
    {"AddModuleHeader", Precondition::kOptionIsOne, "Module headers are switched off (option ouloi45lwefwd).",
     "ouloi45lwefwd"},
    {"AddModuleHeader", Precondition::kModuleHeader, "No header text is stored for this type of module."},
    {"evtListMyCallers_Click", Precondition::kCodeWindow, "You need to open a code window."},
    {frame::kCustomErrorAction, Precondition::kCodeWindow, "You need to open a code window."},
}};

// Tests the rows of a form and tells what fails; true when the form may open.
bool mayShow(const frame::Services& services, std::string_view form);

// Why a command could do nothing now; "" when it can be used. `target` is a row's or a popup item's, or a handler's name.
// Nothing is asked, told or changed.
std::string reasonAgainst(const frame::Services& services, std::string_view target);

}  // namespace kolvane::suite
