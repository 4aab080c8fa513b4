#include "frame/host.h"

#include "base/text.h"

namespace kolvane::frame {
namespace {

struct TextOf {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(bool value) const { return base::boolText(value); }
  std::string operator()(long value) const { return std::to_string(value); }
  std::string operator()(double value) const { return base::numberText(value); }
  std::string operator()(const std::string& value) const { return value; }
  std::string operator()(const ObjectValue& value) const { return value.text; }
};

}  // namespace

std::string toText(const Value& value) { return std::visit(TextOf{}, value); }

}  // namespace kolvane::frame
