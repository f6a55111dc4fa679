#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "companion/backend/room/JoinRequest.h"

namespace stagehopper::companion {

/// Keeps its members in the order of insertion.
using JsonOut = nlohmann::ordered_json;

/// Never throws: invalid UTF-8 is replaced.
inline std::string textOf(const JsonOut& json) {
    return json.dump(-1, ' ', false, JsonOut::error_handler_t::replace);
}

inline JsonOut jsonOf(const std::vector<Participant>& participants) {
    JsonOut list = JsonOut::array();
    for (const Participant& participant : participants) {
        list.push_back({{"userId", participant.userId},
                        {"displayName", participant.displayName},
                        {"role", nameOf(participant.role)},
                        {"cursorColor", participant.cursorColor}});
    }
    return list;
}

}  // namespace stagehopper::companion
