// The automation server: whatever the lines are, each request gets one answer, every answer is JSON of one
// line, and the server stays up until it is told to end.
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "automation/json.h"
#include "automation/server.h"
#include "base/text.h"
#include "platform/memory_files.h"
#include "platform/memory_tree_store.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  using namespace kolvane;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  platform::MemoryLineChannel channel;
  channel.send(R"({"jsonrpc":"2.0","method":"session/start"})");
  channel.send(R"({"jsonrpc":"2.0","method":"host/newProject"})");
  std::size_t sent = 0;
  for (const std::string& line : base::split(std::string(input), "\n")) {
    channel.send(line);
    ++sent;
  }
  platform::MemoryFiles files;
  platform::FixedClock clock({2026, 11, 22, 10, 20, 30});
  platform::FixedUser user("ann");
  automation::Environment environment{channel,
                                      files,
                                      clock,
                                      user,
                                      [](const std::string&) { return std::make_unique<platform::MemoryTreeStore>(); },
                                      ""};
  automation::Server(environment).run();
  const auto answers = channel.take();
  if (answers.size() > sent) std::abort();
  for (const std::string& answer : answers) {
    if (answer.find('\n') != std::string::npos) std::abort();
    const auto json = automation::Json::parse(answer);
    if (json.contains("result") == json.contains("error")) std::abort();
  }
  return 0;
}
