// What reading pages of the web promises, on the stand-in and on libcurl, which talks to a small server of the test's own
// on this machine and to nobody else.
#include "platform/web_pages.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <map>
#include <thread>

#include "adapters/web/curl_web_pages.h"
#include "platform/memory_web_pages.h"

namespace kolvane::platform {
namespace {

constexpr const char* kSilence = "";  // an answer that never comes

// Answers each path with the bytes that stand for it, one connection at a time, until it goes.
class LocalServer {
 public:
  explicit LocalServer(std::map<std::string, std::string> answers) : answers_(std::move(answers)) {
    sockaddr_in place{};
    place.sin_family = AF_INET;
    place.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof place;
    auto* address = reinterpret_cast<sockaddr*>(&place);
    if (listener_ < 0 || ::bind(listener_, address, size) != 0 || ::listen(listener_, 4) != 0 ||
        ::getsockname(listener_, address, &size) != 0)
      throw std::runtime_error("no local server");
    root_ = "http://127.0.0.1:" + std::to_string(ntohs(place.sin_port));
    thread_ = std::thread([this] { serve(); });
  }
  ~LocalServer() {
    ::shutdown(listener_, SHUT_RDWR);
    thread_.join();
    ::close(listener_);
  }
  LocalServer(const LocalServer&) = delete;
  LocalServer& operator=(const LocalServer&) = delete;

  const std::string& root() const { return root_; }

 private:
  void serve() {
    int client = -1;
    while ((client = ::accept(listener_, nullptr, nullptr)) >= 0) {
      std::string request;
      char buffer[1024];
      for (ssize_t count = 1; count > 0 && request.find("\r\n\r\n") == std::string::npos;) {
        count = ::read(client, buffer, sizeof buffer);
        if (count > 0) request.append(buffer, static_cast<std::size_t>(count));
      }
      const std::string path = request.substr(4, request.find(' ', 4) - 4);
      const auto answer = answers_.find(path);
      const std::string bytes = answer == answers_.end() ? "HTTP/1.0 404 Not Found\r\n\r\n" : answer->second;
      if (bytes.empty())
        while (::read(client, buffer, sizeof buffer) > 0) continue;
      ::send(client, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      ::close(client);
    }
  }

  std::map<std::string, std::string> answers_;
  int listener_ = ::socket(AF_INET, SOCK_STREAM, 0);
  std::string root_;
  std::thread thread_;
};

std::string page(const std::string& bytes) { return "HTTP/1.0 200 OK\r\n\r\n" + bytes; }

std::string outcome(WebPages& pages, const std::string& address) {
  try {
    return pages.read(address);
  } catch (const base::Error& error) {
    return "error " + std::to_string(error.number());
  }
}

void expectContract(WebPages& pages, const std::string& root, const std::string& bytes) {
  EXPECT_EQ(outcome(pages, root + "/page"), bytes);
  EXPECT_EQ(outcome(pages, root + "/none"), "error 57");
  for (const char* address : {"file:///etc/hostname", "ftp://127.0.0.1/", "/page", ""})
    EXPECT_EQ(outcome(pages, address), "error 5") << address;
}

const std::string kBytes("<p>\xE9\0\r\n", 8);

TEST(WebPages, theStandInKeepsTheContract) {
  MemoryWebPages pages;
  pages.pages["http://here/page"] = kBytes;
  expectContract(pages, "http://here", kBytes);
}

#ifdef KOLVANE_LIBCURL
TEST(WebPages, libcurlKeepsTheContractWithinItsLimits) {
  ::setenv("no_proxy", "127.0.0.1", 1);
  const adapters::WebLimits limits{std::chrono::milliseconds(2000), std::chrono::milliseconds(2000), 1000};
  const auto pages = adapters::makeWebPages(limits);
  std::string gone;
  {
    const LocalServer server({{"/page", page(kBytes)},
                              {"/moved", "HTTP/1.0 302 Found\r\nLocation: /page\r\n\r\n"},
                              {"/file", "HTTP/1.0 302 Found\r\nLocation: file:///etc/hostname\r\n\r\n"},
                              {"/round", "HTTP/1.0 302 Found\r\nLocation: /round\r\n\r\n"},
                              {"/full", page(std::string(1000, 'x'))},
                              {"/large", page(std::string(1001, 'x'))}});
    gone = server.root();
    expectContract(*pages, gone, kBytes);
    EXPECT_EQ(outcome(*pages, gone + "/moved"), kBytes);
    EXPECT_EQ(outcome(*pages, gone + "/file"), "error 57");
    EXPECT_EQ(outcome(*pages, gone + "/round"), "error 57");
    EXPECT_EQ(outcome(*pages, gone + "/full"), std::string(1000, 'x'));
    EXPECT_EQ(outcome(*pages, gone + "/large"), "error 57");
  }
  EXPECT_EQ(outcome(*pages, gone + "/page"), "error 57") << "the server has gone";
}

TEST(WebPages, libcurlWaitsForNoSilentServer) {
  ::setenv("no_proxy", "127.0.0.1", 1);
  const LocalServer server(std::map<std::string, std::string>{{"/", kSilence}});
  const auto pages = adapters::makeWebPages({std::chrono::milliseconds(100), std::chrono::milliseconds(100)});
  EXPECT_EQ(outcome(*pages, server.root() + "/"), "error 57");
}
#endif

}  // namespace
}  // namespace kolvane::platform
