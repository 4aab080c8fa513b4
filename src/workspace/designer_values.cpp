#include "workspace/designer_values.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>

#include "base/error.h"
#include "base/text.h"
#include "workspace/header_lines.h"

namespace kolvane::workspace {
namespace {

using frame::ObjectValue;
using frame::Value;

constexpr double kPlainLimit = 100000;  // larger singles are spelled with an exponent
constexpr std::size_t kFraction = 5;    // digits behind the point in that spelling, at least
constexpr std::size_t kTruthQuote = 4;  // where the comment of a truth value begins

// Without the comment: `2` of `2  'Center`.
std::string_view bare(std::string_view text) {
  const std::size_t start = text.starts_with("$\"") ? 1 : 0;
  const std::size_t size = quotedLength(text.substr(start));
  if (size == 0) return trimRight(text.substr(0, text.find('\'')));
  return text.substr(0, std::min(text.find_first_of(" \t'", start + size), text.size()));
}

bool isQuoted(std::string_view text) { return !text.empty() && quotedLength(text) == text.size(); }

bool isHexadecimal(std::string_view text) { return base::startsWithNoCase(text, "&H"); }

std::optional<long> wholeNumber(std::string_view text) {
  int radix = 10;
  if (isHexadecimal(text)) {
    text.remove_prefix(2);
    if (text.ends_with('&')) text.remove_suffix(1);
    radix = 16;
  }
  long value = 0;
  const auto [end, status] = std::from_chars(text.data(), text.data() + text.size(), value, radix);
  if (status != std::errc() || end != text.data() + text.size() || text.empty()) return std::nullopt;
  return value;
}

// Some libraries write the decimal sign of the author's country.
std::optional<double> fraction(std::string_view text) {
  std::string plain(text);
  if (const std::size_t comma = plain.find(','); comma != std::string::npos) plain[comma] = '.';
  if (isHexadecimal(text) || !base::isNumeric(plain)) return std::nullopt;
  return base::val(plain);
}

// The host's whole numbers have 32 bits: &H80000005& is a negative one.
long wrapped(long value) { return static_cast<std::int32_t>(static_cast<std::uint32_t>(value)); }

std::string_view kindOf(const PropertyInfo& property) {
  switch (property.type) {
    case PropertyType::kPicture:
      return "Picture";
    case PropertyType::kList:
      return "List";
    case PropertyType::kText:
      return "Text";
    default:
      return property.name;
  }
}

ObjectValue object(const PropertyInfo& property, std::string_view text) {
  return {std::string(kindOf(property)), std::string(text), {}};
}

// A text that does not fit its property's type, as what it looks like.
Value loose(std::string_view text) {
  if (isQuoted(text)) return unquoted(text);
  if (const auto number = wholeNumber(text)) return *number;
  if (const auto number = fraction(text)) return *number;
  return std::string(text);
}

double numberIn(const Value& value) {
  if (std::holds_alternative<std::monostate>(value)) return 0;
  if (const bool* truth = std::get_if<bool>(&value)) return *truth ? -1 : 0;
  if (const long* whole = std::get_if<long>(&value)) return static_cast<double>(*whole);
  if (const double* number = std::get_if<double>(&value)) return *number;
  if (const std::string* text = std::get_if<std::string>(&value)) {
    const std::string_view trimmed = base::trim(*text);
    if (isHexadecimal(trimmed))
      if (const auto number = wholeNumber(trimmed)) return static_cast<double>(*number);
    if (base::isNumeric(trimmed)) return base::val(trimmed);
    if (base::equalNoCase(trimmed, "True")) return -1;
    if (base::equalNoCase(trimmed, "False")) return 0;
  }
  throw base::Error(base::errors::kTypeMismatch);
}

long wholeIn(const Value& value, double least, double most) {
  const double number = std::nearbyint(numberIn(value));  // halves go to the even neighbour
  if (!(number >= least && number <= most)) throw base::Error(errors::kOverflow, "Overflow");
  return static_cast<long>(number);
}

double singleIn(const Value& value) {
  const double number = numberIn(value);
  if (!(std::abs(number) <= static_cast<double>(std::numeric_limits<float>::max())))
    throw base::Error(errors::kOverflow, "Overflow");
  return number;
}

std::string textIn(const Value& value) {
  if (std::holds_alternative<ObjectValue>(value)) throw base::Error(base::errors::kTypeMismatch);
  std::string text = std::holds_alternative<std::monostate>(value) ? std::string() : frame::toText(value);
  if (text.find_first_of("\r\n") != std::string::npos)
    throw base::Error(
        base::errors::kInvalidFormat,
        "A text of several lines is kept in the form's companion file, which cannot be written");
  return text;
}

// ^S, +{F3}, %{BKSP}
bool isShortcut(std::string_view text) {
  while (!text.empty() && (text.front() == '^' || text.front() == '+' || text.front() == '%'))
    text.remove_prefix(1);
  if (text.starts_with('{') && text.ends_with('}')) text = text.substr(1, text.size() - 2);
  if (text.empty()) return false;
  for (const char c : text)
    if (!base::isAsciiLetter(c) && !base::isDigit(c)) return false;
  return true;
}

std::string shortcutIn(const Value& value) {
  const std::string* text = std::get_if<std::string>(&value);
  if (text == nullptr || text->empty()) {
    if (text != nullptr || numberIn(value) == 0) return {};
  } else if (isShortcut(*text)) {
    return *text;
  }
  throw base::Error(errors::kInvalidPropertyValue, "Invalid property value");
}

// "1215", "8.25", "1.00090e5"
std::string singleText(double value) {
  const auto number = static_cast<float>(value);
  std::array<char, 64> buffer{};
  const bool plain = std::abs(number) < static_cast<float>(kPlainLimit);
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number == 0 ? 0.0F : number,
                                 plain ? std::chars_format::fixed : std::chars_format::scientific)
                       .ptr;
  const std::string text(buffer.data(), end);
  if (plain) return text;
  const std::size_t exponent = text.find('e');
  std::string digits = text.substr(0, exponent);
  if (digits.find('.') == std::string::npos) digits.append(".");
  while (digits.size() - digits.find('.') - 1 < kFraction) digits.append("0");
  // "e+05" is spelled "e5".
  return digits + "e" + std::to_string(base::toLong(text.substr(text.find_first_of("123456789", exponent))));
}

std::string colourText(long value) {
  std::array<char, 16> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "&H%08X&", static_cast<std::uint32_t>(value));
  return buffer.data();
}

}  // namespace

Value valueOf(const PropertyInfo& property, std::string_view text) {
  const std::string_view plain = bare(text);
  switch (property.type) {
    case PropertyType::kText:
      if (isQuoted(plain)) return unquoted(plain);
      if (!companionOf(plain).empty()) return object(property, plain);
      return std::string(plain);
    case PropertyType::kShortcut:
    case PropertyType::kRaw:
      return std::string(plain);
    case PropertyType::kBoolean:
      if (const auto number = wholeNumber(plain)) return *number != 0;
      return loose(plain);
    case PropertyType::kEnumeration:
    case PropertyType::kInteger:
    case PropertyType::kLong:
    case PropertyType::kColour:
      if (const auto number = wholeNumber(plain)) return wrapped(*number);
      return loose(plain);
    case PropertyType::kSingle:
      if (const auto number = fraction(plain)) return *number;
      return loose(plain);
    case PropertyType::kNumber:
      return loose(plain);
    case PropertyType::kPicture:
    case PropertyType::kList:
    case PropertyType::kFont:
    case PropertyType::kGroup:
      return object(property, plain);
  }
  return loose(plain);
}

Value defaultOf(const PropertyInfo& property) {
  switch (property.type) {
    case PropertyType::kText:
    case PropertyType::kShortcut:
    case PropertyType::kRaw:
      return std::string(property.text);
    case PropertyType::kBoolean:
      return property.number != 0;
    case PropertyType::kSingle:
      return property.text.empty() ? static_cast<double>(property.number) : base::val(property.text);
    case PropertyType::kPicture:
    case PropertyType::kList:
    case PropertyType::kFont:
    case PropertyType::kGroup:
      return object(property, {});
    default:
      return static_cast<long>(property.number);
  }
}

PropertyType inferredType(std::string_view text) {
  const std::string_view plain = bare(text);
  if (isQuoted(plain)) return PropertyType::kText;
  if (!companionOf(plain).empty())
    return plain.starts_with('$') ? PropertyType::kText : PropertyType::kPicture;
  const auto number = wholeNumber(plain);
  if (number && isHexadecimal(plain)) return PropertyType::kColour;
  const bool quoteInPlace = text.size() > kTruthQuote && text[kTruthQuote] == '\'';
  if (number && quoteInPlace && (*number == 0 || *number == -1)) return PropertyType::kBoolean;
  return number || fraction(plain) ? PropertyType::kNumber : PropertyType::kRaw;
}

Value converted(const PropertyInfo& property, const Value& value) {
  switch (property.type) {
    case PropertyType::kText:
      return textIn(value);
    case PropertyType::kShortcut:
      return shortcutIn(value);
    case PropertyType::kBoolean:
      return numberIn(value) != 0;
    case PropertyType::kInteger:
      return wholeIn(value, std::numeric_limits<std::int16_t>::min(),
                     std::numeric_limits<std::int16_t>::max());
    case PropertyType::kEnumeration:
    case PropertyType::kLong:
      return wholeIn(value, std::numeric_limits<std::int32_t>::min(),
                     std::numeric_limits<std::int32_t>::max());
    case PropertyType::kColour:
      return wrapped(wholeIn(value, std::numeric_limits<std::int32_t>::min(),
                             std::numeric_limits<std::uint32_t>::max()));
    case PropertyType::kSingle:
      return singleIn(value);
    case PropertyType::kNumber: {
      const double number = singleIn(value);
      const bool whole = number == std::nearbyint(number) && std::abs(number) < kPlainLimit * kPlainLimit;
      return whole ? Value(static_cast<long>(number)) : Value(number);
    }
    case PropertyType::kRaw:
      throw base::Error(base::errors::kReadOnlyProperty);
    default:
      break;
  }
  if (std::holds_alternative<std::monostate>(value)) return object(property, {});
  const ObjectValue* given = std::get_if<ObjectValue>(&value);
  if (given == nullptr) throw base::Error(base::errors::kTypeMismatch);
  if (!given->text.empty() || !given->parts.empty())
    throw base::Error(base::errors::kInvalidFormat,
                      "The value is kept in the form's companion file, which cannot be written");
  return object(property, {});
}

bool sameValue(const PropertyInfo& property, const Value& a, const Value& b) {
  const double* x = std::get_if<double>(&a);
  const double* y = std::get_if<double>(&b);
  if (property.type != PropertyType::kSingle || x == nullptr || y == nullptr) return a == b;
  return static_cast<float>(*x) == static_cast<float>(*y);
}

std::string fileText(const PropertyInfo& property, const Value& value) {
  if (const bool* truth = std::get_if<bool>(&value))
    return numberWithName(*truth ? -1 : 0, base::boolText(*truth));
  if (const double* number = std::get_if<double>(&value))
    return property.type == PropertyType::kNumber ? base::numberText(*number) : singleText(*number);
  if (const std::string* text = std::get_if<std::string>(&value))
    return property.type == PropertyType::kText ? quoted(*text) : *text;
  const long* whole = std::get_if<long>(&value);
  if (whole == nullptr) throw base::Error(base::errors::kTypeMismatch);
  if (property.type == PropertyType::kColour) return colourText(*whole);
  return numberWithName(*whole, valueName(property, *whole));
}

}  // namespace kolvane::workspace
