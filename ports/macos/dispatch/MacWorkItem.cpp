#include "ports/macos/dispatch/MacWorkItem.h"

#include <utility>

#include "ports/macos/dispatch/Queue.h"

namespace stagehopper::macos_port {

MacWorkItem::MacWorkItem(platform::Duration delay, platform::Task task)
    : task_(std::make_shared<platform::Task>(std::move(task))) {
    asyncAfter(delay, mainQueue(), [weak = std::weak_ptr(task_)] {
        // Held while it runs: it may drop its own item.
        if (const auto held = weak.lock()) (*held)();
    });
}

}  // namespace stagehopper::macos_port
