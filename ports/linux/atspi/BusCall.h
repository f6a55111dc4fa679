#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ports/linux/glib/GlibPointers.h"

namespace stagehopper::linux_port {

/// An object on a bus: the connection that owns it, and its path there.
struct ObjectReference {
    std::string bus;
    std::string path;

    friend bool operator==(const ObjectReference&, const ObjectReference&) = default;
};

/// One method call that has not been sent yet.
struct BusCall {
    ObjectReference object;
    const char* interface = nullptr;
    const char* method = nullptr;
    /// The type that the reply must have, such as "(s)".
    const char* replyType = nullptr;
    VariantPointer arguments;
};

enum class CallFailure {
    none,
    /// Nothing has left this process.
    notSent,
    /// Sent. It is unknown whether the other side has acted or will act.
    unanswered,
    /// Carried out, with a reply of another type.
    unexpectedReply,
    noSuchObject,
    noSuchMethod,
    /// The other side, or the bus, answered with another error.
    refused,
};

struct CallResult {
    /// Null exactly when the call failed.
    VariantPointer reply;
    CallFailure failure = CallFailure::notSent;
};

/// How long a round of calls may take.
struct RoundLimits {
    /// Until the bus itself has answered.
    std::chrono::milliseconds bus;
    /// Until all programs have answered.
    std::chrono::milliseconds all;
};

struct Round {
    /// In the order of the calls.
    std::vector<CallResult> results;
    /// False when the bus itself hangs.
    bool busAnswered = false;
};

/// Sends all calls before it waits for the first reply. The limits apply to the whole round.
/// Nothing else runs on this thread meanwhile: the replies arrive through a private main context.
/// Any thread.
Round callTogether(GDBusConnection* connection, std::vector<BusCall> calls, RoundLimits limits);

/// Sends a call and returns. `done` runs on this thread's main loop, unless `asker` is gone by
/// then. The reply has no time limit.
void callInBackground(GDBusConnection* connection, const BusCall& call,
                      std::weak_ptr<const void> asker, std::function<void(CallResult)> done);

}  // namespace stagehopper::linux_port
