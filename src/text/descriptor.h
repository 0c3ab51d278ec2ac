/// Reading open files. What fails leaves its error to `lastSystemError`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tovak::text {

/// Opens a file for reading: its descriptor, or -1. With `wait` false, nothing is waited for, such as the other end of
/// a pipe.
int openToRead(const std::string& fileName, bool wait);

/// How many bytes were read; 0 at the end of the file, -1 for an error.
std::ptrdiff_t readBlock(int file, char* to, std::size_t size);

/// Goes to a byte of the file; false where the system cannot, as in a pipe.
bool goToByte(int file, std::uint64_t position);

void closeFile(int file);

}  // namespace tovak::text
