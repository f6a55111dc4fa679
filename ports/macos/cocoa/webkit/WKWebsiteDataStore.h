#pragma once

#include "ports/macos/cocoa/objc/NSObject.h"

namespace stagehopper::cocoa {

/// WKWebsiteDataStore. Main thread only.
class WKWebsiteDataStore : public Handle<WKWebsiteDataStore, NSObject> {
public:
    static constexpr FixedString className{"WKWebsiteDataStore"};
    using Handle::Handle;

    /// A new store in memory at each call.
    static WKWebsiteDataStore nonPersistentDataStore() {
        return sendToClass<"nonPersistentDataStore", WKWebsiteDataStore()>();
    }
};

}  // namespace stagehopper::cocoa
