#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

#include "ports/linux/atspi/AtSpiRole.h"
#include "ports/linux/atspi/BusCall.h"

namespace stagehopper::linux_port {

/// A toolkit's cache of all objects of a program, read in one round trip. The toolkit reads titles
/// and roles at that moment. It may omit objects, and it does not contain the order of children.
class BulkRead {
public:
    struct Entry {
        AtSpiRole role = AtSpiRole::invalid;
        std::string title;
        bool hasChildren = false;
    };

    /// The call to send to the program of `object`. Toolkits answer it only after
    /// AccessibilityBus::registerEventListener.
    static BusCall call(const ObjectReference& object);
    /// Empty when the program of `object` has no cache or took too long.
    BulkRead(const ObjectReference& object, const CallResult& result);

    /// Null for an object that is not in the cache.
    [[nodiscard]] const Entry* find(const ObjectReference& object) const;

private:
    std::string bus_;
    std::unordered_map<std::string, Entry> entries_;
};

}  // namespace stagehopper::linux_port
