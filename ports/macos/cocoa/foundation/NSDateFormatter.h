#pragma once

#include "ports/macos/cocoa/foundation/NSDate.h"
#include "ports/macos/cocoa/foundation/NSString.h"

namespace stagehopper::cocoa {

enum NSDateFormatterStyle : NSUInteger {
    NSDateFormatterNoStyle = 0,
    NSDateFormatterMediumStyle = 2,
};

/// NSDateFormatter. Any thread.
class NSDateFormatter : public Handle<NSDateFormatter, NSObject> {
public:
    static constexpr FixedString className{"NSDateFormatter"};
    using Handle::Handle;

    /// In the format of the user's locale and in the local time zone.
    static NSString localizedStringFromDate(NSDate date, NSDateFormatterStyle dateStyle,
                                            NSDateFormatterStyle timeStyle) {
        return sendToClass<"localizedStringFromDate:dateStyle:timeStyle:",
                           NSString(NSDate, NSUInteger, NSUInteger)>(date, dateStyle, timeStyle);
    }
};

}  // namespace stagehopper::cocoa
