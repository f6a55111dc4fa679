#pragma once

#include "ports/macos/cocoa/objc/NSObject.h"

namespace stagehopper::cocoa {

/// WKWebsiteDataStore. Main thread only.
class WKWebsiteDataStore : public Handle<WKWebsiteDataStore, NSObject> {
public:
    static constexpr FixedString className{"WKWebsiteDataStore"};
    using Handle::Handle;

    /// In memory, a new one each time.
    static WKWebsiteDataStore nonPersistentDataStore() {
        return sendToClass<"nonPersistentDataStore", WKWebsiteDataStore()>();
    }
};

}  // namespace stagehopper::cocoa
