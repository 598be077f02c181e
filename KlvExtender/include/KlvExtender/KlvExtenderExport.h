#pragma once

#include <QtGlobal>

/// Marks what the framework library offers to plug-ins and hosts; everything else stays hidden in it.
#if defined(qor_kelvor_extender_EXPORTS)
#define KLV_EXTENDER_EXPORT Q_DECL_EXPORT
#else
#define KLV_EXTENDER_EXPORT Q_DECL_IMPORT
#endif
