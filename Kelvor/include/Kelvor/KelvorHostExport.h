#pragma once

#include <QtGlobal>

/// Marks what the host library offers to the program and to applications that embed the inspector.
#if defined(kelvor_host_EXPORTS)
#define KELVOR_HOST_EXPORT Q_DECL_EXPORT
#else
#define KELVOR_HOST_EXPORT Q_DECL_IMPORT
#endif
