#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "companion/backend/JoinRequest.h"

namespace stagehopper::companion {

/// Members stay in the order in which they were written.
using JsonOut = nlohmann::ordered_json;

/// Never throws: what is no UTF-8 is replaced.
inline std::string textOf(const JsonOut& json) {
    return json.dump(-1, ' ', false, JsonOut::error_handler_t::replace);
}

inline JsonOut jsonOf(const std::vector<Participant>& everybody) {
    JsonOut list = JsonOut::array();
    for (const Participant& who : everybody) {
        list.push_back({{"userId", who.userId},
                        {"displayName", who.displayName},
                        {"role", nameOf(who.role)},
                        {"cursorColor", who.cursorColor}});
    }
    return list;
}

}  // namespace stagehopper::companion
