#include "frame/settings_text.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/text.h"
#include "platform/tree_path.h"

namespace kolvane::frame {
namespace {

using platform::StoredValue;
using platform::TreeStore;
using platform::ValueType;

constexpr std::string_view kHeader = "KolvaneLite settings, format ";
constexpr int kFormat = 1;
constexpr std::string_view kTree = "tree ";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kNumber = "number:";
constexpr std::string_view kBinary = "binary:";

unsigned char byteOf(char c) { return static_cast<unsigned char>(c); }
bool isControl(char c) { return byteOf(c) < 0x20 || byteOf(c) == 0x7F; }

void appendHex(std::string& out, char c) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  out.push_back(kDigits[byteOf(c) >> 4]);
  out.push_back(kDigits[byteOf(c) & 15]);
}

// The byte of two hexadecimal digits.
std::optional<char> hexByte(std::string_view digits) {
  unsigned value = 0;
  if (digits.size() != 2) return std::nullopt;
  const auto [end, status] = std::from_chars(digits.data(), digits.data() + 2, value, 16);
  if (status != std::errc() || end != digits.data() + 2) return std::nullopt;
  return static_cast<char>(value);
}

// Length of the UTF-8 character at the front; 0 where there is none.
std::size_t characterLength(std::string_view text) {
  const unsigned char first = byteOf(text.front());
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  const auto following = text.substr(1, length - 1);
  if (!std::all_of(following.begin(), following.end(), [](char c) { return (byteOf(c) & 0xC0) == 0x80; }))
    return 0;
  const unsigned char second = byteOf(text[1]);
  const bool tooLong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  const bool noCharacter = (first == 0xED && second >= 0xA0) || (first == 0xF4 && second >= 0x90);
  return tooLong || noCharacter ? 0 : length;
}

// ---- writing

std::string quoted(std::string_view text) {
  std::string out = "\"";
  while (!text.empty()) {
    const char c = text.front();
    const std::size_t length = characterLength(text);
    if (c == '"' || c == '\\') {
      out.append("\\").push_back(c);
    } else if (c == '\r' || c == '\n' || c == '\t') {
      out.append("\\").push_back(c == '\r' ? 'r' : c == '\n' ? 'n' : 't');
    } else if (isControl(c) || length == 0) {
      out.append("\\x");
      appendHex(out, c);
    } else {
      out.append(text.substr(0, length));
    }
    text.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return out.append("\"");
}

std::string bracketed(std::string_view path) {
  std::string out = "[";
  while (!path.empty()) {
    const std::size_t length = characterLength(path);
    if (isControl(path.front()) || path.front() == '%' || length == 0) {
      out.push_back('%');
      appendHex(out, path.front());
    } else {
      out.append(path.substr(0, length));
    }
    path.remove_prefix(std::max<std::size_t>(length, 1));
  }
  return out.append("]");
}

void appendKey(TreeStore& store, const std::string& path, std::string& out) {
  const std::vector<StoredValue> values = store.values(path);
  const std::vector<std::string> keys = store.keys(path);
  // A key that only holds others is told by theirs.
  if (!values.empty() || keys.empty()) {
    out.append("\n").append(bracketed(path)).append("\n");
    for (const StoredValue& value : values) {
      out.append(quoted(value.name)).append("=");
      if (value.type == ValueType::kString)
        out.append(quoted(value.text));
      else
        out.append(value.type == ValueType::kNumber ? kNumber : kBinary).append(value.text);
      out.append("\n");
    }
  }
  for (const std::string& key : keys) appendKey(store, path.empty() ? key : path + '\\' + key, out);
}

// ---- reading

struct Section {
  std::string path;
  std::vector<StoredValue> values;
};

struct Document {
  std::string tree;
  std::vector<Section> sections;
};

class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {
    if (rest_.starts_with(kByteOrderMark)) rest_.remove_prefix(kByteOrderMark.size());
  }

  Document read() {
    readHeader();
    readTree();
    while (nextLine()) {
      if (line_.starts_with('['))
        readSection();
      else
        readValue();
    }
    return std::move(document_);
  }

 private:
  [[noreturn]] void fail(std::string_view reason) const {
    throw base::Error(base::errors::kInvalidFormat,
                      "Line " + std::to_string(number_) + ": " + std::string(reason) + ".");
  }

  // Moves on to the next line that says something.
  bool nextLine() {
    while (!rest_.empty()) {
      ++number_;
      const std::size_t end = rest_.find('\n');
      line_ = rest_.substr(0, end);
      rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
      if (line_.ends_with('\r')) line_.remove_suffix(1);
      line_ = base::trim(line_);
      checkUtf8();
      if (!line_.empty() && !line_.starts_with(';')) return true;
    }
    ++number_;
    return false;
  }

  void checkUtf8() const {
    std::string_view text = line_;
    while (!text.empty()) {
      const std::size_t length = characterLength(text);
      if (length == 0) fail("the text is not valid UTF-8");
      text.remove_prefix(length);
    }
  }

  void readHeader() {
    if (!nextLine() || !line_.starts_with(kHeader))
      fail("this is no settings text, which begins with \"" + std::string(kHeader) + std::to_string(kFormat) +
           "\"");
    const std::string_view format = line_.substr(kHeader.size());
    if (format != std::to_string(kFormat))
      fail("format " + std::string(format) + " is not known, only format " + std::to_string(kFormat));
  }

  void readTree() {
    if (!nextLine() || !line_.starts_with(kTree)) fail("the tree is not named here");
    document_.tree = readPath(line_.substr(kTree.size()));
  }

  std::string readPath(std::string_view text) const {
    if (text.size() < 2 || !text.starts_with('[') || !text.ends_with(']')) fail("a \"]\" is missing");
    text = text.substr(1, text.size() - 2);
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] != '%') {
        path.push_back(text[i]);
        continue;
      }
      const auto byte = hexByte(text.substr(i + 1, 2));
      if (!byte) fail("two hexadecimal digits are missing behind \"%\"");
      path.push_back(*byte);
      i += 2;
    }
    if (path.find('\0') != std::string::npos) fail("a key's name cannot hold a NUL character");
    return platform::normalizedPath(path);
  }

  void readSection() {
    std::string path = readPath(line_);
    const std::string below = document_.tree + '\\';
    if (!document_.tree.empty() && !base::equalNoCase(path, document_.tree) &&
        !base::startsWithNoCase(path, below))
      fail("this key is not in the tree [" + document_.tree + "]");
    document_.sections.push_back({std::move(path), {}});
    names_.clear();
  }

  void readValue() {
    if (document_.sections.empty()) fail("a value stands here before any key");
    StoredValue value;
    value.name = readQuoted("the value's name");
    if (value.name.find('\0') != std::string::npos) fail("a value's name cannot hold a NUL character");
    if (!line_.starts_with('=')) fail("a \"=\" is missing behind the name");
    line_.remove_prefix(1);
    if (line_.starts_with(kNumber))
      readNumber(value);
    else if (line_.starts_with(kBinary))
      readBinary(value);
    else
      value.text = readQuoted("the text");
    if (!line_.empty()) fail("nothing may stand behind the text");
    if (!names_.insert(value.name).second) fail("the value " + quoted(value.name) + " stands here twice");
    document_.sections.back().values.push_back(std::move(value));
  }

  // Takes a text in quotes off the line.
  std::string readQuoted(std::string_view what) {
    if (!line_.starts_with('"')) fail(std::string(what) + " is not in quotes");
    std::string text;
    for (std::size_t i = 1; i < line_.size(); ++i) {
      if (line_[i] == '"') {
        line_.remove_prefix(i + 1);
        return text;
      }
      if (line_[i] == '\\')
        text.push_back(readEscape(++i));
      else
        text.push_back(line_[i]);
    }
    fail("the quote that ends " + std::string(what) + " is missing");
  }

  // The character of an escape; `at` moves to its last one.
  char readEscape(std::size_t& at) const {
    switch (at < line_.size() ? line_[at] : '\0') {
      case '\\':
        return '\\';
      case '"':
        return '"';
      case 'r':
        return '\r';
      case 'n':
        return '\n';
      case 't':
        return '\t';
      case 'x':
        if (const auto byte = hexByte(line_.substr(at + 1, 2))) {
          at += 2;
          return *byte;
        }
        fail("two hexadecimal digits are missing behind \"\\x\"");
      default:
        fail("\"\\\" stands before a character that it cannot stand before");
    }
  }

  void readNumber(StoredValue& value) {
    line_.remove_prefix(kNumber.size());
    int number = 0;
    const auto [end, status] = std::from_chars(line_.data(), line_.data() + line_.size(), number);
    if (status != std::errc() || end != line_.data() + line_.size())
      fail("\"number:\" wants a whole number of 32 bits");
    value.type = ValueType::kNumber;
    value.text = std::to_string(number);
    line_ = {};
  }

  void readBinary(StoredValue& value) {
    line_.remove_prefix(kBinary.size());
    for (std::size_t i = 0; i < line_.size(); i += 2)
      if (!hexByte(line_.substr(i, 2))) fail("\"binary:\" wants pairs of hexadecimal digits");
    value.type = ValueType::kBinary;
    value.text = line_;
    line_ = {};
  }

  std::string_view rest_;
  std::string_view line_;
  int number_ = 0;
  Document document_;
  std::set<std::string, base::LessNoCase> names_;
};

// The key itself stays, and with it its place among its neighbours.
void emptyKey(TreeStore& store, const std::string& path) {
  for (const std::string& key : store.keys(path)) store.removeKey(path.empty() ? key : path + '\\' + key);
  for (const StoredValue& value : store.values(path)) store.removeValue(path, value.name);
}

// A key without values cannot be written as such.
void makeKey(TreeStore& store, const std::string& path) {
  if (store.keyExists(path)) return;
  store.write(path, {});
  store.removeValue(path, {});
}

}  // namespace

std::string exportTree(TreeStore& store, const std::string& path) {
  const std::string tree = platform::normalizedPath(path);
  std::string out;
  // One transaction, so that the text is one moment's picture.
  store.update([&] {
    if (!store.keyExists(tree))
      throw base::Error(base::errors::kInvalidCall, "There is no settings key " + bracketed(tree) + ".");
    out.append(kHeader).append(std::to_string(kFormat)).append("\n");
    out.append(kTree).append(bracketed(tree)).append("\n");
    appendKey(store, tree, out);
  });
  return out;
}

void importTree(TreeStore& store, std::string_view text, ImportMode mode) {
  const Document document = Reader(text).read();
  store.update([&] {
    if (mode == ImportMode::kReplace) emptyKey(store, document.tree);
    for (const Section& section : document.sections) {
      makeKey(store, section.path);
      for (const StoredValue& value : section.values) store.write(section.path, value);
    }
  });
}

}  // namespace kolvane::frame
