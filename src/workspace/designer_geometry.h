// Places and sizes in a designer: what one property's change brings to others, and where a new control goes.
//
// Containers measure in their own units (ScaleMode); twips are 1/1440 inch.
#pragma once

#include <optional>
#include <string_view>

#include "frame/host.h"
#include "workspace/class_tables.h"
#include "workspace/designer_tree.h"

namespace kolvane::workspace {

// A number of the node's file, 0 when it has none.
double numberOf(const DesignerNode& node, std::string_view property);
void setNumber(DesignerTree& tree, DesignerNode& node, std::string_view property, double value);

// Left, Top, Width or Height of a designer's root whose file has no such line: reckoned from the client area,
// in twips. A form has a classic frame by its BorderStyle, a caption, and a menu bar when it has a visible
// menu. Nothing for other properties and objects.
std::optional<double> reckonedGeometry(const DesignerNode& node, std::string_view property);

// What follows in the IDE when a property has got another value: the client area and the inner scale follow
// the size, the scale follows its mode, colours follow a flat appearance.
void followChange(DesignerTree& tree, DesignerNode& node, const PropertyInfo& property,
                  const frame::Value& before, const frame::Value& after);

// True for a colour that is written although it is its class's default, because the object is flat.
bool writtenWhenFlat(const DesignerNode& node, const PropertyInfo& property);

// Writes size and place of a new object: in the middle of its container.
void placeNew(DesignerTree& tree, DesignerNode& node, const ClassInfo* info);

}  // namespace kolvane::workspace
