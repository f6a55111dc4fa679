#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Clock.h"

namespace stagehopper {

/// How long a sequence tag identifies the same event.
inline constexpr platform::Duration repeatWindow{2.0};

/// Whether an event with the tag `seq`, received at `now`, repeats the last accepted event. Repeats
/// come over a second channel or from a double tap.
bool isRepeatedEvent(std::string_view seq, platform::Date now,
                     const std::optional<std::string>& lastSeq,
                     const std::optional<platform::Date>& lastAt);

}  // namespace stagehopper
