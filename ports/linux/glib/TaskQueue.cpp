#include "ports/linux/glib/TaskQueue.h"

#include <algorithm>

namespace stagehopper::linux_port {

TaskQueue::TaskQueue(std::function<void(NextDue)> nextChanged)
    : nextChanged_(std::move(nextChanged)) {}

TaskQueue::Id TaskQueue::add(Instant due, platform::Task task) {
    return insert(due, {std::move(task), std::nullopt});
}

TaskQueue::Id TaskQueue::addRepeating(Instant firstDue, Instant::duration interval,
                                      platform::Task task) {
    return insert(firstDue, {std::move(task), interval});
}

TaskQueue::Id TaskQueue::insert(Instant due, Entry entry) {
    const std::scoped_lock lock(mutex_);
    const Id id = ++lastId_;
    if (closed_) return id;
    entries_.emplace(Key{due, id}, std::move(entry));
    announce();
    return id;
}

// In this file tasks are destroyed outside the lock: what they hold may call back when it dies.

void TaskQueue::remove(Id id) {
    std::map<Key, Entry>::node_type removed;
    const std::scoped_lock lock(mutex_);
    if (running_ == id) running_.reset();
    const auto found =
        std::ranges::find(entries_, id, [](const auto& e) { return e.first.second; });
    if (found == entries_.end()) return;
    removed = entries_.extract(found);
    announce();
}

void TaskQueue::runNext(Instant now) {
    std::map<Key, Entry>::node_type current;
    std::unique_lock lock(mutex_);
    if (entries_.empty() || entries_.begin()->first.first > now) {
        announce();
        return;
    }
    current = entries_.extract(entries_.begin());
    running_ = current.key().second;

    lock.unlock();
    current.mapped().task();
    lock.lock();

    const bool removed = !running_;
    running_.reset();
    if (const auto interval = current.mapped().interval; interval && !removed && !closed_) {
        // Keeps the rhythm of its first round and skips missed rounds.
        auto& due = current.key().first;
        const auto late = std::max(Instant::clock::now() - due, Instant::duration::zero());
        due += *interval * (late / *interval + 1);
        entries_.insert(std::move(current));
    }
    announce();
}

void TaskQueue::close() {
    std::map<Key, Entry> dropped;
    const std::scoped_lock lock(mutex_);
    closed_ = true;
    dropped.swap(entries_);
    announce();
}

void TaskQueue::announce() {
    nextChanged_(entries_.empty() ? NextDue{} : entries_.begin()->first.first);
}

}  // namespace stagehopper::linux_port
