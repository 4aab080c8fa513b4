// Frame, Tabs, ProgressBar, StatusBar.
#include <QGroupBox>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QTabBar>
#include <QTabWidget>
#include <cmath>

#include "forms/containers.h"
#include "forms/indicators.h"
#include "forms/user.h"
#include "qt/view_factories.h"

namespace kolvane::qt {

namespace {

class FrameView final : public ControlView {
 public:
  FrameView(FormWindow& window, forms::Control& control) : ControlView(window, control, new QGroupBox) {}

 protected:
  void showState() override { static_cast<QGroupBox*>(widget())->setTitle(text(control().caption())); }
};

class TabsView final : public ControlView {
 public:
  TabsView(FormWindow& window, forms::Control& control)
      : ControlView(window, control, new QTabWidget),
        tabs_(static_cast<forms::Tabs&>(control)),
        pages_(static_cast<QTabWidget*>(widget())) {
    connect(pages_, &QTabWidget::currentChanged, this, [this](int page) {
      if (refreshing() || !this->window().alive() || page == tabs_.tab()) return;
      act([&] { forms::user::showTab(tabs_, page); });
    });
  }

  QWidget* focusWidget() const override { return pages_->tabBar(); }
  bool growsDown() const override { return false; }  // its pages tell

 protected:
  void showState() override {
    for (int page = 0; page < std::min(pages_->count(), tabs_.pages()); ++page)
      pages_->setTabText(page, text(tabs_.pageCaption(page)));
  }
  void showSelection() override { pages_->setCurrentIndex(tabs_.tab()); }

 private:
  forms::Tabs& tabs_;
  QTabWidget* pages_;
};

class ProgressBarView final : public ControlView {
 public:
  ProgressBarView(FormWindow& window, forms::Control& control)
      : ControlView(window, control, new QProgressBar), bar_(static_cast<QProgressBar*>(widget())) {
    constexpr int kLeastWidth = 240;
    bar_->setRange(0, kSteps);
    bar_->setMinimumWidth(kLeastWidth);
    bar_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  }

 protected:
  void showContent() override {
    const auto& bar = static_cast<const forms::ProgressBar&>(control());
    bar_->setValue(
        static_cast<int>(std::lround((bar.value() - bar.min()) / (bar.max() - bar.min()) * kSteps)));
  }

 private:
  static constexpr int kSteps = 1000;

  QProgressBar* bar_;
};

// Panels side by side, the first the widest.
class StatusBarView final : public ControlView {
 public:
  StatusBarView(FormWindow& window, forms::Control& control) : ControlView(window, control, new QFrame) {
    constexpr int kMargin = 6;
    auto* const frame = static_cast<QFrame*>(widget());
    row_ = new QHBoxLayout(frame);
    row_->setContentsMargins(kMargin, kMargin / 2, kMargin, kMargin / 2);
    frame->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  }

 protected:
  void showContent() override {
    const auto& panels = static_cast<const forms::StatusBar&>(control()).panels();
    while (labels_.size() < panels.size()) {
      if (!labels_.empty()) {
        auto* const line = new QFrame;
        line->setFrameShape(QFrame::VLine);
        line->setFrameShadow(QFrame::Sunken);
        row_->addWidget(line);
      }
      auto* const label = new QLabel;
      label->setTextFormat(Qt::PlainText);
      label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // a long text never widens the window
      row_->addWidget(label, labels_.empty() ? 3 : 1);
      labels_.push_back(label);
    }
    for (std::size_t i = 0; i < panels.size(); ++i) {
      const QString shown = text(panels[i].text);
      labels_[i]->setText(shown);
      labels_[i]->setToolTip(shown);
      labels_[i]->setAccessibleName(shown);
      labels_[i]->setMinimumHeight(labels_[i]->fontMetrics().height());
    }
  }

 private:
  QHBoxLayout* row_ = nullptr;
  std::vector<QLabel*> labels_;
};

}  // namespace

ControlView* makeFrameView(FormWindow& window, forms::Control& control) {
  return new FrameView(window, control);
}
ControlView* makeTabsView(FormWindow& window, forms::Control& control) {
  return new TabsView(window, control);
}
ControlView* makeProgressBarView(FormWindow& window, forms::Control& control) {
  return new ProgressBarView(window, control);
}
ControlView* makeStatusBarView(FormWindow& window, forms::Control& control) {
  return new StatusBarView(window, control);
}

}  // namespace kolvane::qt
