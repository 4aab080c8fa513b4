#include "workspace/references.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "base/error.h"
#include "base/text.h"
#include "workspace/paths.h"

namespace kolvane::workspace {
namespace {

// A line does not tell its library's name; these are the ones that projects use most.
struct KnownLibrary {
  std::string_view guid;
  std::string_view name;
};
constexpr std::array kLibraries = {
    KnownLibrary{"{00020430-0000-0000-C000-000000000046}", "stdole"},
    KnownLibrary{"{00000200-0000-0010-8000-00AA006D2EA4}", "ADODB"},
    KnownLibrary{"{00000201-0000-0010-8000-00AA006D2EA4}", "ADODB"},
    KnownLibrary{"{00000205-0000-0010-8000-00AA006D2EA4}", "ADODB"},
    KnownLibrary{"{00000206-0000-0010-8000-00AA006D2EA4}", "ADODB"},
    KnownLibrary{"{EF53050B-882E-4776-B643-EDA472E8E3F2}", "ADODB"},
    KnownLibrary{"{2A75196C-D9EB-4129-B803-931327F72D5C}", "ADODB"},
    KnownLibrary{"{00000600-0000-0010-8000-00AA006D2EA4}", "ADOX"},
    KnownLibrary{"{00025E01-0000-0000-C000-000000000046}", "DAO"},
    KnownLibrary{"{420B2830-E718-11CF-893D-00A0C9054228}", "Scripting"},
    KnownLibrary{"{3F4DACA7-160D-11D2-A8E9-00104B365C9F}", "VBScript_RegExp_55"},
    KnownLibrary{"{D63E0CE2-A0A2-11D0-9C02-00C04FC99C8E}", "MSXML"},
    KnownLibrary{"{F5078F18-C551-11D3-89B9-0000F81FE221}", "MSXML2"},
    KnownLibrary{"{EAB22AC0-30C1-11CF-A7EB-0000C05BAE0B}", "SHDocVw"},
    KnownLibrary{"{50A7E9B0-70EF-11D1-B75A-00A0C90564FE}", "Shell32"},
    KnownLibrary{"{EF404E00-EDA6-101A-8DAF-00DD010F7EBB}", "VBIDE"},
    KnownLibrary{"{2DF8D04C-5BFA-101B-BDE5-00AA0044DE52}", "Office"},
    KnownLibrary{"{00020813-0000-0000-C000-000000000046}", "Excel"},
    KnownLibrary{"{00020905-0000-0000-C000-000000000046}", "Word"},
    KnownLibrary{"{00062FFF-0000-0000-C000-000000000046}", "Outlook"},
};

// The text up to the next "#", which is taken off `rest`.
std::string_view takeField(std::string_view& rest) {
  const std::size_t end = rest.find('#');
  const std::string_view field = rest.substr(0, end);
  rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
  return field;
}

long hexadecimal(std::string_view text) {
  long number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number, 16);
  return number;
}

std::string libraryName(std::string_view guid, std::string_view path) {
  const auto* known = std::find_if(kLibraries.begin(), kLibraries.end(), [&](const KnownLibrary& library) {
    return base::equalNoCase(library.guid, guid);
  });
  return std::string(known != kLibraries.end() ? known->name : baseName(path));
}

class ReferenceObject final : public frame::Reference {
 public:
  explicit ReferenceObject(ReferenceInfo info) : info_(std::move(info)) {}
  std::string Name() override { return info_.name; }
  std::string Guid() override { return info_.guid; }
  long Major() override { return info_.major; }
  long Minor() override { return info_.minor; }
  std::string Description() override { return info_.description; }
  std::string FullPath() override { return info_.path; }
  bool BuiltIn() override { return false; }

 private:
  ReferenceInfo info_;
};

class ReferenceList final : public frame::Collection<frame::Reference> {
 public:
  explicit ReferenceList(std::vector<ReferenceInfo> references) {
    for (ReferenceInfo& info : references)
      list_.push_back(std::make_shared<ReferenceObject>(std::move(info)));
  }
  int Count() override { return static_cast<int>(list_.size()); }
  std::shared_ptr<frame::Reference> Item(int index) override {
    if (index < 1 || index > Count()) throw base::Error(base::errors::kSubscript);
    return list_[static_cast<std::size_t>(index) - 1];
  }
  std::shared_ptr<frame::Reference> Item(std::string_view name) override {
    for (const auto& reference : list_)
      if (base::equalNoCase(reference->Name(), name)) return reference;
    throw base::Error(base::errors::kSubscript);
  }

 private:
  std::vector<std::shared_ptr<ReferenceObject>> list_;
};

}  // namespace

ReferenceInfo parseReference(std::string_view value) {
  ReferenceInfo info;
  if (base::startsWithNoCase(value, "*\\A")) {
    info.path = value.substr(3);
    info.name = baseName(info.path);
    return info;
  }
  if (base::startsWithNoCase(value, "*\\G")) value.remove_prefix(3);
  info.guid = takeField(value);
  const std::string_view version = takeField(value);
  const std::size_t dot = version.find('.');
  info.major = hexadecimal(version.substr(0, dot));
  if (dot != std::string_view::npos) info.minor = hexadecimal(version.substr(dot + 1));
  takeField(value);  // the locale
  info.path = takeField(value);
  info.description = value;
  info.name = libraryName(info.guid, info.path);
  return info;
}

std::shared_ptr<frame::Collection<frame::Reference>> makeReferences(std::vector<ReferenceInfo> references) {
  return std::make_shared<ReferenceList>(std::move(references));
}

}  // namespace kolvane::workspace
