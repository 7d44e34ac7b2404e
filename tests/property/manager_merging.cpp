// The governing record of several combinations does not depend on their order, but for ties.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include "host/tz_db/ralu.h"

namespace {

// How bad a check is, from the rules that an engineer would give: none at all, then by its ratio
// (no limit counts as ratio 0), and anything that is not finite worst.
using RANK = std::pair<int, double>;

RANK RankOf(double demand, double capacity) {
  if (demand == 0.0 && capacity == 0.0) return {0, 0.0};
  if (!std::isfinite(demand)) return {2, 0.0};
  const double ratio = capacity == 0.0 ? 0.0 : demand / capacity;
  return std::isfinite(ratio) ? RANK{1, ratio} : RANK{2, 0.0};
}

// Few values, so that ties, empty items and equal ratios of different checks are common.
T_RALU_RLT AnyCheck() {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  const double demand = *rc::gen::weightedOneOf<double>(
      {{1, rc::gen::element(kInf, -kInf, kNan)},
       {12, rc::gen::element(-40.0, -20.0, 0.0, 20.0, 40.0, 60.0, 80.0)}});
  return {demand, *rc::gen::element(0.0, 100.0, 200.0), 0.0};
}

T_RALU_D AnyRecord(UINT lcomb) {
  T_RALU_D record;
  record.nHasResult = 1;
  for (T_RALU_SECT& sect : record.aSect) {
    for (T_RALU_RLT& item : sect.aItem) item = AnyCheck();
  }
  record.SetLCombKey(lcomb, static_cast<int>(lcomb % 2));
  record.MakeCompItem();
  return record;
}

std::vector<T_RALU_D> AnyRecords() {
  std::vector<T_RALU_D> records;
  const UINT count = *rc::gen::inRange(1U, 7U);
  for (UINT lcomb = 1; lcomb <= count; ++lcomb) records.push_back(AnyRecord(lcomb));
  return records;
}

T_RALU_D Merged(const std::vector<T_RALU_D>& records) {
  T_RALU_D governing = records.front();
  for (std::size_t i = 1; i < records.size(); ++i) governing.GetMaxRlt(records[i]);
  return governing;
}

std::vector<T_RALU_D> Shuffled(const std::vector<T_RALU_D>& records) {
  std::vector<T_RALU_D> rest = records;
  std::vector<T_RALU_D> out;
  while (!rest.empty()) {
    const auto at = *rc::gen::inRange(std::ptrdiff_t{0}, std::ssize(rest));
    out.push_back(rest[static_cast<std::size_t>(at)]);
    rest.erase(rest.begin() + at);
  }
  return out;
}

RANK RankOf(const T_RALU_RLT& item) {
  return RankOf(item.dDemand, item.dCapacity);
}
RANK RankOf(const T_RALU_ITEM& item) {
  return RankOf(item.dDemand, item.dCapacity);
}

// The worst rank of an item type over all combinations and positions, and how often it occurs.
struct WORST {
  RANK rank{0, 0.0};
  int nTimes = 0;
  UINT nLComb = 0;
  int nPos = -1;
};

WORST WorstOf(const std::vector<T_RALU_D>& records, std::size_t type) {
  WORST worst;
  for (const T_RALU_D& record : records) {
    for (std::size_t pos = 0; pos < record.aSect.size(); ++pos) {
      const RANK rank = RankOf(record.aSect[pos].aItem[type]);
      if (rank < worst.rank) continue;
      if (rank > worst.rank) worst = {rank, 0, record.nLComb, static_cast<int>(pos)};
      ++worst.nTimes;
    }
  }
  return worst;
}

RC_GTEST_PROP(MergingResults, EachPositionKeepsItsWorstCheckInAnyOrder, ()) {
  const std::vector<T_RALU_D> records = AnyRecords();
  const T_RALU_D merged = Merged(Shuffled(records));
  for (std::size_t pos = 0; pos < merged.aSect.size(); ++pos) {
    for (std::size_t type = 0; type < kResultItems; ++type) {
      RANK worst{0, 0.0};
      for (const T_RALU_D& record : records) {
        worst = std::max(worst, RankOf(record.aSect[pos].aItem[type]));
      }
      RC_ASSERT(RankOf(merged.aSect[pos].aItem[type]) == worst);
    }
  }
}

RC_GTEST_PROP(MergingResults, TheGoverningCheckIsTheWorstOfAllInAnyOrder, ()) {
  const std::vector<T_RALU_D> records = AnyRecords();
  const T_RALU_D merged = Merged(Shuffled(records));
  for (std::size_t type = 0; type < kResultItems; ++type) {
    const WORST worst = WorstOf(records, type);
    const T_RALU_ITEM& governing = merged.aComp[type];
    RC_ASSERT(RankOf(governing) == worst.rank);
    if (worst.rank.first != 0 && worst.nTimes == 1) {
      RC_ASSERT(governing.nLComb == worst.nLComb);
      RC_ASSERT(governing.nPos == worst.nPos);
    }
  }
}

RC_GTEST_PROP(MergingResults, AmongTiesTheEarliestCombinationAndPositionStay, ()) {
  const std::vector<T_RALU_D> records = AnyRecords();
  const T_RALU_D merged = Merged(records);
  for (std::size_t type = 0; type < kResultItems; ++type) {
    const WORST worst = WorstOf(records, type);
    if (worst.rank.first == 0) {
      RC_ASSERT(merged.aComp[type].nPos == -1);
    } else {
      RC_ASSERT(merged.aComp[type].nLComb == worst.nLComb);
      RC_ASSERT(merged.aComp[type].nPos == worst.nPos);
    }
  }
}

RC_GTEST_PROP(MergingResults, AGoverningCheckIsOneThatTheRecordOfItsCombinationHolds, ()) {
  const std::vector<T_RALU_D> records = AnyRecords();
  const T_RALU_D merged = Merged(Shuffled(records));
  for (std::size_t type = 0; type < kResultItems; ++type) {
    const T_RALU_ITEM& governing = merged.aComp[type];
    if (governing.nPos < 0) continue;
    const T_RALU_D& record = records.at(governing.nLComb - 1U);
    const T_RALU_RLT& item = record.aSect.at(static_cast<std::size_t>(governing.nPos)).aItem[type];
    RC_ASSERT(RankOf(item) == RankOf(governing));
    RC_ASSERT(governing.nMinSide == record.nMinSide);
  }
}

}  // namespace
