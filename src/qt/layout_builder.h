// From a form's layout to widgets in layouts of the window system.
#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <QWidget>
#include <map>

#include "forms/layout.h"

namespace kolvane::qt {

class ControlView;
class FormWindow;

// A column is a grid of two columns: the labels of its rows in the first, so that they line up. What carries a
// weight gets what is left over; without any, lists and editors do; without those, it stays empty at the bottom.
// Buttons stand at the lower edge, or at the right one when a row holds them.
class LayoutBuilder {
 public:
  // Makes the views as it goes, in `body`, and enters them into `views`.
  LayoutBuilder(FormWindow& window, QWidget& body, std::map<const forms::Control*, ControlView*>& views)
      : window_(window), body_(body), views_(views) {}

  void build(const forms::Layout& layout);

 private:
  enum class Direction { kDown, kAcross };
  struct Cell {
    int row = 0;
    int column = 0;
    int span = 1;
  };

  void makeViews(const forms::Layout& item);
  ControlView& view(const forms::Control& control) const;

  void fillColumn(QGridLayout& into, const std::vector<forms::Layout>& items);
  void fillRow(QBoxLayout& into, const std::vector<forms::Layout>& items, std::size_t first = 0);
  void place(QGridLayout& into, const Cell& cell, const std::vector<forms::Layout>& list, std::size_t index);
  void addPiece(QBoxLayout& into, const std::vector<forms::Layout>& list, std::size_t index);
  QLayout* grid(const forms::Layout& item);
  QLayout* buttons(const forms::Layout& item, Direction direction);
  QWidget* group(const forms::Layout& item);
  QWidget* tabs(const forms::Layout& item);
  QWidget* stack(const forms::Layout& item);
  QWidget* label(const std::vector<forms::Layout>& list, std::size_t index);
  // The item as a widget or as a layout; exactly one is set.
  struct Piece {
    QWidget* widget = nullptr;
    QLayout* layout = nullptr;
  };
  Piece piece(const std::vector<forms::Layout>& list, std::size_t index, Direction around);

  bool growsDown(const forms::Layout& item) const;
  int downWeight(const forms::Layout& item) const;

  FormWindow& window_;
  QWidget& body_;
  std::map<const forms::Control*, ControlView*>& views_;
};

}  // namespace kolvane::qt
