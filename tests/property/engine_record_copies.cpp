// A copied record equals its original in every field, and assigning it to itself changes nothing.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/property/engine_record_fields.h"

namespace {

using namespace engine_records;

struct FILL_RANDOMLY {
  template <class NUMBER>
  void operator()(NUMBER& number) {
    number = *rc::gen::arbitrary<NUMBER>();
  }
  void operator()(CString& text) {
    std::wstring letters;
    for (const int letter : *rc::gen::container<std::vector<int>>(rc::gen::inRange(33, 0x9FA5))) {
      letters += static_cast<wchar_t>(letter);
    }
    text = CString(letters);
  }
};

template <class RECORD>
RECORD AnyRecord() {
  RECORD record;
  if constexpr (requires { record.aElem; }) record.aElem.SetSize(*rc::gen::inRange(0, 8));
  FILL_RANDOMLY fill;
  VisitFields(record, fill);
  return record;
}

template <class RECORD>
void CheckCopies() {
  RECORD original = AnyRecord<RECORD>();
  const VALUES values = ValuesOf(original);
  const RECORD copy = original;
  RECORD assigned = AnyRecord<RECORD>();
  assigned = original;
  const RECORD& same = original;
  original = same;
  RC_ASSERT(ValuesOf(copy) == values);
  RC_ASSERT(ValuesOf(assigned) == values);
  RC_ASSERT(ValuesOf(original) == values);
}

RC_GTEST_PROP(RecordCopies, OfASectionEqualIt, ()) {
  CheckCopies<ALU_SECT_DATA>();
}
RC_GTEST_PROP(RecordCopies, OfAMaterialEqualIt, ()) {
  CheckCopies<ALU_MATL_DATA>();
}
RC_GTEST_PROP(RecordCopies, OfParametersEqualThem, ()) {
  CheckCopies<ALU_PARA_DATA>();
}
RC_GTEST_PROP(RecordCopies, OfDesignDataEqualThem, ()) {
  CheckCopies<ALU_DGN_DATA>();
}
RC_GTEST_PROP(RecordCopies, OfAMemberEqualIt, ()) {
  CheckCopies<ALU_DGN_MEMB>();
}
RC_GTEST_PROP(RecordCopies, OfForcesEqualThem, ()) {
  CheckCopies<AluDgnSectForce>();
}
RC_GTEST_PROP(RecordCopies, OfSectionParametersEqualThem, ()) {
  CheckCopies<ALU_CAL_SECTPARA>();
}
RC_GTEST_PROP(RecordCopies, OfAReportRecordEqualIt, ()) {
  CheckCopies<ALU_CAL_REPORT>();
}

RC_GTEST_PROP(RecordResets, BringDesignDataBackToAFreshRecord, ()) {
  auto data = AnyRecord<ALU_DGN_DATA>();
  data.Initial();
  RC_ASSERT(ValuesOf(data) == ValuesOf(ALU_DGN_DATA()));
}

RC_GTEST_PROP(RecordResets, BringAMemberBackToAFreshRecord, ()) {
  auto member = AnyRecord<ALU_DGN_MEMB>();
  member.Initial();
  RC_ASSERT(ValuesOf(member) == ValuesOf(ALU_DGN_MEMB()));
}

RC_GTEST_PROP(RecordResets, BringForcesBackToAFreshRecord, ()) {
  auto force = AnyRecord<AluDgnSectForce>();
  force.Initial();
  RC_ASSERT(ValuesOf(force) == ValuesOf(AluDgnSectForce()));
}

}  // namespace
