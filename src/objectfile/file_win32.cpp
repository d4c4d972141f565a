#include <windows.h>

#include <algorithm>
#include <atomic>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <utility>

#include "objectfile/file.h"
#include "runtime/failure.h"

namespace korvane {
namespace {

// ReadFile and WriteFile count in 32 bits.
constexpr std::size_t kLargestCall = std::size_t{1} << 30;

HANDLE handleOf(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

RuntimeFailure lastFailure() {
  return failureFromSystemError(::GetLastError());
}

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

bool isDevicePath(const std::wstring& path) {
  return path.starts_with(LR"(\\.\)");
}

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

DWORD linkCount(const std::wstring& path) {
  HANDLE handle = ::CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                nullptr, OPEN_EXISTING, 0, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return 0;
  BY_HANDLE_FILE_INFORMATION information{};
  const bool known = ::GetFileInformationByHandle(handle, &information);
  ::CloseHandle(handle);
  return known ? information.nNumberOfLinks : 0;
}

// What the temporary files of a target's saves begin with. Long names are
// cut so that the whole stays within the system's limit of a file name.
std::wstring temporaryPrefix(const std::wstring& name) {
  constexpr std::size_t kLongestName = 200;
  return L"." + name.substr(0, kLongestName) + L".korvane-";
}

// Temporary files of earlier saves of the same target whose process no
// longer runs: it was killed or lost power before it could remove them.
void removeLeftovers(const std::wstring& folder, const std::wstring& prefix) {
  WIN32_FIND_DATAW found{};
  HANDLE search = ::FindFirstFileW((folder + prefix + L"*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    const unsigned long pid = std::wcstoul(found.cFileName + prefix.size(), nullptr, 10);
    if (pid == 0 || pid == ::GetCurrentProcessId()) continue;
    HANDLE process = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, pid);
    if (process != nullptr) {
      ::CloseHandle(process);
    } else if (::GetLastError() == ERROR_INVALID_PARAMETER) {
      ::DeleteFileW((folder + found.cFileName).c_str());
    }
  } while (::FindNextFileW(search, &found));
  ::FindClose(search);
}

// A new file beside the target (a full path), and its name; nothing when the
// folder takes no new file.
std::optional<std::pair<HANDLE, std::wstring>> createBeside(const std::wstring& target) {
  const std::size_t slash = target.rfind(L'\\');
  if (slash == std::wstring::npos || slash + 1 == target.size()) return std::nullopt;
  const std::wstring folder = target.substr(0, slash + 1);
  const std::wstring prefix = temporaryPrefix(target.substr(slash + 1));
  removeLeftovers(folder, prefix);
  static std::atomic<unsigned> counter;
  constexpr int kAttempts = 100;
  for (int attempt = 0; attempt < kAttempts; ++attempt) {
    std::wstring name =
        folder + prefix + std::to_wstring(::GetCurrentProcessId()) + L"-" + std::to_wstring(counter++);
    HANDLE handle = ::CreateFileW(name.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                  CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle != INVALID_HANDLE_VALUE) return std::pair{handle, std::move(name)};
    if (::GetLastError() != ERROR_FILE_EXISTS) return std::nullopt;
  }
  return std::nullopt;
}

// The temporary file being written, for removeUnfinishedReplacement: a
// fixed buffer, since a handler of a signal may neither allocate nor lock.
wchar_t g_unfinished[32768];
volatile std::sig_atomic_t g_unfinishedSet = 0;

void noteUnfinished(const std::wstring& path) {
  g_unfinishedSet = 0;
  if (path.size() >= std::size(g_unfinished)) return;
  path.copy(g_unfinished, path.size());
  g_unfinished[path.size()] = L'\0';
  g_unfinishedSet = 1;
}

}  // namespace

void removeUnfinishedReplacement() noexcept {
  if (g_unfinishedSet) ::DeleteFileW(g_unfinished);
}

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
  HANDLE handle = ::CreateFileW(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                TRUNCATE_EXISTING, FILE_ATTRIBUTE_TEMPORARY, nullptr);
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
  if (!::ReadFile(handleOf(m_handle), buffer, static_cast<DWORD>(std::min(size, kLargestCall)), &count,
                  nullptr))
    throw lastFailure();
  return count;
}

void File::writeAll(const char* data, std::size_t size) {
  while (size > 0) {
    DWORD count = 0;
    if (!::WriteFile(handleOf(m_handle), data, static_cast<DWORD>(std::min(size, kLargestCall)), &count,
                     nullptr))
      throw lastFailure();
    // A write that takes nothing and names no error would loop for ever.
    if (count == 0) throw failureFromSystemError(ERROR_DISK_FULL);
    data += count;
    size -= count;
  }
}

void File::flushToDisk() {
  if (!::FlushFileBuffers(handleOf(m_handle))) throw lastFailure();
}

void File::close() {
  HANDLE handle = handleOf(m_handle);
  m_handle = -1;
  if (handle != INVALID_HANDLE_VALUE && !::CloseHandle(handle)) throw lastFailure();
}

FileReplacement FileReplacement::begin(const std::string& target) {
  const std::wstring file = systemPath(target);
  refuseUnlessRegular(file);
  const DWORD attributes = ::GetFileAttributesW(file.c_str());
  const bool exists = attributes != INVALID_FILE_ATTRIBUTES;
  // A file that may not be written is not replaced either, though its folder
  // would let it be.
  if (exists && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    throw RuntimeFailure(failure_number::PathFileAccessError);
  }
  // The other names of a file with several would go on naming the old one,
  // and a link would be replaced instead of the file it points to.
  if (!exists || ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0 && linkCount(file) == 1)) {
    if (auto created = createBeside(file)) {
      noteUnfinished(created->second);
      return FileReplacement(File(reinterpret_cast<std::intptr_t>(created->first)), utf8(created->second),
                             utf8(file));
    }
  }
  return FileReplacement(File::openForWriting(target), {}, utf8(file));
}

FileReplacement::FileReplacement(FileReplacement&& other) noexcept
    : m_file(std::move(other.m_file)),
      m_temporary(std::exchange(other.m_temporary, {})),
      m_target(std::move(other.m_target)),
      m_written(other.m_written),
      m_handedToDisk(other.m_handedToDisk) {}

// The temporary file is open with delete sharing: it goes when its handle is
// closed, right after this.
FileReplacement::~FileReplacement() {
  if (m_temporary.empty()) return;
  g_unfinishedSet = 0;
  ::DeleteFileW(wide(m_temporary).c_str());
}

// The system writes behind on its own; the commit waits for all of it.
void FileReplacement::writeAll(const char* data, std::size_t size) {
  m_file.writeAll(data, size);
  m_written += size;
}

void FileReplacement::commit() {
  if (inPlace()) return m_file.close();
  m_file.flushToDisk();
  m_file.close();
  if (!::MoveFileExW(wide(m_temporary).c_str(), wide(m_target).c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
    throw lastFailure();
  }
  g_unfinishedSet = 0;
  m_temporary.clear();
}

}  // namespace korvane
