#include "aluframe/files/publication.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <streambuf>
#include <system_error>
#include <utility>
#include <vector>

#include "aluframe/files/link_target.h"
#include "aluframe/files/sibling.h"
#include "aluframe/files/system_failure.h"
#include "aluframe/texts/text.h"

namespace aluframe::files {

namespace {

namespace fs = std::filesystem;

/// An open file, which is closed again.
class Descriptor {
 public:
  Descriptor(const fs::path& path, int flags, mode_t mode = 0)
      : number_(open(path.c_str(), flags | O_CLOEXEC, mode)) {
    if (number_ < 0) fail_with(errno);
  }
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }
  /// Some file systems tell only now that a write was lost.
  void close() {
    if (::close(std::exchange(number_, -1)) != 0) fail_with(errno);
  }

 private:
  int number_;
};

void write_all(int descriptor, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(descriptor, content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) fail_with(errno);
    content.remove_prefix(static_cast<std::size_t>(written));
  }
}

void sync(const Descriptor& file) {
  if (fsync(file.number()) != 0) fail_with(errno);
}

/// A rename asks the folder only: a file that is protected would be replaced all the same.
void require_replaceable(const fs::path& file) {
  std::error_code error;
  if (fs::is_symlink(file, error)) fail_with(ELOOP);  // all links that can be followed have been
  const fs::file_status status = fs::status(file, error);
  if (!fs::exists(status)) return;
  if (fs::is_directory(status)) throw std::runtime_error(texts::translated("is a folder"));
  if (!fs::is_regular_file(status))
    throw std::runtime_error(texts::translated("is no ordinary file"));
  constexpr fs::perms any_write =
      fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
  const bool writable = (status.permissions() & any_write) != fs::perms::none;
  if (!writable) {  // also for the superuser
    throw std::runtime_error(texts::translated("is write-protected"));
  }
  const Descriptor as_the_user(file, O_WRONLY);
}

/// Makes the new file, for the same eyes as the earlier one before it has a content.
void create(const fs::path& path, const fs::path& destination) {
  if (unlink(path.c_str()) != 0 && errno != ENOENT) fail_with(errno);
  constexpr mode_t for_all = 0666;  // less what the user masks
  const Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, for_all);
  struct stat earlier;
  if (stat(destination.c_str(), &earlier) != 0) return;
  if (fchmod(file.number(), earlier.st_mode & 07777) == 0) return;
  const int error = errno;
  unlink(path.c_str());
  fail_with(error);
}

/// The name of the new file is durable when its folder is. Nothing is lost when that fails: a power
/// cut could bring back the earlier file, which is whole as well.
void sync_folder(const fs::path& file) {
  const fs::path folder = file.has_parent_path() ? file.parent_path() : ".";
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  fsync(descriptor);
  close(descriptor);
}

/// The stream that the program prints to when the path leads there: a new file in that place would
/// miss the rest of what is printed.
std::optional<int> standard_stream(const fs::path& path) {
  struct stat there;
  if (stat(path.c_str(), &there) != 0) return std::nullopt;
  for (const int stream : {STDOUT_FILENO, STDERR_FILENO}) {
    struct stat here;
    if (fstat(stream, &here) != 0) continue;
    if (here.st_dev == there.st_dev && here.st_ino == there.st_ino) return stream;
  }
  return std::nullopt;
}

/// Passes what is written on to an open file, piece by piece.
class DescriptorBuffer : public std::streambuf {
 public:
  explicit DescriptorBuffer(int descriptor) : descriptor_(descriptor), piece_(1U << 16U) {
    setp(piece_.data(), piece_.data() + piece_.size());
  }

 protected:
  int_type overflow(int_type character) override {
    sync();
    if (traits_type::eq_int_type(character, traits_type::eof()))
      return traits_type::not_eof(character);
    return sputc(traits_type::to_char_type(character));
  }
  int sync() override {
    write_all(descriptor_, {pbase(), static_cast<std::size_t>(pptr() - pbase())});
    setp(piece_.data(), piece_.data() + piece_.size());
    return 0;
  }

 private:
  int descriptor_;
  std::vector<char> piece_;
};

/// Gives an open file what `write` writes. @throws std::runtime_error of the first write that fails
void stream_to(int descriptor, const std::function<void(std::ostream&)>& write) {
  DescriptorBuffer buffer(descriptor);
  std::ostream out(&buffer);
  out.exceptions(std::ios::badbit);  // what the buffer throws goes on from here
  write(out);
  out.flush();
}

}  // namespace

Publication::Publication(const fs::path& destination, WhenBusy when_busy)
    : Publication(destination, sibling(link_target(destination), "new").filename(), when_busy) {}

Publication::Publication(const fs::path& destination, const fs::path& new_name, WhenBusy when_busy,
                         const std::function<void(const fs::path&)>& require, EarlierPart earlier)
    : destination_(fs::absolute(link_target(destination))),
      lock_(destination_, when_busy),
      path_(destination_.parent_path() / new_name) {
  require_replaceable(destination_);
  if (require) require(path_);
  if (earlier == EarlierPart::is_gone_on_with) {
    keep();
  } else {
    create(path_, destination_);
  }
}

Publication::~Publication() {
  if (!is_done_) unlink(path_.c_str());
}

void Publication::write(std::string_view content) const {
  Descriptor file(path_, O_WRONLY | O_TRUNC);
  write_all(file.number(), content);
  sync(file);
  file.close();
}

void Publication::publish() {
  sync(Descriptor(path_, O_WRONLY));
  if (rename(path_.c_str(), destination_.c_str()) != 0) fail_with(errno);
  is_done_ = true;
  sync_folder(destination_);
}

void publish_text(const fs::path& path, std::string_view content) {
  publish_stream(path, [content](std::ostream& out) { out << content; });
}

void publish_stream(const fs::path& path, const std::function<void(std::ostream&)>& write) {
  std::error_code
      unknown;  // what cannot be looked at cannot be written either, which is told below
  const fs::file_status status = fs::status(path, unknown);
  if (const auto stream = standard_stream(path)) {
    std::fflush(stdout);
    return stream_to(*stream, write);
  }
  if (fs::exists(status) && !fs::is_regular_file(status) && !fs::is_directory(status)) {
    Descriptor file(path, O_WRONLY);
    stream_to(file.number(), write);
    return file.close();
  }
  Publication publication(path);
  Descriptor file(publication.path(), O_WRONLY | O_TRUNC);
  stream_to(file.number(), write);
  file.close();
  publication.publish();
}

}  // namespace aluframe::files
