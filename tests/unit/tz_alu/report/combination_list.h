#pragma once

#include <initializer_list>
#include <string>

#include "tests/unit/tz_alu/report/report_fixture.h"

namespace report_test {

/// The list of combinations over a host whose static case 1 is "DL", 2 "LL", 3 "WX" and 4 "TEMP".
class CombinationListTest : public ReportTest {
 protected:
  CombinationListTest() {
    SetCase(1, 1, L"DL");
    SetCase(1, 2, L"LL");
    SetCase(1, 3, L"WX");
    SetCase(1, 4, L"TEMP");
  }

  /// A load case that the host keeps under a kind; moving loads (kind 4) by their code too.
  void SetCase(int kind, UINT number, const std::wstring& name, int code = 0) {
    host_.model.load_cases[{{kind, code}, number}] = name;
  }
  T_LCOM_D& Combination(UINT number) { return host_.model.combination_records[number]; }
  T_LCOM_D& Combination(UINT number, const std::wstring& name) {
    Combination(number).strName = name;
    return Combination(number);
  }
  /// Combination 1, "LC1", of these terms.
  void SetTerms(std::initializer_list<T_LCOM_ENTRY_D> terms) {
    T_LCOM_D& combination = Combination(1, L"LC1");
    combination.aEntry.RemoveAll();
    for (const T_LCOM_ENTRY_D& term : terms) combination.aEntry.Add(term);
  }

  /// What follows the headings.
  std::string List(std::initializer_list<T_LCOM_MAXMIN_K> keys) {
    CALUPrint::LCOMBS lcombs;
    for (const T_LCOM_MAXMIN_K key : keys) lcombs.Add(key);
    print_.ResetReport();
    print_.PrintHeader(lcombs);
    const std::string text = Text();
    const std::string heading = "Loadcase Name(Factor)\n";
    return text.substr(text.find(heading) + heading.size());
  }
  /// The row of combination 1, made of these terms.
  std::string Row(std::initializer_list<T_LCOM_ENTRY_D> terms) {
    SetTerms(terms);
    return List({1});
  }
};

}  // namespace report_test
