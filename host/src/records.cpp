#include "host/tz_db/attributes.h"

void T_DALU_D::Initialize() {
  *this = T_DALU_D();
}
