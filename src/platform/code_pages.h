// Code pages by number.
#pragma once

#include <vector>

#include "base/code_page.h"

namespace kolvane::platform {

// By itself the single-byte pages alone, which need nothing of the system.
class CodePages {
 public:
  virtual ~CodePages() = default;

  virtual std::vector<int> numbers() const { return base::CodePage::numbers(); }
  // Lives as long as this object. A page that is not among numbers() raises 5.
  virtual const base::CodePage& get(int number) const { return base::CodePage::get(number); }
};

}  // namespace kolvane::platform
