// Controls that are clicked: CommandButton, CheckBox, OptionButton, Picture.
#pragma once

#include <string>
#include <string_view>

#include "forms/control.h"

namespace kolvane::forms {

class CommandButton final : public Control {
 public:
  CommandButton(Form& form, std::string_view name, std::string_view caption = {});

  // Enter clicks the default button from anywhere on the form, Esc the cancel button. At most one of each a
  // form: the newest takes it from the other.
  bool isDefault() const { return isDefault_; }
  void setDefault(bool isDefault);
  bool isCancel() const { return isCancel_; }
  void setCancel(bool isCancel);
  const std::string& picture() const { return picture_; }  // key of a picture, empty for none
  void setPicture(std::string_view key);
  // Raises Click, as the user's click does, whether or not the button is enabled.
  void click() { raise(onClick); }

 protected:
  void describe(ControlState& state) const override;

 private:
  std::string picture_;
  bool isDefault_ = false;
  bool isCancel_ = false;
};

enum class Check : int { kUnchecked = 0, kChecked = 1, kGrayed = 2 };

class CheckBox final : public Control {
 public:
  CheckBox(Form& form, std::string_view name, std::string_view caption = {});

  Check value() const { return value_; }
  bool checked() const { return value_ == Check::kChecked; }
  void setValue(Check value);
  void setChecked(bool checked) { setValue(checked ? Check::kChecked : Check::kUnchecked); }

 protected:
  void describe(ControlState& state) const override;
  Deed takeValue(double value) override;  // any number but 0 ticks it
  Deed takeClick(const Spot& spot) override;
  bool takeKey(int key, int shift) override;

 private:
  void toggle();

  Check value_ = Check::kUnchecked;
};

// One of a group can be chosen: the option buttons that the layout puts into the same frame or tab page, or
// onto the form itself.
class OptionButton final : public Control {
 public:
  OptionButton(Form& form, std::string_view name, std::string_view caption = {});

  bool value() const { return value_; }
  // Choosing one clears the others of its group, which raises no event for them.
  void setValue(bool value);

 protected:
  void describe(ControlState& state) const override;
  Deed takeValue(double value) override;  // 0 is refused: another one is chosen instead
  Deed takeClick(const Spot& spot) override;
  bool takeKey(int key, int shift) override;  // arrows go to and choose the next one of the group

 private:
  OptionButton* neighbour(bool forward) const;

  bool value_ = false;
};

// A picture known by its key, or drawn: the bytes of an image file.
class Picture final : public Control {
 public:
  Picture(Form& form, std::string_view name, std::string_view key = {});

  const std::string& picture() const { return key_; }
  void setPicture(std::string_view key);
  const std::string& image() const { return image_; }
  void setImage(std::string bytes);

 protected:
  void describe(ControlState& state) const override;
  Deed takeDoubleClick(const Spot& spot) override;

 private:
  std::string key_;
  std::string image_;
};

}  // namespace kolvane::forms
