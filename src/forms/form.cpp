#include "forms/form.h"

#include <algorithm>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "forms/buttons.h"
#include "forms/error_form.h"
#include "forms/errors.h"
#include "forms/indicators.h"
#include "forms/menu.h"

namespace kolvane::forms {

namespace {

// Counts a handler that runs.
class Depth {
 public:
  explicit Depth(int& depth) : depth_(depth) { ++depth_; }
  ~Depth() { --depth_; }
  Depth(const Depth&) = delete;
  Depth& operator=(const Depth&) = delete;

 private:
  int& depth_;
};

}  // namespace

Form::Form(Desk& desk, std::string_view name, std::string_view caption)
    : desk_(desk), name_(name), caption_(caption) {}

Form::~Form() {
  if (!visible_) return;
  visible_ = false;
  desk_.openForms().remove(*this);
  desk_.closed(*this);
}

void Form::setCaption(std::string_view caption) {
  caption_ = caption;
  if (view_) view_->formChanged();
}

// Controls

void Form::add(Control& control) {
  if (!byName_.emplace(base::lCase(control.name()), &control).second)
    throw base::Error(base::errors::kInvalidCall, name_ + " has two controls named " + control.name() + ".");
  controls_.push_back(&control);
  if (kindRow(control.kind()).placed) tabOrder_.push_back(&control);
  layout_.reset();
  if (view_) view_->layoutChanged();
}

void Form::remove(Control& control) {
  byName_.erase(base::lCase(control.name()));
  std::erase(controls_, &control);
  std::erase(tabOrder_, &control);
  if (focus_ == &control) focus_ = nullptr;
  if (firstFocus_ == &control) firstFocus_ = nullptr;
  layout_.reset();
  if (view_) view_->layoutChanged();
}

Control* Form::findControl(std::string_view name) const {
  const auto found = byName_.find(base::lCase(name));
  return found == byName_.end() ? nullptr : found->second;
}

Control& Form::control(std::string_view name) const {
  if (Control* found = findControl(name)) return *found;
  throw base::Error(base::errors::kInvalidCall, name_ + " has no control named " + std::string(name) + ".");
}

void Form::moveInTabOrder(Control& control, int index) {
  const auto self = std::find(tabOrder_.begin(), tabOrder_.end(), &control);
  if (self == tabOrder_.end()) return;
  tabOrder_.erase(self);
  const int last = static_cast<int>(tabOrder_.size());
  tabOrder_.insert(tabOrder_.begin() + std::clamp(index, 0, last), &control);
}

std::vector<Menu*> Form::menuBar() const {
  std::vector<Menu*> bar;
  for (Control* control : controls_)
    if (control->kind() == Kind::kMenu && !static_cast<Menu*>(control)->parent())
      bar.push_back(static_cast<Menu*>(control));
  return bar;
}

CommandButton* Form::defaultButton() const {
  for (Control* control : controls_)
    if (control->kind() == Kind::kCommandButton && static_cast<CommandButton*>(control)->isDefault())
      return static_cast<CommandButton*>(control);
  return nullptr;
}

CommandButton* Form::cancelButton() const {
  for (Control* control : controls_)
    if (control->kind() == Kind::kCommandButton && static_cast<CommandButton*>(control)->isCancel())
      return static_cast<CommandButton*>(control);
  return nullptr;
}

// Layout

Layout Form::layout() const {
  Layout all;
  for (const Control* control : controls_)
    if (kindRow(control->kind()).placed) all.children.emplace_back(*control);
  return all;
}

const Layout& Form::currentLayout() const {
  if (!layout_) {
    layout_ = layout();
    places_.clear();
    for (auto& [control, place] : places(*layout_)) places_.emplace(control, std::move(place));
  }
  return *layout_;
}

const Place& Form::place(const Control& control) const {
  static const Place kNowhere;
  currentLayout();
  const auto found = places_.find(&control);
  return found == places_.end() ? kNowhere : found->second;
}

void Form::relayout() {
  layout_.reset();
  if (view_) view_->layoutChanged();
  dispatch([] {});
}

// Life

void Form::dispatch(const std::function<void()>& work) {
  const auto keep = weak_from_this().lock();
  const Depth running(depth_);
  work();
  if (depth_ == 1) settleFocus();
}

void Form::load() {
  if (loaded_) return;
  loaded_ = true;
  try {
    raise(onLoad);
  } catch (...) {
    loaded_ = false;
    throw;
  }
}

void Form::show() {
  if (visible_)
    activate();
  else
    open(false);
}

void Form::showModal() {
  if (visible_)
    throw base::Error(errors::kFormAlreadyShown, name_ + " is already displayed; it can't be shown modally.");
  open(true);
}

void Form::open(bool modal) {
  const auto keep = weak_from_this().lock();
  load();
  if (!loaded_ || visible_) return;  // unloaded or shown by its own Load handler
  visible_ = true;
  modal_ = modal;
  announced_ = false;
  desk_.openForms().add(*this, modal);
  if (!modal) {
    desk_.show(*this);
    shown();
    return;
  }
  try {
    desk_.showModal(*this);
  } catch (...) {
    if (visible_) takeDown();
    throw;
  }
  if (visible_) hide();
}

void Form::shown() {
  if (!visible_ || announced_) return;
  announced_ = true;
  const auto keep = weak_from_this().lock();
  raise(onResize);
  activate();
  if (!visible_ || focus_) return;
  Control* first = std::exchange(firstFocus_, nullptr);
  if (!first || !first->canFocus()) first = nextInTabOrder(nullptr);
  if (first) moveFocus(*first, FocusCause::kCode);
}

void Form::activate() {
  OpenForms& open = desk_.openForms();
  if (!visible_ || open.blocker(*this)) return;
  const auto keep = weak_from_this().lock();
  open.raise(*this);
  if (view_) view_->raised();
  if (open.active_ == this) return;
  Form* before = std::exchange(open.active_, this);
  if (before) before->raise(before->onDeactivate);
  raise(onActivate);
}

void Form::takeDown() {
  visible_ = false;
  modal_ = false;
  focus_ = nullptr;
  desk_.openForms().remove(*this);
  desk_.closed(*this);
}

void Form::hide() {
  if (!visible_) return;
  const auto keep = weak_from_this().lock();
  Control* const last = focus_;
  takeDown();
  firstFocus_ = last;
  if (Form* next = desk_.openForms().top()) next->activate();
}

bool Form::unload(UnloadMode mode) {
  if (unloading_) return true;
  const auto keep = weak_from_this().lock();
  if (loaded_) {
    bool refused = false;
    unloading_ = true;
    try {
      raise(onQueryUnload, refused, mode);
      if (!refused || mode == UnloadMode::kEnd) {
        refused = false;
        raise(onUnload, refused);
      }
    } catch (...) {
      unloading_ = false;
      throw;
    }
    unloading_ = false;
    if (refused && mode != UnloadMode::kEnd) return false;
    loaded_ = false;
    firstFocus_ = nullptr;
  }
  const bool wasVisible = visible_;
  if (wasVisible) takeDown();
  OpenForms& open = desk_.openForms();
  if (const Handler release = std::exchange(release_, nullptr)) release();
  if (Form* next = wasVisible ? open.top() : nullptr) next->activate();
  return true;
}

// Focus

Control* Form::nextInTabOrder(const Control* from, bool forward) const {
  const auto size = static_cast<int>(tabOrder_.size());
  const int start = from ? from->tabIndex() : (forward ? -1 : size);
  for (int step = 1; step <= size; ++step) {
    const int index = ((forward ? start + step : start - step) % size + size) % size;
    Control* candidate = tabOrder_[static_cast<std::size_t>(index)];
    if (candidate->tabStop() && candidate->canFocus()) return candidate;
  }
  return nullptr;
}

bool Form::moveFocus(Control& target, FocusCause cause) {
  if (focus_ == &target) return true;
  const auto keep = weak_from_this().lock();
  if (focus_ && target.causesValidation()) {
    Control* const asked = focus_;
    bool refused = false;
    asked->raise(asked->onValidate, refused);
    if (refused || focus_ != asked || !visible_) return focus_ == &target;
  }
  // Nobody has the focus during LostFocus: a handler that gives it to a third control is not overruled.
  if (Control* old = std::exchange(focus_, nullptr)) old->raise(old->onLostFocus);
  if (focus_ || !visible_) return focus_ == &target;
  if (!target.canFocus()) {
    focus_ = nextInTabOrder(&target);
    if (view_) view_->focusMoved();
    if (focus_) focus_->raise(focus_->onGotFocus);
    return false;
  }
  focus_ = &target;
  focusCause_ = cause;
  if (view_) view_->focusMoved();
  target.raise(target.onGotFocus);
  return focus_ == &target;
}

void Form::settleFocus() {
  if (!visible_ || !focus_ || focus_->canFocus()) return;
  Control* const old = std::exchange(focus_, nullptr);
  old->raise(old->onLostFocus);
  if (focus_ || !visible_) return;
  focus_ = nextInTabOrder(old);
  focusCause_ = FocusCause::kCode;
  if (view_) view_->focusMoved();
  if (focus_) focus_->raise(focus_->onGotFocus);
}

// Window

void Form::setPlacement(const Placement& placement) {
  Placement next = placement;
  next.width = std::max(next.width, minimumWidth_);
  next.height = std::max(next.height, minimumHeight_);
  const bool resized = !placement_ || placement_->width != next.width || placement_->height != next.height;
  if (placement_ == next) return;
  placement_ = next;
  if (view_) view_->formChanged();
  if (resized && visible_) raise(onResize);
}

void Form::setWindowState(WindowState state) {
  if (windowState_ == state) return;
  windowState_ = state;
  if (view_) view_->formChanged();
  if (visible_) raise(onResize);
}

void Form::setMinimumSize(int width, int height) {
  minimumWidth_ = width;
  minimumHeight_ = height;
  if (placement_) setPlacement(*placement_);
  if (view_) view_->formChanged();
}

void Form::setFixedSize(bool fixed) {
  fixedSize_ = fixed;
  if (view_) view_->formChanged();
}

void Form::setTopMost(bool topMost) {
  topMost_ = topMost;
  if (view_) view_->formChanged();
}

void Form::setIcon(std::string_view key) {
  icon_ = key;
  if (view_) view_->formChanged();
}

void Form::showHelp() {
  if (const std::string topic = helpTopic(); !topic.empty()) desk_.showHelp(topic);
}

void Form::advance(int milliseconds) {
  dispatch([&] {
    const auto controls = controls_;
    for (Control* control : controls) {
      if (!loaded_) return;
      if (control->kind() == Kind::kTimer) static_cast<Timer*>(control)->advance(milliseconds);
    }
  });
}

void Form::runEntry(const std::string& procedure, const std::function<void()>& work) {
  showErrors(desk_, name_, procedure, work);
}

}  // namespace kolvane::forms
