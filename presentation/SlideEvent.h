#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/Clock.h"

namespace stagehopper {

/// How long a sequence tag stands for the same event.
inline constexpr platform::Duration repeatWindow{2.0};

/// Whether an event with the tag `seq`, arriving at `now`, is the one last accepted, sent again:
/// over a second channel, or by a nervous thumb.
bool isRepeatedEvent(std::string_view seq, platform::Date now,
                     const std::optional<std::string>& lastSeq,
                     const std::optional<platform::Date>& lastAt);

}  // namespace stagehopper
