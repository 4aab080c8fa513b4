// Controls that show or tick by themselves: ProgressBar, StatusBar, Timer.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/control.h"

namespace kolvane::forms {

// A value beyond its range is brought into it: progress that is counted wrongly never stops the work.
class ProgressBar final : public Control {
 public:
  ProgressBar(Form& form, std::string_view name);

  double min() const { return min_; }
  double max() const { return max_; }
  void setRange(double min, double max);  // a maximum not above the minimum raises 380
  void setMax(double max) { setRange(min_, max); }
  double value() const { return value_; }
  void setValue(double value);
  void advance(double by = 1) { setValue(value_ + by); }

 protected:
  void describe(ControlState& state) const override;

 private:
  double min_ = 0;
  double max_ = 100;
  double value_ = 0;
};

// Panels count from 1; there is always at least one. A number or key that isn't there raises 35601.
class StatusBar final : public Control {
 public:
  struct Panel {
    std::string key;
    std::string text;
  };

  StatusBar(Form& form, std::string_view name);

  const std::vector<Panel>& panels() const { return panels_; }
  void addPanel(std::string_view key = {}, std::string_view text = {});
  void setKey(int panel, std::string_view key);
  const std::string& text(int panel = 1) const;
  const std::string& text(std::string_view key) const;
  void setText(int panel, std::string_view text);
  void setText(std::string_view key, std::string_view text);

 protected:
  void describe(ControlState& state) const override;

 private:
  std::size_t find(int panel) const;
  std::size_t find(std::string_view key) const;

  std::vector<Panel> panels_{{}};
};

// Ticks while its form is loaded, shown or not. Time comes from the desk, through Form::advance().
class Timer final : public Control {
 public:
  Timer(Form& form, std::string_view name, int interval = 0);

  int interval() const { return interval_; }  // milliseconds; 0 never ticks
  void setInterval(int milliseconds);
  // One tick now, if it is enabled and its form loaded.
  void tick();

  Handler onTimer;

 protected:
  void describe(ControlState& state) const override;

 private:
  friend class Form;
  void advance(int milliseconds);

  int interval_;
  long elapsed_ = 0;
};

}  // namespace kolvane::forms
