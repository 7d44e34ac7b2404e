#include "tz_alu/report/aluprint.h"

CALUPrint::~CALUPrint() = default;

CALU_GB50429_07Print::~CALU_GB50429_07Print() = default;
