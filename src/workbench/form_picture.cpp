#include "workbench/form_picture.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/error.h"
#include "base/text.h"
#include "qt/text_convert.h"
#include "workbench/control_drawing.h"
#include "workspace/designer_geometry.h"
#include "workspace/designer_tree.h"
#include "workspace/workspace.h"

namespace kolvane::workbench {
namespace {

constexpr double kGridTwips = 120;
constexpr double kIconSize = 28;  // of controls that have no size of their own
constexpr std::uint32_t kSystemColour = 0x80000000U;

// What the drawing of any class asks for.
constexpr std::array kDrawnProperties = {
    "Alignment",   "Appearance", "AutoSize",   "BackColor", "BackStyle", "BorderColor", "BorderStyle",
    "BorderWidth", "Caption",    "Checked",    "Enabled",   "FillColor", "FillStyle",   "ForeColor",
    "Height",      "Index",      "Left",       "List",      "MultiLine", "Name",        "ScaleHeight",
    "ScaleMode",   "ScaleWidth", "ScrollBars", "Shape",     "Stretch",   "Style",       "Text",
    "Top",         "Value",      "Visible",    "Width",     "WordWrap",  "X1",          "X2",
    "Y1",          "Y2",         "Picture",
};

// Windows' classic colours, by the number of the system's colour.
constexpr std::array<QRgb, 25> kSystemColours = {0xFFC0C0C0, 0xFF008080, 0xFF000080, 0xFF808080, 0xFFC0C0C0,
                                                 0xFFFFFFFF, 0xFF000000, 0xFF000000, 0xFF000000, 0xFFFFFFFF,
                                                 0xFFC0C0C0, 0xFFC0C0C0, 0xFF808080, 0xFF000080, 0xFFFFFFFF,
                                                 0xFFD4D0C8, 0xFF808080, 0xFF808080, 0xFF000000, 0xFFC0C0C0,
                                                 0xFFFFFFFF, 0xFF404040, 0xFFD4D0C8, 0xFF000000, 0xFFFFFFE1};

// Twips of one unit by ScaleMode, across and down.
constexpr std::array<std::pair<double, double>, 8> kScaleUnits = {
    {{0, 0}, {1, 1}, {20, 20}, {15, 15}, {120, 240}, {1440, 1440}, {56.6929, 56.6929}, {566.929, 566.929}}};

double numberOf(const frame::Value& value) {
  if (const auto* whole = std::get_if<long>(&value)) return static_cast<double>(*whole);
  if (const auto* fraction = std::get_if<double>(&value)) return *fraction;
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? -1 : 0;
  return 0;
}

double decimal(const Shape& shape, const char* property) {
  const auto found = shape.values.find(property);
  return found == shape.values.end() ? 0 : numberOf(found->second);
}

bool lies(const Shape& shape) {  // on the form itself, below everything with a window
  static constexpr std::array<std::string_view, 4> kLight = {"Label", "Image", "Shape", "Line"};
  return std::find(kLight.begin(), kLight.end(), shape.className) != kLight.end();
}

}  // namespace

QColor colourOf(long value) {
  const auto bits = static_cast<std::uint32_t>(value);
  if ((bits & kSystemColour) != 0) {
    const std::uint32_t index = bits & 0xFFU;
    return QColor::fromRgb(index < kSystemColours.size() ? kSystemColours[index] : kSystemColours[15]);
  }
  return QColor(static_cast<int>(bits & 0xFFU), static_cast<int>((bits >> 8U) & 0xFFU),
                static_cast<int>((bits >> 16U) & 0xFFU));
}

namespace {

// The bytes of a companion file from a reference such as `"frmMain.frx":0442` on; `owner` keeps them alive. Empty when
// there are none.
std::string_view bytesAt(workspace::Component& component, const std::string& reference,
                         std::shared_ptr<const platform::FileBytes>& owner) {
  const std::size_t first = reference.find('"');
  const std::size_t quote = reference.rfind('"');
  const std::size_t colon = reference.rfind(':');
  if (first == quote || colon == std::string::npos || colon < quote) return {};
  const std::size_t offset = std::strtoul(reference.c_str() + colon + 1, nullptr, 16);
  const std::string name = reference.substr(first + 1, quote - first - 1);
  try {
    for (const auto& companion : component.companions()) {
      if (!base::equalNoCase(companion.name, name)) continue;
      owner = component.workspace()->files().read(companion.path).content;
      return offset < owner->bytes().size() ? owner->bytes().substr(offset) : std::string_view();
    }
  } catch (const base::Error&) {
    // A companion that cannot be read leaves out what it holds.
  }
  return {};
}

// A number of `count` bytes, the low one first; 0 behind the end.
std::size_t numberAt(std::string_view bytes, std::size_t at, int count) {
  std::size_t number = 0;
  for (int i = count; i-- > 0;) {
    const std::size_t place = at + static_cast<std::size_t>(i);
    number = number << 8U | (place < bytes.size() ? static_cast<unsigned char>(bytes[place]) : 0U);
  }
  return number;
}

}  // namespace

// Length of all that follows, "lt" and two zeros, length of the picture, the picture.
QImage pictureAt(workspace::Component& component, const std::string& reference) {
  constexpr std::size_t kHead = 12;
  std::shared_ptr<const platform::FileBytes> owner;
  const std::string_view bytes = bytesAt(component, reference, owner);
  if (bytes.size() <= kHead || bytes.substr(4, 2) != "lt") return {};
  const std::string_view data = bytes.substr(kHead, numberAt(bytes, 8, 4));
  return QImage::fromData(reinterpret_cast<const uchar*>(data.data()), static_cast<int>(data.size()));
}

// A length of one byte, or 255 and one of two bytes; then the text.
std::string textAt(workspace::Component& component, const std::string& reference) {
  constexpr std::size_t kLong = 0xFF;
  std::shared_ptr<const platform::FileBytes> owner;
  const std::string_view bytes = bytesAt(component, reference, owner);
  const std::size_t length = numberAt(bytes, 0, 1);
  if (length == kLong)
    return std::string(bytes.substr(std::min<std::size_t>(3, bytes.size()), numberAt(bytes, 1, 2)));
  return std::string(bytes.substr(std::min<std::size_t>(1, bytes.size()), length));
}

// The count of the entries and the longest length; each entry a length and its text. All lengths have two bytes.
std::vector<std::string> listAt(workspace::Component& component, const std::string& reference) {
  constexpr std::size_t kWord = 2;
  std::shared_ptr<const platform::FileBytes> owner;
  const std::string_view bytes = bytesAt(component, reference, owner);
  std::vector<std::string> entries;
  std::size_t at = 2 * kWord;
  for (std::size_t left = numberAt(bytes, 0, 2); left > 0 && at + kWord <= bytes.size(); --left) {
    const std::size_t length = numberAt(bytes, at, 2);
    entries.emplace_back(bytes.substr(at + kWord, length));
    at += kWord + length;
  }
  return entries;
}

// ---- Shape

QString Shape::text(const char* property) const {
  const auto found = values.find(property);
  return found == values.end() ? QString() : qt::toQt(*codePage, frame::toText(found->second));
}

long Shape::number(const char* property, long otherwise) const {
  const auto found = values.find(property);
  return found == values.end() ? otherwise : std::lround(numberOf(found->second));
}

QColor Shape::colour(const char* property, QColor otherwise) const {
  const auto found = values.find(property);
  return found == values.end() ? otherwise : colourOf(static_cast<long>(numberOf(found->second)));
}

QFont Shape::font() const {
  QFont font("Liberation Sans");
  font.setStyleHint(QFont::SansSerif);
  double size = 8.25;
  try {
    if (const auto parts = properties ? properties->Item("Font")->Object() : nullptr) {
      const std::string family = frame::toText(parts->Item("Name")->value());
      if (!family.empty() && family != "MS Sans Serif") font.setFamily(qt::toQt(*codePage, family));
      size = numberOf(parts->Item("Size")->value());
      font.setBold(numberOf(parts->Item("Weight")->value()) > 500);
      font.setItalic(numberOf(parts->Item("Italic")->value()) != 0);
      font.setUnderline(numberOf(parts->Item("Underline")->value()) != 0);
      font.setStrikeOut(numberOf(parts->Item("Strikethrough")->value()) != 0);
    }
  } catch (const base::Error&) {
    // A class without a font is drawn in the plain one.
  }
  font.setPixelSize(std::max(6, static_cast<int>(std::lround(size * 96 / 72))));
  return font;
}

// ---- reading

FormPicture::FormPicture(workspace::Component& component, const base::CodePage& codePage)
    : component_(component), codePage_(codePage) {
  form_.codePage = &codePage;
  try {
    read(component);
  } catch (const base::Error&) {
    if (form_.place.isEmpty()) form_.place = QRectF(0, 0, 320, 240);
  }
}

void FormPicture::read(workspace::Component& component) {
  form_.className = component.header().rootClass();
  if (form_.className.starts_with("VB.")) form_.className.erase(0, 3);
  const auto form = component.Designer();
  if (!form) return;
  readValues(form_, *component.Properties());
  const workspace::DesignerTree* tree = component.header().designer();
  const workspace::DesignerNode* root = tree != nullptr ? tree->root() : nullptr;
  double width = root ? workspace::numberOf(*root, "ClientWidth") : 0;
  double height = root ? workspace::numberOf(*root, "ClientHeight") : 0;
  const auto mode = static_cast<std::size_t>(std::clamp(form_.number("ScaleMode", 1), 0L, 7L));
  auto [unitX, unitY] = kScaleUnits[mode];
  if (width <= 0) width = unitX > 0 ? decimal(form_, "ScaleWidth") * unitX : 0;
  if (height <= 0) height = unitY > 0 ? decimal(form_, "ScaleHeight") * unitY : 0;
  if (width <= 0) width = std::max(decimal(form_, "Width"), 1500.0);
  if (height <= 0) height = std::max(decimal(form_, "Height"), 900.0);
  if (unitX <= 0) {
    const double scaleWidth = decimal(form_, "ScaleWidth"), scaleHeight = decimal(form_, "ScaleHeight");
    unitX = scaleWidth != 0 ? width / scaleWidth : 1;
    unitY = scaleHeight != 0 ? height / scaleHeight : 1;
  }
  form_.place = QRectF(0, 0, width / kTwipsPerPixel, height / kTwipsPerPixel);
  readPicture(form_);
  readControls(*form->ContainedVBControls(), -1, {0, 0}, unitX / kTwipsPerPixel, unitY / kTwipsPerPixel);
}

void FormPicture::readControls(frame::Collection<frame::VBControl>& controls, int parent, QPointF origin,
                               double unitX, double unitY) {
  for (const auto& control : controls.items()) {
    Shape shape;
    shape.codePage = &codePage_;
    shape.control = control;
    shape.className = control->ClassName();
    shape.parent = parent;
    readValues(shape, *control->Properties());
    if (shape.className == "Menu") {
      if (parent == -1 && shape.flag("Visible", true)) menus_ += shape.text("Caption");
      continue;
    }
    shape.unitX = 1 / unitX;
    shape.unitY = 1 / unitY;
    if (shape.values.contains("X1")) {
      shape.isLine = true;
      shape.from = origin + QPointF(decimal(shape, "X1") * unitX, decimal(shape, "Y1") * unitY);
      shape.to = origin + QPointF(decimal(shape, "X2") * unitX, decimal(shape, "Y2") * unitY);
      shape.place = QRectF(shape.from, shape.to).normalized();
    } else {
      shape.hasSize = shape.values.contains("Width") && decimal(shape, "Width") > 0;
      const QSizeF size = shape.hasSize
                              ? QSizeF(decimal(shape, "Width") * unitX, decimal(shape, "Height") * unitY)
                              : QSizeF(kIconSize, kIconSize);
      shape.place =
          QRectF(origin + QPointF(decimal(shape, "Left") * unitX, decimal(shape, "Top") * unitY), size);
    }
    readPicture(shape);
    const int number = static_cast<int>(shapes_.size());
    const QPointF inside = shape.place.topLeft();
    double innerX = 1 / kTwipsPerPixel, innerY = 1 / kTwipsPerPixel;
    if (shape.values.contains("ScaleMode")) {
      const auto mode = static_cast<std::size_t>(std::clamp(shape.number("ScaleMode", 1), 0L, 7L));
      const double width = decimal(shape, "ScaleWidth"), height = decimal(shape, "ScaleHeight");
      innerX = mode > 0 ? kScaleUnits[mode].first / kTwipsPerPixel
                        : (width != 0 ? shape.place.width() / width : innerX);
      innerY = mode > 0 ? kScaleUnits[mode].second / kTwipsPerPixel
                        : (height != 0 ? shape.place.height() / height : innerY);
    }
    shapes_.push_back(std::move(shape));
    if (const auto held = control->ContainedVBControls(); held && held->Count() > 0)
      readControls(*held, number, inside, innerX, innerY);
  }
}

void FormPicture::readValues(Shape& shape, frame::Properties& properties) {
  shape.properties = shape.control ? shape.control->Properties() : component_.Properties();
  for (const char* name : kDrawnProperties) {
    try {
      shape.values.emplace(name, properties.Item(name)->value());
    } catch (const base::Error&) {
      // The class does not have it.
    }
  }
  for (const char* name : {"Caption", "Text", "List"}) resolve(shape, name);
  shape.name = shape.text("Name");
  const long index = shape.number("Index", -1);
  if (index >= 0) shape.name += QStringLiteral("(%1)").arg(index);
}

// A text that stands in the companion file, and a list's entries, one a line.
void FormPicture::resolve(Shape& shape, const char* property) {
  const auto found = shape.values.find(property);
  if (found == shape.values.end()) return;
  const std::string text = frame::toText(found->second);
  const bool isReference =
      std::holds_alternative<frame::ObjectValue>(found->second) || text.starts_with("$\"");
  if (!isReference) return;
  std::string resolved;
  if (property == std::string_view("List")) {
    for (const std::string& entry : listAt(component_, text)) resolved += entry + "\n";
  } else {
    resolved = textAt(component_, text);
  }
  found->second = std::move(resolved);
}

void FormPicture::readPicture(Shape& shape) {
  const auto found = shape.values.find("Picture");
  if (found == shape.values.end()) return;
  if (const auto* value = std::get_if<frame::ObjectValue>(&found->second); value && !value->text.empty())
    shape.picture = pictureAt(component_, value->text);
}

// ---- drawing

// The first in the file is on top, and what has no window of its own lies below the others.
std::vector<int> FormPicture::paintOrder(int parent) const {
  std::vector<int> order;
  for (const bool light : {true, false})
    for (int i = static_cast<int>(shapes_.size()) - 1; i >= 0; --i) {
      const Shape& shape = shapes_[static_cast<std::size_t>(i)];
      if (shape.parent == parent && lies(shape) == light) order.push_back(i);
    }
  return order;
}

int FormPicture::at(QPointF point) const {
  constexpr double kReach = 4;
  int found = -1;
  for (bool deeper = true; deeper;) {
    deeper = false;
    const std::vector<int> order = paintOrder(found);
    for (auto it = order.rbegin(); it != order.rend() && !deeper; ++it) {
      const Shape& shape = shapes_[static_cast<std::size_t>(*it)];
      const QRectF place =
          shape.isLine ? shape.place.adjusted(-kReach, -kReach, kReach, kReach) : shape.place;
      if (!place.contains(point)) continue;
      found = *it;
      deeper = true;
    }
  }
  return found;
}

void FormPicture::draw(QPainter& painter, bool grid) const {
  const QRectF area(QPointF(0, 0), clientSize());
  painter.fillRect(area, form_.colour("BackColor", colourOf(0x8000000FL)));
  if (grid) {
    painter.setPen(QColor(0x60, 0x60, 0x60));
    constexpr double kStep = kGridTwips / kTwipsPerPixel;
    for (double y = 0; y < area.height(); y += kStep)
      for (double x = 0; x < area.width(); x += kStep) painter.drawPoint(QPointF(x, y));
  }
  if (!form_.picture.isNull()) painter.drawImage(QPointF(0, 0), form_.picture);
  painter.save();
  painter.setClipRect(area);
  drawInside(painter, -1);
  painter.restore();
}

void FormPicture::drawInside(QPainter& painter, int parent) const {
  for (const int i : paintOrder(parent)) {
    const Shape& shape = shapes_[static_cast<std::size_t>(i)];
    painter.save();
    drawControl(painter, shape);
    painter.setClipRect(shape.place, Qt::IntersectClip);
    drawInside(painter, i);
    painter.restore();
  }
}

}  // namespace kolvane::workbench
