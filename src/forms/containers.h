// Controls that hold others. What lies in them is told by the form's layout.
#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace kolvane::forms {

// While it is disabled or hidden, so is for the user what lies in it. Its access key leads to the first
// control in it.
class Frame final : public Control {
 public:
  Frame(Form& form, std::string_view name, std::string_view caption = {});

 protected:
  void describe(ControlState& state) const override;
};

// Pages, of which one is shown. Pages count from 0; one that isn't there raises 380.
class Tabs final : public Control {
 public:
  Tabs(Form& form, std::string_view name, std::initializer_list<std::string_view> captions);

  int pages() const { return static_cast<int>(captions_.size()); }
  const std::string& pageCaption(int page) const;
  void setPageCaption(int page, std::string_view caption);
  int tab() const { return tab_; }
  void setTab(int page);

  std::function<void(int previous)> onTabClick;

 protected:
  void describe(ControlState& state) const override;
  Deed takeTab(int page) override;
  Deed takeIndex(int index) override { return takeTab(index); }
  Deed takeItem(std::string_view text) override;
  Deed takeClick(const Spot& spot) override;
  bool takeKey(int key, int shift) override;

 private:
  void requirePage(int page) const;

  std::vector<std::string> captions_;
  int tab_ = 0;
};

}  // namespace kolvane::forms
