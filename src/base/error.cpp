#include "base/error.h"

#include <array>
#include <utility>

namespace kolvane::base {

struct Error::State {
  long number;
  std::string description;
  std::string source;
};

namespace {

// The state of the newest Error of this thread: a guard that unwinds cannot reach the exception object
// itself.
std::weak_ptr<void>& newestState() {
  thread_local std::weak_ptr<void> newest;
  return newest;
}

constexpr std::array<std::pair<long, std::string_view>, 21> kDescriptions{{
    {errors::kInvalidCall, "Invalid procedure call or argument"},
    {errors::kSubscript, "Subscript out of range"},
    {errors::kTypeMismatch, "Type mismatch"},
    {errors::kProcedureNotDefined, "Sub or Function not defined"},
    {errors::kInternal, "Internal error"},
    {errors::kFileNotFound, "File not found"},
    {errors::kDeviceIo, "Device I/O error"},
    {errors::kDiskFull, "Disk full"},
    {errors::kPermissionDenied, "Permission denied"},
    {errors::kPathAccess, "Path/File access error"},
    {errors::kPathNotFound, "Path not found"},
    {errors::kObjectNotSet, "Object variable not set"},
    {errors::kInvalidPattern, "Invalid pattern string"},
    {errors::kInvalidFormat, "Invalid file format"},
    {errors::kReadOnlyProperty, "Property is read-only"},
    {errors::kUnknownProperty, "Object doesn't support this property or method"},
    {errors::kNotAvailable, "Object doesn't support this action"},
    {errors::kNameConflict, "Name conflicts with existing module, project, or object library"},
    {errors::kModuleNotEditable, "Can't edit module"},
    {errors::kInvalidEventHandler, "Event handler is invalid"},
    {errors::kInvalidArgument, "The parameter is incorrect"},
}};

}  // namespace

std::string_view standardDescription(long number) noexcept {
  if (number == errors::kNotALegalName) return "Not a legal object name";
  for (const auto& [known, text] : kDescriptions)
    if (known == number) return text;
  return "Application-defined or object-defined error";
}

Error::Error(long number, std::string_view description, std::string_view source)
    : state_(std::make_shared<State>(
          State{number, std::string(description.empty() ? standardDescription(number) : description),
                std::string(source)})) {
  newestState() = state_;
}

long Error::number() const noexcept { return state_->number; }
const std::string& Error::description() const noexcept { return state_->description; }
const std::string& Error::source() const noexcept { return state_->source; }
const char* Error::what() const noexcept { return state_->description.c_str(); }

ErrorScope::~ErrorScope() {
  if (std::uncaught_exceptions() <= uncaught_) return;
  const auto state = std::static_pointer_cast<Error::State>(newestState().lock());
  if (!state) return;
  state->source.append(".").append(module_).append(".").append(procedure_);
}

Error currentError() {
  try {
    throw;
  } catch (const Error& error) {
    return error;
  } catch (const std::exception& error) {
    return Error(errors::kInternal, error.what());
  } catch (...) {
    return Error(errors::kInternal);
  }
}

}  // namespace kolvane::base
