// What must hold before a tool's form opens, and what the user is told when it does not: one table for all
// tools.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "frame/services.h"

namespace kolvane::suite {

enum class Precondition : std::uint8_t {
  kCodeWindow,  // a code window is open
  kComponent,   // a component is selected
  kFormLike,    // … of a type that people design: a form, a user control or the like
  kDesigner,    // … with a designer that can be worked on
  kControls,    // … and controls on it
  kAnswerYes,   // the user agrees; asked only when `option` is set
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

// Tests the rows of a form and tells what fails; true when the form may open.
bool mayShow(const frame::Services& services, std::string_view form);

}  // namespace kolvane::suite
