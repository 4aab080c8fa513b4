// A form as it looks: its controls with places in pixels, and their drawing.
#pragma once

#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QString>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "workspace/component.h"

namespace kolvane::workbench {

inline constexpr double kTwipsPerPixel = 15;

// One control, or the form itself. Places are pixels inside the form's client area.
struct Shape {
  std::shared_ptr<frame::VBControl> control;  // nothing for the form
  std::string className;                      // "TextBox"
  QString name;                               // with the index of a control array
  QRectF place;
  double unitX = kTwipsPerPixel;  // of Left and Width of this control, in its units a pixel
  double unitY = kTwipsPerPixel;
  bool hasSize = true;
  bool isLine = false;
  QPointF from, to;  // of a line
  int parent = -1;   // its container's number, -1 for the form

  // What drawing asks for; absent properties give the second argument.
  QString text(const char* property) const;
  long number(const char* property, long otherwise = 0) const;
  bool flag(const char* property, bool otherwise = false) const { return number(property, otherwise) != 0; }
  QColor colour(const char* property, QColor otherwise) const;
  QFont font() const;

  std::map<std::string, frame::Value> values;
  std::shared_ptr<frame::Properties> properties;
  QImage picture;
  const base::CodePage* codePage = nullptr;
};

// A look at a designer, taken at once; it does not follow changes.
class FormPicture {
 public:
  // A component whose designer cannot be understood gives an empty form.
  FormPicture(workspace::Component& component, const base::CodePage& codePage);

  const Shape& form() const { return form_; }
  QSizeF clientSize() const { return form_.place.size(); }
  // Containers before what they hold.
  const std::vector<Shape>& shapes() const { return shapes_; }
  // Captions of the menu bar.
  const QStringList& menus() const { return menus_; }
  // The control on top at a point, -1 for the form.
  int at(QPointF point) const;
  // Draws the client area, its origin at the painter's.
  void draw(QPainter& painter, bool grid) const;

 private:
  void read(workspace::Component& component);
  void readControls(frame::Collection<frame::VBControl>& controls, int parent, QPointF origin, double unitX,
                    double unitY);
  void readValues(Shape& shape, frame::Properties& properties);
  void resolve(Shape& shape, const char* property);
  void readPicture(Shape& shape);
  std::vector<int> paintOrder(int parent) const;
  void drawInside(QPainter& painter, int parent) const;

  workspace::Component& component_;
  const base::CodePage& codePage_;
  Shape form_;
  std::vector<Shape> shapes_;
  QStringList menus_;
};

// A colour as projects have it: one of the system's, or blue, green and red.
QColor colourOf(long value);

// What stands in a companion file at a reference such as `"frmMain.frx":0442`; empty for a format that is not known.
QImage pictureAt(workspace::Component& component, const std::string& reference);
std::string textAt(workspace::Component& component, const std::string& reference);
std::vector<std::string> listAt(workspace::Component& component, const std::string& reference);

}  // namespace kolvane::workbench
