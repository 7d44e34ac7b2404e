#include "aluframe/files/publication.h"

#include <cstdio>
#include <ostream>
#include <stdexcept>
#include <streambuf>
#include <system_error>
#include <vector>

#include "aluframe/files/link_target.h"
#include "aluframe/files/sibling.h"
#include "aluframe/files/system_failure.h"
#include "aluframe/platform/file_moves.h"
#include "aluframe/platform/open_file.h"
#include "aluframe/texts/text.h"

namespace aluframe::files {

namespace {

namespace fs = std::filesystem;
using platform::OpenFile;
using platform::Purpose;

OpenFile open(const fs::path& path, Purpose purpose) {
  std::error_code error;
  OpenFile file = OpenFile::open(path, purpose, error);
  require_no(error);
  return file;
}

/// A rename asks the folder only: a file that is protected would be replaced all the same.
void require_replaceable(const fs::path& file) {
  std::error_code error;
  // All links that can be followed have been.
  if (fs::is_symlink(file, error)) {
    require_no(std::make_error_code(std::errc::too_many_symbolic_link_levels));
  }
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
  const OpenFile as_the_user = open(file, Purpose::writing);
}

/// Makes the new file, for the same eyes as the earlier one before it has a content.
void create(const fs::path& path, const fs::path& destination) {
  require_no(platform::remove_file(path));
  std::error_code error;
  const OpenFile file = OpenFile::create(path, destination, error);
  require_no(error);
}

/// Passes what is written on to an open file, piece by piece.
class FileBuffer : public std::streambuf {
 public:
  explicit FileBuffer(const OpenFile& file) : file_(file), piece_(1U << 16U) {
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
    require_no(file_.write({pbase(), static_cast<std::size_t>(pptr() - pbase())}));
    setp(piece_.data(), piece_.data() + piece_.size());
    return 0;
  }

 private:
  const OpenFile& file_;
  std::vector<char> piece_;
};

/// Gives an open file what `write` writes. @throws std::runtime_error of the first write that fails
void stream_to(const OpenFile& file, const std::function<void(std::ostream&)>& write) {
  FileBuffer buffer(file);
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
  if (!is_done_) platform::remove_file(path_);
}

void Publication::write(std::string_view content) const {
  OpenFile file = open(path_, Purpose::rewriting);
  require_no(file.write(content));
  require_no(file.sync());
  require_no(file.close());
}

void Publication::publish() {
  require_no(open(path_, Purpose::writing).sync());
  require_no(platform::replace_file(path_, destination_));
  is_done_ = true;
  platform::sync_name(destination_);
}

void publish_text(const fs::path& path, std::string_view content) {
  publish_stream(path, [content](std::ostream& out) { out << content; });
}

void publish_stream(const fs::path& path, const std::function<void(std::ostream&)>& write) {
  if (const OpenFile stream = OpenFile::standard_stream_at(path); stream.is_open()) {
    std::fflush(stdout);
    return stream_to(stream, write);
  }
  if (platform::is_stream(path)) {
    OpenFile file = open(path, Purpose::writing);
    stream_to(file, write);
    return require_no(file.close());
  }
  Publication publication(path);
  OpenFile file = open(publication.path(), Purpose::rewriting);
  stream_to(file, write);
  require_no(file.close());
  publication.publish();
}

}  // namespace aluframe::files
