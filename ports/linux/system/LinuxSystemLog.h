#pragma once

#include "platform/SystemLog.h"

namespace stagehopper::linux_port {

/// Standard error, one write for each message, and the journal, unless standard error leads there
/// already. Any thread; no failure shows.
class LinuxSystemLog final : public platform::SystemLog {
public:
    LinuxSystemLog();

    void write(std::string_view message) override;

private:
    bool standardErrorIsJournal_;
};

}  // namespace stagehopper::linux_port
