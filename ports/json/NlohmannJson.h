#pragma once

#include "platform/Json.h"

namespace stagehopper::json_port {

/// JSON by nlohmann/json. Any thread.
class NlohmannJson final : public platform::Json {
public:
    std::optional<platform::JsonValue> decoded(std::string_view text) override;
};

}  // namespace stagehopper::json_port
