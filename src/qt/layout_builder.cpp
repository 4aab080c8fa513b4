#include "qt/layout_builder.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QTabWidget>
#include <algorithm>

#include "forms/access_keys.h"
#include "forms/form.h"
#include "qt/control_view.h"

namespace kolvane::qt {

namespace {

using forms::Layout;
using Type = Layout::Type;

constexpr int kWrapFrom = 64;  // characters

bool isLabelledRow(const Layout& item) {
  return item.type == Type::kRow && item.children.size() > 1 && forms::labelledBy(item, 0);
}

// A row without a label that goes on with the controls of the row above: they stand below those.
bool continues(const Layout& item, const Layout* above) {
  return above && item.type == Type::kRow && (isLabelledRow(*above) || above->type == Type::kRow) &&
         !item.children.empty() && item.children.front().type == Type::kControl &&
         item.children.size() + (isLabelledRow(*above) ? 1 : 0) == above->children.size();
}

// Styles may leave it to the pair of widgets; forms have one distance everywhere.
int spacing(const QWidget& widget, QStyle::PixelMetric metric) {
  constexpr int kUsual = 7;
  const int wanted = widget.style()->pixelMetric(metric);
  return wanted > 0 ? wanted : kUsual;
}

bool isEmptyText(const Layout& item) { return item.type == Type::kText && item.text.empty(); }

bool isStatusBar(const Layout& item) {
  return item.type == Type::kControl && item.control->kind() == forms::Kind::kStatusBar;
}

}  // namespace

ControlView& LayoutBuilder::view(const forms::Control& control) const { return *views_.at(&control); }

void LayoutBuilder::makeViews(const Layout& item) {
  if (item.type == Type::kUnplaced) return;
  if (item.control && !views_.contains(item.control)) {
    // The layout only names the control; it is the form's own, which is not constant.
    ControlView* const made = makeView(window_, const_cast<forms::Control&>(*item.control));
    made->widget()->setParent(&body_);  // without one it would be a window
    views_[item.control] = made;
  }
  for (const Layout& child : item.children) makeViews(child);
}

void LayoutBuilder::build(const Layout& layout) {
  makeViews(layout);
  auto* const outer = new QVBoxLayout(&body_);
  outer->setContentsMargins({});
  outer->setSpacing(0);
  auto* const inner = new QGridLayout;
  std::vector<Layout> items = layout.type == Type::kColumn ? layout.children : std::vector{layout};
  QWidget* bar = nullptr;  // a status bar lies along the window's edge
  const auto last = std::find_if(items.rbegin(), items.rend(),
                                 [](const Layout& item) { return item.type != Type::kUnplaced; });
  if (last != items.rend() && isStatusBar(*last)) {
    bar = view(*last->control).widget();
    items.erase(std::next(last).base());
  }
  const auto margin = [this](QStyle::PixelMetric metric) { return body_.style()->pixelMetric(metric); };
  inner->setContentsMargins(margin(QStyle::PM_LayoutLeftMargin), margin(QStyle::PM_LayoutTopMargin),
                            margin(QStyle::PM_LayoutRightMargin), margin(QStyle::PM_LayoutBottomMargin));
  // Layouts within it take over its spacing, not that of the outer one.
  inner->setHorizontalSpacing(spacing(body_, QStyle::PM_LayoutHorizontalSpacing));
  inner->setVerticalSpacing(spacing(body_, QStyle::PM_LayoutVerticalSpacing));
  fillColumn(*inner, items);
  outer->addLayout(inner, 1);
  if (bar) outer->addWidget(bar);
}

// What grows

bool LayoutBuilder::growsDown(const Layout& item) const {
  switch (item.type) {
    case Type::kControl:
      return view(*item.control).growsDown();
    case Type::kStretch:
      return true;
    case Type::kText:
    case Type::kSpace:
    case Type::kButtons:
    case Type::kUnplaced:
      return false;
    case Type::kRow:
      return std::any_of(item.children.begin(), item.children.end(), [this](const Layout& child) {
        return child.type != Type::kStretch && growsDown(child);
      });
    default:
      return std::any_of(item.children.begin(), item.children.end(),
                         [this](const Layout& child) { return growsDown(child); });
  }
}

int LayoutBuilder::downWeight(const Layout& item) const {
  if (!growsDown(item)) return 0;
  if (item.weight > 0) return item.weight;
  if (item.type == Type::kStretch) return 1;
  int weight = 0;
  for (const Layout& child : item.children)
    if (item.type != Type::kRow || child.type != Type::kStretch) weight = std::max(weight, downWeight(child));
  return weight;
}

// Pieces

QWidget* LayoutBuilder::label(const std::vector<Layout>& list, std::size_t index) {
  const std::string& caption = list[index].text;
  auto* const label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(caption.size() > kWrapFrom);
  const Layout around(Type::kColumn, {list[index], index + 1 < list.size() ? list[index + 1] : Layout()});
  const forms::Control* const labelled = forms::labelledBy(around, 0);
  if (labelled) view(*labelled).setLabel(label);
  // Without a control to lead to, "&" would be shown as it stands.
  label->setText(window_.text(labelled ? caption : forms::plainCaption(caption)));
  return label;
}

QLayout* LayoutBuilder::buttons(const Layout& item, Direction direction) {
  auto* const box =
      new QBoxLayout(direction == Direction::kAcross ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  if (direction == Direction::kAcross) box->addStretch(1);
  int widest = 0;
  for (const Layout& child : item.children)
    if (child.type == Type::kControl && child.control->kind() == forms::Kind::kCommandButton) {
      QWidget* const button = view(*child.control).widget();
      view(*child.control).refresh(Changes::all());
      widest = std::max(widest, button->sizeHint().width());
    }
  for (std::size_t i = 0; i < item.children.size(); ++i) {
    const Layout& child = item.children[i];
    addPiece(*box, item.children, i);
    if (child.type == Type::kControl && child.control->kind() == forms::Kind::kCommandButton)
      view(*child.control).widget()->setMinimumWidth(widest);
  }
  if (direction == Direction::kDown) box->addStretch(1);
  return box;
}

QWidget* LayoutBuilder::group(const Layout& item) {
  QWidget* const frame = view(*item.control).widget();
  fillColumn(*new QGridLayout(frame), item.children);
  return frame;
}

QWidget* LayoutBuilder::tabs(const Layout& item) {
  auto* const pages = static_cast<QTabWidget*>(view(*item.control).widget());
  for (const Layout& child : item.children) {
    auto* const page = new QWidget;
    fillColumn(*new QGridLayout(page), child.children);
    pages->addTab(page, QString());
  }
  return pages;
}

QWidget* LayoutBuilder::stack(const Layout& item) {
  auto* const pile = new QWidget;
  auto* const layers = new QGridLayout(pile);
  layers->setContentsMargins({});
  for (std::size_t i = 0; i < item.children.size(); ++i) place(*layers, {}, item.children, i);
  return pile;
}

QLayout* LayoutBuilder::grid(const Layout& item) {
  auto* const cells = new QGridLayout;
  const int columns = std::max(1, item.number);
  for (std::size_t i = 0; i < item.children.size(); ++i) {
    const int at = static_cast<int>(i);
    place(*cells, {at / columns, at % columns, 1}, item.children, i);
    const Layout& child = item.children[i];
    cells->setRowStretch(at / columns, std::max(cells->rowStretch(at / columns), downWeight(child)));
    if (child.weight > 0)
      cells->setColumnStretch(at % columns, std::max(cells->columnStretch(at % columns), child.weight));
  }
  return cells;
}

LayoutBuilder::Piece LayoutBuilder::piece(const std::vector<Layout>& list, std::size_t index,
                                          Direction around) {
  const Layout& item = list[index];
  switch (item.type) {
    case Type::kControl:
      return {view(*item.control).widget(), nullptr};
    case Type::kText:
      return {label(list, index), nullptr};
    case Type::kGroup:
      return {group(item), nullptr};
    case Type::kTabs:
      return {tabs(item), nullptr};
    case Type::kStack:
      return {stack(item), nullptr};
    case Type::kGrid:
      return {nullptr, grid(item)};
    case Type::kButtons:
      return {nullptr, buttons(item, around == Direction::kAcross ? Direction::kDown : Direction::kAcross)};
    case Type::kRow: {
      auto* const box = new QHBoxLayout;
      fillRow(*box, item.children);
      return {nullptr, box};
    }
    default: {
      auto* const box = new QGridLayout;
      fillColumn(*box, item.children);
      return {nullptr, box};
    }
  }
}

void LayoutBuilder::place(QGridLayout& into, const Cell& cell, const std::vector<Layout>& list,
                          std::size_t index) {
  const Layout& item = list[index];
  if (item.type == Type::kUnplaced || isEmptyText(item)) return;
  if (item.type == Type::kSpace) return into.setRowMinimumHeight(cell.row, item.number / kTwipsAPixel);
  if (item.type == Type::kStretch) return;
  const Piece made = piece(list, index, Direction::kDown);
  if (made.widget)
    into.addWidget(made.widget, cell.row, cell.column, 1, cell.span);
  else
    into.addLayout(made.layout, cell.row, cell.column, 1, cell.span);
}

void LayoutBuilder::addPiece(QBoxLayout& into, const std::vector<Layout>& list, std::size_t index) {
  const Layout& item = list[index];
  if (item.type == Type::kUnplaced || isEmptyText(item)) return;
  if (item.type == Type::kSpace) return into.addSpacing(item.number / kTwipsAPixel);
  if (item.type == Type::kStretch) return into.addStretch(std::max(1, item.weight));
  const bool across = into.direction() == QBoxLayout::LeftToRight;
  const Piece made = piece(list, index, across ? Direction::kAcross : Direction::kDown);
  const int weight = across ? item.weight : downWeight(item);
  if (made.widget)
    into.addWidget(made.widget, weight);
  else
    into.addLayout(made.layout, weight);
}

void LayoutBuilder::fillRow(QBoxLayout& into, const std::vector<Layout>& items, std::size_t first) {
  bool fills = false;
  for (std::size_t i = first; i < items.size(); ++i) {
    addPiece(into, items, i);
    fills |= items[i].weight > 0 || items[i].type == Type::kStretch;
  }
  for (int i = 0; i < into.count(); ++i)
    fills |= into.itemAt(i)->expandingDirections().testFlag(Qt::Horizontal);
  if (!fills) into.addStretch(1);
}

void LayoutBuilder::fillColumn(QGridLayout& into, const std::vector<Layout>& items) {
  into.setColumnStretch(1, 1);
  bool fills = false;
  int row = 0;
  const Layout* above = nullptr;
  bool indented = false;
  for (std::size_t i = 0; i < items.size(); ++i) {
    const Layout& item = items[i];
    if (item.type == Type::kUnplaced) continue;
    indented = isLabelledRow(item) || (indented && continues(item, above));
    above = &item;
    if (!isLabelledRow(item) && indented) {
      place(into, {row, 1, 1}, items, i);
    } else if (isLabelledRow(item)) {
      place(into, {row, 0, 1}, item.children, 0);
      const bool high = growsDown(item);
      if (QLayoutItem* const front = into.itemAtPosition(row, 0))
        front->setAlignment(high ? Qt::AlignTop | Qt::AlignLeft : Qt::AlignVCenter | Qt::AlignLeft);
      if (item.children.size() == 2) {
        place(into, {row, 1, 1}, item.children, 1);
      } else {
        auto* const rest = new QHBoxLayout;
        fillRow(*rest, item.children, 1);
        into.addLayout(rest, row, 1);
      }
    } else {
      place(into, {row, 0, 2}, items, i);
    }
    into.setRowStretch(row, downWeight(item));
    fills |= growsDown(item);
    ++row;
  }
  if (!fills) into.setRowStretch(row, 1);
}

}  // namespace kolvane::qt
