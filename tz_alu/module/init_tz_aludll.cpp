#include "tz_alu/module/init_tz_aludll.h"

void Init_tz_aludll() {}
