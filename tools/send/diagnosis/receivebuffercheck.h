#pragma once

#include "finding.h"

constexpr char receiveBufferCheck[] = "receive-buffer";

/// The system grants the receive buffer that the module asks for.
Finding checkReceiveBuffer();
