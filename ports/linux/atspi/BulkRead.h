#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>

#include "ports/linux/atspi/AtSpiRole.h"
#include "ports/linux/atspi/BusCall.h"

namespace stagehopper::linux_port {

/// What a toolkit's cache says about all objects of a program, in one round trip. The toolkit
/// reads titles and roles at that moment; it leaves objects out at will, and the order of children
/// is not in it.
class BulkRead {
public:
    struct Entry {
        AtSpiRole role = AtSpiRole::invalid;
        std::string title;
        bool hasChildren = false;
    };

    /// The call to send, for the program that `object` belongs to. Toolkits answer it only after
    /// AccessibilityBus::registerEventListener.
    static BusCall call(const ObjectReference& object);
    /// Empty when the program of `object` has no cache to offer or took too long.
    BulkRead(const ObjectReference& object, const CallResult& result);

    /// Null for an object that the cache leaves out.
    [[nodiscard]] const Entry* find(const ObjectReference& object) const;

private:
    std::string bus_;
    std::unordered_map<std::string, Entry> entries_;
};

}  // namespace stagehopper::linux_port
