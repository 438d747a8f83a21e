// calldata.h: integers in the place of Xt call data and client data.
#pragma once

#include <cstdint>

namespace lm {

/// An integer as call data: the pointer's value is the integer. Pointers are wider than int here, so the sign is kept.
inline void* asPointer(std::intptr_t value) { return reinterpret_cast<void*>(value); }

/// The integer that asPointer made into call data.
inline int asInt(const void* pointer) { return static_cast<int>(reinterpret_cast<std::intptr_t>(pointer)); }

}   // namespace lm
