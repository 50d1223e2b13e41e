#pragma once

/// Puts the ping of the tools first in the search path of this process, because the module understands its
/// summary. Does nothing where that ping is not installed. Needs an application object.
void useToolsPing();
