#pragma once

#include "platform/Json.h"

namespace stagehopper::macos_port {

/// Foundation's JSON decoder. Any thread.
class MacJson final : public platform::Json {
public:
    std::optional<platform::JsonValue> decoded(std::string_view text) override;
};

}  // namespace stagehopper::macos_port
