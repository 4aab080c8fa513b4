// The properties window: of the selected controls, or of the component, each with an editor of its kind.
#pragma once

#include <QComboBox>
#include <QTableWidget>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "workbench/session.h"
#include "workspace/class_tables.h"

namespace kolvane::workbench {

class PropertiesWindow final : public QWidget {
 public:
  // The session must outlive it.
  explicit PropertiesWindow(Session& session, QWidget* parent = nullptr);

  // Shows the selected controls of the component's designer when `inDesigner`, else the component itself; nothing
  // for no component. Cheap when nothing has changed.
  void sync(const std::shared_ptr<workspace::Component>& component, bool inDesigner);

  QTableWidget& table() { return *table_; }
  QComboBox& objects() { return *objects_; }
  // What the list shows for a property; nothing when it is not there.
  QString value(const QString& property) const;
  // As a user enters it; "1 - 3D" and "1" are the same.
  void enter(const QString& property, const QString& text);

  std::function<void(const std::function<void()>& work)> runCommand;

 private:
  friend class PropertyDelegate;
  using ControlPtr = std::shared_ptr<frame::VBControl>;
  struct Seen {
    const void* component = nullptr;
    const void* tree = nullptr;
    std::uint64_t edits = 0;
    unsigned code = 0;
    std::vector<const void*> controls;
    std::string name;
    bool operator==(const Seen&) const = default;
  };
  void fill();
  void fillObjects();
  void chooseObject(int index);
  std::vector<std::shared_ptr<frame::Properties>> targets() const;
  const workspace::PropertyInfo* infoOf(const std::string& property) const;
  QString shown(const std::string& property, const frame::Value& value) const;
  void set(const std::string& property, const frame::Value& value);
  void edit(int row);
  void chooseColour(const std::string& property);
  void chooseFont(const std::string& property);
  std::string nameAt(int row) const;

  Session& session_;
  std::shared_ptr<workspace::Component> component_;
  std::vector<ControlPtr> controls_;
  Seen seen_;
  bool filling_ = false;
  QComboBox* objects_;
  QTableWidget* table_;
};

}  // namespace kolvane::workbench
