// The server: reads requests, has them done, answers; also while forms are open and while work lets events
// through.
//
// A request that opens a modal form is answered at once with {"blocked": {"form": name}}, and the requests
// that follow are handled in a loop within it until the form has gone. The request that closes the form is
// answered when the work that the form had interrupted has ended, or has opened the next form. So every
// request has one answer, at any depth.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "automation/environment.h"
#include "automation/json_rpc.h"
#include "automation/session.h"
#include "forms/scripted_desk.h"

namespace kolvane::automation {

class Server {
 public:
  // The environment must outlive the server.
  explicit Server(Environment& environment);
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  // Handles requests until the input or the session ends. Open work is abandoned then, with its forms, and
  // unsaved changes are dropped. Raises 57 when an answer cannot be written.
  void run();

 private:
  // Thrown through the work that open forms have interrupted.
  struct Ended {};

  // A request that is being handled.
  struct Turn {
    Id id;
    bool answered = false;  // with "blocked"
  };
  // A request that closed a form, and waits for the work behind it.
  struct Closing {
    Id id;
    Outcome outcome;
    std::size_t depth;  // of the loop that has to end first
  };
  template <class Item>
  class Pushed;

  void handle(const platform::InputLine& line);
  void handle(Request request);
  Outcome perform(Request& request);
  Outcome hostError(const base::Error& error) const;
  void answer(const Id& id, const Outcome& outcome);
  void answerBlocked(const forms::Form& form);
  void answerClosings();
  bool modalFormIsOpen() const;
  void runModal(forms::Form& form);
  void doEvents();

  Environment& environment_;
  forms::ScriptedDesk desk_;
  Session session_;
  std::vector<Turn*> turns_;         // the innermost last
  std::vector<forms::Form*> modal_;  // that are looped over, the innermost last
  std::vector<Closing> closings_;
  bool ended_ = false;
};

}  // namespace kolvane::automation
