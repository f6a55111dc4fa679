#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stagehopper {

/// The gateway of the first row of a route table that reads "default GATEWAY …"; absent when there
/// is none, or when the table is no UTF-8. Fields are separated by blanks; tabs belong to a field.
std::optional<std::string> defaultGateway(std::string_view routeTable);

}  // namespace stagehopper
