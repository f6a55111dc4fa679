#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>

namespace stagehopper::companion {

/// One text, shared by many receivers.
using SharedText = std::shared_ptr<const std::string>;

/// The messages that wait to be sent to one client. One thread at a time.
class OutgoingQueue {
public:
    static constexpr std::size_t maxMessages = 256;

    /// False if the queue is full because the client reads too slowly. A message replaces a waiting
    /// one with the same topic. Messages without a topic are all kept.
    [[nodiscard]] bool push(SharedText text, std::string_view topic = {}) {
        if (!topic.empty()) {
            for (Entry& entry : entries_) {
                if (entry.topic != topic) continue;
                entry.text = std::move(text);
                return true;
            }
        }
        if (entries_.size() == maxMessages) return false;
        entries_.push_back({std::move(text), std::string(topic)});
        return true;
    }

    bool empty() const { return entries_.empty(); }

    SharedText pop() {
        SharedText text = std::move(entries_.front().text);
        entries_.pop_front();
        return text;
    }

    void clear() { entries_.clear(); }

private:
    struct Entry {
        SharedText text;
        std::string topic;
    };

    std::deque<Entry> entries_;
};

}  // namespace stagehopper::companion
