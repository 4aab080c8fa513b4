#include "adapters/system/iconv_code_pages.h"

#include <iconv.h>

#include <algorithm>
#include <optional>
#include <string>

namespace kolvane::adapters {
namespace {

const iconv_t kNoConverter = reinterpret_cast<iconv_t>(-1);

class Converter {
 public:
  Converter(const std::string& to, const std::string& from)
      : handle_(::iconv_open(to.c_str(), from.c_str())) {}
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() {
    if (works()) ::iconv_close(handle_);
  }
  bool works() const { return handle_ != kNoConverter; }

  std::optional<std::string> convert(std::string_view text) const {
    ::iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    std::string in(text), out(text.size() * 4, '\0');  // no character grows to more
    char *next = in.data(), *end = out.data();
    std::size_t left = in.size(), room = out.size();
    // A count above 0 tells of characters that were replaced by something like them.
    if (::iconv(handle_, &next, &left, &end, &room) != 0) return std::nullopt;
    out.resize(out.size() - room);
    return out;
  }

 private:
  iconv_t handle_;
};

class IconvConversion final : public base::CodePage::Conversion {
 public:
  explicit IconvConversion(const std::string& page) : toUtf8_("UTF-8", page), fromUtf8_(page, "UTF-8") {}
  bool works() const { return toUtf8_.works() && fromUtf8_.works(); }
  std::optional<std::string> toUtf8(std::string_view bytes) const override { return toUtf8_.convert(bytes); }
  std::optional<std::string> fromUtf8(std::string_view utf8) const override {
    return fromUtf8_.convert(utf8);
  }

 private:
  Converter toUtf8_, fromUtf8_;
};

class IconvCodePages final : public platform::CodePages {
 public:
  IconvCodePages() : pages_{base::CodePage::utf8()} {
    for (const int number : base::CodePage::doubleByteNumbers()) {
      auto conversion = std::make_shared<IconvConversion>("CP" + std::to_string(number));
      if (conversion->works()) pages_.emplace_back(number, std::move(conversion));
    }
  }

  std::vector<int> numbers() const override {
    std::vector<int> all = CodePages::numbers();
    for (const base::CodePage& page : pages_) all.push_back(page.number());
    return all;
  }

  const base::CodePage& get(int number) const override {
    const auto found = std::find_if(pages_.begin(), pages_.end(),
                                    [number](const base::CodePage& page) { return page.number() == number; });
    return found != pages_.end() ? *found : CodePages::get(number);
  }

 private:
  std::vector<base::CodePage> pages_;
};

}  // namespace

std::unique_ptr<platform::CodePages> makeIconvCodePages() { return std::make_unique<IconvCodePages>(); }

}  // namespace kolvane::adapters
