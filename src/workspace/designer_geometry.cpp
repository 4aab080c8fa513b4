#include "workspace/designer_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/text.h"
#include "workspace/designer_values.h"

namespace kolvane::workspace {
namespace {

constexpr std::int32_t signedColour(std::uint32_t value) { return static_cast<std::int32_t>(value); }
constexpr std::int32_t kButtonFace = signedColour(0x8000000F);
constexpr std::int32_t kFlatBack = signedColour(0x80000005);
constexpr std::int32_t kFlatText = signedColour(0x80000008);

constexpr double kMenuBar = 285;
constexpr double kPictureBorder = 60;  // both sides of a PictureBox
constexpr int kForeignWidth = 1215;    // of a new control whose class is not known
constexpr int kForeignHeight = 495;

// A window's frame on one side and its caption, by BorderStyle.
struct WindowFrame {
  double border;
  double caption;
};
constexpr std::array<WindowFrame, 6> kWindowFrames{
    {{0, 0}, {45, 285}, {60, 285}, {45, 285}, {45, 240}, {60, 240}}};
constexpr std::size_t kSizable = 2;

// Twips of one unit by ScaleMode; a character is wider high than across. User units have none.
struct Unit {
  double across;
  double down;
};
constexpr std::array<Unit, 8> kUnits{{{0, 0},
                                      {1, 1},
                                      {20, 20},
                                      {15, 15},
                                      {120, 240},
                                      {1440, 1440},
                                      {1440 / 25.4, 1440 / 25.4},
                                      {1440 / 2.54, 1440 / 2.54}}};
constexpr long kUserScale = 0;
constexpr long kTwips = 1;

struct Axis {
  std::string_view place, size, clientPlace, clientSize, scale;
  double Unit::*unit;
};
constexpr Axis kAcross{"Left", "Width", "ClientLeft", "ClientWidth", "ScaleWidth", &Unit::across};
constexpr Axis kDown{"Top", "Height", "ClientTop", "ClientHeight", "ScaleHeight", &Unit::down};

bool isClass(const DesignerNode& node, std::string_view name) {
  const ClassInfo* info = findClass(node.className());
  return info != nullptr && info->name == name;
}

bool isWindow(const DesignerNode& node) { return isClass(node, "Form") || isClass(node, "MDIForm"); }

const Axis* axisOfPlace(std::string_view property) {
  if (base::equalNoCase(property, kAcross.place)) return &kAcross;
  return base::equalNoCase(property, kDown.place) ? &kDown : nullptr;
}

const Axis* axisOfSize(std::string_view property) {
  if (base::equalNoCase(property, kAcross.size)) return &kAcross;
  return base::equalNoCase(property, kDown.size) ? &kDown : nullptr;
}

std::optional<long> choiceOf(const DesignerNode& node, std::string_view property) {
  const std::string_view text = node.value(property);
  return text.empty() ? std::nullopt : std::optional<long>(base::toLong(text.substr(0, text.find('\''))));
}

long scaleMode(const DesignerNode& node) {
  const long mode = choiceOf(node, "ScaleMode").value_or(kTwips);
  return mode >= 0 && mode < static_cast<long>(kUnits.size()) ? mode : kTwips;
}

// Twips of one unit inside an object. In user units the whole inside tells.
double unitInside(const DesignerNode& node, const Axis& axis) {
  const long mode = scaleMode(node);
  if (mode != kUserScale) return kUnits[static_cast<std::size_t>(mode)].*axis.unit;
  const double scale = numberOf(node, axis.scale);
  double inside = numberOf(node, axis.clientSize);
  if (node.parent() != nullptr) inside = numberOf(node, axis.size) * unitInside(*node.parent(), axis);
  return scale > 0 && inside > 0 ? inside / scale : 1;
}

// Twips that an object has inside for others.
double sizeInside(const DesignerNode& node, const Axis& axis) {
  if (const double scale = numberOf(node, axis.scale); scale > 0) return scale * unitInside(node, axis);
  if (node.parent() == nullptr) return numberOf(node, axis.clientSize);
  return numberOf(node, axis.size) * unitInside(*node.parent(), axis);
}

bool hasVisibleMenu(const DesignerNode& node) {
  const std::vector<DesignerNode*> children = node.children();
  return std::any_of(children.begin(), children.end(), [](const DesignerNode* child) {
    return isClass(*child, "Menu") && choiceOf(*child, "Visible").value_or(-1) != 0;
  });
}

WindowFrame frameOf(const DesignerNode& node) {
  if (!isWindow(node)) return {0, 0};
  const auto style = static_cast<std::size_t>(choiceOf(node, "BorderStyle").value_or(kSizable));
  return kWindowFrames[style < kWindowFrames.size() ? style : kSizable];
}

void followSize(DesignerTree& tree, DesignerNode& node, const Axis& axis, double change) {
  const bool root = node.parent() == nullptr;
  if (root) setNumber(tree, node, axis.clientSize, numberOf(node, axis.clientSize) + change);
  if (node.find(axis.scale) == nullptr || scaleMode(node) == kUserScale) return;
  const double twips = root ? change : change * unitInside(*node.parent(), axis);
  setNumber(tree, node, axis.scale, numberOf(node, axis.scale) + twips / unitInside(node, axis));
}

void followScaleMode(DesignerTree& tree, DesignerNode& node, long before, long after) {
  const auto known = [](long mode) { return mode > kUserScale && mode < static_cast<long>(kUnits.size()); };
  if (!known(before) || !known(after)) return;
  for (const Axis* axis : {&kAcross, &kDown}) {
    if (node.find(axis->scale) == nullptr) continue;
    const double ratio = kUnits[static_cast<std::size_t>(before)].*axis->unit /
                         kUnits[static_cast<std::size_t>(after)].*axis->unit;
    setNumber(tree, node, axis->scale, numberOf(node, axis->scale) * ratio);
  }
}

// Only classes that have the button face by default change their colours with their appearance.
bool colourFollows(const ClassInfo& info) {
  const PropertyInfo* back = findProperty(info, "BackColor");
  return back != nullptr && back->number == kButtonFace;
}

void followAppearance(DesignerTree& tree, DesignerNode& node, const ClassInfo& info, bool flat) {
  constexpr std::array<std::pair<std::string_view, std::int32_t>, 2> kColours{
      {{"BackColor", kFlatBack}, {"ForeColor", kFlatText}}};
  if (!colourFollows(info)) return;
  for (const auto& [name, flatColour] : kColours) {
    const PropertyInfo* colour = findProperty(info, name);
    if (colour == nullptr) continue;
    const DesignerEntry* entry = node.find(name);
    const frame::Value now = entry == nullptr ? defaultOf(*colour) : valueOf(*colour, entry->value);
    if (flat && now == defaultOf(*colour))
      tree.setValue(node, name, fileText(*colour, static_cast<long>(flatColour)));
    else if (!flat && (now == frame::Value(static_cast<long>(flatColour)) || now == defaultOf(*colour)))
      tree.erase(node, name);
  }
}

}  // namespace

double numberOf(const DesignerNode& node, std::string_view property) {
  static constexpr PropertyInfo kNumber{"", PropertyType::kSingle};
  const frame::Value value = valueOf(kNumber, node.value(property));
  const double* number = std::get_if<double>(&value);
  return number == nullptr ? 0 : *number;
}

void setNumber(DesignerTree& tree, DesignerNode& node, std::string_view property, double value) {
  static constexpr PropertyInfo kNumber{"", PropertyType::kSingle};
  tree.setValue(node, property, fileText(kNumber, value));
}

std::optional<double> reckonedGeometry(const DesignerNode& node, std::string_view property) {
  if (node.parent() != nullptr || node.find(property) != nullptr) return std::nullopt;
  const WindowFrame frame = frameOf(node);
  const double menu = isWindow(node) && hasVisibleMenu(node) ? kMenuBar : 0;
  if (const Axis* axis = axisOfPlace(property); axis != nullptr && node.find(axis->clientPlace) != nullptr) {
    const double above = axis == &kDown ? frame.caption + menu : 0;
    return numberOf(node, axis->clientPlace) - frame.border - above;
  }
  if (const Axis* axis = axisOfSize(property); axis != nullptr && node.find(axis->clientSize) != nullptr) {
    const double above = axis == &kDown ? frame.caption + menu : 0;
    return numberOf(node, axis->clientSize) + 2 * frame.border + above;
  }
  return std::nullopt;
}

void followChange(DesignerTree& tree, DesignerNode& node, const PropertyInfo& property,
                  const frame::Value& before, const frame::Value& after) {
  const ClassInfo* info = findClass(node.className());
  if (info == nullptr) return;
  const double* oldNumber = std::get_if<double>(&before);
  const double* newNumber = std::get_if<double>(&after);
  const long* oldChoice = std::get_if<long>(&before);
  const long* newChoice = std::get_if<long>(&after);
  if (oldNumber != nullptr && newNumber != nullptr) {
    const double change = *newNumber - *oldNumber;
    if (const Axis* axis = axisOfSize(property.name)) followSize(tree, node, *axis, change);
    if (const Axis* axis = axisOfPlace(property.name); axis != nullptr && info->isRoot)
      setNumber(tree, node, axis->clientPlace, numberOf(node, axis->clientPlace) + change);
    if (base::startsWithNoCase(property.name, "Scale")) {
      const PropertyInfo* mode = findProperty(*info, "ScaleMode");
      tree.setValue(node, mode->name, fileText(*mode, kUserScale));
    }
  } else if (oldChoice != nullptr && newChoice != nullptr) {
    if (property.name == "ScaleMode") followScaleMode(tree, node, *oldChoice, *newChoice);
    if (property.name == "Appearance") followAppearance(tree, node, *info, *newChoice == 0);
  }
}

bool writtenWhenFlat(const DesignerNode& node, const PropertyInfo& property) {
  const ClassInfo* info = findClass(node.className());
  return property.type == PropertyType::kColour &&
         (property.name == "BackColor" || property.name == "ForeColor") && info != nullptr &&
         colourFollows(*info) && choiceOf(node, "Appearance").value_or(1) == 0;
}

void placeNew(DesignerTree& tree, DesignerNode& node, const ClassInfo* info) {
  const DesignerNode& container = *node.parent();
  const bool line = isClass(node, "Line");
  const double width = info == nullptr || line ? kForeignWidth : info->width;
  const double height = info == nullptr || line ? kForeignHeight : info->height;
  for (const auto& [axis, twips] : {std::pair{&kAcross, width}, std::pair{&kDown, height}}) {
    const double unit = unitInside(container, *axis);
    const double place = std::floor(std::max(0.0, (sizeInside(container, *axis) - twips) / 2) / unit);
    const double size = twips / unit;
    if (line) {
      const bool across = axis == &kAcross;
      setNumber(tree, node, across ? "X1" : "Y1", place);
      setNumber(tree, node, across ? "X2" : "Y2", place + size);
      continue;
    }
    setNumber(tree, node, axis->place, place);
    if (twips == 0) continue;
    setNumber(tree, node, axis->size, size);
    if (info != nullptr && findProperty(*info, axis->scale) != nullptr)
      setNumber(tree, node, axis->scale, twips - kPictureBorder);
  }
}

}  // namespace kolvane::workspace
