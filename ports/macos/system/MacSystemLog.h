#pragma once

#include "platform/SystemLog.h"

namespace stagehopper::macos_port {

/// NSLog: the unified log, and standard error when a terminal or a file reads that. Any thread.
class MacSystemLog final : public platform::SystemLog {
public:
    void write(std::string_view message) override;
};

}  // namespace stagehopper::macos_port
