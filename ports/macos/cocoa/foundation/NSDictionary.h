#pragma once

#include <utility>
#include <vector>

#include "ports/macos/cocoa/foundation/NSArray.h"

namespace stagehopper::cocoa {

/// NSDictionary. Any thread.
class NSDictionary : public Handle<NSDictionary, NSObject> {
public:
    static constexpr FixedString className{"NSDictionary"};
    using Handle::Handle;

    template <class Key, class Value>
    static NSDictionary dictionaryWithObjects(const std::vector<std::pair<Key, Value>>& entries) {
        std::vector<id> keys;
        std::vector<id> values;
        for (const auto& [key, value] : entries) {
            keys.push_back(key.pointer());
            values.push_back(value.pointer());
        }
        return sendToClass<"dictionaryWithObjects:forKeys:count:",
                           NSDictionary(const id*, const id*, NSUInteger)>(
            values.data(), keys.data(), keys.size());
    }

    [[nodiscard]] NSArray allKeys() const { return send<"allKeys", NSArray()>(); }
    [[nodiscard]] NSObject objectForKey(NSObject key) const {
        return send<"objectForKey:", NSObject(NSObject)>(key);
    }
};

}  // namespace stagehopper::cocoa
