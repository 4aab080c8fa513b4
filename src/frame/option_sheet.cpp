#include "frame/option_sheet.h"

#include <algorithm>

#include "base/error.h"
#include "base/text.h"
#include "forms/lists.h"
#include "forms/text_controls.h"
#include "frame/key_filters.h"

namespace kolvane::frame {
namespace {

using forms::CheckBox;
using forms::ComboBox;
using forms::TextBox;

}  // namespace

OptionSheet::OptionSheet(Services& services, const SheetTraits& sheet)
    : ToolForm(services, sheet.form), sheet_(sheet) {
  for (const SheetRow& row : sheet_.rows) add(row);
  cmdOK_ = std::make_unique<forms::CommandButton>(*this, "cmdOK", "OK");
  cmdCancel_ = std::make_unique<forms::CommandButton>(*this, "cmdCancel", "Cancel");
  cmdOK_->setDefault(true);
  tie(forms::kClick, *cmdOK_, &OptionSheet::cmdOK_Click);
  cancelBy(*cmdCancel_);
}

void OptionSheet::add(const SheetRow& row) {
  switch (row.kind) {
    case SheetKind::kFrame:
      fields_.push_back(std::make_unique<forms::Frame>(*this, row.control, row.caption));
      break;
    case SheetKind::kCheck:
      fields_.push_back(std::make_unique<CheckBox>(*this, row.control, row.caption));
      break;
    case SheetKind::kChoice:
      fields_.push_back(std::make_unique<ComboBox>(*this, row.control, ComboBox::kDropdownList));
      break;
    case SheetKind::kNumber: {
      auto box = std::make_unique<TextBox>(*this, row.control);
      box->onKeyPress = [](int& character) { character = Numbers_Only(character); };
      tie(forms::kLostFocus, *box, [field = box.get(), least = row.least] {
        if (base::trim(field->text()).empty() || base::val(field->text()) < least)
          field->setText(std::to_string(least));
      });
      fields_.push_back(std::move(box));
      break;
    }
  }
}

forms::Layout OptionSheet::layout() const {
  std::size_t at = 0;
  std::vector<forms::Layout> items = layoutOf(at, 0);
  items.push_back(forms::buttons(*cmdOK_, *cmdCancel_));
  return {forms::Layout::Type::kColumn, std::move(items)};
}

std::vector<forms::Layout> OptionSheet::layoutOf(std::size_t& at, int level) const {
  std::vector<forms::Layout> items;
  while (at < sheet_.rows.size() && sheet_.rows[at].level == level) {
    const SheetRow& row = sheet_.rows[at];
    const forms::Control& control = *fields_[at++];
    if (row.kind == SheetKind::kFrame)
      items.emplace_back(forms::Layout::Type::kGroup, layoutOf(at, level + 1), &control);
    else if (row.kind == SheetKind::kCheck || row.caption.empty())
      items.emplace_back(control);
    else
      items.push_back(forms::row(row.caption, control));
  }
  return items;
}

void OptionSheet::Form_Load() {
  for (std::size_t i = 0; i < fields_.size(); ++i) show(sheet_.rows[i], *fields_[i]);
}

void OptionSheet::show(const SheetRow& row, forms::Control& control) {
  if (row.kind == SheetKind::kCheck) {
    static_cast<CheckBox&>(control).setChecked(isOn(services_, row.option));
  } else if (row.kind == SheetKind::kNumber) {
    static_cast<TextBox&>(control).setText(frame::textOf(services_, row.option));
  } else if (row.kind == SheetKind::kChoice) {
    auto& list = static_cast<ComboBox&>(control);
    list.addItems(row.choices(services_));
    list.setListIndex(std::max(0, list.indexOf(frame::textOf(services_, row.option))));
  }
}

std::string OptionSheet::textOf(const SheetRow& row, const forms::Control& control) const {
  if (row.kind == SheetKind::kNumber) return static_cast<const TextBox&>(control).text();
  if (row.kind == SheetKind::kChoice) return static_cast<const ComboBox&>(control).text();
  const bool ticked = static_cast<const CheckBox&>(control).checked();
  if (row.stored == Stored::kOneZero) return ticked ? "1" : "0";
  return base::boolText(ticked);
}

void OptionSheet::cmdOK_Click() {
  services_.settings.store().update([&] {
    for (std::size_t i = 0; i < fields_.size(); ++i)
      if (const SheetRow& row = sheet_.rows[i]; row.kind != SheetKind::kFrame)
        services_.settings.saveOption(row.option.key, textOf(row, *fields_[i]));
  });
  savePlacement();
  unload();
}

void showOptionSheet(Services& services, const SheetTraits& sheet) {
  showDialog<OptionSheet>(services, sheet);
}

}  // namespace kolvane::frame
