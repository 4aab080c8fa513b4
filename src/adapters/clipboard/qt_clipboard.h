// The clipboard of the window system.
#pragma once

#include "platform/clipboard.h"

namespace kolvane::adapters {

// Needs a QGuiApplication, and its thread. A picture travels by its name beside the text; other programs see the
// text only.
class QtClipboard final : public platform::Clipboard {
 public:
  void clear() override;
  std::optional<std::string> text() const override;
  std::optional<std::string> picture() const override;
  void setText(const std::string& utf8) override;
  void setPicture(const std::string& key) override;
};

}  // namespace kolvane::adapters
