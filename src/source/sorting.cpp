#include "source/sorting.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <optional>
#include <utility>

#include "base/error.h"
#include "base/text.h"
#include "source/text_utilities.h"

namespace kolvane::source {
namespace {

struct Item {
  std::string text;
  std::string key;
  bool stopsScan = false;
};

enum class Content {
  kOrdinary,  // nothing stops a scan
  kStopping,  // everything does
  kMixed,
};

// A stretch still to be sorted, and a key that nothing in it is below, if one is known. Only ordinary
// stretches have such a key: items that stop a scan are in no order.
struct Stretch {
  int min;
  int max;
  Content content;
  std::optional<std::string> floor;
};

class Sorter {
 public:
  Sorter(std::vector<Item> items, platform::Random& random) : items_(std::move(items)), random_(random) {}

  std::vector<Item> run() {
    const int last = static_cast<int>(items_.size()) - 1;
    std::vector<Stretch> open{{0, last, contentOf(0, last, Content::kMixed), std::nullopt}};
    while (!open.empty()) {
      Stretch stretch = std::move(open.back());
      open.pop_back();
      if (stretch.min < stretch.max) sortOnce(std::move(stretch), open);
    }
    return std::move(items_);
  }

 private:
  Item& at(int index) { return items_[static_cast<std::size_t>(index)]; }

  int draw(const Stretch& stretch) {
    const double count = stretch.max - stretch.min + 1;
    return static_cast<int>(std::floor(count * static_cast<double>(random_.next()) + stretch.min));
  }

  // Puts one item into its place and opens the stretches beside it, the left one to be sorted first. Two
  // cases are told apart only because their outcome is known without the scans, which would make them
  // quadratic.
  void sortOnce(Stretch stretch, std::vector<Stretch>& open) {
    const int min = stretch.min;
    const int max = stretch.max;
    const int drawn = draw(stretch);
    if (stretch.content == Content::kStopping) {
      std::swap(at(min), at(drawn));
      std::swap(at(min), at(max));
      open.push_back({min, max - 1, stretch.content, std::nullopt});
      return;
    }
    if (stretch.floor && at(drawn).key == *stretch.floor) {
      std::swap(at(min), at(drawn));
      open.push_back({min + 1, max, stretch.content, std::move(stretch.floor)});
      return;
    }
    const int place = partition(min, max, drawn);
    const Content above = contentOf(place + 1, max, stretch.content);
    const auto floor = above == Content::kOrdinary ? std::optional(at(place).key) : std::nullopt;
    open.push_back({place + 1, max, above, floor});
    open.push_back({min, place - 1, contentOf(min, place - 1, stretch.content), std::move(stretch.floor)});
  }

  // Moves what is below the drawn item to its left and returns its place.
  int partition(int min, int max, int drawn) {
    Item pivot = std::move(at(drawn));
    if (drawn != min) at(drawn) = std::move(at(min));
    int lo = min;
    int hi = max;
    while (true) {
      while (hi > lo && !(at(hi).key < pivot.key) && !at(hi).stopsScan) --hi;
      if (hi <= lo) break;
      at(lo++) = std::move(at(hi));
      while (lo < hi && at(lo).key < pivot.key && !at(lo).stopsScan) ++lo;
      if (lo >= hi) break;
      at(hi) = std::move(at(lo));
    }
    at(lo) = std::move(pivot);
    return lo;
  }

  // What a part of a stretch holds, given what the stretch holds.
  Content contentOf(int min, int max, Content whole) {
    if (whole != Content::kMixed || min > max) return whole;
    const auto first = items_.begin() + min;
    const auto stopping =
        std::count_if(first, items_.begin() + max + 1, [](const Item& item) { return item.stopsScan; });
    if (stopping == 0) return Content::kOrdinary;
    return stopping == max - min + 1 ? Content::kStopping : Content::kMixed;
  }

  std::vector<Item> items_;
  platform::Random& random_;
};

void sortBy(const frame::Services& services, std::vector<std::string>& list, int min, int max,
            const std::function<Item(std::string)>& itemOf) {
  if (min >= max) return;
  if (min < 0 || max >= static_cast<int>(list.size())) throw base::Error(base::errors::kSubscript);
  std::vector<Item> items;
  items.reserve(static_cast<std::size_t>(max - min) + 1);
  const auto first = list.begin() + min;
  std::transform(first, list.begin() + max + 1, std::back_inserter(items),
                 [&itemOf](std::string& text) { return itemOf(std::move(text)); });
  items = Sorter(std::move(items), services.random).run();
  std::transform(items.begin(), items.end(), first, [](Item& item) { return std::move(item.text); });
}

}  // namespace

void QuickSort(const frame::Services& services, std::vector<std::string>& list, int min, int max) {
  sortBy(services, list, min, max, [](std::string text) {
    std::string key = text;
    return Item{std::move(text), std::move(key)};
  });
}

void QuickInsensitiveSort(const frame::Services& services, std::vector<std::string>& list, int min, int max) {
  sortBy(services, list, min, max, [&services](std::string text) {
    std::string key = services.codePage.upper(text);
    return Item{std::move(text), std::move(key)};
  });
}

void QuickTrimmedSort(const frame::Services& services, std::vector<std::string>& list, int min, int max) {
  sortBy(services, list, min, max, [](std::string text) {
    std::string key(base::lTrim(text));
    const bool blank = key.empty();
    return Item{std::move(text), std::move(key), blank};
  });
}

void QuickSort_Table(const frame::Services& services, std::vector<std::string>& list, int min, int max,
                     std::string_view kind) {
  sortBy(services, list, min, max, [&services, kind](std::string text) {
    std::string key = services.codePage.upper(ExtractValue(text, kind));
    return Item{std::move(text), std::move(key)};
  });
}

}  // namespace kolvane::source
