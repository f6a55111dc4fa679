#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

enum WKUserScriptInjectionTime : NSInteger { WKUserScriptInjectionTimeAtDocumentStart = 0 };

/// WKUserScript. Main thread only.
class WKUserScript : public Handle<WKUserScript, NSObject> {
public:
    static constexpr FixedString className{"WKUserScript"};
    using Handle::Handle;

    static Owned<WKUserScript> make(NSString source, WKUserScriptInjectionTime injectionTime,
                                    bool forMainFrameOnly) {
        return Owned<WKUserScript>::adopt(
            allocate().initWithSource(source, injectionTime, toBOOL(forMainFrameOnly)));
    }

private:
    [[nodiscard]] WKUserScript initWithSource(NSString source,
                                              WKUserScriptInjectionTime injectionTime,
                                              BOOL forMainFrameOnly) const {
        return send<"initWithSource:injectionTime:forMainFrameOnly:",
                    WKUserScript(NSString, NSInteger, BOOL)>(source, injectionTime,
                                                             forMainFrameOnly);
    }
};

}  // namespace stagehopper::cocoa
