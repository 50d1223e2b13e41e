#pragma once

#include <QLoggingCategory>

/// Messages of the control object and its controllers: inbound state, refused arguments.
Q_DECLARE_LOGGING_CATEGORY(lcControl)
