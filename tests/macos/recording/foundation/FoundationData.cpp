#include "tests/macos/recording/foundation/Foundation.h"
#include "tests/macos/recording/foundation/FoundationStates.h"
#include "tests/macos/recording/runtime/Definitions.h"

namespace stagehopper::recording {

void defineDataAndErrors() {
    define("NSData", MessageKind::instance, "bytes", [](Call& call) -> Value {
        return static_cast<const void*>(call.state<DataState>().bytes.data());
    });
    define("NSData", MessageKind::instance, "length", [](Call& call) -> Value {
        return static_cast<unsigned long>(call.state<DataState>().bytes.size());
    });
    keepOutOfJournal("NSData");

    define("NSError", MessageKind::instance, "localizedDescription", [](Call& call) -> Value {
        return makeString(call, call.state<ErrorState>().localizedDescription);
    });
    define("NSError", MessageKind::instance, "domain",
           [](Call& call) -> Value { return makeString(call, call.state<ErrorState>().domain); });
    define("NSError", MessageKind::instance, "code",
           [](Call& call) -> Value { return call.state<ErrorState>().code; });
    keepOutOfJournal("NSError");
}

}  // namespace stagehopper::recording
