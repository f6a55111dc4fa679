#pragma once

#include "platform/SystemLog.h"

namespace stagehopper::linux_port {

/// Standard error, one write for each message, and the journal, unless standard error is connected
/// to it. Any thread; failures are ignored.
class LinuxSystemLog final : public platform::SystemLog {
public:
    LinuxSystemLog();

    void write(std::string_view message) override;

private:
    bool standardErrorIsJournal_;
};

}  // namespace stagehopper::linux_port
