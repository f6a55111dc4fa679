#pragma once

#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

/// NSLocale. Any thread.
class NSLocale : public Handle<NSLocale, NSObject> {
public:
    static constexpr FixedString className{"NSLocale"};
    using Handle::Handle;

    static NSLocale currentLocale() { return sendToClass<"currentLocale", NSLocale()>(); }
};

inline NSString NSString::stringByFoldingWithOptions(NSStringCompareOptions options,
                                                     NSLocale locale) const {
    return send<"stringByFoldingWithOptions:locale:", NSString(NSUInteger, NSLocale)>(options,
                                                                                      locale);
}

}  // namespace stagehopper::cocoa
