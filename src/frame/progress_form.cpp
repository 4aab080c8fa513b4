#include "frame/progress_form.h"

namespace kolvane::frame {
namespace {

// Heights of the window with both bars and with one, in twips.
constexpr int kBothHeight = 2100;
constexpr int kOneHeight = 1200;
constexpr int kWidth = 6000;

}  // namespace

frmProgress::frmProgress(forms::Desk& desk) : Form(desk, "frmProgress", "Progress") {
  setFixedSize(true);
  setMinimumSize(kWidth, kBothHeight);
}

void frmProgress::Setup(std::string_view strType) {
  const bool projectOnly = strType == "ProjectOnly";
  const bool moduleOnly = strType == "ModuleOnly";
  lblProject.setVisible(!moduleOnly);
  prgProject.setVisible(!moduleOnly);
  lblModule.setVisible(!projectOnly);
  prgModule.setVisible(!projectOnly);
  const int height = projectOnly || moduleOnly ? kOneHeight : kBothHeight;
  setMinimumSize(kWidth, height);
  if (placement()) setPlacement({placement()->left, placement()->top, placement()->width, height});
}

// A hidden pair leaves its place to the other one.
forms::Layout frmProgress::layout() const {
  return forms::column(lblProject, prgProject, lblModule, prgModule);
}

}  // namespace kolvane::frame
