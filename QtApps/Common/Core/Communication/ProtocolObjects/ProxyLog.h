#pragma once

#include "QtApps/Common/Logger/Log.h"

// The two payload failure lines of every proxy. Macros, so that the line names the proxy's own
// source file and line.
#define BWL_LOG_READ_FAILURE(function)                                                             \
    BWL_LOG_WARN(function, QStringLiteral("Protocol message data read failure"))
#define BWL_LOG_WRITE_FAILURE(function)                                                            \
    BWL_LOG_WARN(function, QStringLiteral("Protocol message data write failure"))
