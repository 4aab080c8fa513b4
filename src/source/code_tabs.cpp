#include "source/code_tabs.h"

#include <algorithm>

#include "base/text.h"
#include "frame/options.h"

namespace kolvane::source {
namespace {

constexpr frame::Option kIndentCode = frame::option("IC2");
constexpr frame::Option kCodeTabs = frame::option("TaCo3");
constexpr frame::Option kIndentHeader = frame::option("InHe4");
constexpr frame::Option kHeaderTabs = frame::option("TaHe5");
constexpr frame::Option kCommentCharacter = frame::option("CoCh10");

// The host's limit for blanks in front of a line.
constexpr long kMostTabs = 256;

std::string tabs(const frame::Services& services, const frame::Option& flag, const frame::Option& count) {
  if (!frame::isOn(services, flag)) return {};
  return base::repeat('\t', static_cast<int>(std::clamp(frame::numberOf(services, count), 0L, kMostTabs)));
}

}  // namespace

void Set_Tabs(frame::Services& services) { services.CodeTabs = tabs(services, kIndentCode, kCodeTabs); }

std::string commentCharacter(const frame::Services& services) {
  return frame::textOf(services, kCommentCharacter);
}

std::string headerIndent(const frame::Services& services) {
  return tabs(services, kIndentHeader, kHeaderTabs);
}

std::string headerContinuation(std::string_view character) {
  return std::string("'").append(character).append("               :");
}

std::string fieldLabel(std::string_view label) {
  return std::string(label)
      .append(base::repeat(' ', kLabelWidth - static_cast<int>(label.size())))
      .append(":");
}

std::string fieldStart(std::string_view character, std::string_view label) {
  return std::string("'").append(character).append("  ").append(fieldLabel(label));
}

}  // namespace kolvane::source
