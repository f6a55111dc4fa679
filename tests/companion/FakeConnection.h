#pragma once

#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "companion/backend/room/Meeting.h"

namespace stagehopper::companion {

/// Records the messages to one participant.
class FakeConnection : public Connection {
public:
    void send(SharedText text, std::string_view topic) override {
        texts_.push_back(std::move(text));
        topics.emplace_back(topic);
    }
    void close(CloseReason reason) override { closed = reason; }
    void keepOpen() override { keptOpen = true; }

    std::vector<nlohmann::json> sent() const {
        std::vector<nlohmann::json> all;
        for (const SharedText& text : texts_) all.push_back(nlohmann::json::parse(*text));
        return all;
    }

    std::vector<nlohmann::json> ofType(const std::string& type) const {
        std::vector<nlohmann::json> matching;
        for (const auto& message : sent()) {
            if (message.at("type") == type) matching.push_back(message);
        }
        return matching;
    }

    std::vector<std::string> topics;
    std::optional<CloseReason> closed;
    bool keptOpen = false;

private:
    /// Parsed on demand: a full room sends very many.
    std::vector<SharedText> texts_;
};

}  // namespace stagehopper::companion
