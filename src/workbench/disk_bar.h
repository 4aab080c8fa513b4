// The bar above the documents that says which files another program has changed. It takes no key and no focus while the
// user types, and what it offers happens at a click on the button that says so.
#pragma once

#include <QFrame>
#include <QVBoxLayout>
#include <functional>
#include <memory>
#include <vector>

#include "workbench/file_work.h"

namespace kolvane::workbench {

class DiskBar final : public QFrame {
 public:
  // Both must outlive it.
  DiskBar(Session& session, FileWork& files, QWidget* parent = nullptr);

  // To what the files are now: one row for those without changes here, one for each of the others.
  void sync();

  // Runs work as one command of the user.
  std::function<void(const std::function<void()>& work)> runCommand;
  // The user's keys were in a row that has gone.
  std::function<void()> onLeft;

 private:
  using Components = std::vector<std::shared_ptr<workspace::Component>>;
  struct Row {
    Components components;
    bool isEdited = false;
    bool wasRefused = false;
    bool operator==(const Row&) const = default;
  };
  std::vector<Row> rowsNow();
  QWidget* widgetFor(const Row& row);
  QString textOf(const Row& row) const;
  QString namesOf(const Components& components) const;

  Session& session_;
  FileWork& files_;
  QVBoxLayout* column_;
  std::vector<Row> rows_;
};

}  // namespace kolvane::workbench
