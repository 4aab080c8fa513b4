#include "adapters/web/curl_web_pages.h"

#ifdef KOLVANE_LIBCURL

#include <curl/curl.h>

#include <string>

#include "base/error.h"
#include "base/text.h"

namespace kolvane::adapters {
namespace {

constexpr long kMostRedirections = 5;

struct Page {
  std::string bytes;
  std::size_t most;
};

// Takes what has arrived; less than all of it ends the transfer.
std::size_t take(const char* data, std::size_t, std::size_t count, void* page) {
  auto& into = *static_cast<Page*>(page);
  if (count > into.most - into.bytes.size()) return 0;
  into.bytes.append(data, count);
  return count;
}

class CurlWebPages final : public platform::WebPages {
 public:
  explicit CurlWebPages(const WebLimits& limits) : limits_(limits) {}

  std::string read(const std::string& address) override {
    const bool secure = base::startsWithNoCase(address, "https://");
    if (!secure && !base::startsWithNoCase(address, "http://"))
      throw base::Error(base::errors::kInvalidCall, "\"" + address + "\" is no address of a web page.");
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    const std::unique_ptr<CURL, void (*)(CURL*)> transfer(ready == CURLE_OK ? curl_easy_init() : nullptr,
                                                          curl_easy_cleanup);
    if (!transfer) throw base::Error(base::errors::kDeviceIo, "libcurl cannot be started.");
    Page page{{}, limits_.bytes};
    std::string reason(CURL_ERROR_SIZE, '\0');
    CURL* curl = transfer.get();
    curl_easy_setopt(curl, CURLOPT_URL, address.c_str());
    curl_easy_setopt(curl, CURLOPT_ERRORBUFFER, reason.data());
    curl_easy_setopt(curl, CURLOPT_USERAGENT, std::string(base::kProductName).c_str());
    curl_easy_setopt(curl, CURLOPT_PROTOCOLS_STR, "http,https");
    curl_easy_setopt(curl, CURLOPT_REDIR_PROTOCOLS_STR, secure ? "https" : "http,https");
    curl_easy_setopt(curl, CURLOPT_FOLLOWLOCATION, 1L);
    curl_easy_setopt(curl, CURLOPT_MAXREDIRS, kMostRedirections);
    curl_easy_setopt(curl, CURLOPT_FAILONERROR, 1L);
    curl_easy_setopt(curl, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(curl, CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limits_.connecting.count()));
    curl_easy_setopt(curl, CURLOPT_TIMEOUT_MS, static_cast<long>(limits_.all.count()));
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, take);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, &page);
    const CURLcode result = curl_easy_perform(curl);
    if (result == CURLE_WRITE_ERROR)
      throw base::Error(base::errors::kDeviceIo,
                        address + " is too large: more than " + std::to_string(limits_.bytes) + " bytes.");
    if (result != CURLE_OK)
      throw base::Error(base::errors::kDeviceIo,
                        address + ": " + (reason[0] == '\0' ? curl_easy_strerror(result) : reason.c_str()));
    return std::move(page.bytes);
  }

 private:
  WebLimits limits_;
};

}  // namespace

std::unique_ptr<platform::WebPages> makeWebPages(const WebLimits& limits) {
  return std::make_unique<CurlWebPages>(limits);
}

}  // namespace kolvane::adapters

#else

namespace kolvane::adapters {

std::unique_ptr<platform::WebPages> makeWebPages(const WebLimits&) {
  return std::make_unique<platform::NoWebPages>();
}

}  // namespace kolvane::adapters

#endif
