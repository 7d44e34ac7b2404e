// A partial file that another run goes on with.

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/unit/aluframe/store/store_samples.h"

namespace aluframe::store {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr double infinite = std::numeric_limits<double>::infinity();

/// Notes of every kind, of which each element has others.
ElementNotes notes_of(std::uint32_t element) {
  ElementNotes notes{.element = element, .checked_positions = 3 * element};
  notes.not_checked = {{element, 7, "no forces"},
                       {element, std::nullopt, "torsion", LargestForce{"Mx", 1e6, 2, 7, 1}},
                       {element, std::nullopt, "torsion", LargestForce{"Mx", 2e6, -1, 1, 0}}};
  notes.safe = SafeRow{.element = element,
                       .code = 0.5,
                       .safe = 1.25,
                       .item = RALU_STABILITY,
                       .rules = "C4, S6",
                       .combination = 7,
                       .min_side = 1,
                       .fraction = 0.1,
                       .from_start = 300.0};
  notes.unchecked = {
      {.kind = "C6",
       .magnitude = 2e6,
       .at = {1, 0, 0.3},
       .ratio = infinite,
       .ratio_at = {7, 1, 0.1}},
      {.kind = "C1", .magnitude = 1e5, .at = {7, 1, std::nullopt}, .ratio = {}, .ratio_at = {}}};
  notes.assertions = {{"source:1", element}, {"source:2", 1}};
  return notes;
}

void end_sample(ResultWriter& writer, std::uint32_t element) {
  store_test::write_element(writer, element);
  writer.end_element(notes_of(element));
}

class TakenUpFile : public testing::Test {
 protected:
  /// A run of elements 1 to 5 that ends after `last`.
  void leave(std::uint32_t last, RunState state = RunState::cancelled) {
    const auto writer = ResultWriter::create(file, info);
    for (std::uint32_t element = 1; element <= last; ++element) end_sample(*writer, element);
    writer->add_remark({"C6", "1-5", "torsion", 0.7, 2, 5});
    writer->add_displacement({.elements = "1", .first_node = 1, .direction = "z", .value = 3.5});
    writer->finish(state);
  }
  TakenUp take_up() { return ResultWriter::take_up(file, info, elements); }
  std::string refusal() {
    return store_test::error_of([this] { take_up(); });
  }
  void execute(const std::string& sql) {
    SQLite::Database(partial.string(), SQLite::OPEN_READWRITE).exec(sql);
  }

  store_test::Folder folder;
  std::filesystem::path file = folder.file();
  std::filesystem::path partial = folder.partial();
  RunInfo info = store_test::sample_info();
  std::vector<std::uint32_t> elements{1, 2, 3, 4, 5};
};

TEST_F(TakenUpFile, GivesBackWhatWasStoredOfEveryElement) {
  leave(3);
  const TakenUp taken_up = take_up();
  ASSERT_EQ(taken_up.elements.size(), 3U);
  for (std::uint32_t element = 1; element <= 3; ++element) {
    const FinishedElement& found = taken_up.elements[element - 1];
    EXPECT_EQ(found.notes, notes_of(element));
    const T_RALU_D governing = store_test::sample_governing(element);
    ASSERT_TRUE(found.governing.has_value());
    for (std::size_t i = 0; i < governing.aComp.size(); ++i) {
      EXPECT_THAT((*found.governing)[i], store_test::SameBits(governing.aComp[i]));
    }
  }
  EXPECT_EQ(taken_up.writer->record_count(), 12U);
}

TEST_F(TakenUpFile, EndsAsOneRunWould) {
  leave(5, RunState::complete);
  const std::string whole = store_test::all_tables(file);
  for (std::uint32_t last = 0; last <= 4; ++last) {
    {
      const auto writer = ResultWriter::create(file, info);
      for (std::uint32_t element = 1; element <= last; ++element) end_sample(*writer, element);
      store_test::write_element(*writer, last + 1);  // the run is not through with it
      writer->finish(RunState::failed);
    }
    {
      const TakenUp taken_up = take_up();
      ASSERT_EQ(taken_up.elements.size(), last);
      for (std::uint32_t element = last + 1; element <= 5; ++element) {
        end_sample(*taken_up.writer, element);
      }
      taken_up.writer->add_remark({"C6", "1-5", "torsion", 0.7, 2, 5});
      taken_up.writer->add_displacement(
          {.elements = "1", .first_node = 1, .direction = "z", .value = 3.5});
      EXPECT_EQ(taken_up.writer->record_count(), 20U);
      taken_up.writer->finish(RunState::complete);
    }
    EXPECT_EQ(store_test::all_tables(file), whole) << last;
    EXPECT_THAT(folder.names(), ElementsAre("frame.aluresult"));
  }
}

TEST_F(TakenUpFile, LeavesOneElementToBeChecked) {
  leave(5);
  EXPECT_EQ(take_up().elements.size(), 4U);
}

TEST_F(TakenUpFile, KeepsElementsWithoutRecords) {
  {
    const auto writer = ResultWriter::create(file, info);
    writer->end_element({.element = 1, .not_checked = {{1, std::nullopt, "no data"}}});
    end_sample(*writer, 2);
    writer->finish(RunState::cancelled);
  }
  const TakenUp taken_up = take_up();
  ASSERT_EQ(taken_up.elements.size(), 2U);
  EXPECT_FALSE(taken_up.elements[0].governing.has_value());
  EXPECT_EQ(taken_up.elements[0].notes.not_checked[0].reason, "no data");
}

TEST_F(TakenUpFile, KeepsWhatCameBeforeTheFirstElement) {
  {
    const auto writer = ResultWriter::create(file, info);
    writer->end_element({.element = 0, .assertions = {{"start:1", 2}}});
    end_sample(*writer, 1);
    writer->finish(RunState::cancelled);
  }
  const TakenUp taken_up = take_up();
  ASSERT_EQ(taken_up.elements.size(), 2U);
  EXPECT_EQ(taken_up.elements[0].notes.assertions, (std::vector<AssertionRow>{{"start:1", 2}}));
}

TEST_F(TakenUpFile, AValueThatIsNoNumberIsNoDamage) {
  constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();
  {
    const auto writer = ResultWriter::create(file, info);
    ElementNotes notes{.element = 1};
    notes.safe = notes_of(1).safe;
    notes.safe->code = notes.safe->safe = not_a_number;
    T_RALU_D record = store_test::sample_record(1, 1, 0);
    record.aSect[0].aItem[RALU_STRENGTH].dDemand = not_a_number;
    record.MakeCompItem();
    writer->write(1, record, 1, 0);
    writer->write(1, record, 0, 0);
    writer->end_element(notes);
    writer->finish(RunState::cancelled);
  }
  const TakenUp taken_up = take_up();
  ASSERT_EQ(taken_up.elements.size(), 1U);
  EXPECT_TRUE(std::isnan(taken_up.elements[0].notes.safe->safe));
  EXPECT_TRUE(std::isnan((*taken_up.elements[0].governing)[RALU_STRENGTH].dDemand));
}

TEST_F(TakenUpFile, SaysThatItsRunIsGoingOn) {
  leave(2);
  const TakenUp taken_up = take_up();
  EXPECT_EQ(ResultReader::open(partial)->state(), RunState::running);
  EXPECT_TRUE(ResultReader::open(partial)->remarks().empty());
}

TEST_F(TakenUpFile, IsKeptWhenTheRunEndsEarlyAgain) {
  leave(2);
  {
    const TakenUp taken_up = take_up();
    end_sample(*taken_up.writer, 3);
  }
  EXPECT_EQ(take_up().elements.size(), 3U);
}

TEST_F(TakenUpFile, IsLockedMeanwhile) {
  leave(2);
  const TakenUp taken_up = take_up();
  EXPECT_THROW(take_up(), files::FileBusy);
  EXPECT_THROW(ResultWriter::create(file, info), files::FileBusy);
}

TEST_F(TakenUpFile, IsRefusedWhenItIsMissing) {
  EXPECT_THROW(take_up(), CannotTakeUp);
  EXPECT_THAT(refusal(), HasSubstr("cannot be taken up: there is no such file"));
  EXPECT_THAT(folder.names(), testing::IsEmpty());
}

TEST_F(TakenUpFile, OfAnotherRunIsRefusedAndLeftAsItIs) {
  leave(2);
  const std::string before = store_test::bytes_of(partial);
  info.setup.forces_digest = "ab";
  EXPECT_THAT(refusal(), HasSubstr("state of the forces: found unknown, wanted ab"));
  EXPECT_TRUE(store_test::bytes_of(partial) == before);
}

TEST_F(TakenUpFile, OfElementsInAnotherOrderIsRefused) {
  leave(2);
  elements = {2, 1, 3, 4, 5};
  EXPECT_THAT(refusal(), HasSubstr("is damaged: its elements are not the first ones of the run"));
}

TEST_F(TakenUpFile, WithAChangedValueIsRefused) {
  for (const char* sql :
       {"UPDATE safe SET code_ratio = 0.6 WHERE element = 2",
        "UPDATE not_checked SET magnitude = 3 WHERE sequence = 3",
        "UPDATE unchecked SET ratio_fraction = 0.2 WHERE element = 1",
        "UPDATE assertion SET count = 5 WHERE element = 1",
        "UPDATE governing SET demand = demand + 1 WHERE element = 2",
        "DELETE FROM governing WHERE element = 1 AND item = 7",
        "INSERT INTO not_checked VALUES (NULL, 1, NULL, 'more', NULL, NULL, NULL, NULL, NULL)",
        "INSERT INTO governing SELECT 1, 4, 'combined stability', 0, 1, 1, 1, 1, 0, NULL",
        "UPDATE combination SET name = 'ULS2' WHERE number = 1 AND 0; UPDATE run SET "
        "model_elements = 9"}) {
    leave(2);
    execute(sql);
    EXPECT_THAT(refusal(), HasSubstr("is damaged: it does not hold what its run wrote")) << sql;
  }
}

TEST(AnythingDifferent, IsNothingBetweenRunsOfOneKind) {
  EXPECT_EQ(anything_different(store_test::sample_info(), store_test::sample_info()), std::nullopt);
}

TEST(AnythingDifferent, NamesWhatWasFoundAndWhatIsWanted) {
  const auto difference = [](auto change) {
    RunInfo wanted = store_test::sample_info();
    change(wanted);
    return anything_different(store_test::sample_info(), wanted).value_or("nothing");
  };
  EXPECT_EQ(difference([](RunInfo& i) { i.elements = "1-3"; }), "elements: found none, wanted 1-3");
  EXPECT_EQ(difference([](RunInfo& i) { i.combinations.pop_back(); }),
            "combinations: found 1, 7, wanted 1");
  EXPECT_EQ(difference([](RunInfo& i) { i.combinations[0].seismic = true; }),
            "combination 1: found \"ULS1\", wanted \"ULS1\", seismic");
  EXPECT_EQ(difference([](RunInfo& i) { i.program = "aluframe 0.2.0"; }),
            "program: found aluframe 0.1.0, wanted aluframe 0.2.0");
  EXPECT_EQ(difference([](RunInfo& i) { i.setup.settings = {{"safety_class", "1", "given"}}; }),
            "safety class: found none, wanted 1 (given)");
  EXPECT_EQ(difference([](RunInfo& i) { i.setup.second_order_asked = true; }),
            "second order: found not asked for, wanted asked for");
  EXPECT_EQ(difference([](RunInfo& i) { i.model_digest = "ff"; }),
            "state of the model or its given forces: found 0123456789abcdef, wanted ff");
}

}  // namespace
}  // namespace aluframe::store
