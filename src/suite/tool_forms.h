// The forms of the tools: one instance of each, made at its first use and let go when it has been unloaded.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "forms/form.h"
#include "frame/catalogue.h"

namespace kolvane::suite {

class ToolForms {
 public:
  ToolForms() = default;
  ~ToolForms() {
    for (const auto& [name, form] : forms_) form->setRelease(nullptr);
  }
  ToolForms(const ToolForms&) = delete;
  ToolForms& operator=(const ToolForms&) = delete;

  // Shows the form of a row as the row says, modal or modeless; one that is shown already comes to the front.
  // `services` are what the form's constructor takes; they must outlive this object.
  template <class FormType, class... Services>
  void show(const frame::CatalogueRow& row, Services&... services) {
    const std::shared_ptr<forms::Form> form =
        hold(row.target, [&] { return std::make_shared<FormType>(services...); });
    if (row.action == frame::Action::kModalForm && !form->visible())
      form->showModal();
    else
      form->show();
  }

  // Without asking; nothing happens when there is none.
  void unload(std::string_view name) {
    const auto found = forms_.find(name);
    if (found == forms_.end()) return;
    const std::shared_ptr<forms::Form> form = found->second;
    form->unload(forms::UnloadMode::kEnd);
    forms_.erase(std::string(name));
  }

 private:
  template <class Make>
  std::shared_ptr<forms::Form> hold(std::string_view name, Make&& make) {
    std::shared_ptr<forms::Form>& form = forms_[std::string(name)];
    if (!form) {
      form = make();
      form->setRelease([this, key = std::string(name)] { forms_.erase(key); });
    }
    return form;
  }

  std::map<std::string, std::shared_ptr<forms::Form>, std::less<>> forms_;
};

}  // namespace kolvane::suite
