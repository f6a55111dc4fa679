#include "tests/macos/recording/runtime/Worker.h"

#include <semaphore>
#include <thread>
#include <utility>

namespace stagehopper::recording {

thread_local Worker* Worker::current_ = nullptr;

struct Worker::Thread {
    Thread() : thread([this] { work(); }) {}
    void work() {
        for (;;) {
            mayRun.acquire();
            worker->run();
            gaveWay.release();
        }
    }

    std::binary_semaphore mayRun{0};
    std::binary_semaphore gaveWay{0};
    Worker* worker = nullptr;
    std::thread thread;
};

std::vector<Worker::Thread*>& Worker::idle() {
    // Never destroyed, nor are the threads: they wait until the process ends.
    static auto* const all = new std::vector<Thread*>;
    return *all;
}

Worker::Thread& Worker::takeThread() {
    if (idle().empty()) return *new Thread;
    auto& thread = *idle().back();
    idle().pop_back();
    return thread;
}

Worker::Worker(std::string queue, std::function<void()> work)
    : queue_(std::move(queue)), work_(std::move(work)), thread_(takeThread()) {
    thread_.worker = this;
}

Worker::~Worker() {
    idle().push_back(&thread_);
}

void Worker::resume() {
    thread_.mayRun.release();
    thread_.gaveWay.acquire();
}

void Worker::giveWay(const std::function<bool()>& condition, double deadline) {
    condition_ = &condition;
    deadline_ = deadline;
    thread_.gaveWay.release();
    thread_.mayRun.acquire();
    condition_ = nullptr;
}

void Worker::run() {
    current_ = this;
    work_();
    work_ = nullptr;
    current_ = nullptr;
    finished_ = true;
}

}  // namespace stagehopper::recording
