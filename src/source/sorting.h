// The four sorts: ascending, in place, over the elements `min` to `max`, both counted from 0 and included.
// One algorithm with a pivot drawn from the suite's random sequence, so the order of equal keys depends on
// that sequence.
//
// n log n comparisons on ordinary input, also on sorted lists and on lists of few distinct keys; the depth of
// a list does not use the stack. Nothing happens when `min` is not below `max`; an index outside of the list
// raises 9.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "frame/services.h"

namespace kolvane::source {

// Compares the elements' bytes.
void QuickSort(const frame::Services& services, std::vector<std::string>& list, int min, int max);
// Compares them in upper case.
void QuickInsensitiveSort(const frame::Services& services, std::vector<std::string>& list, int min, int max);
// Compares them without leading blanks. Blank elements are not sorted: they stop the algorithm's scans,
// change sides and end up scattered.
void QuickTrimmedSort(const frame::Services& services, std::vector<std::string>& list, int min, int max);
// Compares ExtractValue(element, kind) in upper case.
void QuickSort_Table(const frame::Services& services, std::vector<std::string>& list, int min, int max,
                     std::string_view kind);

}  // namespace kolvane::source
