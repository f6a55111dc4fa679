#pragma once

#include "platform/Dispatch.h"

namespace stagehopper::macos_port {

/// Delayed work for the main queue. Main thread only. Work cannot be removed from the queue: the
/// queued function holds the task weakly, and does nothing if the item was canceled or dropped.
class MacWorkItem final : public platform::WorkItem {
public:
    MacWorkItem(platform::Duration delay, platform::Task task);
    void cancel() override { task_.reset(); }

private:
    std::shared_ptr<platform::Task> task_;
};

}  // namespace stagehopper::macos_port
