#include "ports/macos/system/MacSystemLog.h"

#include "ports/macos/cocoa/foundation/NSLog.h"
#include "text/Utf8.h"

namespace stagehopper::macos_port {

void MacSystemLog::write(std::string_view message) {
    // Never the message as the format: it may hold percent signs.
    NSLog(cocoa::string("%@").pointer(), cocoa::string(wellFormed(message)).pointer());
}

}  // namespace stagehopper::macos_port
