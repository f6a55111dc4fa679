#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stagehopper {

/// The gateway of the first row "default GATEWAY …" of a route table; absent if there is no such
/// row or the table is not valid UTF-8. Blanks separate fields; tabs belong to a field.
std::optional<std::string> defaultGateway(std::string_view routeTable);

}  // namespace stagehopper
