#include "module/CTsServiceUtilitiesApp.h"

namespace
{

CTsServiceUtilitiesApp g_application;

} // namespace
