#pragma once

// Included by MessageDispatch.h instead of the code that sends messages on the real system.

#include <array>

#include "tests/macos/facts/Agreement.h"
#include "tests/macos/facts/Facts.h"
#include "tests/macos/recording/runtime/SendMessage.h"
#include "tests/macos/recording/runtime/Value.h"

namespace stagehopper::cocoa {

/// Compiles only if the table of facts has the message for the handle's class, with exactly these
/// types.
template <class Receiver, MessageKind kind, FixedString name, class Result, class... Arguments>
Result dispatchMessage(id receiver, Arguments... arguments) {
    constexpr auto factKind = kind == MessageKind::classLevel ? macos_facts::Kind::classLevel
                                                              : macos_facts::Kind::instance;
    constexpr const auto* fact =
        macos_facts::factFor(Receiver::className.view(), factKind, name.view());
    static_assert(fact != nullptr, "no such message in the table of facts");
    constexpr std::string_view types = methodEncoding<Result, Arguments...>;
    if constexpr (fact != nullptr) {
        static_assert(macos_facts::agrees(types, fact->encoding),
                      "the table of facts knows this message with other types");
    }
    const std::array<recording::Value, sizeof...(Arguments)> boxed{recording::Value(arguments)...};
    const auto answer =
        recording::sendMessage({factKind, name.view(), types, encoding<Result>}, receiver, boxed);
    if constexpr (!std::is_void_v<Result>) return answer.template as<Result>();
}

}  // namespace stagehopper::cocoa
