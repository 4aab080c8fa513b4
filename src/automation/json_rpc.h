// JSON-RPC 2.0: from a line to a request, from an outcome to a line. No line is too broken to be answered.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

#include "automation/json.h"
#include "platform/line_channel.h"

namespace kolvane::automation {

enum class ErrorCode : int {
  kNotJson = -32700,
  kInvalidRequest = -32600,
  kUnknownMethod = -32601,
  kBadParameters = -32602,
  kInternal = -32603,
  kHost = -32000,  // an error of the host or of the suite's run time, told in "data"
};

// Arrays and objects inside each other, the request itself counted.
inline constexpr int kDeepestNesting = 64;

// A request that cannot be met as it stands. what() is the sentence for the client, in UTF-8.
class RequestError : public std::runtime_error {
 public:
  RequestError(ErrorCode code, const std::string& sentence) : std::runtime_error(sentence), code_(code) {}
  ErrorCode code() const { return code_; }

 private:
  ErrorCode code_;
};

// An id as it stands in the answer: "7", "\"a\"", "null". Empty for a notification, which is never answered.
using Id = std::string;
inline constexpr std::string_view kNoId = "null";

struct Request {
  Id id;
  std::string method;
  Input params = Input::object();  // always an object
};

struct Refusal {
  Id id;
  ErrorCode code;
  std::string sentence;
};

// Never throws but for want of memory.
std::variant<Request, Refusal> readRequest(const platform::InputLine& line);

// What a request came to: the answer without its id.
struct Outcome {
  bool isError = false;
  std::string body;  // "result":… or "error":…
};

Outcome resultOf(const Json& result);
Outcome errorOf(ErrorCode code, std::string_view sentence, const std::optional<Json>& data = std::nullopt);
// The whole line.
std::string answerLine(const Id& id, const Outcome& outcome);

}  // namespace kolvane::automation
