#pragma once

#include <gtest/gtest.h>

#include <string>

#include "tests/companion/BackendProcess.h"
#include "tests/companion/RawClient.h"
#include "tests/companion/RoomClient.h"

namespace stagehopper::companion {

/// A backend with one meeting.
class RoomTest : public testing::Test {
protected:
    RoomTest() {
        const auto record =
            nlohmann::json::parse(ownPageRequest(port_, "POST", "/v1/meetings").body);
        code_ = record["roomCode"];
        secret_ = record["secret"];
        createdAt_ = record["createdAt"];
    }

    std::string query(const std::string& userId, const std::string& role = "guest") const {
        return "roomCode=" + code_ + "&userId=" + userId + "&role=" + role +
               "&displayName=" + userId + "&cursorColor=%23aabbcc";
    }

    /// Joins like a program on this machine, without an origin.
    RoomClient join(const std::string& userId) {
        return RoomClient({.port = port_, .query = query(userId), .origin = {}});
    }

    /// Sends a raw handshake, for a client that misbehaves afterwards.
    void joinRaw(RawClient& client, const std::string& userId, const std::string& behind = "") {
        client.send("GET /ws?" + query(userId) +
                    " HTTP/1.1\r\nHost: 127.0.0.1:" + std::to_string(port_) +
                    "\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"
                    "Sec-WebSocket-Key: AAAAAAAAAAAAAAAAAAAAAA==\r\n\r\n" +
                    behind);
    }

    static std::string step(const std::string& id) {
        return R"({"type":"slide_nav","direction":"next","id":")" + id + "\"}";
    }

    BackendProcess backend_;
    std::uint16_t port_ = backend_.port();
    std::string code_;
    std::string secret_;
    std::int64_t createdAt_ = 0;
};

}  // namespace stagehopper::companion
