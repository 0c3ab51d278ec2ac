/// The state in which a window's painting leaves the processor's vector registers.
#pragma once

namespace tovak::run {

/// Marks the upper halves of the AVX registers as unused; does nothing on a processor without them. Call it before many
/// points are computed, after anything that may have painted.
///
/// Painting a window can leave those halves in use: bit 2 of XINUSE, as xgetbv(1) gives it, was found set when a run
/// from the window began, and is clear in a batch run. While it is set, Intel processors execute every SSE instruction
/// that comes between AVX ones more slowly, which happens where PROJ calls the C library's functions: projecting a
/// point with PROJ took 1,000 to 1,300 ns instead of 140 (Lambert) and 975 to 1,040 instead of 170 (transverse
/// Mercator). A run with this program's own closed forms showed no difference beyond the noise of a busy machine.
void clearUpperVectorHalves();

}  // namespace tovak::run
