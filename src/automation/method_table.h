// Every method of the interface, in one table: the server, the check of parameters and the documentation loop
// over it.
#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

#include "automation/methods.h"
#include "base/code_page.h"

namespace kolvane::automation {

enum class Kind {
  // Texts, up to kKeyPath.
  kText,         // in the session's code page
  kUnicode,      // any text: names of users, the clipboard
  kPath,         // any text but the empty one, which names no file
  kKeyPath,      // the same in the session's code page: of a key of the settings
  kTexts,        // a list of texts
  kWhole,        // a whole number of 32 bits
  kNumber,       // a number; true and false stand for 1 and 0
  kTruth,        // true or false
  kTextOrWhole,  // a name or a position
  kScalar,       // a text, number or truth value
  kScalars,      // an object of such
  kRows,         // a row's number or a key, or a list of these
  kTick,         // {"row": number, "value": true} or {"node": key, "value": true}
};

struct Parameter {
  std::string_view name;
  Kind kind;
  bool optional = false;
  std::string_view choices = {};  // all that is allowed, parted by "|"; empty: anything of the kind
};

class Parameters {
 public:
  static constexpr std::size_t kMost = 9;

  constexpr Parameters() = default;
  constexpr Parameters(std::initializer_list<Parameter> list) {
    for (const Parameter& parameter : list) all_[count_++] = parameter;
  }
  constexpr const Parameter* begin() const { return all_.data(); }
  constexpr const Parameter* end() const { return all_.data() + count_; }

 private:
  std::array<Parameter, kMost> all_{};
  std::size_t count_ = 0;
};

struct Method {
  std::string_view name;  // "group/method"
  Parameters parameters;
  std::string_view gives;  // the members of the result
  std::string_view does;
  MethodFunction* run;  // nullptr: what it is for is not in this version
  bool needsSession = true;

  constexpr std::string_view group() const { return name.substr(0, name.find('/')); }
};

// In the order of the documentation.
std::span<const Method> allMethods();

// Nothing for an unknown name; names are compared byte for byte.
const Method* findMethod(std::string_view name);

// Raises a RequestError of kBadParameters with a sentence that names the parameter, when one is missing,
// unknown, of the wrong kind or none of the choices. Afterwards texts of kText and the kinds made of it are
// in the code page, and whole numbers are integers, however they were written.
void checkParameters(const Method& method, Input& params, const base::CodePage& codePage);

// What the documentation says of a parameter: "`line`? whole number"; a text goes without its kind.
std::string describe(const Parameter& parameter);

}  // namespace kolvane::automation
