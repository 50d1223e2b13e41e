#pragma once

#include <QLoggingCategory>

/// Messages of the link: the engine's address, the socket, datagrams of unknown form, dropped
/// datagrams, records that are sent.
Q_DECLARE_LOGGING_CATEGORY(lcLink)
