#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>
#include <vector>

namespace stagehopper {

/// The values that completions received, in order. Any thread.
template <typename Value>
class Collected {
public:
    void add(Value value) {
        const std::scoped_lock lock(mutex_);
        values_.push_back(std::move(value));
        changed_.notify_all();
    }
    [[nodiscard]] std::vector<Value> all() const {
        const std::scoped_lock lock(mutex_);
        return values_;
    }
    [[nodiscard]] std::size_t size() const { return all().size(); }
    /// False if the limit is reached before this many values.
    [[nodiscard]] bool await(std::size_t count,
                             std::chrono::milliseconds limit = std::chrono::seconds(10)) {
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, limit, [&] { return values_.size() >= count; });
    }

private:
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::vector<Value> values_;
};

}  // namespace stagehopper
