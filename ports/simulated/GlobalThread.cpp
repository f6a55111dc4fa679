#include "ports/simulated/GlobalThread.h"

#include <utility>

namespace stagehopper::simulated {

thread_local GlobalThread* GlobalThread::current_ = nullptr;

GlobalThread::GlobalThread(platform::Task task)
    : task_(std::move(task)), thread_([this] { runTask(); }) {}

GlobalThread::~GlobalThread() {
    abandon();
    thread_.join();
}

void GlobalThread::resume() {
    if (finished_) return;
    mayRun_.release();
    gaveWay_.acquire();
}

void GlobalThread::abandon() {
    abandoned_ = true;
    resume();
}

void GlobalThread::runTask() {
    mayRun_.acquire();
    current_ = this;
    try {
        if (!abandoned_) task_();
    } catch (const Abandoned&) {
        // The work was aborted on purpose.
    }
    task_ = nullptr;
    finished_ = true;
    gaveWay_.release();
}

void GlobalThread::giveWayUntil(std::function<bool()> canGoOn) {
    auto& self = *current_;
    self.waitsFor_ = std::move(canGoOn);
    self.gaveWay_.release();
    self.mayRun_.acquire();
    self.waitsFor_ = nullptr;
    if (self.abandoned_) throw Abandoned{};
}

}  // namespace stagehopper::simulated
