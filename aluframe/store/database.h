#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "aluframe/files/file_lock.h"
#include "aluframe/store/result_file.h"

namespace aluframe::store {

/// How long a call waits for another program that holds the file locked.
inline constexpr int lock_timeout_ms = 30'000;

/// What went wrong, in a line for the user.
std::string reason_of(const std::exception& error);

/// Runs `action`. What it throws is thrown on with the file that it was about.
template <class Action>
auto about_file(const std::filesystem::path& path, Action action) {
  try {
    return action();
  } catch (const CannotTakeUp&) {
    throw;  // it names its file
  } catch (const files::FileBusy& error) {
    throw files::FileBusy(path.string() + ": " + error.what());
  } catch (const std::exception& error) {
    throw std::runtime_error(path.string() + ": " + reason_of(error));
  }
}

/// Opens a laid-out result file with the settings that its writer works with: a rollback journal,
/// no waiting for the disk, a cache that holds a whole transaction, so that readers are locked out
/// only while one is committed.
SQLite::Database open_for_writing(const std::filesystem::path& path);

/// Opens a result file for reading only. What a killed run left half written is rolled back first,
/// which needs a folder that can be written.
/// @throws std::runtime_error when it is missing, no result file, or of another format version
SQLite::Database open_for_reading(const std::filesystem::path& path);

/// Held on a result file that is about to be replaced: no other run can write it meanwhile, and
/// what a killed run left half written is rolled back, so that no journal of the old file is taken
/// for one of the new file.
class OldFileLock {
 public:
  /// @throws std::runtime_error when a run is writing the file, when it is write-protected, and
  ///   when it is no result file: what this program did not write it does not overwrite
  explicit OldFileLock(const std::filesystem::path& path);

 private:
  SQLite::Database database_;
};

/// Removes what SQLite keeps beside a database. Only for a database that nobody has open.
void remove_side_files(const std::filesystem::path& path);

}  // namespace aluframe::store
