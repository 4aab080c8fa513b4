#include "workspace/header_templates.h"

#include <algorithm>
#include <array>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::workspace {
namespace {

struct Template {
  frame::ComponentType type;
  std::string_view text;  // "@" stands for the component's name, a line feed for the line end
};

using enum frame::ComponentType;

constexpr std::array<Template, 7> kTemplates{{
    {kStdModule, "Attribute VB_Name = \"@\"\n"},
    {kClassModule, R"(VERSION 1.0 CLASS
BEGIN
  MultiUse = -1  'True
  Persistable = 0  'NotPersistable
  DataBindingBehavior = 0  'vbNone
  DataSourceBehavior  = 0  'vbNone
  MTSTransactionMode  = 0  'NotAnMTSObject
END
Attribute VB_Name = "@"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = False
)"},
    {kVBForm, R"(VERSION 5.00
Begin VB.Form @ 
   Caption         =   "@"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   LinkTopic       =   "Form1"
   ScaleHeight     =   3195
   ScaleWidth      =   4680
   StartUpPosition =   3  'Windows Default
End
Attribute VB_Name = "@"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
)"},
    {kVBMDIForm, R"(VERSION 5.00
Begin VB.MDIForm @ 
   BackColor       =   &H8000000C&
   Caption         =   "@"
   ClientHeight    =   3195
   ClientLeft      =   60
   ClientTop       =   345
   ClientWidth     =   4680
   LinkTopic       =   "MDIForm1"
   StartUpPosition =   3  'Windows Default
End
Attribute VB_Name = "@"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
)"},
    {kPropPage, R"(VERSION 5.00
Begin VB.PropertyPage @ 
   Caption         =   "@"
   ClientHeight    =   3600
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   4800
   ScaleHeight     =   3600
   ScaleWidth      =   4800
End
Attribute VB_Name = "@"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = True
)"},
    {kUserControl, R"(VERSION 5.00
Begin VB.UserControl @ 
   ClientHeight    =   3600
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   4800
   ScaleHeight     =   3600
   ScaleWidth      =   4800
End
Attribute VB_Name = "@"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = False
)"},
    {kDocObject, R"(VERSION 5.00
Begin VB.UserDocument @ 
   ClientHeight    =   3600
   ClientLeft      =   0
   ClientTop       =   0
   ClientWidth     =   4800
   HScrollSmallChange=   225
   ScaleHeight     =   3600
   ScaleWidth      =   4800
   VScrollSmallChange=   225
End
Attribute VB_Name = "@"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = True
Attribute VB_PredeclaredId = False
Attribute VB_Exposed = True
)"},
}};

}  // namespace

std::string newHeaderText(frame::ComponentType type, std::string_view name, std::string_view lineEnd) {
  const auto found = std::find_if(kTemplates.begin(), kTemplates.end(),
                                  [&](const Template& each) { return each.type == type; });
  if (found == kTemplates.end())
    throw base::Error(base::errors::kNotAvailable, "A new component of this type cannot be made");
  return base::replaceAll(base::replaceAll(found->text, "@", name), "\n", lineEnd);
}

}  // namespace kolvane::workspace
