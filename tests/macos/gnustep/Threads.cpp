#include "tests/macos/gnustep/Threads.h"

#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

#include "ports/macos/cocoa/objc/RuntimeClass.h"

extern "C" {
stagehopper::cocoa::BOOL GSRegisterCurrentThread(void);
void GSUnregisterCurrentThread(void);
}

namespace stagehopper::cocoa::gnustep {

namespace {

class MainThreadWork {
public:
    static MainThreadWork& shared() {
        // Never unmade: other threads do not stop before the process does.
        static auto& made = *new auto(create());
        return *made;
    }

    void add(std::function<void()> work) {
        {
            const std::scoped_lock lock(mutex_);
            waiting_.push_back(std::move(work));
        }
        PerformOnMainThread::send(object_.get().pointer(), selector<"runFirst">(), nullptr,
                                  toBOOL(false));
    }

private:
    using PerformOnMainThread =
        Message<NSObject, MessageKind::instance,
                "performSelectorOnMainThread:withObject:waitUntilDone:", void(SEL, NSObject, BOOL)>;

    static std::shared_ptr<MainThreadWork> create() {
        static const auto runtimeClass = RuntimeClass<MainThreadWork>("MainThreadWork")
                                             .method<"runFirst", &MainThreadWork::runFirst>()
                                             .registerClass();
        auto made = std::make_shared<MainThreadWork>();
        made->object_ = runtimeClass.makeInstance(made);
        return made;
    }

    void runFirst() {
        std::unique_lock lock(mutex_);
        const auto work = std::move(waiting_.front());
        waiting_.pop_front();
        lock.unlock();
        work();
    }

    std::mutex mutex_;
    std::deque<std::function<void()>> waiting_;
    Owned<NSObject> object_;
};

}  // namespace

void runOnMainThread(std::function<void()> work) {
    MainThreadWork::shared().add(std::move(work));
}

void runOnNewThread(std::function<void()> work) {
    std::thread([work = std::move(work)] {
        GSRegisterCurrentThread();
        work();
        GSUnregisterCurrentThread();
    }).detach();
}

}  // namespace stagehopper::cocoa::gnustep
