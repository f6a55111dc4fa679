#pragma once

#include "tests/macos/facts/Fact.h"

namespace stagehopper::macos_facts {

// Messages that every object understands. Source: Darwin's <objc/NSObject.h>. "V" is the header's
// "oneway".
inline constexpr MethodFact objectMethods[] = {
    {"NSObject", Kind::classLevel, "alloc", "@@:", Returns::retained},
    {"NSObject", Kind::instance, "autorelease", "@@:"},
    {"NSObject", Kind::classLevel, "class", "#@:"},
    {"NSObject", Kind::instance, "class", "#@:"},
    {"NSObject", Kind::instance, "copy", "@@:", Returns::retained},
    {"NSObject", Kind::instance, "dealloc", "v@:"},
    {"NSObject", Kind::classLevel, "description", "@@:"},
    {"NSObject", Kind::instance, "description", "@@:"},
    {"NSObject", Kind::instance, "hash", "Q@:"},
    {"NSObject", Kind::instance, "init", "@@:", Returns::retained},
    {"NSObject", Kind::instance, "isEqual:", "B@:@"},
    {"NSObject", Kind::instance, "isKindOfClass:", "B@:#"},
    {"NSObject", Kind::instance, "mutableCopy", "@@:", Returns::retained},
    {"NSObject", Kind::classLevel, "new", "@@:", Returns::retained},
    {"NSObject", Kind::instance, "release", "Vv@:"},
    {"NSObject", Kind::instance, "respondsToSelector:", "B@::"},
    {"NSObject", Kind::instance, "retain", "@@:"},
    {"NSObject", Kind::instance, "self", "@@:"},
};

// What Foundation adds to every object. Source: objc2's generated bindings of Apple's headers.
inline constexpr MethodFact objectMethodsOfFoundation[] = {
    {"NSObject", Kind::instance, "performSelectorOnMainThread:withObject:waitUntilDone:", "v@::@B"},
    {"NSObject", Kind::instance, "setValue:forKey:", "v@:@@"},
};

}  // namespace stagehopper::macos_facts
