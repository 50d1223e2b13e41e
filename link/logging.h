#pragma once

#include <QLoggingCategory>

/// The network link: start-up, datagrams that nothing understands.
Q_DECLARE_LOGGING_CATEGORY(lcLink)
/// The control object: inbound state and the write path.
Q_DECLARE_LOGGING_CATEGORY(lcControl)
/// File transfers to the sound engine, versions and catalogues.
