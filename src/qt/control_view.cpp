#include "qt/control_view.h"

#include <QFont>

#include "forms/access_keys.h"
#include "forms/form.h"

namespace kolvane::qt {

void Changes::add(forms::Aspect aspect) {
  switch (aspect) {
    case forms::Aspect::kState:
      state = content = selection = true;  // a setting may change what else is shown
      return;
    case forms::Aspect::kContent:
      content = selection = true;
      return;
    case forms::Aspect::kSelection:
      selection = true;
      return;
  }
}

bool isFormKey(int key, int shift) {
  namespace keys = forms::keys;
  if ((shift & keys::kAlt) != 0 || key == keys::kEscape) return true;
  if (key == keys::kTab) return (shift & keys::kCtrl) == 0;
  return key >= keys::kF1 && key <= keys::kF12;
}

void applyFont(QWidget& widget, const forms::Control& control) {
  const QString family = QString::fromStdString(control.font());
  if (family.isEmpty() || widget.font().family() == family) return;
  QFont font = widget.font();
  font.setFamily(family);
  widget.setFont(font);
}

ControlView::ControlView(FormWindow& window, forms::Control& control, QWidget* widget)
    : QObject(widget), window_(window), control_(control), widget_(widget) {
  widget->setObjectName(QString::fromStdString(control.name()));
}

void ControlView::setLabel(QLabel* label) {
  label_ = label;
  label->setBuddy(focusWidget());
}

void ControlView::refresh(Changes changes) {
  refreshing_ = true;
  if (changes.state) {
    showCommonState();
    showState();
  }
  if (changes.content) showContent();
  if (changes.selection) showSelection();
  refreshing_ = false;
}

QString ControlView::accessibleName() const {
  const std::string& own = control_.caption();
  const std::string& label = control_.form().place(control_).label;
  std::string name = forms::plainCaption(own.empty() ? label : own);
  if (name.empty()) name = control_.tooltip();
  while (!name.empty() && (name.back() == ':' || name.back() == ' ')) name.pop_back();
  return text(name);
}

void ControlView::showCommonState() {
  widget_->setEnabled(control_.enabled());
  widget_->setVisible(control_.visible());
  widget_->setToolTip(text(control_.tooltip()));
  focusWidget()->setAccessibleName(accessibleName());
  focusWidget()->setAccessibleDescription(text(control_.tooltip()));
  applyFont(*focusWidget(), control_);
  if (!label_) return;
  label_->setVisible(control_.visible());
  label_->setEnabled(control_.enabled());
}

}  // namespace kolvane::qt
