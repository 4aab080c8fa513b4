#include "process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

extern char** environ;  // NOLINT: POSIX wants it declared so

namespace kolvane::benchmarks {

namespace {

std::runtime_error failure(const std::string& what, int error) {
  return std::runtime_error(what + ": " + std::generic_category().message(error));
}

// This process's environment with LC_ALL=C.
std::vector<std::string> childEnvironment() {
  std::vector<std::string> variables{"LC_ALL=C"};
  for (char** each = environ; *each != nullptr; ++each)
    if (std::strncmp(*each, "LC_ALL=", 7) != 0) variables.emplace_back(*each);
  return variables;
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> all;
  for (std::string& text : texts) all.push_back(text.data());
  all.push_back(nullptr);
  return all;
}

std::string readAll(int descriptor) {
  std::string text;
  std::array<char, 1 << 16> buffer;
  while (true) {
    const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
    if (count > 0) text.append(buffer.data(), static_cast<std::size_t>(count));
    if (count == 0 || (count < 0 && errno != EINTR)) return text;
  }
}

pid_t start(std::vector<std::string> arguments, int output) {
  std::vector<std::string> variables = childEnvironment();
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  pid_t child = 0;
  const int error = ::posix_spawnp(&child, arguments[0].c_str(), &actions, nullptr,
                                   pointers(arguments).data(), pointers(variables).data());
  ::posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw failure(arguments[0], error);
  return child;
}

int waitFor(pid_t child) {
  int status = 0;
  while (::waitpid(child, &status, 0) < 0)
    if (errno != EINTR) throw failure("waitpid", errno);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// A value in kB of /proc/self/status, in bytes.
std::size_t statusBytes(std::string_view key) {
  std::ifstream in("/proc/self/status");
  for (std::string line; std::getline(in, line);)
    if (line.starts_with(key)) return std::stoul(line.substr(key.size() + 1)) * 1024;
  throw std::runtime_error("/proc/self/status does not tell " + std::string(key));
}

}  // namespace

Finished run(const std::vector<std::string>& arguments) {
  std::array<int, 2> ends;
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw failure("pipe", errno);
  const auto begin = std::chrono::steady_clock::now();
  pid_t child = 0;
  try {
    child = start(arguments, ends[1]);
  } catch (...) {
    ::close(ends[0]);
    ::close(ends[1]);
    throw;
  }
  ::close(ends[1]);
  Finished finished;
  finished.output = readAll(ends[0]);
  ::close(ends[0]);
  finished.status = waitFor(child);
  finished.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  return finished;
}

std::size_t residentBytes() { return statusBytes("VmRSS:"); }
std::size_t peakResidentBytes() { return statusBytes("VmHWM:"); }

TemporaryFolder::TemporaryFolder() {
  path_ = (std::filesystem::temp_directory_path() / "kolvane-bench-XXXXXX").string();
  if (::mkdtemp(path_.data()) == nullptr) throw failure(path_, errno);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace kolvane::benchmarks
