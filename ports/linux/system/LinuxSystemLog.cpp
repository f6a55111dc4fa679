#include "ports/linux/system/LinuxSystemLog.h"

#include <glib.h>
#include <unistd.h>

#include <array>
#include <string>

#include "ports/posix/FileDescriptor.h"

namespace stagehopper::linux_port {

namespace {

constexpr gssize terminatedText = -1;

/// Straight to the journal's socket, not through GLib's logging: a handler installed there may log
/// through us.
void writeToJournal(std::string_view message) {
    const std::array<GLogField, 3> fields{{
        {"MESSAGE", message.data(), static_cast<gssize>(message.size())},
        {"PRIORITY", "5", terminatedText},
        {"SYSLOG_IDENTIFIER", "stagehopper", terminatedText},
    }};
    g_log_writer_journald(G_LOG_LEVEL_MESSAGE, fields.data(), fields.size(), nullptr);
}

}  // namespace

LinuxSystemLog::LinuxSystemLog()
    : standardErrorIsJournal_(g_log_writer_is_journald(STDERR_FILENO)) {}

void LinuxSystemLog::write(std::string_view message) {
    posix::writeAll(STDERR_FILENO, std::string(message) + '\n');
    if (!standardErrorIsJournal_) writeToJournal(message);
}

}  // namespace stagehopper::linux_port
