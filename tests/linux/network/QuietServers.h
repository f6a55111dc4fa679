#pragma once

#include <string>

#include "tests/contract/Collected.h"
#include "tests/drivers/servers/LoopbackServer.h"

namespace stagehopper {

/// A server that accepts connections and sends nothing. It counts the clients that have sent
/// something, and those that have left.
struct SilentServer {
    Collected<int> asked;
    Collected<int> left;
    LoopbackServer server{[this](Peer& peer) {
        if (peer.readRequest()) asked.add(1);
        peer.readUntilGone();
        left.add(1);
    }};
};

/// A server that takes WebSockets, says hello, and then only collects the frames of its clients.
struct DeafServer {
    Collected<std::string> frames;
    LoopbackServer server{[this](Peer& peer) {
        const auto request = peer.readRequest();
        if (!request) return;
        peer.acceptWebSocket(*request);
        peer.send(Frame{Frame::text, "hello"});
        while (const auto frame = peer.readFrame()) {
            frames.add(frame->opcode == Frame::close
                           ? "close " + std::to_string(closeCodeIn(frame->payload))
                           : "frame " + std::to_string(frame->opcode));
        }
        frames.add("end");
    }};
};

}  // namespace stagehopper
