#include "adapters/system/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

namespace kolvane::adapters {

void prepareStandardStreams() {
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  // The lowest free number comes first. Reading gives the end of the file, writing fails.
  int number = 0;
  do number = ::open("/dev/null", O_RDONLY);
  while (number >= 0 && number <= STDERR_FILENO);
  if (number > STDERR_FILENO) ::close(number);
}

DescriptorOutput::DescriptorOutput(int descriptor) : descriptor_(descriptor) {
  setp(buffer_.data(), buffer_.data() + buffer_.size());
}

std::string DescriptorOutput::failure() const { return error_ == 0 ? "" : std::strerror(error_); }

DescriptorOutput::int_type DescriptorOutput::overflow(int_type c) {
  if (!writeOut()) return traits_type::eof();
  if (!traits_type::eq_int_type(c, traits_type::eof())) sputc(traits_type::to_char_type(c));
  return traits_type::not_eof(c);
}

bool DescriptorOutput::writeOut() {
  const char* at = pbase();
  while (error_ == 0 && at < pptr()) {
    const ssize_t put = ::write(descriptor_, at, static_cast<std::size_t>(pptr() - at));
    if (put >= 0)
      at += put;
    else if (errno != EINTR)
      error_ = errno;
  }
  setp(buffer_.data(), buffer_.data() + buffer_.size());
  return error_ == 0;
}

}  // namespace kolvane::adapters
