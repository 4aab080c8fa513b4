#include "automation/json_rpc.h"

#include <array>
#include <utility>

namespace kolvane::automation {
namespace {

constexpr std::array<std::string_view, 4> kMembers{"jsonrpc", "id", "method", "params"};

// How deep brackets stand inside each other; looks at no more than it must to tell what is too deep.
bool isTooDeep(std::string_view text) {
  int depth = 0;
  bool inString = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (inString) {
      if (c == '\\') ++i;
      if (c == '"') inString = false;
    } else if (c == '"') {
      inString = true;
    } else if (c == '[' || c == '{') {
      if (++depth > kDeepestNesting) return true;
    } else if (c == ']' || c == '}') {
      --depth;
    }
  }
  return false;
}

// "parse error at line 1, column 5: syntax error …" of the library without its number in brackets.
std::string plainReason(std::string_view what) {
  if (const std::size_t end = what.find("] "); what.starts_with('[') && end != std::string_view::npos)
    what.remove_prefix(end + 2);
  return std::string(what);
}

// The parser takes a NUL for the end of the text: what stands behind it would go unread.
bool holdsNul(std::string_view text) { return text.find('\0') != std::string_view::npos; }

bool isId(const Input& id) { return id.is_string() || id.is_number() || id.is_null(); }

class Reader {
 public:
  explicit Reader(Input document) : document_(std::move(document)) {}

  std::variant<Request, Refusal> read() {
    if (document_.is_array())
      return refusal("Batches are not taken: send each request on a line of its own.");
    if (!document_.is_object()) return refusal("A request is an object.");
    const auto id = document_.find("id");
    if (id != document_.end() && !isId(*id)) return refusal("\"id\" is a text, a number or null.");
    if (id != document_.end()) request_.id = lineOf(*id);
    if (const std::string fault = faultOfMembers(); !fault.empty()) return refusal(fault);
    request_.method = document_["method"].get<std::string>();
    if (const auto params = document_.find("params"); params != document_.end()) return withParams(*params);
    return std::move(request_);
  }

 private:
  std::string faultOfMembers() const {
    if (const auto version = document_.find("jsonrpc"); version == document_.end() || *version != "2.0")
      return "\"jsonrpc\" must be \"2.0\".";
    if (const auto method = document_.find("method"); method == document_.end() || !method->is_string())
      return "\"method\" must name a method.";
    for (const auto& member : document_.items())
      if (std::find(kMembers.begin(), kMembers.end(), member.key()) == kMembers.end())
        return "A request has no member \"" + member.key() + "\".";
    return {};
  }

  std::variant<Request, Refusal> withParams(Input& params) {
    if (params.is_object())
      request_.params = std::move(params);
    else if (!params.is_array())
      return refusal("\"params\" must be an object.");
    else if (!params.empty())
      return Refusal{request_.id, ErrorCode::kBadParameters,
                     "Parameters are given by name: \"params\" must be an object."};
    return std::move(request_);
  }

  // A request that is none is answered even without an id.
  Refusal refusal(std::string sentence) const {
    return {request_.id.empty() ? Id(kNoId) : request_.id, ErrorCode::kInvalidRequest, std::move(sentence)};
  }

  Input document_;
  Request request_;
};

}  // namespace

std::variant<Request, Refusal> readRequest(const platform::InputLine& line) {
  const auto refused = [](ErrorCode code, std::string sentence) {
    return Refusal{Id(kNoId), code, std::move(sentence)};
  };
  if (line.tooLong)
    return refused(ErrorCode::kInvalidRequest,
                   "The line is longer than " + std::to_string(platform::kLongestLine) + " bytes.");
  if (isTooDeep(line.text))
    return refused(ErrorCode::kInvalidRequest,
                   "The request is nested deeper than " + std::to_string(kDeepestNesting) + " levels.");
  if (holdsNul(line.text))
    return refused(ErrorCode::kNotJson, "The line is not JSON: it holds a NUL character.");
  try {
    return Reader(Input::parse(line.text)).read();
  } catch (const Input::exception& error) {
    return refused(ErrorCode::kNotJson, "The line is not JSON: " + plainReason(error.what()) + ".");
  }
}

Outcome resultOf(const Json& result) { return {false, "\"result\":" + lineOf(result)}; }

Outcome errorOf(ErrorCode code, std::string_view sentence, const std::optional<Json>& data) {
  Json error{{"code", static_cast<int>(code)}, {"message", sentence}};
  if (data) error["data"] = *data;
  return {true, "\"error\":" + lineOf(error)};
}

std::string answerLine(const Id& id, const Outcome& outcome) {
  return "{\"jsonrpc\":\"2.0\",\"id\":" + id + "," + outcome.body + "}";
}

}  // namespace kolvane::automation
