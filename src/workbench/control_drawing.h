// How each class of controls looks in a designer.
#pragma once

#include <QPainter>

namespace kolvane::workbench {

struct Shape;

// Draws the control at its place. A class that is not known is a box with its class and name.
void drawControl(QPainter& painter, const Shape& shape);

}  // namespace kolvane::workbench
