#pragma once

#include <QLoggingCategory>

/// Reasons why a transfer ended without a completion signal. Information messages, off by default.
Q_DECLARE_LOGGING_CATEGORY(lcTransfer)
