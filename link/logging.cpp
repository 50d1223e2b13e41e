#include "link/logging.h"

Q_LOGGING_CATEGORY(lcLink, "zeltaconnect.link")
Q_LOGGING_CATEGORY(lcControl, "zeltaconnect.control")
