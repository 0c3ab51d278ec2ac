/// How often the program has asked for memory. For test programs that are linked with the counter.
#pragma once

#include <cstddef>

namespace tovak::tests {

std::size_t allocationCount();

}  // namespace tovak::tests
