#include <windows.h>

#include <algorithm>
#include <climits>

#include "objectfile/file.h"
#include "runtime/failure.h"

namespace korvane {
namespace {

// ReadFile and WriteFile count in 32 bits.
constexpr std::size_t kLargestCall = std::size_t{1} << 30;

HANDLE handleOf(std::intptr_t handle) { return reinterpret_cast<HANDLE>(handle); }

RuntimeFailure lastFailure() { return failureFromSystemError(::GetLastError()); }

std::wstring wide(const std::string& utf8) {
  if (utf8.empty()) return {};
  if (utf8.size() > INT_MAX) throw RuntimeFailure(failure_number::BadFileNameOrNumber);
  const int length = static_cast<int>(utf8.size());
  int count = ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), length, nullptr, 0);
  // Bytes that are no UTF-8 name no file.
  if (count <= 0) throw RuntimeFailure(failure_number::BadFileNameOrNumber);
  std::wstring text(static_cast<std::size_t>(count), L'\0');
  ::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), length, text.data(), count);
  return text;
}

std::string utf8(const std::wstring& text) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  int count = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(count), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), count, nullptr, nullptr);
  return bytes;
}

// The path as the wide calls want it: made absolute, and past MAX_PATH given
// the \\?\ prefix that lifts the limit (the prefix takes the path as it
// stands, so it is only put before a path that GetFullPathNameW has cleaned).
// A device (\\.\NUL, \\.\pipe\...) keeps its own form.
std::wstring systemPath(const std::string& path) {
  std::wstring given = wide(path);
  if (given.empty()) throw RuntimeFailure(failure_number::FileNotFound);
  DWORD size = ::GetFullPathNameW(given.c_str(), 0, nullptr, nullptr);
  if (size == 0) throw lastFailure();
  std::wstring full(size, L'\0');
  size = ::GetFullPathNameW(given.c_str(), size, full.data(), nullptr);
  if (size == 0 || size >= full.size()) throw lastFailure();
  full.resize(size);
  if (full.size() < MAX_PATH || full.starts_with(LR"(\\?\)") || full.starts_with(LR"(\\.\)")) return full;
  if (full.starts_with(LR"(\\)")) return LR"(\\?\UNC\)" + full.substr(2);
  return LR"(\\?\)" + full;
}

bool isDevicePath(const std::wstring& path) { return path.starts_with(LR"(\\.\)"); }

// Only regular disk files are read or written. A pipe would hold a read until
// its writer came, a device such as CON may never end or, as NUL would,
// swallow a save: each counts as a file that cannot be reached, and nothing of
// it is opened, read or written. A path that names nothing yet is left to the
// open, which knows its own failure.
void refuseUnlessRegular(const std::wstring& path) {
  if (isDevicePath(path)) throw RuntimeFailure(failure_number::PathFileAccessError);
  DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES &&
      (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE)) != 0) {
    throw RuntimeFailure(failure_number::PathFileAccessError);
  }
}

HANDLE openOrThrow(const std::string& path, DWORD access, DWORD share, DWORD disposition, DWORD flags) {
  std::wstring name = systemPath(path);
  refuseUnlessRegular(name);
  HANDLE handle = ::CreateFileW(name.c_str(), access, share, nullptr, disposition, flags, nullptr);
  if (handle == INVALID_HANDLE_VALUE) throw lastFailure();
  return handle;
}

// Whatever took the path's place between the look and the open is refused here.
void checkRegular(HANDLE handle) {
  if (::GetFileType(handle) != FILE_TYPE_DISK) throw RuntimeFailure(failure_number::PathFileAccessError);
}

}  // namespace

// Shared for reading, writing and deleting, as a file read on Linux is: the
// author may save over a source that is being read.
File File::openForReading(const std::string& path) {
  File file(reinterpret_cast<std::intptr_t>(
      openOrThrow(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, OPEN_EXISTING,
                  FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN)));
  checkRegular(handleOf(file.m_handle));
  return file;
}

File File::openForWriting(const std::string& path) {
  File file(reinterpret_cast<std::intptr_t>(
      openOrThrow(path, GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL)));
  checkRegular(handleOf(file.m_handle));
  return file;
}

File File::createTemporary(std::string& path) {
  wchar_t folder[MAX_PATH + 1];
  wchar_t name[MAX_PATH + 1];
  DWORD length = ::GetTempPathW(MAX_PATH + 1, folder);
  if (length == 0 || length > MAX_PATH) throw lastFailure();
  // Creates the file under a name no other file has.
  if (::GetTempFileNameW(folder, L"kor", 0, name) == 0) throw lastFailure();
  path = utf8(name);
  HANDLE handle = ::CreateFileW(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr, TRUNCATE_EXISTING,
                                FILE_ATTRIBUTE_TEMPORARY, nullptr);
  if (handle == INVALID_HANDLE_VALUE) throw lastFailure();
  return File(reinterpret_cast<std::intptr_t>(handle));
}

void File::remove(const std::string& path) {
  if (::DeleteFileW(systemPath(path).c_str())) return;
  DWORD error = ::GetLastError();
  if (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND) throw failureFromSystemError(error);
}

File::File(File&& other) noexcept : m_handle(other.m_handle) {
  other.m_handle = -1;
}

File::~File() {
  if (m_handle != -1) ::CloseHandle(handleOf(m_handle));
}

std::uint64_t File::size() const {
  LARGE_INTEGER size{};
  if (!::GetFileSizeEx(handleOf(m_handle), &size)) throw lastFailure();
  return static_cast<std::uint64_t>(size.QuadPart);
}

std::size_t File::readSome(char* buffer, std::size_t size) {
  DWORD count = 0;
  if (!::ReadFile(handleOf(m_handle), buffer, static_cast<DWORD>(std::min(size, kLargestCall)), &count, nullptr))
    throw lastFailure();
  return count;
}

void File::writeAll(const char* data, std::size_t size) {
  while (size > 0) {
    DWORD count = 0;
    if (!::WriteFile(handleOf(m_handle), data, static_cast<DWORD>(std::min(size, kLargestCall)), &count, nullptr))
      throw lastFailure();
    // A write that takes nothing and names no error would loop for ever.
    if (count == 0) throw failureFromSystemError(ERROR_DISK_FULL);
    data += count;
    size -= count;
  }
}

void File::close() {
  HANDLE handle = handleOf(m_handle);
  m_handle = -1;
  if (handle != INVALID_HANDLE_VALUE && !::CloseHandle(handle)) throw lastFailure();
}

}  // namespace korvane
