#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ports/macos/cocoa/objc/NSObject.h"
#include "ports/macos/cocoa/objc/Owned.h"
#include "tests/macos/recording/runtime/Recording.h"

namespace stagehopper::recording {

/// A test of the stand-in itself. Starts with an empty runtime, and fails if a problem or a leak is
/// left. Tests of problems take the problems out.
class RuntimeTest : public testing::Test {
public:
    RuntimeTest() { reset(); }
    ~RuntimeTest() override { reset(); }
    RuntimeTest(const RuntimeTest&) = delete;
    RuntimeTest& operator=(const RuntimeTest&) = delete;

protected:
    void TearDown() override {
        EXPECT_THAT(problems(), testing::IsEmpty());
        EXPECT_THAT(leaked(), testing::IsEmpty());
    }
};

/// An object of the root class, created as the port creates objects.
class Thing : public cocoa::Handle<Thing, cocoa::NSObject> {
public:
    static constexpr cocoa::FixedString className{"NSObject"};
    using Handle::Handle;

    [[nodiscard]] static cocoa::Owned<Thing> make() {
        return cocoa::Owned<Thing>::adopt(raw().init());
    }
    [[nodiscard]] static Thing raw() { return allocate(); }
    [[nodiscard]] Thing init() const { return send<"init", Thing()>(); }
    [[nodiscard]] Thing copy() const { return send<"copy", Thing()>(); }
};

}  // namespace stagehopper::recording
