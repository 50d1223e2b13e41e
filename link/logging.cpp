#include "link/logging.h"

Q_LOGGING_CATEGORY(lcLink, "zeltaconnect.link")
