// The user's own error handlers: a name and a block of text each, kept in the settings, and the elements in a
// text that give way to the names and times of the procedure that it is written into.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "frame/context_menus.h"
#include "frame/host.h"
#include "frame/services.h"
#include "frame/settings.h"

namespace kolvane::writers {

// ---- the store; errors of the settings store pass

// As many as the code window's popup has buttons. The store itself keeps as many as it is given: who adds a
// handler asks first.
inline constexpr std::size_t kMaxCustomHandlers = frame::kMaxCustomErrors;
// What the user is told who wants one more.
std::string tooManyCustomHandlers();

// The key that holds one value for each handler, for the raw operations of the settings.
std::string customHandlersPath();

// The handlers' names in stored order.
std::vector<std::string> GetCustomErrors(const frame::Settings& settings);
// The text of the handler with exactly that name, else "".
std::string ReturnCustomError(const frame::Settings& settings, std::string_view name);
// The handler's text, the name's case aside, as the store compares names; nothing when there is none.
std::optional<std::string> readCustomHandler(const frame::Settings& settings, std::string_view name);
// The text is kept byte for byte, line ends included. A new handler comes last, one that is there keeps its
// place.
void writeCustomHandler(frame::Settings& settings, std::string_view name, std::string_view text);
// False when there was none.
bool deleteCustomHandler(frame::Settings& settings, std::string_view name);

// What the user is told of a name without a handler.
std::string customHandlerNotFound(std::string_view name);

// ---- the elements

// What the elements of a text stand for.
struct ElementValues {
  std::string procedureName;
  frame::ComponentType componentType = frame::ComponentType::kStdModule;
  std::string user;
  // What a standard module calls its own name: the constant that Ensure_VB_Module_Name_Is_Defined writes.
  std::string_view moduleNameConstant = "vb_Module_Name";
};

struct CustomHandlerElement {
  std::string_view text;  // as it stands in a handler
  std::string_view key;
  // Nothing leaves the element in the text.
  std::optional<std::string> (*value)(const frame::Services& services, const ElementValues& values);
};

// In the order of the dialog's list, which is that of their replacement.
std::span<const CustomHandlerElement> customHandlerElements();

// The text with every element replaced that has a value: each by the code or the text that it stands for.
// "<Module Name>" stays in a component that is no standard module, class or form, "<Project Name>" without
// an active project.
std::string replaceElements(const frame::Services& services, std::string_view text,
                            const ElementValues& values);

}  // namespace kolvane::writers
