#include "ports/linux/glib/WorkerThreads.h"

#include <glib.h>

#include <utility>

namespace stagehopper::linux_port {

namespace {

constexpr int maximumThreads = 64;

/// GLib's queue orders the thread that posts and the one that runs. Thread sanitizer does not see
/// its lock, and sees the same order by this count. Not a member: a thread that GLib keeps from an
/// earlier pool must see it before it looks at anything of this one's.
std::atomic<unsigned> handedOver{0};

}  // namespace

WorkerThreads::WorkerThreads()
    : pool_(g_thread_pool_new_full(&WorkerThreads::runTask, this, &WorkerThreads::dropTask,
                                   maximumThreads, FALSE, nullptr)) {}

WorkerThreads::~WorkerThreads() {
    close();
    g_thread_pool_free(pool_, TRUE, TRUE);
}

void WorkerThreads::post(platform::Task task) {
    if (closed_) return;
    auto owned = std::make_unique<platform::Task>(std::move(task));
    ++handedOver;
    g_thread_pool_push(pool_, owned.release(), nullptr);
}

// noexcept: an exception that leaves a task ends the program with its message.
void WorkerThreads::runTask(void* task, void* self) noexcept {
    ++handedOver;
    const std::unique_ptr<platform::Task> owned(static_cast<platform::Task*>(task));
    auto& workers = *static_cast<WorkerThreads*>(self);
    // Counted before the check: a caller that closes the pool and then sees no busy thread must be
    // right.
    ++workers.running_;
    if (!workers.closed_) (*owned)();
    --workers.running_;
}

void WorkerThreads::dropTask(void* task) noexcept {
    delete static_cast<platform::Task*>(task);
}

}  // namespace stagehopper::linux_port
