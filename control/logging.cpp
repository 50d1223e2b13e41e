#include "control/logging.h"

Q_LOGGING_CATEGORY(lcControl, "zeltaconnect.control")
