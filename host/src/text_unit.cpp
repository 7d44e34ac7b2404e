#include "host/tz_db/text_unit.h"

#include "host/tz_db/services.h"

void CTextUnit::SetUnitType(int type) {
  SetWindowText(CDBDoc::GetDocPoint()->GetUnitCtrl().GetUnitText(type));
}
