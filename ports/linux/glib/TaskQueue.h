#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <utility>

#include "platform/Dispatch.h"

namespace stagehopper::linux_port {

/// Tasks ordered by due time, then by posting. Has no clock: the caller passes the time. Any thread
/// may add and remove; one thread runs.
class TaskQueue {
public:
    using Instant = std::chrono::steady_clock::time_point;
    using Id = std::uint64_t;
    /// Absent when nothing is queued.
    using NextDue = std::optional<Instant>;

    /// `nextChanged` receives the due time of the next task after every change. It is called with
    /// the queue locked, so that the reports of two threads arrive in order.
    explicit TaskQueue(std::function<void(NextDue)> nextChanged);

    Id add(Instant due, platform::Task task);
    /// `interval` is above zero.
    Id addRepeating(Instant firstDue, Instant::duration interval, platform::Task task);
    /// The task does not start again. Safe from inside the task itself.
    void remove(Id id);
    /// Runs the first task, if it is due.
    void runNext(Instant now);
    /// Drops everything and accepts nothing more.
    void close();

private:
    using Key = std::pair<Instant, Id>;
    struct Entry {
        platform::Task task;
        std::optional<Instant::duration> interval;
    };

    Id insert(Instant due, Entry entry);
    void announce();

    std::function<void(NextDue)> nextChanged_;
    std::mutex mutex_;
    std::map<Key, Entry> entries_;
    Id lastId_ = 0;
    /// The task that runs right now; cleared when it removes itself.
    std::optional<Id> running_;
    bool closed_ = false;
};

}  // namespace stagehopper::linux_port
