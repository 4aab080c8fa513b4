#include "callers.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <stdexcept>

#include "maintenance/caller_search.h"
#include "measuring.h"

namespace kolvane::benchmarks {

namespace {

using Clock = std::chrono::steady_clock;
using maintenance::Caller;
using maintenance::SoughtProcedure;

// Public procedures of the modules of one type.
std::vector<SoughtProcedure> publicProcedures(frame::VBProject& project, frame::ComponentType type) {
  std::vector<SoughtProcedure> all;
  for (const auto& component : project.VBComponents()->items()) {
    if (component->Type() != type) continue;
    for (SoughtProcedure& procedure : maintenance::soughtMembers(component))
      if (procedure.isPublic) all.push_back(std::move(procedure));
  }
  return all;
}

// The one that is called most often.
SoughtProcedure mostCalled(const frame::Services& services, const std::vector<SoughtProcedure>& procedures,
                           const maintenance::ProjectWords& words) {
  const SoughtProcedure* best = nullptr;
  std::size_t most = 0;
  for (const SoughtProcedure& procedure : procedures) {
    const std::size_t count = maintenance::findCallers(services, procedure, nullptr, &words).size();
    if (best && count <= most) continue;
    best = &procedure;
    most = count;
  }
  if (!best) throw std::runtime_error("the project has no public procedure of that kind");
  return *best;
}

Measured compareWithGrep(const Bench& bench, const std::string& word, const std::function<void()>& own) {
  return compare(bench, {"grep", "-rwn", word, bench.project.folder}, [&] { return secondsOf(own); });
}

Measured measureCallers(Bench& bench, frame::ComponentType type) {
  const Suite suite(bench.opened);
  const frame::Services& services = suite.services;
  const auto modules = maintenance::searchedModules(services.vbe);
  const maintenance::ProjectWords words(modules, maintenance::procedureNames(modules), nullptr);
  const SoughtProcedure sought = mostCalled(services, publicProcedures(*bench.opened.project, type), words);
  std::vector<Caller> callers;
  Measured measured =
      compareWithGrep(bench, sought.name, [&] { callers = maintenance::findCallers(services, sought); });
  measured.note =
      sought.module->Name() + "." + sought.name + ", " + std::to_string(callers.size()) + " callers";
  return measured;
}

Measured measureOfModule(Bench& bench) { return measureCallers(bench, frame::ComponentType::kStdModule); }
Measured measureOfClass(Bench& bench) { return measureCallers(bench, frame::ComponentType::kClassModule); }

// What filling the Called From field of every header searches for.
Measured measureEveryProcedure(Bench& bench) {
  const Suite suite(bench.opened);
  const frame::Services& services = suite.services;
  std::size_t procedures = 0, callers = 0;
  Measured measured = compareWithGrep(bench, "Private", [&] {
    procedures = callers = 0;
    const auto modules = maintenance::searchedModules(services.vbe);
    const maintenance::ProjectWords words(modules, maintenance::procedureNames(modules), nullptr);
    maintenance::CallerSearch search(
        services, bench.opened.project->Name(), [&callers](const Caller&) { ++callers; }, nullptr, &words);
    for (const auto& component : bench.opened.project->VBComponents()->items())
      for (const SoughtProcedure& procedure : maintenance::soughtMembers(component)) {
        search.findAll(procedure);
        ++procedures;
      }
  });
  measured.note = std::to_string(procedures) + " procedures, " + std::to_string(callers) + " callers";
  return measured;
}

// How long the search of every procedure goes without asking whether it is to go on. The dialog's Cancel is answered
// that long after a click, and 25 ms later at most.
Measured measureCancel(Bench& bench) {
  const Suite suite(bench.opened);
  const frame::Services& services = suite.services;
  Measured measured;
  measured.value = medianOf(bench, [&] {
    auto last = Clock::now();
    double longest = 0;
    const auto keepGoing = [&] {
      const auto now = Clock::now();
      longest = std::max(longest, std::chrono::duration<double>(now - last).count());
      last = now;
      return true;
    };
    const auto modules = maintenance::searchedModules(services.vbe);
    const maintenance::ProjectWords words(modules, maintenance::procedureNames(modules), keepGoing);
    maintenance::CallerSearch search(
        services, bench.opened.project->Name(), [](const Caller&) {}, keepGoing, &words);
    for (const auto& component : bench.opened.project->VBComponents()->items())
      for (const SoughtProcedure& procedure : maintenance::soughtMembers(component))
        search.findAll(procedure);
    keepGoing();
    return longest;
  });
  measured.note = "longest stretch without asking whether to go on";
  return measured;
}

constexpr Figure kCallersFigures[] = {
    {"callers of a public procedure of a module", "grep -rwn", "x", 4, measureOfModule},
    {"callers of a public method of a class", "grep -rwn", "x", 4, measureOfClass},
    {"callers of every procedure of the project", "grep -rwn", "x", 30, measureEveryProcedure},
    {"cancelling that search", "", "s", 0.1, measureCancel},
};

}  // namespace

std::span<const Figure> callersFigures() { return kCallersFigures; }

}  // namespace kolvane::benchmarks
