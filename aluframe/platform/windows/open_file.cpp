#include "aluframe/platform/open_file.h"

#include <windows.h>

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

#include "aluframe/platform/windows/error_codes.h"

namespace aluframe::platform {

namespace {

constexpr DWORD shared_with_all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
/// Systems refuse larger pieces on some devices.
constexpr std::size_t largest_piece = std::size_t{1} << 20;

HANDLE handle_of(std::intptr_t number) {
  return reinterpret_cast<HANDLE>(number);  // NOLINT(performance-no-int-to-ptr): it was one
}

std::intptr_t number_of(HANDLE handle) {
  return reinterpret_cast<std::intptr_t>(handle);
}

DWORD access_of(Purpose purpose) {
  switch (purpose) {
    case Purpose::reading:
      return GENERIC_READ;
    case Purpose::appending:
      return FILE_APPEND_DATA;
    case Purpose::writing:
    case Purpose::rewriting:
      break;
  }
  return GENERIC_WRITE;
}

DWORD beginning_of(Purpose purpose) {
  if (purpose == Purpose::rewriting) return TRUNCATE_EXISTING;
  return purpose == Purpose::appending ? OPEN_ALWAYS : OPEN_EXISTING;
}

/// Who may do what with a file; empty when it does not exist or the file system keeps no such
/// thing.
std::vector<unsigned char> access_rights(const std::filesystem::path& file) {
  DWORD size = 0;
  GetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<unsigned char> rights(size);
  const bool known = size > 0 && GetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION,
                                                  rights.data(), size, &size) != 0;
  if (!known) rights.clear();
  return rights;
}

/// What tells two files apart, under whatever names.
struct Identity {
  DWORD volume, high, low;
  bool operator==(const Identity&) const = default;
};

bool identify(HANDLE file, Identity& identity) {
  BY_HANDLE_FILE_INFORMATION of;
  if (GetFileInformationByHandle(file, &of) == 0) return false;
  identity = {of.dwVolumeSerialNumber, of.nFileIndexHigh, of.nFileIndexLow};
  return true;
}

}  // namespace

// Names of devices, such as NUL, stand in no folder: only what they open tells.
bool is_stream(const std::filesystem::path& path) {
  const HANDLE handle = CreateFileW(path.c_str(), GENERIC_WRITE, shared_with_all, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  const DWORD type = GetFileType(handle);
  CloseHandle(handle);
  return type == FILE_TYPE_CHAR || type == FILE_TYPE_PIPE;
}

// There is none; no file can have this one.
std::filesystem::path standard_output() {
  return "\\\\.\\stdout";
}

std::filesystem::path nowhere() {
  return "NUL";
}

OpenFile OpenFile::open(const std::filesystem::path& path, Purpose purpose,
                        std::error_code& error) {
  const HANDLE handle = CreateFileW(path.c_str(), access_of(purpose), shared_with_all, nullptr,
                                    beginning_of(purpose), FILE_ATTRIBUTE_NORMAL, nullptr);
  error = handle == INVALID_HANDLE_VALUE ? last_error() : std::error_code();
  return OpenFile(number_of(handle));
}

OpenFile OpenFile::create(const std::filesystem::path& path, const std::filesystem::path& like,
                          std::error_code& error) {
  std::vector<unsigned char> rights = access_rights(like);
  SECURITY_ATTRIBUTES security{sizeof security, rights.data(), FALSE};
  const HANDLE handle =
      CreateFileW(path.c_str(), GENERIC_WRITE, shared_with_all,
                  rights.empty() ? nullptr : &security, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  error = handle == INVALID_HANDLE_VALUE ? last_error() : std::error_code();
  return OpenFile(number_of(handle));
}

OpenFile OpenFile::standard_stream_at(const std::filesystem::path& path) {
  const auto copy_of = [](HANDLE stream) {
    HANDLE copy = INVALID_HANDLE_VALUE;
    const HANDLE self = GetCurrentProcess();
    DuplicateHandle(self, stream, self, &copy, 0, FALSE, DUPLICATE_SAME_ACCESS);
    return OpenFile(number_of(copy));
  };
  if (path == standard_output()) return copy_of(GetStdHandle(STD_OUTPUT_HANDLE));
  std::error_code error;
  const OpenFile there = open(path, Purpose::reading, error);
  Identity wanted;
  if (error || !identify(handle_of(there.handle_), wanted)) return {};
  for (const DWORD stream : {STD_OUTPUT_HANDLE, STD_ERROR_HANDLE}) {
    Identity identity;
    if (identify(GetStdHandle(stream), identity) && identity == wanted) {
      return copy_of(GetStdHandle(stream));
    }
  }
  return {};
}

OpenFile::OpenFile(OpenFile&& other) noexcept : handle_(std::exchange(other.handle_, none)) {}

OpenFile& OpenFile::operator=(OpenFile&& other) noexcept {
  std::swap(handle_, other.handle_);
  return *this;
}

OpenFile::~OpenFile() {
  if (is_open()) CloseHandle(handle_of(handle_));
}

/// Names of files lead to no other devices than the console, the one that keeps nothing and serial
/// lines, all of which end.
bool OpenFile::has_end() const {
  return true;
}

std::size_t OpenFile::read(std::span<char> bytes, std::error_code& error) const {
  DWORD count = 0;
  const auto wanted = static_cast<DWORD>(std::min(bytes.size(), largest_piece));
  const bool done = ReadFile(handle_of(handle_), bytes.data(), wanted, &count, nullptr) != 0;
  // Who wrote into a pipe has gone: that is its end.
  const bool is_end = !done && GetLastError() == ERROR_BROKEN_PIPE;
  error = done || is_end ? std::error_code() : last_error();
  return count;
}

std::error_code OpenFile::write(std::string_view bytes) const {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto wanted = static_cast<DWORD>(std::min(bytes.size(), largest_piece));
    if (WriteFile(handle_of(handle_), bytes.data(), wanted, &written, nullptr) == 0) {
      return last_error();
    }
    bytes.remove_prefix(written);
  }
  return {};
}

std::error_code OpenFile::sync() const {
  return FlushFileBuffers(handle_of(handle_)) != 0 ? std::error_code() : last_error();
}

std::error_code OpenFile::close() {
  const HANDLE handle = handle_of(std::exchange(handle_, none));
  return CloseHandle(handle) != 0 ? std::error_code() : last_error();
}

}  // namespace aluframe::platform
