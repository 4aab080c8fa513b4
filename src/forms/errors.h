// Numbers of the errors that forms and controls raise beside the general ones.
#pragma once

namespace kolvane::forms::errors {

inline constexpr long kInvalidPropertyValue = 380;  // an index, page or size out of range
inline constexpr long kNoSuchArrayElement = 340;    // a control array has no such member
inline constexpr long kFormAlreadyShown = 400;      // showModal of a form that is visible
inline constexpr long kElementNotFound = 35601;     // no row or node with such a key or number
inline constexpr long kKeyNotUnique = 35602;        // the key is taken

}  // namespace kolvane::forms::errors
