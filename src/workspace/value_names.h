// The names that the IDE writes behind the numbers of enumerations. Only for the class tables.
#pragma once

#include "workspace/class_tables.h"

namespace kolvane::workspace::value_names {

inline constexpr ValueName kAlignment[] = {{0, "Left Justify"}, {1, "Right Justify"}, {2, "Center"}};
inline constexpr ValueName kAppearance[] = {{0, "Flat"}, {1, "3D"}};
inline constexpr ValueName kAlign[] = {
    {0, "None"}, {1, "Align Top"}, {2, "Align Bottom"}, {3, "Align Left"}, {4, "Align Right"}};
inline constexpr ValueName kBackStyle[] = {{0, "Transparent"}, {1, "Opaque"}};
inline constexpr ValueName kFormBorder[] = {
    {0, "None"},         {1, "Fixed Single"},     {2, "Sizable"},
    {3, "Fixed Dialog"}, {4, "Fixed ToolWindow"}, {5, "Sizable ToolWindow"}};
inline constexpr ValueName kBorder[] = {{0, "None"}, {1, "Fixed Single"}};
inline constexpr ValueName kLineBorder[] = {{0, "Transparent"}, {1, "Solid"},    {2, "Dash"},
                                            {3, "Dot"},         {4, "Dash-Dot"}, {5, "Dash-Dot-Dot"},
                                            {6, "Inside Solid"}};
inline constexpr ValueName kDrawStyle[] = {{0, "Solid"},       {1, "Dash"},         {2, "Dot"},
                                           {3, "Dash-Dot"},    {4, "Dash-Dot-Dot"}, {5, "Transparent"},
                                           {6, "Inside Solid"}};
inline constexpr ValueName kFillStyle[] = {
    {0, "Solid"},           {1, "Transparent"},       {2, "Horizontal Line"}, {3, "Vertical Line"},
    {4, "Upward Diagonal"}, {5, "Downward Diagonal"}, {6, "Cross"},           {7, "Diagonal Cross"}};
inline constexpr ValueName kDragMode[] = {{0, "Manual"}, {1, "Automatic"}};
inline constexpr ValueName kDropMode[] = {{0, "None"}, {1, "Manual"}, {2, "Automatic"}};
inline constexpr ValueName kMousePointer[] = {{0, "Default"},
                                              {1, "Arrow"},
                                              {2, "Cross"},
                                              {3, "I-Beam"},
                                              {4, "Icon"},
                                              {5, "Size"},
                                              {6, "Size NE SW"},
                                              {7, "Size N S"},
                                              {8, "Size NW SE"},
                                              {9, "Size W E"},
                                              {10, "Up Arrow"},
                                              {11, "Hourglass"},
                                              {12, "No Drop"},
                                              {13, "Arrow and Hourglass"},
                                              {14, "Arrow and Question"},
                                              {15, "Size All"},
                                              {99, "Custom"}};
inline constexpr ValueName kScaleMode[] = {{0, "User"},       {1, "Twip"},      {2, "Point"},
                                           {3, "Pixel"},      {4, "Character"}, {5, "Inch"},
                                           {6, "Millimeter"}, {7, "Centimeter"}};
inline constexpr ValueName kScrollBars[] = {{0, "None"}, {1, "Horizontal"}, {2, "Vertical"}, {3, "Both"}};
inline constexpr ValueName kStartUpPosition[] = {
    {0, "Manual"}, {1, "CenterOwner"}, {2, "CenterScreen"}, {3, "Windows Default"}};
inline constexpr ValueName kWindowState[] = {{0, "Normal"}, {1, "Minimized"}, {2, "Maximized"}};
inline constexpr ValueName kComboStyle[] = {{0, "Dropdown Combo"}, {1, "Simple Combo"}, {2, "Dropdown List"}};
inline constexpr ValueName kButtonStyle[] = {{0, "Standard"}, {1, "Graphical"}};
inline constexpr ValueName kListStyle[] = {{0, "Standard"}, {1, "Checkbox"}};
inline constexpr ValueName kChecked[] = {{0, "Unchecked"}, {1, "Checked"}, {2, "Grayed"}};
inline constexpr ValueName kMultiSelect[] = {{0, "None"}, {1, "Simple"}, {2, "Extended"}};
inline constexpr ValueName kShape[] = {
    {0, "Rectangle"},         {1, "Square"},        {2, "Oval"}, {3, "Circle"},
    {4, "Rounded Rectangle"}, {5, "Rounded Square"}};
inline constexpr ValueName kPaletteMode[] = {
    {0, "Halftone"}, {1, "UseZOrder"}, {2, "Custom"}, {3, "Container"}, {4, "None"}};
inline constexpr ValueName kFormLink[] = {{0, "None"}, {1, "Source"}};
inline constexpr ValueName kControlLink[] = {{0, "None"}, {1, "Automatic"}, {2, "Manual"}, {3, "Notify"}};
inline constexpr ValueName kClipBehavior[] = {{0, "None"}, {1, "UseRegion"}};
inline constexpr ValueName kHitBehavior[] = {{0, "None"}, {1, "UseRegion"}, {2, "UsePaint"}};

// Of a class module's settings.
inline constexpr ValueName kPersistable[] = {{0, "NotPersistable"}, {1, "Persistable"}};
inline constexpr ValueName kDataBinding[] = {{0, "vbNone"}, {1, "vbSimpleBound"}, {2, "vbComplexBound"}};
inline constexpr ValueName kDataSource[] = {{0, "vbNone"}, {1, "vbDataSource"}, {2, "vbOLEDBProvider"}};
inline constexpr ValueName kTransaction[] = {{0, "NotAnMTSObject"},
                                             {1, "NoTransactions"},
                                             {2, "RequiresTransaction"},
                                             {3, "UsesTransaction"},
                                             {4, "RequiresNewTransaction"}};

}  // namespace kolvane::workspace::value_names
