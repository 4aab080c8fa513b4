// Options dialogs as tables: a row a control, with the option that it stands for. Loading, storing, OK and Cancel follow.
//
//   constexpr std::array kRows{
//       frame::sheet::frame(0, "fraOptions", "&Options"),
//       frame::sheet::check(1, "chkMoveCursor", "&Move Cursor", frame::option("PBMC43"), frame::Stored::kTrueFalse)};
//   constexpr frame::SheetTraits kSheet{{.name = "frmNamesOptions", …}, kRows};
//   …
//   frame::showOptionSheet(services, kSheet);
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "forms/containers.h"
#include "frame/options.h"
#include "frame/tool_form.h"

namespace kolvane::frame {

// How a tick is written. Every form is read.
enum class Stored : std::uint8_t { kOneZero, kTrueFalse };

enum class SheetKind : std::uint8_t { kFrame, kCheck, kChoice, kNumber };

struct SheetRow {
  int level = 0;  // one more inside a frame
  SheetKind kind = SheetKind::kFrame;
  std::string_view control;
  std::string_view caption;  // the control's own, or the label in front of it
  Option option = {};
  Stored stored = Stored::kTrueFalse;
  // Of a choice: what can be chosen; the first where the stored text is none of it.
  std::vector<std::string> (*choices)(const Services& services) = nullptr;
  // Of a number: the least one, which takes the place of a lower or empty one as the field is left.
  int least = 0;
};

namespace sheet {
constexpr SheetRow frame(int level, std::string_view control, std::string_view caption) {
  return {level, SheetKind::kFrame, control, caption};
}
constexpr SheetRow check(int level, std::string_view control, std::string_view caption, const Option& option,
                         Stored stored) {
  return {level, SheetKind::kCheck, control, caption, option, stored};
}
constexpr SheetRow choice(int level, std::string_view control, std::string_view caption, const Option& option,
                          std::vector<std::string> (*choices)(const Services& services)) {
  return {level, SheetKind::kChoice, control, caption, option, {}, choices};
}
constexpr SheetRow number(int level, std::string_view control, std::string_view caption, const Option& option,
                          int least) {
  return {level, SheetKind::kNumber, control, caption, option, {}, nullptr, least};
}
}  // namespace sheet

struct SheetTraits {
  FormTraits form;
  std::span<const SheetRow> rows;
};

// OK writes all options in one transaction; anything else leaves them as they were.
class OptionSheet final : public ToolForm {
 public:
  // The sheet is a constant.
  OptionSheet(Services& services, const SheetTraits& sheet);

  forms::Layout layout() const override;

 private:
  void Form_Load() override;
  void cmdOK_Click();
  void add(const SheetRow& row);
  void show(const SheetRow& row, forms::Control& control);
  std::string textOf(const SheetRow& row, const forms::Control& control) const;
  // The rows from `at` on that stand at that level or below, which `at` passes.
  std::vector<forms::Layout> layoutOf(std::size_t& at, int level) const;

  const SheetTraits& sheet_;
  std::vector<std::unique_ptr<forms::Control>> fields_;  // one a row
  std::unique_ptr<forms::CommandButton> cmdOK_;
  std::unique_ptr<forms::CommandButton> cmdCancel_;
};

// Shows a sheet and returns when it has been closed.
void showOptionSheet(Services& services, const SheetTraits& sheet);

}  // namespace kolvane::frame
