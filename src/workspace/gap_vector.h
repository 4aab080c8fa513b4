// A sequence with a gap at the place of the last edit: changes there cost what they change, not what stands
// behind.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <type_traits>
#include <utility>
#include <vector>

namespace kolvane::workspace {

// Moving the gap costs a move of the items between its old and its new place.
template <typename T>
class GapVector {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  GapVector() = default;
  explicit GapVector(std::vector<T> items)
      : slots_(std::move(items)), gapBegin_(slots_.size()), gapEnd_(slots_.size()) {}

  std::size_t size() const { return slots_.size() - gapSize(); }
  const T& operator[](std::size_t index) const { return slots_[slot(index)]; }
  T& operator[](std::size_t index) { return slots_[slot(index)]; }

  // The index in front of which the gap stands.
  std::size_t gap() const { return gapBegin_; }

  void moveGap(std::size_t index) {
    const auto begin = slots_.begin();
    const auto at = [&](std::size_t place) { return begin + static_cast<std::ptrdiff_t>(place); };
    const std::size_t width = gapSize();
    if (index < gapBegin_ && width > 0) std::move_backward(at(index), at(gapBegin_), at(gapEnd_));
    if (index > gapBegin_ && width > 0) std::move(at(gapEnd_), at(index + width), at(gapBegin_));
    gapBegin_ = index;
    gapEnd_ = index + width;
  }

  // Puts items in front of the gap.
  void insertAtGap(std::span<const T> items) {
    if (gapSize() < items.size()) widenGap(items.size());
    std::copy(items.begin(), items.end(), slots_.begin() + static_cast<std::ptrdiff_t>(gapBegin_));
    gapBegin_ += items.size();
  }

  // Takes out the `count` items behind the gap.
  void eraseBehindGap(std::size_t count) { gapEnd_ += count; }

 private:
  std::size_t gapSize() const { return gapEnd_ - gapBegin_; }
  std::size_t slot(std::size_t index) const { return index < gapBegin_ ? index : index + gapSize(); }

  void widenGap(std::size_t wanted) {
    constexpr std::size_t kLeast = 16;
    const std::size_t width = std::max({wanted, size() / 4, kLeast});
    std::vector<T> wider(size() + width);
    const auto gapBegin = slots_.begin() + static_cast<std::ptrdiff_t>(gapBegin_);
    std::copy(slots_.begin(), gapBegin, wider.begin());
    std::copy(slots_.begin() + static_cast<std::ptrdiff_t>(gapEnd_), slots_.end(),
              wider.begin() + static_cast<std::ptrdiff_t>(gapBegin_ + width));
    slots_.swap(wider);
    gapEnd_ = gapBegin_ + width;
  }

  std::vector<T> slots_;
  std::size_t gapBegin_ = 0;
  std::size_t gapEnd_ = 0;
};

}  // namespace kolvane::workspace
