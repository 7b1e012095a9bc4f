#pragma once

/// TS_API marks what TsServiceUtilities.dll exports.
/// TS_BUILDING_LIBRARY is set while the library's own objects are compiled, TS_STATIC by programs that
/// link those objects themselves instead of the DLL.
#if defined(TS_STATIC)
#define TS_API
#elif defined(TS_BUILDING_LIBRARY)
#define TS_API __declspec(dllexport)
#else
#define TS_API __declspec(dllimport)
#endif
