// The operations of Code Maintenance: one row each, in the order of the check lists.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>

#include "frame/options.h"

namespace kolvane::maintenance {

// In the order of the rows.
enum class Operation : std::uint8_t {
  kIndent,
  kComments,
  kSort,
  kLineNumbers,
  kVariablePrefixes,
  kUnusedVariables,
  kCalledFrom,
  kUnusedProcedures,
};

enum class Target : std::uint8_t { kProject, kModule };
// As the combo boxes list them, in the order of the enumeration.
inline constexpr std::array<std::string_view, 2> kTargets{"Project", "Module"};

// What differs between the targets.
struct OperationItem {
  std::string_view key;  // of the row in the check list
  frame::Option option;
  std::string_view activity;  // behind the module's name, while it runs
};

struct OperationRow {
  Operation operation;
  std::string_view listText;
  std::string_view shortName;  // for a command line
  bool writes;                 // a module that cannot be written is left out
  std::array<OperationItem, 2> items;

  constexpr const OperationItem& item(Target target) const { return items[static_cast<std::size_t>(target)]; }
};

inline constexpr std::array<OperationRow, 8> kOperations{{
    {Operation::kIndent,
     "Indent Code",
     "indent",
     true,
     {{{"Project Indent Code", frame::option("CMPIC109"), " - Code Indenting"},
       {"Module Indent Code", frame::option("CMMIC104"), " - Indenting Code"}}}},
    {Operation::kComments,
     "Comments",
     "comments",
     true,
     {{{"Project Comments", frame::option("CMPFC105"), " - Formatting Comments"},
       {"Module Comments", frame::option("CMMFC100"), " - Formatting Comments"}}}},
    {Operation::kSort,
     "Sort Procedures",
     "sort",
     true,
     {{{"Project Sort Procedures", frame::option("CMPSP108"), " - Sorting"},
       {"Module Sort Procedures", frame::option("CMMSP103"), " - Sort Procedures"}}}},
    {Operation::kLineNumbers,
     "Invert LineNumbers",
     "number",
     true,
     {{{"Project Invert LineNumbers", frame::option("CMPLN107"), " - Line Numbers"},
       {"Module Invert LineNumbers", frame::option("CMMLN102"), " - Line Numbers"}}}},
    {Operation::kVariablePrefixes,
     "Report on Variable Prefixes",
     "prefixes",
     false,
     {{{"Project Variable Prefixes", frame::option("dghdghfghdfg395srthrthgh"),
        " - Reporting on Variable Prefixes"},
       {"Module Variable Prefixes", frame::option("ewqrqewrqwer421erewqr"),
        " - Reporting on Variable Prefixes"}}}},
    {Operation::kUnusedVariables,
     "Report on Unused Variables",
     "variables",
     false,
     {{{"Project Unused Variables", frame::option("ewrwerewrc420qwercqwr"),
        " - Reporting on Unused Variables"},
       {"Module Unused Variables", frame::option("rfwerferfwerf423dferferf"), " - Unused Variables"}}}},
    {Operation::kCalledFrom,
     "Update 'Called From' Header Field",
     "called-from",
     true,
     {{{"Project Update Called From", frame::option("erwtwertwr422ergtergtwer"),
        " - Updating 'Called From' field"},
       {"Module Update Called From", frame::option("dsfgfdgf425dsgfesgf"),
        " - Updating Called From Header Field"}}}},
    {Operation::kUnusedProcedures,
     "Report on Unused Procedures",
     "procedures",
     false,
     {{{"Project Unused Procedures", frame::option("xsjbsfd456bvsbv"), " - Reporting on Unused Procedures"},
       {"Module Unused Procedures", frame::option("gnfdv454sadfsdfs"), " - Unused Procedures"}}}},
}};

static_assert([] {
  for (std::size_t i = 0; i < kOperations.size(); ++i)
    if (static_cast<std::size_t>(kOperations[i].operation) != i) return false;
  return true;
}());

constexpr const OperationRow& rowOf(Operation operation) {
  return kOperations[static_cast<std::size_t>(operation)];
}

// The operation of that short name.
constexpr std::optional<Operation> operationNamed(std::string_view shortName) {
  for (const OperationRow& row : kOperations)
    if (row.shortName == shortName) return row.operation;
  return std::nullopt;
}

// Some of the operations.
class OperationSet {
 public:
  constexpr OperationSet() = default;
  constexpr OperationSet(std::initializer_list<Operation> operations) {
    for (const Operation operation : operations) add(operation);
  }

  constexpr void add(Operation operation) { bits_ |= bit(operation); }
  constexpr void remove(Operation operation) { bits_ &= ~bit(operation); }
  constexpr bool has(Operation operation) const { return (bits_ & bit(operation)) != 0; }
  constexpr bool empty() const { return bits_ == 0; }
  constexpr int count() const {
    int count = 0;
    for (const OperationRow& row : kOperations) count += has(row.operation) ? 1 : 0;
    return count;
  }
  // Any of them changes code.
  constexpr bool writes() const {
    for (const OperationRow& row : kOperations)
      if (row.writes && has(row.operation)) return true;
    return false;
  }
  bool operator==(const OperationSet&) const = default;

 private:
  static constexpr unsigned bit(Operation operation) { return 1U << static_cast<unsigned>(operation); }
  unsigned bits_ = 0;
};

}  // namespace kolvane::maintenance
