#pragma once

#include "platform/Dispatch.h"

namespace stagehopper::macos_port {

/// Delayed work for the main queue. Main thread only. The queue has no way to take work back: it
/// holds the task weakly and finds nothing when the item has been cancelled or dropped.
class MacWorkItem final : public platform::WorkItem {
public:
    MacWorkItem(platform::Duration delay, platform::Task task);
    void cancel() override { task_.reset(); }

private:
    std::shared_ptr<platform::Task> task_;
};

}  // namespace stagehopper::macos_port
