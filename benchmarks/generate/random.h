// Random choices that come out the same on every machine and with every library. A full expression may make
// one choice only: compilers differ in the order in which they evaluate operands and arguments.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace kolvane::generate {

class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  // A sequence of its own for part `part` of what `seed` makes, so that one part does not move the others.
  Random(std::uint64_t seed, std::uint64_t part) : state_(seed) {
    state_ = next() ^ (part * 0xD1342543DE82EF95u);
  }

  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }

  // 0 to bound - 1; 0 when the bound is below 1.
  int below(int bound) {
    if (bound < 1) return 0;
    return static_cast<int>(((next() >> 32) * static_cast<std::uint64_t>(bound)) >> 32);
  }
  // Both ends included.
  int between(int least, int most) { return least + below(most - least + 1); }
  // From 1 to most, small numbers more often than large ones.
  int few(int most) {
    const int a = below(most);
    const int b = below(most);
    return 1 + (a < b ? a : b);
  }
  bool chance(int perMille) { return below(1000) < perMille; }

  // The choices must not be empty.
  template <typename Choices>
  const auto& pick(const Choices& choices) {
    return *std::next(std::begin(choices), below(static_cast<int>(std::size(choices))));
  }

  template <typename Items>
  void shuffle(Items& items) {
    for (std::size_t i = items.size(); i > 1; --i) {
      using std::swap;
      swap(items[i - 1], items[static_cast<std::size_t>(below(static_cast<int>(i)))]);
    }
  }

 private:
  std::uint64_t state_;
};

}  // namespace kolvane::generate
