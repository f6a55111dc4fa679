#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "ports/linux/desktop/GlibPointers.h"

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
    /// The type that the reply must have, as "(s)".
    const char* replyType = nullptr;
    VariantPointer arguments;
};

enum class CallFailure { none, timedOut, noSuchObject, noSuchMethod, other };

struct CallResult {
    /// Null exactly when the call failed.
    VariantPointer reply;
    CallFailure failure = CallFailure::other;
};

/// Sends all calls before it waits for the first reply, and waits no longer than `limit` for the
/// whole. Nothing else of this thread runs meanwhile: the replies come through a main context of
/// their own. The results stand in the order of the calls. Any thread.
std::vector<CallResult> callTogether(GDBusConnection* connection, std::vector<BusCall> calls,
                                     std::chrono::milliseconds limit);

/// A private connection to the bus at `address`; null when it cannot be had within `limit`.
ObjectPointer<GDBusConnection> connectToBus(const std::string& address,
                                            std::chrono::milliseconds limit);

}  // namespace stagehopper::linux_port
