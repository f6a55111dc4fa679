#include "ports/macos/dispatch/MacSemaphore.h"

#include "ports/macos/dispatch/Queue.h"

namespace stagehopper::macos_port {

MacSemaphore::MacSemaphore() : semaphore_(cocoa::dispatch_semaphore_create(0)) {}

MacSemaphore::~MacSemaphore() {
    cocoa::dispatch_release(reinterpret_cast<cocoa::dispatch_object_t>(semaphore_));
}

void MacSemaphore::signal() {
    cocoa::dispatch_semaphore_signal(semaphore_);
}

bool MacSemaphore::wait(platform::Duration limit) {
    return cocoa::dispatch_semaphore_wait(semaphore_, timeAfter(limit)) == 0;
}

}  // namespace stagehopper::macos_port
