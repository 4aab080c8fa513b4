#include "forms/layout.h"

#include <algorithm>
#include <map>

#include "forms/containers.h"
#include "forms/form.h"

namespace kolvane::forms {

namespace {

using Type = Layout::Type;

class Walk {
 public:
  std::vector<std::pair<const Control*, Place>> found;

  void visit(const Layout& item, const Place& within) {
    Place inner = within;
    if (item.control) {
      Place own = within;
      if (const auto label = labels_.find(item.control); label != labels_.end()) own.label = label->second;
      found.emplace_back(item.control, std::move(own));
      if (item.type != Type::kControl) inner.container = item.control;
      inner.page = -1;
    }
    if (item.type == Type::kUnplaced) inner.unplaced = true;
    for (std::size_t i = 0; i < item.children.size(); ++i) {
      const Layout& child = item.children[i];
      if (item.type == Type::kTabs) inner.page = static_cast<int>(i);
      if (const Control* control = labelledBy(item, i)) labels_.emplace(control, child.text);
      visit(child, inner);
    }
  }

 private:
  std::map<const Control*, std::string> labels_;
};

class Faults {
 public:
  explicit Faults(const Form& form) : form_(form) {}

  std::vector<std::string> list;

  void placing() {
    std::map<const Control*, int> times;
    for (const auto& [control, place] : places(form_.currentLayout())) {
      const auto& own = form_.controls();
      if (std::find(own.begin(), own.end(), control) == own.end())
        add(control->name() + " belongs to another form");
      else if (!kindRow(control->kind()).placed)
        add(control->name() + " is a " + std::string(control->kindName()) + " and has no place");
      ++times[control];
    }
    for (const Control* control : form_.controls()) {
      const int count = times[control];
      if (count == 0 && kindRow(control->kind()).placed) add(control->name() + " has no place");
      if (count > 1) add(control->name() + " stands in " + std::to_string(count) + " places");
    }
  }

  void structure(const Layout& item) {
    if (item.type == Type::kGroup && item.control->kind() != Kind::kFrame)
      add(item.control->name() + " groups others but is no Frame");
    if (item.type == Type::kTabs) tabs(item);
    if (item.type == Type::kGrid && item.number < 1) add("a grid has no columns");
    for (std::size_t i = 0; i < item.children.size(); ++i) {
      const Layout& child = item.children[i];
      if (child.type == Type::kPage && item.type != Type::kTabs) add("a page stands outside of tabs");
      const bool label = child.type == Type::kText && child.text.find('&') != std::string::npos;
      if (label && !labelledBy(item, i)) add("the label \"" + child.text + "\" has no control behind it");
      structure(child);
    }
  }

 private:
  void tabs(const Layout& item) {
    if (item.control->kind() != Kind::kTabs) return add(item.control->name() + " has pages but is no Tabs");
    const auto pages = static_cast<std::size_t>(static_cast<const Tabs*>(item.control)->pages());
    if (pages != item.children.size())
      add(item.control->name() + " has " + std::to_string(pages) + " pages, its layout " +
          std::to_string(item.children.size()));
    for (const Layout& child : item.children)
      if (child.type != Type::kPage) add(item.control->name() + " holds something that is no page");
  }

  void add(const std::string& fault) { list.push_back(form_.name() + ": " + fault + "."); }

  const Form& form_;
};

}  // namespace

const Control* labelledBy(const Layout& list, std::size_t index) {
  if (list.children[index].type != Type::kText || index + 1 == list.children.size()) return nullptr;
  const Layout* next = &list.children[index + 1];
  while (next->type == Type::kStack && !next->children.empty()) next = &next->children.back();
  const bool labelled = next->type == Type::kControl && !kindRow(next->control->kind()).captioned;
  return labelled ? next->control : nullptr;
}

std::vector<std::pair<const Control*, Place>> places(const Layout& layout) {
  Walk walk;
  walk.visit(layout, {});
  return std::move(walk.found);
}

std::vector<std::string> layoutFaults(const Form& form) {
  Faults faults(form);
  faults.placing();
  faults.structure(form.currentLayout());
  return std::move(faults.list);
}

}  // namespace kolvane::forms
