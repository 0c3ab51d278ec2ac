#include <array>
#include <filesystem>
#include <string_view>

#include <windows.h>

#include "text/number.h"
#include "text/system_error.h"

namespace tovak::text {

int lastSystemError() {
  return static_cast<int>(::GetLastError());
}

std::string systemErrorText(const std::string& fileName, int errorNumber) {
  constexpr DWORD kFlags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
  std::array<wchar_t, 512> wide{};
  const DWORD length = ::FormatMessageW(kFlags, nullptr, static_cast<DWORD>(errorNumber), 0, wide.data(),
                                        static_cast<DWORD>(wide.size()), nullptr);
  std::wstring_view sentence(wide.data(), length);
  while (!sentence.empty() && (sentence.back() == L' ' || sentence.back() == L'.')) sentence.remove_suffix(1);
  std::string text = fileName + ": ";
  if (!sentence.empty()) return text + std::filesystem::path(sentence).string();
  text += "error ";
  appendWhole(text, errorNumber);
  return text;
}

std::string systemErrorText(const std::string& fileName, const std::error_code& error) {
  return fileName + ": " + error.message();
}

}  // namespace tovak::text
