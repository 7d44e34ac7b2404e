// Checks the pipe of the smallest host. Prints the governing strength demand and capacity that the
// module writes to its store.

#include <cstdio>

#include "tiny_host.h"
#include "tz_alu/dialogs/dgnalucodedlg.h"
#include "tz_alu/dialogs/dgnalumatdlg.h"
#include "tz_alu/manager/dgnaludatamgr.h"
#include "tz_alu/module/init_tz_aludll.h"

int main() {
  consumer::TinyHost tiny;
  host::Bind(tiny);
  Init_tz_aludll();
  const int flag = IAluDgnDataMgr::Instance()->CheckCode(nullptr);
  const int code = CDgnAluCodeDlg().DoModal();
  const int materials = CDgnAluMatDlg().DoModal();
  host::Unbind();
  const T_RALU_ITEM& strength = tiny.document.results.governing.aComp[RALU_STRENGTH];
  std::printf("flag %d strength %.6f %.6f dialogs %d %d\n", flag, strength.dDemand,
              strength.dCapacity, code, materials);
  return 0;
}
