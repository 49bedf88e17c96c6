#include "DInfo.h"

FC_IMPLEMENT_CLASS(DInfo, "FCObject", nullptr)

void DInfo::SetData(odbc::ResultSet*) {}
