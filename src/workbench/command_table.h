// The workbench's own commands: their places in menus and toolbars, keys, and what they do. Menus, toolbars,
// keys and tests loop over this table.
#pragma once

#include <QStyle>
#include <span>

namespace kolvane::workbench {

class MainWindow;

struct Command {
  const char* menu;     // the host's name of the menu, "" for a key alone
  const char* caption;  // "&" marks the access key; "{}" stands for the current component's name
  const char* key;      // as Qt writes it; "" without one
  void (*run)(MainWindow& window);
  // Why it cannot be used now, for people; nullptr when it can. No function: always.
  const char* (*whyNot)(MainWindow& window);
  bool group = false;            // a line in front
  const char* contextMenu = "";  // a popup bar of the host that shows it too
  int icon = -1;                 // QStyle::StandardPixmap; with one it stands on the standard toolbar
  bool (*checked)(MainWindow& window) = nullptr;  // with one it is a setting that can be ticked
  const char* tip = "";                           // what it is about, where the caption does not say enough
};

std::span<const Command> commands();

}  // namespace kolvane::workbench
