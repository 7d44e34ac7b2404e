#pragma once

#include <gmock/gmock.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace manager_test {

/// A path for a report in a folder of its own, which goes with the object. Reports are written in
/// UTF-8 from here on.
class ReportFile {
 public:
  ReportFile() {
    setenv("LC_ALL", "C.UTF-8", 1);
    std::string name = (std::filesystem::temp_directory_path() / "report-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = name;
  }
  ReportFile(const ReportFile&) = delete;
  ReportFile& operator=(const ReportFile&) = delete;
  ~ReportFile() { std::filesystem::remove_all(folder_); }

  std::filesystem::path path() const { return folder_ / "frame.alu"; }
  bool exists() const { return std::filesystem::exists(path()); }
  std::string text() const {
    std::ifstream file(path(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void fill(const std::string& text) const { std::ofstream(path(), std::ios::binary) << text; }

 private:
  std::filesystem::path folder_;
};

inline std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    lines.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return lines;
}

/// Name of the block that a title line belongs to, empty for every other line. The titles are
/// spelled in code points, as the report's readers know them.
inline std::string BlockOf(const std::string& line) {
  static const std::vector<std::pair<std::string, std::string>> titles = {
      {"\uD4FB\uB611\uF91A\u70AC", "strength"},
      {"\uC608\uC20F\uD4FB\uB611\uF91A\u70AC(Y\u8568)", "shear y"},
      {"\uC608\uC20F\uD4FB\uB611\uF91A\u70AC(Z\u8568)", "shear z"},
      {"\u83C9\u8568\u6D38\uB54D\uF91A\u70AC", "stability"},
      {"\u83C9\u8568\u6D38\uB54D\uF91A\u70AC(Y\u8568)", "stability y"},
      {"\u83C9\u8568\u6D38\uB54D\uF91A\u70AC(Z\u8568)", "stability z"},
      {"\uB080\u7396\uAD90\uF91A\u70AC", "slenderness"}};
  if (line.starts_with("  Aluminum Alloy Code Checking")) return "header";
  const std::string member = "  MEMBER NO = ";
  if (line.starts_with(member)) {
    return "member " + line.substr(member.size(), line.find(',') - member.size());
  }
  for (const auto& [title, name] : titles) {
    if (line == "  [[[*]]]   " + title) return name;
  }
  return {};
}

/// The blocks of a report in order.
inline std::vector<std::string> BlocksOf(const std::string& text) {
  std::vector<std::string> blocks;
  for (const std::string& line : LinesOf(text)) {
    if (std::string block = BlockOf(line); !block.empty()) blocks.push_back(std::move(block));
  }
  return blocks;
}

/// The lines that begin with a text.
inline std::vector<std::string> LinesWith(const std::string& text, const std::string& beginning) {
  std::vector<std::string> found;
  for (const std::string& line : LinesOf(text)) {
    if (line.starts_with(beginning)) found.push_back(line);
  }
  return found;
}

/// A governing check of the item type: by default half used, at the start, under combination 1.
struct GoverningCheck {
  RALU_ITEM_TYPE type;
  int pos = 0;
  T_LCOM_MAXMIN_K key = 1;
  double ratio = 0.5;
};

/// The record of an element whose governing checks are these.
inline T_RALU_D RecordOf(const std::vector<GoverningCheck>& checks) {
  T_RALU_D record;
  record.nHasResult = 1;
  for (const GoverningCheck& check : checks) {
    record.aComp[static_cast<std::size_t>(check.type)] = {
        check.pos, 100.0 * check.ratio, 100.0, LcombNumber(check.key), LcombMinSide(check.key)};
  }
  return record;
}

/// The report of a host in memory, with stored results that the test chooses.
class ReportTest : public ManagerTest {
 protected:
  explicit ReportTest(FakeModel model) : ManagerTest(std::move(model)) {}

  /// Puts a governing record into the host's store.
  static void Store(FakeHost& host, UINT elem, const T_RALU_D& record) {
    host.log.written.push_back({elem, 0, 0, 0, record});
  }
  void Store(UINT elem, const std::vector<GoverningCheck>& checks) {
    Store(host_, elem, RecordOf(checks));
  }
  int Report() { return manager_.MakeReport(nullptr, file_.path().wstring()); }
  int Report(std::initializer_list<UINT> elems) {
    const auto keys = Keys(elems);
    return manager_.MakeReport(&keys, file_.path().wstring());
  }
  std::vector<std::string> Blocks() const { return BlocksOf(file_.text()); }

  const ReportFile file_;
};

class ReportOfOneElement : public ReportTest {
 protected:
  ReportOfOneElement() : ReportTest(test_support::one_element_model()) {}
};

class ReportOfThreeElements : public ReportTest {
 protected:
  ReportOfThreeElements() : ReportTest(test_support::three_element_model()) {}
};

}  // namespace manager_test
