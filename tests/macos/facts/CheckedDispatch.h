#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/macos/facts/Agreement.h"
#include "tests/macos/facts/Facts.h"

// Replaces the dispatch to the runtime: including a header that declares a message makes the
// compiler compare it with the table. No message is ever sent.

namespace stagehopper::macos_facts {

/// One message that our headers declare.
struct DeclaredMessage {
    std::string_view className;
    Kind kind = Kind::instance;
    std::string_view selector;
    std::string_view encoding;
};

/// All of this program, filled before main. One thread.
inline std::vector<DeclaredMessage>& declaredMessages() {
    static std::vector<DeclaredMessage> messages;
    return messages;
}

/// Its initialization enters one message in the list.
template <class Receiver, Kind kind, auto name, class Result, class... Arguments>
struct Declaration {
    static const bool entered;
};
template <class Receiver, Kind kind, auto name, class Result, class... Arguments>
const bool Declaration<Receiver, kind, name, Result, Arguments...>::entered = [] {
    declaredMessages().push_back({Receiver::className.view(), kind, name.view(),
                                  cocoa::methodEncoding<Result, Arguments...>});
    return true;
}();

}  // namespace stagehopper::macos_facts

namespace stagehopper::cocoa {

template <class Receiver, MessageKind kind, FixedString name, class Result, class... Arguments>
Result dispatchMessage(id /*receiver*/, Arguments... /*arguments*/) {
    namespace facts = macos_facts;
    constexpr auto factKind =
        kind == MessageKind::instance ? facts::Kind::instance : facts::Kind::classLevel;
    constexpr const char* declared = methodEncoding<Result, Arguments...>;
    constexpr const auto* fact = facts::factFor(Receiver::className.view(), factKind, name.view());
    static_assert(fact != nullptr, "no such message in the table of facts");
    if constexpr (fact != nullptr) {
        static_assert(facts::agrees(declared, fact->encoding),
                      "declared with other types than the table has");
    }
    static_cast<void>(facts::Declaration<Receiver, factKind, name, Result, Arguments...>::entered);
    return Result();
}

}  // namespace stagehopper::cocoa
