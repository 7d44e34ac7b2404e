#include "tests/unit/aluframe/store/store_samples.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cstdio>
#include <fstream>
#include <iterator>

namespace store_test {

namespace fs = std::filesystem;

namespace {

std::uint64_t bits(double value) {
  return std::bit_cast<std::uint64_t>(value);
}

bool same_bits(const T_RALU_RLT& a, const T_RALU_RLT& b) {
  return bits(a.dDemand) == bits(b.dDemand) && bits(a.dCapacity) == bits(b.dCapacity) &&
         bits(a.dReserve) == bits(b.dReserve);
}

}  // namespace

Folder::Folder() {
  std::string name = (fs::temp_directory_path() / "aluframe-store-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = name;
}

Folder::~Folder() {
  fs::remove_all(path_);
}

std::vector<std::string> Folder::names() const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(path_)) names.push_back(entry.path().filename());
  return names;
}

aluframe::store::RunInfo sample_info(const std::string& title) {
  return {title,
          "GB 50429-2007",
          "aluframe 0.1.0",
          {{1, "ULS1", false, false}, {7, "地震包络", true, true}},
          "0123456789abcdef"};
}

T_RALU_D sample_record(std::uint32_t element, std::uint32_t combination, int min_side) {
  T_RALU_D record;
  double demand = 100.0 * element + combination + 10.0 * min_side;
  for (T_RALU_SECT& position : record.aSect) {
    position.aItem[RALU_STRENGTH] = {demand, 200.0, 0.0};
    position.aItem[RALU_SLENDERNESS_Z] = {80.0, 150.0, 0.0};
    demand += 1.0;
  }
  record.nHasResult = 1;
  record.nMembType = 2;
  record.SetLCombKey(combination, min_side);
  record.MakeCompItem();
  return record;
}

T_RALU_D sample_governing(std::uint32_t element) {
  T_RALU_D governing = sample_record(element, 1, 0);
  governing.GetMaxRlt(sample_record(element, 7, 0));
  governing.GetMaxRlt(sample_record(element, 7, 1));
  return governing;
}

void write_element(aluframe::store::ResultWriter& writer, std::uint32_t element) {
  writer.write(element, sample_record(element, 1, 0), 1, 0);
  writer.write(element, sample_record(element, 7, 0), 7, 0);
  writer.write(element, sample_record(element, 7, 1), 7, 1);
  writer.write(element, sample_governing(element), 0, 0);
}

void write_run(const fs::path& path, std::uint32_t last, const std::string& title) {
  const auto writer = aluframe::store::ResultWriter::create(path, sample_info(title));
  for (std::uint32_t element = 1; element <= last; ++element) write_element(*writer, element);
  writer->finish(aluframe::store::RunState::complete);
}

bool same_bits(const T_RALU_ITEM& a, const T_RALU_ITEM& b) {
  return a.nPos == b.nPos && bits(a.dDemand) == bits(b.dDemand) &&
         bits(a.dCapacity) == bits(b.dCapacity) && a.nLComb == b.nLComb && a.nMinSide == b.nMinSide;
}

bool same_bits(const T_RALU_D& a, const T_RALU_D& b) {
  const auto same_position = [](const T_RALU_SECT& x, const T_RALU_SECT& y) {
    return std::ranges::equal(
        x.aItem, y.aItem, [](const T_RALU_RLT& i, const T_RALU_RLT& j) { return same_bits(i, j); });
  };
  const auto same_item = [](const T_RALU_ITEM& x, const T_RALU_ITEM& y) { return same_bits(x, y); };
  return a.nHasResult == b.nHasResult && a.nMembType == b.nMembType && a.nLComb == b.nLComb &&
         a.nMinSide == b.nMinSide && std::ranges::equal(a.aSect, b.aSect, same_position) &&
         std::ranges::equal(a.aComp, b.aComp, same_item);
}

std::string all_tables(const fs::path& path) {
  SQLite::Database database(path.string(), SQLite::OPEN_READWRITE);
  std::string text;
  for (const std::string table :
       {"run", "setting", "combination", "element", "governing", "not_checked", "safe", "unchecked",
        "assertion", "finished", "remark", "record"}) {
    text += table + "\n";
    SQLite::Statement select(database, "SELECT * FROM " + table);
    while (select.executeStep()) {
      for (int i = 0; i < select.getColumnCount(); ++i) {
        const SQLite::Column column = select.getColumn(i);
        text += column.isNull() ? "NULL" : column.getString();
        text += '|';
      }
      text += '\n';
    }
  }
  return text;
}

std::string bytes_of(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string error_of(const std::function<void()>& action) {
  try {
    action();
  } catch (const std::exception& error) {
    return error.what();
  }
  return {};
}

int in_child(const std::function<int()>& action) {
  const pid_t child = fork();
  if (child == 0) {
    int status = 99;
    try {
      status = action();
    } catch (const std::exception& error) {
      std::fprintf(stderr, "%s\n", error.what());
    }
    _exit(status);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace store_test
