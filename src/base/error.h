// The suite's error object and the path that it collects on its way up.
//
// An Error carries a number (the run time's, the host's or a COM result), a description for people and a
// source: the dotted path of the procedures that it passed, such as
// "KolvaneLite.modVBIDEFunctions.Add_Procedure_Header". The path is built by ErrorScope guards.
#pragma once

#include <exception>
#include <memory>
#include <string>
#include <string_view>

namespace kolvane::base {

// Numbers that callers compare with. Others travel unnamed.
namespace errors {
inline constexpr long kInvalidCall = 5;
inline constexpr long kSubscript = 9;
inline constexpr long kTypeMismatch = 13;
inline constexpr long kProcedureNotDefined = 35;
inline constexpr long kInternal = 51;
inline constexpr long kFileNotFound = 53;
inline constexpr long kDeviceIo = 57;
inline constexpr long kDiskFull = 61;
inline constexpr long kPermissionDenied = 70;
inline constexpr long kPathAccess = 75;
inline constexpr long kPathNotFound = 76;
inline constexpr long kObjectNotSet = 91;
inline constexpr long kInvalidPattern = 93;
inline constexpr long kInvalidFormat = 321;
inline constexpr long kReadOnlyProperty = 383;
inline constexpr long kUnknownProperty = 438;
inline constexpr long kNotAvailable = 445;
inline constexpr long kNameConflict = 32813;
inline constexpr long kModuleNotEditable = 40198;
inline constexpr long kNotALegalName = 50132;
inline constexpr long kInvalidEventHandler = 57017;
inline constexpr long kInvalidArgument = -2147024809;  // &H80070057
}  // namespace errors

// The name that every source path begins with.
inline constexpr std::string_view kProductName = "KolvaneLite";

// Copies share one state, so that a guard's addition is seen by whoever catches the error. what() is the
// description. Throw by value, catch by const reference.
class Error : public std::exception {
 public:
  // An empty description is replaced by the standard text of the number, if there is one.
  explicit Error(long number, std::string_view description = {}, std::string_view source = kProductName);

  long number() const noexcept;
  const std::string& description() const noexcept;
  const std::string& source() const noexcept;
  const char* what() const noexcept override;

 private:
  friend class ErrorScope;
  struct State;
  std::shared_ptr<State> state_;
};

// The standard description of a number of `errors`; "Application-defined or object-defined error" for others.
std::string_view standardDescription(long number) noexcept;

// Stands at the head of a procedure. When an Error leaves the scope, "." module "." procedure is appended to
// its source. Costs two stores otherwise. Both names must outlive the scope (pass literals).
class ErrorScope {
 public:
  ErrorScope(std::string_view module, std::string_view procedure) noexcept
      : module_(module), procedure_(procedure), uncaught_(std::uncaught_exceptions()) {}
  ErrorScope(const ErrorScope&) = delete;
  ErrorScope& operator=(const ErrorScope&) = delete;
  ~ErrorScope();

 private:
  std::string_view module_;
  std::string_view procedure_;
  int uncaught_;
};

// The error being handled, as an Error: an Error as it is, any other exception as number 51 with its text.
// Call only inside a catch block.
Error currentError();

}  // namespace kolvane::base
