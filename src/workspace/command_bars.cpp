#include "workspace/command_bars.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::workspace {
namespace {

namespace errors = base::errors;

struct BuiltInBar {
  std::string_view name;
  bool visible;
};
// In the order of their places; tools address some of them by number.
constexpr std::array kBars = {
    BuiltInBar{"Menu Bar", true},
    BuiltInBar{"Standard", true},
    BuiltInBar{"Edit", false},
    BuiltInBar{"Debug", false},
    BuiltInBar{"Form Editor", false},
    BuiltInBar{"Project Window", false},
    BuiltInBar{"Project Window Insert", false},
    BuiltInBar{"Form Layout", false},
    BuiltInBar{"Immediate Window", false},
    BuiltInBar{"Locals Window", false},
    BuiltInBar{"Watch Window", false},
    BuiltInBar{"Object Browser", false},
    BuiltInBar{"Properties Window", false},
    BuiltInBar{"Color Palette", false},
    BuiltInBar{"Code Window", false},
    BuiltInBar{"Code Window (Break)", false},
    BuiltInBar{"Toolbox", false},
    BuiltInBar{"Toolbox Group", false},
    BuiltInBar{"Dockable Window", false},
    BuiltInBar{"Forms", false},
    BuiltInBar{"Controls", false},
    BuiltInBar{"Menus", false},
};
static_assert(kBars[frame::kStandardToolbarIndex - 1].name == "Standard");
static_assert(kBars[frame::kCodeWindowMenuIndex - 1].name == "Code Window");
static_assert(kBars[frame::kControlsWindowMenuIndex - 1].name == "Controls");

constexpr std::array<std::string_view, 13> kMenus = {"&File",    "&Edit",   "&View",  "&Project", "F&ormat",
                                                     "&Debug",   "&Run",    "Q&uery", "D&iagram", "&Tools",
                                                     "&Add-Ins", "&Window", "&Help"};

// Without the mark of the access key; "&&" stands for one "&".
std::string plainCaption(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

bool sameCaption(std::string_view a, std::string_view b) {
  return base::equalNoCase(plainCaption(a), plainCaption(b));
}

template <typename T>
int positionOf(const std::vector<std::shared_ptr<T>>& list, const T& item) {
  const auto found =
      std::find_if(list.begin(), list.end(), [&](const auto& each) { return each.get() == &item; });
  return found == list.end() ? 0 : static_cast<int>(found - list.begin()) + 1;
}

template <typename T>
std::shared_ptr<T> takeOut(std::vector<std::shared_ptr<T>>& list, const T& item) {
  const int position = positionOf(list, item);
  if (position == 0) return nullptr;
  const auto place = list.begin() + (position - 1);
  std::shared_ptr<T> taken = *place;
  list.erase(place);
  return taken;
}

template <typename T>
const std::shared_ptr<T>& at(const std::vector<std::shared_ptr<T>>& list, int index) {
  if (index < 1 || static_cast<std::size_t>(index) > list.size()) throw base::Error(errors::kSubscript);
  return list[static_cast<std::size_t>(index) - 1];
}

}  // namespace

// ---- BarControl

BarControl::BarControl(std::weak_ptr<BarControls> parent, frame::ControlKind kind,
                       platform::Clipboard& clipboard)
    : parent_(std::move(parent)), kind_(kind), clipboard_(clipboard) {
  if (kind == frame::ControlKind::kPopup)
    bar_ = std::make_shared<Bar>(std::weak_ptr<Bars>(), "", true, false, clipboard);
}

BarControl& BarControl::checked() {
  if (deleted_) throw base::Error(errors::kObjectNotSet);
  return *this;
}

int BarControl::Index() {
  const auto parent = checked().parent_.lock();
  return parent ? parent->indexOf(*this) : 0;
}

void BarControl::PasteFace() {
  if (checked().kind_ != frame::ControlKind::kButton) throw base::Error(errors::kUnknownProperty);
  const auto picture = clipboard_.picture();
  if (!picture) throw base::Error(errors::kInvalidCall);
  face_ = *picture;
}

std::shared_ptr<frame::CommandBarControls> BarControl::Controls() {
  return checked().bar_ ? bar_->controls() : nullptr;
}

void BarControl::Delete() {
  const auto self = checked().shared_from_this();
  if (const auto parent = parent_.lock()) parent->remove(*this);
  drop();
}

void BarControl::drop() {
  deleted_ = true;
  if (bar_) bar_->drop();
}

base::Subscription BarControl::onClick(frame::CommandBarClick click) {
  return checked().clicked_.connect(
      [click = std::move(click)](const std::shared_ptr<frame::CommandBarControl>& control, bool& handled,
                                 bool& cancelDefault) {
        if (!handled && click) click(control, handled, cancelDefault);
      });
}

void BarControl::click() {
  if (!checked().enabled_ || !visible_)
    throw base::Error(errors::kInvalidCall,
                      "\"" + caption_ + "\" cannot be clicked: it is disabled or hidden");
  const std::shared_ptr<frame::CommandBarControl> self = shared_from_this();
  bool handled = false;
  bool cancelDefault = false;
  clicked_.raise(self, handled, cancelDefault);
}

bool BarControl::isCalled(std::string_view name) const {
  return sameCaption(caption_.empty() ? tooltip_ : caption_, name);
}

void BarControl::makeMenu(std::string_view caption) {
  caption_ = caption;
  bar_->rename(plainCaption(caption));
}

// ---- BarControls

void BarControls::check() const {
  if (deleted_) throw base::Error(errors::kObjectNotSet);
}

int BarControls::Count() {
  check();
  return static_cast<int>(list_.size());
}

std::shared_ptr<frame::CommandBarControl> BarControls::Item(int index) {
  check();
  return at(list_, index);
}

std::shared_ptr<frame::CommandBarControl> BarControls::Item(std::string_view name) {
  check();
  const auto found =
      std::find_if(list_.begin(), list_.end(), [&](const auto& control) { return control->isCalled(name); });
  if (found == list_.end()) throw base::Error(errors::kSubscript);
  return *found;
}

std::shared_ptr<frame::CommandBarControl> BarControls::Add(frame::ControlKind kind, int /*id*/,
                                                           std::string_view /*parameter*/, int before,
                                                           bool /*temporary*/) {
  check();
  auto control = std::make_shared<BarControl>(weak_from_this(), kind, clipboard_);
  const bool inside = before >= 1 && static_cast<std::size_t>(before) <= list_.size();
  list_.insert(inside ? list_.begin() + (before - 1) : list_.end(), control);
  return control;
}

int BarControls::indexOf(const BarControl& control) const { return positionOf(list_, control); }

void BarControls::remove(const BarControl& control) { takeOut(list_, control); }

void BarControls::drop() {
  deleted_ = true;
  for (const auto& control : list_) control->drop();
  list_.clear();
}

// ---- Bar

Bar::Bar(std::weak_ptr<Bars> parent, std::string_view name, bool builtIn, bool visible,
         platform::Clipboard& clipboard)
    : parent_(std::move(parent)),
      name_(name),
      controls_(std::make_shared<BarControls>(clipboard)),
      builtIn_(builtIn),
      visible_(visible) {}

Bar& Bar::checked() {
  if (deleted_) throw base::Error(errors::kObjectNotSet);
  return *this;
}

int Bar::Index() {
  const auto parent = checked().parent_.lock();
  return parent ? parent->indexOf(*this) : 0;
}

void Bar::Delete() {
  if (checked().builtIn_) throw base::Error(errors::kInvalidCall);
  const auto self = shared_from_this();
  if (const auto parent = parent_.lock()) parent->remove(*this);
  drop();
}

bool Bar::isCalled(std::string_view name) const { return sameCaption(name_, name); }

void Bar::drop() {
  deleted_ = true;
  controls_->drop();
}

// ---- Bars

std::shared_ptr<Bars> Bars::create(platform::Clipboard& clipboard) {
  const std::shared_ptr<Bars> bars(new Bars(clipboard));
  for (const BuiltInBar& bar : kBars)
    bars->list_.push_back(std::make_shared<Bar>(bars, bar.name, true, bar.visible, clipboard));
  for (const std::string_view menu : kMenus) {
    const auto control = bars->list_.front()->controls()->Add(frame::ControlKind::kPopup, 1, {}, 0, false);
    std::static_pointer_cast<BarControl>(control)->makeMenu(menu);
  }
  return bars;
}

void Bars::check() const {
  if (list_.empty()) throw base::Error(errors::kObjectNotSet);
}

int Bars::Count() {
  check();
  return static_cast<int>(list_.size());
}

std::shared_ptr<frame::CommandBar> Bars::Item(int index) {
  check();
  return at(list_, index);
}

std::shared_ptr<frame::CommandBar> Bars::Item(std::string_view name) {
  check();
  for (const auto& bar : list_)
    if (bar->isCalled(name)) return bar;
  for (const auto& menu : list_.front()->controls()->list())
    if (menu->bar() && menu->isCalled(name)) return menu->bar();
  throw base::Error(errors::kSubscript);
}

std::shared_ptr<frame::CommandBar> Bars::Add(std::string_view name) {
  check();
  // Of two bars with one name only the first could be found.
  if (std::any_of(list_.begin(), list_.end(), [&](const auto& bar) { return bar->isCalled(name); }))
    throw base::Error(errors::kInvalidCall, "A command bar named \"" + std::string(name) + "\" exists");
  list_.push_back(std::make_shared<Bar>(weak_from_this(), name, false, false, clipboard_));
  return list_.back();
}

std::shared_ptr<frame::CommandBar> Bars::ActiveMenuBar() {
  check();
  return list_.front();
}

int Bars::indexOf(const Bar& bar) const { return positionOf(list_, bar); }

void Bars::remove(const Bar& bar) { takeOut(list_, bar); }

void Bars::drop() {
  for (const auto& bar : list_) bar->drop();
  list_.clear();
}

}  // namespace kolvane::workspace
