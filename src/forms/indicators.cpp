#include "forms/indicators.h"

#include <algorithm>

#include "base/error.h"
#include "forms/errors.h"
#include "forms/form.h"
#include "forms/snapshot.h"

namespace kolvane::forms {

// ProgressBar

ProgressBar::ProgressBar(Form& form, std::string_view name) : Control(form, Kind::kProgressBar, name) {}

void ProgressBar::setRange(double min, double max) {
  if (!(min < max))
    throw base::Error(errors::kInvalidPropertyValue, name() + " needs a maximum above its minimum.");
  min_ = min;
  max_ = max;
  setValue(value_);
}

void ProgressBar::setValue(double value) {
  value_ = std::clamp(value, min_, max_);
  touched(Aspect::kContent);
}

void ProgressBar::describe(ControlState& state) const {
  state.min = min_;
  state.max = max_;
  state.value = value_;
}

// StatusBar

StatusBar::StatusBar(Form& form, std::string_view name) : Control(form, Kind::kStatusBar, name) {}

std::size_t StatusBar::find(int panel) const {
  if (panel < 1 || panel > static_cast<int>(panels_.size()))
    throw base::Error(errors::kElementNotFound, name() + " has no panel " + std::to_string(panel) + ".");
  return static_cast<std::size_t>(panel - 1);
}

std::size_t StatusBar::find(std::string_view key) const {
  for (std::size_t i = 0; i < panels_.size(); ++i)
    if (panels_[i].key == key) return i;
  throw base::Error(errors::kElementNotFound,
                    name() + " has no panel with the key \"" + std::string(key) + "\".");
}

void StatusBar::addPanel(std::string_view key, std::string_view text) {
  panels_.push_back({std::string(key), std::string(text)});
  touched(Aspect::kContent);
}

void StatusBar::setKey(int panel, std::string_view key) { panels_[find(panel)].key = key; }

const std::string& StatusBar::text(int panel) const { return panels_[find(panel)].text; }

const std::string& StatusBar::text(std::string_view key) const { return panels_[find(key)].text; }

void StatusBar::setText(int panel, std::string_view text) {
  panels_[find(panel)].text = text;
  touched(Aspect::kContent);
}

void StatusBar::setText(std::string_view key, std::string_view text) {
  panels_[find(key)].text = text;
  touched(Aspect::kContent);
}

void StatusBar::describe(ControlState& state) const {
  state.panels.emplace();
  for (const Panel& panel : panels_) state.panels->push_back({panel.key, panel.text});
}

// Timer

Timer::Timer(Form& form, std::string_view name, int interval)
    : Control(form, Kind::kTimer, name), interval_(std::max(interval, 0)) {}

void Timer::setInterval(int milliseconds) {
  interval_ = std::max(milliseconds, 0);
  elapsed_ = 0;
}

void Timer::tick() {
  if (enabled() && form().loaded()) raise(onTimer);
}

void Timer::advance(int milliseconds) {
  if (interval_ == 0 || !enabled()) {
    elapsed_ = 0;
    return;
  }
  elapsed_ += milliseconds;
  if (elapsed_ < interval_) return;
  elapsed_ %= interval_;
  tick();
}

void Timer::describe(ControlState& state) const { state.value = interval_; }

}  // namespace kolvane::forms
