#include "workspace/page_recognition.h"

#include <algorithm>
#include <cstdint>

#include "workspace/paths.h"

namespace kolvane::workspace {
namespace {

// ---- by names

std::size_t countFound(platform::Files& files, const base::CodePage& page, const std::string& folder,
                       const std::vector<std::string>& names) {
  Paths paths(files, page);
  PathFinder finder(paths, PathFinder::Names::kOfThePage);
  return static_cast<std::size_t>(std::ranges::count_if(
      names, [&](const std::string& name) { return finder.find(folder, name).kind != PlaceKind::kMissing; }));
}

// ---- by bytes

constexpr bool within(unsigned char byte, int first, int last) { return byte >= first && byte <= last; }
constexpr bool isHigh(unsigned char trail) { return within(trail, 0xA1, 0xFE); }

// Characters enough, and different enough, that neither chance nor the two-byte letters of UTF-8 look like a
// language; and as many as need to be looked at.
constexpr std::size_t kEnough = 24, kEnoughLeads = 8, kMost = 20000;

// ---- text or not

// What may follow the last character: blanks, line ends, and the NULs that other programs fill a file up with.
std::string_view withoutPadding(std::string_view bytes) {
  const std::size_t last = bytes.find_last_not_of(std::string_view("\0\r\n\t \x1a", 6));
  return last == std::string_view::npos ? std::string_view() : bytes.substr(0, last + 1);
}

// Every other byte is NUL, as in UTF-16 of ASCII.
bool alternates(std::string_view bytes, std::size_t nulAt) {
  constexpr std::size_t kPairs = 4, kLooked = 64;
  const std::size_t end = std::min(bytes.size() / 2 * 2, kLooked);
  for (std::size_t i = 0; i < end; ++i)
    if ((bytes[i] == '\0') != (i % 2 == nulAt)) return false;
  return end >= kPairs * 2;
}

}  // namespace

struct DoubleByteEvidence::Language {
  int page;
  bool (*isUsual)(unsigned char lead, unsigned char trail);
  bool (*isTelling)(unsigned char lead, unsigned char trail);
  std::size_t percentTelling;  // at least
};

const std::array<DoubleByteEvidence::Language, 4> DoubleByteEvidence::kLanguages{{
    // Kana, and the kanji of the first level. No Japanese text is without kana.
    {932, [](unsigned char lead, unsigned char) { return within(lead, 0x81, 0x9F); },
     [](unsigned char lead, unsigned char) { return within(lead, 0x82, 0x83); }, 10},
    // The characters of the first level. Those of its last third are no Korean syllables.
    {936,
     [](unsigned char lead, unsigned char trail) {
       return (within(lead, 0xB0, 0xD7) || within(lead, 0xA1, 0xA3)) && isHigh(trail);
     },
     [](unsigned char lead, unsigned char) { return within(lead, 0xC9, 0xD7); }, 10},
    // Syllables. Chinese text has a third of its characters elsewhere.
    {949,
     [](unsigned char lead, unsigned char trail) {
       return (within(lead, 0xB0, 0xC8) || within(lead, 0xA1, 0xA3)) && isHigh(trail);
     },
     [](unsigned char lead, unsigned char) { return within(lead, 0xB0, 0xC8); }, 70},
    // The frequent characters. A third of them have an ASCII letter or sign for their second byte.
    {950, [](unsigned char lead, unsigned char) { return within(lead, 0xA1, 0xC6); },
     [](unsigned char lead, unsigned char trail) {
       return within(lead, 0xA4, 0xC6) && within(trail, 0x40, 0x7E);
     },
     10},
}};

PageByNames pageByNames(platform::Files& files, const platform::CodePages& pages, const base::CodePage& inUse,
                        const std::string& systemFolder, const std::vector<std::string>& names) {
  std::vector<std::string> telling;
  std::ranges::copy_if(names, std::back_inserter(telling),
                       [](const std::string& name) { return !base::isAscii(name); });
  if (telling.empty()) return {};
  const auto count = [&](const base::CodePage& page) {
    return countFound(files, page, systemFolder, telling);
  };
  const std::size_t asNow = count(inUse);
  if (asNow == telling.size()) return {&inUse, {}};
  std::size_t best = asNow;
  std::vector<int> fitting;  // better than the one in use
  for (const int number : pages.numbers()) {
    const std::size_t found = number == inUse.number() ? asNow : count(pages.get(number));
    if (found > best) fitting.clear();
    if (found > asNow && found >= best) fitting.push_back(number);
    best = std::max(best, found);
  }
  if (fitting.empty()) return {asNow > 0 ? &inUse : nullptr, {}};
  for (const int first : {base::CodePage::kUtf8, base::CodePage::kDefault})
    if (std::ranges::find(fitting, first) != fitting.end()) return {&pages.get(first), {}};
  if (fitting.size() > 1) return {nullptr, std::move(fitting)};
  return {&pages.get(fitting.front()), {}};
}

void DoubleByteEvidence::add(std::string_view bytes) {
  if (base::isUtf8(bytes)) return;  // ASCII too
  for (std::size_t i = 0; i < kLanguages.size(); ++i) add(tallies_[i], kLanguages[i], bytes);
}

void DoubleByteEvidence::add(Tally& tally, const Language& language, std::string_view bytes) {
  const auto byteAt = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
  for (std::size_t at = base::findNonAscii(bytes, 0); at < bytes.size() && tally.all() < kMost;) {
    const std::size_t size = base::CodePage::characterSize(language.page, bytes, at);
    if (size == 2) {
      const unsigned char lead = byteAt(at), trail = byteAt(at + 1);
      ++tally.characters;
      tally.leads.set(lead);
      if (language.isUsual(lead, trail)) ++tally.usual;
      if (language.isTelling(lead, trail)) ++tally.telling;
    } else {
      ++tally.broken;
    }
    at = base::findNonAscii(bytes, at + size);
  }
}

int DoubleByteEvidence::page() const {
  int clear = 0;
  for (std::size_t i = 0; i < kLanguages.size(); ++i) {
    const Tally& tally = tallies_[i];
    if (tally.characters < kEnough || tally.leads.count() < kEnoughLeads || tally.broken * 20 > tally.all() ||
        tally.usual * 10 < tally.all() * 9 ||
        tally.telling * 100 < tally.all() * kLanguages[i].percentTelling)
      continue;
    if (clear != 0) return 0;
    clear = kLanguages[i].page;
  }
  return clear;
}

std::string whyNotProject(std::string_view bytes) {
  const bool isUtf16 = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ||
                       alternates(bytes, 1) || alternates(bytes, 0);
  return isUtf16 ? "is UTF-16, not text in a code page" : "";
}

std::string whyNoModule(std::string_view bytes) {
  if (std::string reason = whyNotProject(bytes); !reason.empty()) return reason;
  if (bytes.starts_with("\xEF\xBB\xBF"))
    return "begins with the byte order mark of UTF-8, not with text in a code page, and VB6 cannot load it";
  const std::string_view text = withoutPadding(bytes);
  std::size_t runs = 0;
  for (std::size_t at = text.find('\0'); at != std::string_view::npos;
       at = text.find('\0', text.find_first_not_of('\0', at)))
    ++runs;
  constexpr std::size_t kManyRuns = 8, kBytesARun = 64;
  const bool inFirstLine = text.find('\0') < text.find_first_of("\r\n");
  if (runs > 0 && (inFirstLine || (runs >= kManyRuns && runs * kBytesARun >= text.size())))
    return "is binary data, not text in a code page: NUL bytes stand among the others";
  return {};
}

}  // namespace kolvane::workspace
