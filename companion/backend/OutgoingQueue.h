#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>

namespace stagehopper::companion {

/// One text for many receivers.
using SharedText = std::shared_ptr<const std::string>;

/// What waits to be sent to one client.
/// Thread: one at a time.
class OutgoingQueue {
public:
    static constexpr std::size_t maxMessages = 256;

    /// False when it is full: its reader is too slow. Of those with the same topic only the newest
    /// is kept, at the place of the oldest; no topic means that each one matters.
    bool push(SharedText text, std::string_view topic = {}) {
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
