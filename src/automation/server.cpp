#include "automation/server.h"

#include <algorithm>
#include <new>
#include <utility>
#include <variant>

#include "automation/method_table.h"
#include "base/error.h"
#include "forms/form.h"

namespace kolvane::automation {
namespace {

// Requests that are handled while work lets events through, inside each other; deeper ones wait.
constexpr std::size_t kMostTurns = 200;
// Modal forms upon each other; each takes its share of the stack.
constexpr std::size_t kMostModalForms = 200;

bool isUtf8(const std::string& text) {
  try {
    Json(text).dump();
    return true;
  } catch (const Json::exception&) {
    return false;
  }
}

constexpr const char* kNoMemory = "There is not enough memory for this request.";

std::variant<Request, Refusal> readOrRefuse(const platform::InputLine& line) {
  try {
    return readRequest(line);
  } catch (const std::bad_alloc&) {
    return Refusal{Id(kNoId), ErrorCode::kInternal, kNoMemory};
  }
}

}  // namespace

// An item of a stack, for as long as it lives.
template <class Item>
class Server::Pushed {
 public:
  Pushed(std::vector<Item*>& stack, Item& item) : stack_(stack) { stack_.push_back(&item); }
  Pushed(const Pushed&) = delete;
  Pushed& operator=(const Pushed&) = delete;
  ~Pushed() { stack_.pop_back(); }

 private:
  std::vector<Item*>& stack_;
};

Server::Server(Environment& environment) : environment_(environment), session_(environment, desk_) {
  desk_.runModal = [this](forms::Form& form) { runModal(form); };
  desk_.onDoEvents = [this] { doEvents(); };
}

Server::~Server() = default;

void Server::run() {
  try {
    while (const auto line = environment_.channel.read()) handle(*line);
  } catch (const Ended&) {
  }
  ended_ = true;
}

void Server::handle(const platform::InputLine& line) {
  auto read = readOrRefuse(line);
  if (auto* request = std::get_if<Request>(&read)) return handle(std::move(*request));
  const auto& refusal = std::get<Refusal>(read);
  answer(refusal.id, errorOf(refusal.code, refusal.sentence));
}

void Server::handle(Request request) {
  const bool formWasOpen = modalFormIsOpen();
  Turn turn{request.id};
  Outcome outcome;
  {
    const Pushed<Turn> current(turns_, turn);
    outcome = perform(request);
  }
  // Its own answer has gone out: what went wrong since is the answer of the request that let it go on.
  if (turn.answered && outcome.isError && !closings_.empty()) closings_.back().outcome = outcome;
  const bool closedForm = formWasOpen && !modalFormIsOpen();
  if (closedForm && !turn.answered) closings_.push_back({turn.id, outcome, modal_.size()});
  if (closedForm)
    for (Closing& closing : closings_) closing.depth = std::min(closing.depth, modal_.size());
  else if (!turn.answered)
    answer(turn.id, outcome);
  answerClosings();
  if (session_.ended()) {
    ended_ = true;
    throw Ended{};
  }
}

Outcome Server::perform(Request& request) {
  try {
    const Method* method = findMethod(request.method);
    if (method == nullptr)
      throw RequestError(ErrorCode::kUnknownMethod, "There is no method \"" + request.method + "\".");
    if (method->needsSession && !session_.started())
      throw RequestError(ErrorCode::kInvalidRequest, "session/start comes first.");
    checkParameters(*method, request.params,
                    session_.started() ? session_.codePage() : base::CodePage::get(base::CodePage::kDefault));
    if (method->run == nullptr)
      throw base::Error(base::errors::kNotAvailable, request.method + " is not available in this version.");
    return resultOf(method->run(session_, Arguments(request.params)));
  } catch (const RequestError& error) {
    return errorOf(error.code(), error.what());
  } catch (const base::Error& error) {
    return hostError(error);
  } catch (const std::bad_alloc&) {
    return errorOf(ErrorCode::kInternal, kNoMemory);
  } catch (const std::exception& error) {
    return errorOf(ErrorCode::kInternal, error.what());
  }
}

// Descriptions are in the code page, those of the file system in UTF-8.
Outcome Server::hostError(const base::Error& error) const {
  const auto readable = [this](const std::string& text) {
    return isUtf8(text) || !session_.started() ? text : session_.codePage().toUtf8(text);
  };
  const std::string description = readable(error.description());
  return errorOf(
      ErrorCode::kHost, description,
      Json{{"number", error.number()}, {"description", description}, {"source", readable(error.source())}});
}

void Server::answer(const Id& id, const Outcome& outcome) {
  if (!id.empty()) environment_.channel.write(answerLine(id, outcome));
}

bool Server::modalFormIsOpen() const { return !modal_.empty() && modal_.back()->visible(); }

// ---- forms and events

void Server::runModal(forms::Form& form) {
  if (ended_) throw Ended{};
  if (modal_.size() >= kMostModalForms)
    throw base::Error(base::errors::kInvalidCall, "Too many forms wait upon each other.");
  answerBlocked(form);
  const Pushed<forms::Form> current(modal_, form);
  while (form.visible()) {
    const auto line = environment_.channel.read();
    if (!line) {
      ended_ = true;
      throw Ended{};
    }
    handle(*line);
  }
}

void Server::answerBlocked(const forms::Form& form) {
  const Outcome blocked = resultOf({{"blocked", {{"form", form.name()}}}});
  if (!turns_.empty() && !std::exchange(turns_.back()->answered, true)) answer(turns_.back()->id, blocked);
  for (const Closing& closing : std::exchange(closings_, {}))
    answer(closing.id, closing.outcome.isError ? closing.outcome : blocked);
}

// Those whose loop has ended.
void Server::answerClosings() {
  std::vector<Closing> waiting;
  for (Closing& closing : std::exchange(closings_, {})) {
    if (closing.depth > modal_.size())
      answer(closing.id, closing.outcome);
    else
      waiting.push_back(std::move(closing));
  }
  closings_ = std::move(waiting);
}

// At the end of the input the work goes on: only those who wait for input end with it.
void Server::doEvents() {
  while (!ended_ && turns_.size() < kMostTurns && environment_.channel.ready())
    if (const auto line = environment_.channel.read()) handle(*line);
}

}  // namespace kolvane::automation
