// The toolbox: the language's own controls, to be drawn on a form.
#pragma once

#include <QListWidget>
#include <functional>
#include <string>

namespace kolvane::workbench {

class Toolbox final : public QListWidget {
 public:
  explicit Toolbox(QWidget* parent = nullptr);

  // Back to the pointer.
  void release();

  // The ProgId, empty for the pointer.
  std::function<void(const std::string& progId)> onChosen;
  // A double click: a control of its own size in the middle of the form.
  std::function<void(const std::string& progId)> onAdd;
};

}  // namespace kolvane::workbench
