// host/…: designers, controls and properties.
#include <optional>

#include "automation/methods.h"
#include "automation/session.h"
#include "automation/text_of.h"
#include "base/error.h"

namespace kolvane::automation::methods {
namespace {

using ControlPtr = std::shared_ptr<frame::VBControl>;
using PropertiesPtr = std::shared_ptr<frame::Properties>;

// ---- values

struct ValueWriter {
  const Session& session;

  Json operator()(std::monostate) const { return nullptr; }
  Json operator()(bool value) const { return value; }
  Json operator()(long value) const { return value; }
  Json operator()(double value) const { return numberOf(value); }
  Json operator()(const std::string& value) const { return textOf(session, value); }
  Json operator()(const frame::ObjectValue& value) const { return textOf(session, value.text); }
};

// A group as its parts; a picture or list as the file refers to it.
Json valueOf(const Session& session, frame::Property& property) {
  const auto parts = property.Object();
  if (parts == nullptr) return std::visit(ValueWriter{session}, property.value());
  Json group = Json::object();
  for (const auto& part : parts->items()) group[textOf(session, part->Name())] = valueOf(session, *part);
  return group;
}

frame::Value valueOf(const Input& value) {
  if (value.is_boolean()) return value.get<bool>();
  if (value.is_number_integer()) return value.get<long>();
  if (value.is_number()) return value.get<double>();
  return value.get<std::string>();
}

// ---- properties

// The property of a name; "Font.Size" is the part "Size" of the property "Font", unless there is one of the
// whole name.
std::shared_ptr<frame::Property> findProperty(frame::Properties& properties, const std::string& name) {
  const std::size_t dot = name.find('.');
  try {
    return properties.Item(name);
  } catch (const base::Error& error) {
    if (error.number() != base::errors::kUnknownProperty || dot == std::string::npos) throw;
    const auto parts = properties.Item(name.substr(0, dot))->Object();
    if (parts == nullptr) throw;
    return parts->Item(name.substr(dot + 1));
  }
}

PropertiesPtr propertiesOf(Session& session, const Arguments& arguments) {
  const std::string component = arguments.text("component");
  if (arguments.has("control")) return session.control(component, arguments.text("control"))->Properties();
  return session.component(component)->Properties();
}

// ---- controls

std::string nameOf(frame::VBControl& control) { return toText(control.Properties()->Item("Name")->value()); }

// -1 outside control arrays.
long indexOf(frame::VBControl& control) {
  const frame::Value value = control.Properties()->Item("Index")->value();
  const long* index = std::get_if<long>(&value);
  return index != nullptr ? *index : -1;
}

// "cmdOK", or "txtName(2)" of a control array.
std::string fullNameOf(frame::VBControl& control) {
  const long index = indexOf(control);
  return index < 0 ? nameOf(control) : nameOf(control) + "(" + std::to_string(index) + ")";
}

Json controlJson(Session& session, frame::VBControl& control) {
  Json properties = Json::object();
  for (const auto& property : control.Properties()->items()) {
    const std::string name = textOf(session, property->Name());
    if (!properties.contains(name)) properties[name] = valueOf(session, *property);
  }
  const ControlPtr container = control.Container();
  return {{"name", textOf(session, fullNameOf(control))},
          {"className", textOf(session, control.ClassName())},
          {"progId", textOf(session, control.ProgId())},
          {"index", indexOf(control)},
          {"container", container ? textOf(session, fullNameOf(*container)) : std::string()},
          {"selected", control.InSelection()},
          {"properties", properties}};
}

// "txtName(2)" as name and index.
struct ControlName {
  std::string name;
  std::optional<long> index;
};

ControlName parsedName(const std::string& text) {
  const std::size_t open = text.find('(');
  if (open == std::string::npos || !text.ends_with(')')) return {text, std::nullopt};
  const std::string digits = text.substr(open + 1, text.size() - open - 2);
  if (digits.empty() || digits.size() > 9 || digits.find_first_not_of("0123456789") != std::string::npos)
    return {text, std::nullopt};
  return {text.substr(0, open), std::stol(digits)};
}

void setProperty(frame::VBControl& control, std::string_view name, const frame::Value& value) {
  control.Properties()->Item(name)->setValue(value);
}

bool isTaken(frame::VBControls& controls, const std::string& name) {
  try {
    return !name.empty() && controls.Item(name) != nullptr;
  } catch (const base::Error& error) {
    if (error.number() != base::errors::kSubscript) throw;
    return false;
  }
}

void dress(frame::VBControl& control, const Arguments& arguments) {
  const std::string name = arguments.text("name");
  if (arguments.has("index")) setProperty(control, "Index", static_cast<long>(arguments.whole("index")));
  if (!name.empty()) setProperty(control, "Name", name);
  if (!arguments.has("properties")) return;
  for (const auto& property : arguments.at("properties").items())
    findProperty(*control.Properties(), property.key())->setValue(valueOf(property.value()));
}

}  // namespace

Json hostControls(Session& session, const Arguments& arguments) {
  Json list = Json::array();
  for (const ControlPtr& control : session.designer(arguments.text("component"))->VBControls()->items())
    list.push_back(controlJson(session, *control));
  return {{"controls", list}};
}

Json hostAddControl(Session& session, const Arguments& arguments) {
  const std::string component = arguments.text("component");
  const auto controls = session.designer(component)->VBControls();
  const ControlPtr container =
      arguments.has("container") ? session.control(component, arguments.text("container")) : nullptr;
  const std::string name = arguments.text("name");
  // The next member of a control array is added under a name of its own; the index lets it take the array's.
  const bool joinsArray = arguments.has("index") && isTaken(*controls, name);
  const ControlPtr control =
      controls->Add(arguments.text("progId"), container, joinsArray ? std::string() : name);
  try {
    dress(*control, arguments);
  } catch (const base::Error&) {
    controls->Remove(control);
    throw;
  }
  return done();
}

Json hostRemoveControl(Session& session, const Arguments& arguments) {
  const std::string component = arguments.text("component");
  session.designer(component)->VBControls()->Remove(session.control(component, arguments.text("control")));
  return done();
}

Json hostRenameControl(Session& session, const Arguments& arguments) {
  const ControlPtr control = session.control(arguments.text("component"), arguments.text("control"));
  const ControlName old{nameOf(*control), indexOf(*control)};
  const ControlName wanted = parsedName(arguments.text("newName"));
  try {
    // A control takes the name of an array only as one that has an index.
    if (wanted.index && *old.index < 0) setProperty(*control, "Index", *wanted.index);
    setProperty(*control, "Name", wanted.name);
    if (wanted.index) setProperty(*control, "Index", *wanted.index);
  } catch (const base::Error&) {
    setProperty(*control, "Name", old.name);
    setProperty(*control, "Index", *old.index);
    throw;
  }
  return done();
}

Json hostGetProperty(Session& session, const Arguments& arguments) {
  const auto property = findProperty(*propertiesOf(session, arguments), arguments.text("name"));
  return {{"value", valueOf(session, *property)}};
}

Json hostSetProperty(Session& session, const Arguments& arguments) {
  findProperty(*propertiesOf(session, arguments), arguments.text("name"))
      ->setValue(valueOf(arguments.at("value")));
  return done();
}

Json hostSelectControls(Session& session, const Arguments& arguments) {
  const std::string component = arguments.text("component");
  std::vector<ControlPtr> wanted;
  for (const Input& name : arguments.at("controls"))
    wanted.push_back(session.control(component, name.get<std::string>()));
  for (const ControlPtr& control : session.designer(component)->SelectedVBControls()->items())
    control->setInSelection(false);
  for (const ControlPtr& control : wanted) control->setInSelection(true);
  return done();
}

}  // namespace kolvane::automation::methods
