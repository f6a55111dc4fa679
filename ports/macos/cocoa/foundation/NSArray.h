#pragma once

#include <vector>

#include "ports/macos/cocoa/objc/Owned.h"

namespace stagehopper::cocoa {

/// NSArray. Any thread.
class NSArray : public Handle<NSArray, NSObject> {
public:
    static constexpr FixedString className{"NSArray"};
    using Handle::Handle;

    template <class T>
    static NSArray arrayWithObjects(const std::vector<T>& elements) {
        std::vector<id> objects;
        objects.reserve(elements.size());
        for (const auto& element : elements) objects.push_back(element.pointer());
        return sendToClass<"arrayWithObjects:count:", NSArray(const id*, NSUInteger)>(
            objects.data(), objects.size());
    }

    [[nodiscard]] NSUInteger count() const { return send<"count", NSUInteger()>(); }
    [[nodiscard]] NSObject objectAtIndex(NSUInteger index) const {
        return send<"objectAtIndex:", NSObject(NSUInteger)>(index);
    }
};

/// The elements, cast to the class that the system documents.
template <class T>
[[nodiscard]] std::vector<T> elements(NSArray array) {
    std::vector<T> taken;
    const auto count = array.count();
    taken.reserve(count);
    for (NSUInteger index = 0; index < count; ++index) {
        taken.push_back(T(array.objectAtIndex(index).pointer()));
    }
    return taken;
}

}  // namespace stagehopper::cocoa
