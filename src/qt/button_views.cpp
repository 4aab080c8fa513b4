// CommandButton, CheckBox, OptionButton, Picture.
#include <QCheckBox>
#include <QMouseEvent>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>

#include "forms/buttons.h"
#include "forms/user.h"
#include "qt/view_factories.h"

namespace kolvane::qt {

namespace {

class CommandButtonView final : public ControlView {
 public:
  CommandButtonView(FormWindow& window, forms::Control& control)
      : ControlView(window, control, new QPushButton), button_(static_cast<QPushButton*>(widget())) {
    button_->setAutoDefault(false);
    button_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(button_, &QPushButton::clicked, this,
            [this] { act([this] { forms::user::click(this->control()); }); });
  }

 protected:
  void showState() override {
    const auto& button = static_cast<const forms::CommandButton&>(control());
    button_->setText(text(button.caption()));
    button_->setIcon(window().icon(button.picture()));
    button_->setDefault(button.isDefault());
  }

 private:
  QPushButton* button_;
};

class CheckBoxView final : public ControlView {
 public:
  CheckBoxView(FormWindow& window, forms::Control& control)
      : ControlView(window, control, new QCheckBox), box_(static_cast<QCheckBox*>(widget())) {
    connect(box_, &QCheckBox::clicked, this,
            [this] { act([this] { forms::user::click(this->control()); }); });
  }

 protected:
  void showState() override { box_->setText(text(control().caption())); }
  void showContent() override {
    const forms::Check value = static_cast<const forms::CheckBox&>(control()).value();
    box_->setTristate(value == forms::Check::kGrayed);
    box_->setCheckState(value == forms::Check::kGrayed    ? Qt::PartiallyChecked
                        : value == forms::Check::kChecked ? Qt::Checked
                                                          : Qt::Unchecked);
  }

 private:
  QCheckBox* box_;
};

class OptionButtonView final : public ControlView {
 public:
  OptionButtonView(FormWindow& window, forms::Control& control)
      : ControlView(window, control, new QRadioButton), button_(static_cast<QRadioButton*>(widget())) {
    button_->setAutoExclusive(false);  // the control clears the others of its group
    connect(button_, &QRadioButton::clicked, this,
            [this] { act([this] { forms::user::click(this->control()); }); });
  }

 protected:
  void showState() override { button_->setText(text(control().caption())); }
  void showContent() override {
    button_->setChecked(static_cast<const forms::OptionButton&>(control()).value());
  }

 private:
  QRadioButton* button_;
};

class ClickableLabel final : public QLabel {
 public:
  std::function<void()> clicked;
  std::function<void()> doubleClicked;

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    const bool second = std::exchange(second_, false);
    if (event->button() == Qt::LeftButton && rect().contains(event->pos()) && !second) clicked();
  }
  void mouseDoubleClickEvent(QMouseEvent*) override {
    second_ = true;
    doubleClicked();
  }

 private:
  bool second_ = false;
};

class PictureView final : public ControlView {
 public:
  PictureView(FormWindow& window, forms::Control& control)
      : ControlView(window, control, new ClickableLabel), label_(static_cast<ClickableLabel*>(widget())) {
    label_->setAlignment(Qt::AlignCenter);
    label_->clicked = [this] { act([this] { forms::user::click(this->control()); }); };
    label_->doubleClicked = [this] { act([this] { forms::user::doubleClick(this->control()); }); };
  }

 protected:
  void showContent() override {
    constexpr int kIconSize = 32;
    constexpr int kLargest = 480;
    const auto& picture = static_cast<const forms::Picture&>(control());
    QPixmap drawn;
    if (picture.image().empty()) {
      drawn =
          window().icon(picture.picture()).pixmap(QSize(kIconSize, kIconSize), label_->devicePixelRatio());
    } else {
      drawn.loadFromData(reinterpret_cast<const uchar*>(picture.image().data()),
                         static_cast<uint>(picture.image().size()));
      if (std::max(drawn.width(), drawn.height()) > kLargest)
        drawn = drawn.scaled(kLargest, kLargest, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    label_->setPixmap(drawn);
  }

 private:
  ClickableLabel* label_;
};

}  // namespace

ControlView* makeCommandButtonView(FormWindow& window, forms::Control& control) {
  return new CommandButtonView(window, control);
}
ControlView* makeCheckBoxView(FormWindow& window, forms::Control& control) {
  return new CheckBoxView(window, control);
}
ControlView* makeOptionButtonView(FormWindow& window, forms::Control& control) {
  return new OptionButtonView(window, control);
}
ControlView* makePictureView(FormWindow& window, forms::Control& control) {
  return new PictureView(window, control);
}

}  // namespace kolvane::qt
