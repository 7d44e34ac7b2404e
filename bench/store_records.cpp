#include "bench/store_records.h"

#include <random>

namespace store_bench {

namespace {

constexpr double design_strength = 200.0;
constexpr double shear_strength = 115.0;
constexpr double slenderness_limit = 150.0;

void fill_position(T_RALU_SECT& position, std::mt19937_64& random, double slenderness) {
  std::uniform_real_distribution<double> stress(1.0, 180.0);
  for (const int item : {RALU_STRENGTH, RALU_STABILITY}) {
    position.aItem[static_cast<std::size_t>(item)] = {stress(random), design_strength, 0.0};
  }
  for (const int item : {RALU_SHEAR_Y, RALU_SHEAR_Z}) {
    position.aItem[static_cast<std::size_t>(item)] = {stress(random), shear_strength, 0.0};
  }
  for (const int item : {RALU_SLENDERNESS_Y, RALU_SLENDERNESS_Z}) {
    position.aItem[static_cast<std::size_t>(item)] = {slenderness * item, slenderness_limit, 0.0};
  }
}

}  // namespace

std::vector<KeyedRecord> records_of(std::uint32_t element) {
  std::mt19937_64 random(element);
  std::vector<KeyedRecord> records;
  T_RALU_D governing;
  for (std::uint32_t combination = 1; combination <= combinations; ++combination) {
    T_RALU_D record;
    for (T_RALU_SECT& position : record.aSect)
      fill_position(position, random, 1.0 + element * 0.01);
    record.nHasResult = 1;
    record.nMembType = 1;
    record.SetLCombKey(combination, 0);
    record.MakeCompItem();
    if (combination == 1) governing = record;
    governing.GetMaxRlt(record);
    records.push_back({{combination, 0}, record});
  }
  records.push_back({{0, 0}, governing});
  return records;
}

aluframe::store::ElementRow row_of(std::uint32_t element) {
  aluframe::store::ElementPacker packer(element, 1);
  for (const KeyedRecord& keyed : records_of(element)) packer.add(keyed.record, keyed.key);
  return packer.row();
}

}  // namespace store_bench
