#include "aluframe/platform/windows/error_codes.h"

#include <windows.h>

#include <array>

namespace aluframe::platform {

namespace {

struct Meaning {
  unsigned long error;
  std::errc code;
};

constexpr std::array meanings{
    Meaning{ERROR_FILE_NOT_FOUND, std::errc::no_such_file_or_directory},
    Meaning{ERROR_PATH_NOT_FOUND, std::errc::no_such_file_or_directory},
    Meaning{ERROR_INVALID_NAME, std::errc::no_such_file_or_directory},
    Meaning{ERROR_BAD_PATHNAME, std::errc::no_such_file_or_directory},
    Meaning{ERROR_BAD_NETPATH, std::errc::no_such_file_or_directory},
    Meaning{ERROR_INVALID_DRIVE, std::errc::no_such_file_or_directory},
    Meaning{ERROR_ACCESS_DENIED, std::errc::permission_denied},
    Meaning{ERROR_WRITE_PROTECT, std::errc::read_only_file_system},
    Meaning{ERROR_SHARING_VIOLATION, std::errc::device_or_resource_busy},
    Meaning{ERROR_LOCK_VIOLATION, std::errc::device_or_resource_busy},
    Meaning{ERROR_USER_MAPPED_FILE, std::errc::device_or_resource_busy},
    Meaning{ERROR_BUSY, std::errc::device_or_resource_busy},
    Meaning{ERROR_DELETE_PENDING, std::errc::device_or_resource_busy},
    Meaning{ERROR_DISK_FULL, std::errc::no_space_on_device},
    Meaning{ERROR_HANDLE_DISK_FULL, std::errc::no_space_on_device},
    Meaning{ERROR_FILE_TOO_LARGE, std::errc::file_too_large},
    Meaning{ERROR_FILE_EXISTS, std::errc::file_exists},
    Meaning{ERROR_ALREADY_EXISTS, std::errc::file_exists},
    Meaning{ERROR_DIRECTORY, std::errc::not_a_directory},
    Meaning{ERROR_FILENAME_EXCED_RANGE, std::errc::filename_too_long},
    Meaning{ERROR_TOO_MANY_OPEN_FILES, std::errc::too_many_files_open},
    Meaning{ERROR_CANT_RESOLVE_FILENAME, std::errc::too_many_symbolic_link_levels},
    Meaning{ERROR_NOT_ENOUGH_MEMORY, std::errc::not_enough_memory},
    Meaning{ERROR_OUTOFMEMORY, std::errc::not_enough_memory},
    Meaning{ERROR_BROKEN_PIPE, std::errc::broken_pipe},
    Meaning{ERROR_NO_DATA, std::errc::broken_pipe},
    Meaning{ERROR_INVALID_HANDLE, std::errc::bad_file_descriptor},
    Meaning{ERROR_NOT_READY, std::errc::no_such_device_or_address},
    Meaning{ERROR_CRC, std::errc::io_error},
    Meaning{ERROR_GEN_FAILURE, std::errc::io_error},
};

}  // namespace

std::error_code code_of(unsigned long windows_error) {
  for (const Meaning& meaning : meanings) {
    if (meaning.error == windows_error) return std::make_error_code(meaning.code);
  }
  return {static_cast<int>(windows_error), std::system_category()};
}

std::error_code last_error() {
  return code_of(GetLastError());
}

}  // namespace aluframe::platform
