#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace stagehopper {

/// "key=value key=value": the detail of a diagnostic line. Values stand as they are.
std::string logDetail(
    std::initializer_list<std::pair<std::string_view, std::string_view>> keysAndValues);

}  // namespace stagehopper
