#include "ports/macos/cocoa/objc/RuntimeClass.h"

// Compiled by tests, which expect the compiler to refuse one message and to take the other.

namespace stagehopper::recording {

class Window : public cocoa::Handle<Window, cocoa::NSObject> {
public:
    static constexpr cocoa::FixedString className{"NSWindow"};
    using Handle::Handle;

#if defined(UNKNOWN_MESSAGE)
    void setLevl(long level) const {
        send<"setLevl:", void(long)>(level);
    }
#elif defined(WRONG_TYPES)
    void setLevel(int level) const {
        send<"setLevel:", void(int)>(level);
    }
#else
    void setLevel(long level) const {
        send<"setLevel:", void(long)>(level);
    }
#endif
};

#if defined(AUTORELEASED_ANSWER)
struct Answering {
    cocoa::NSObject description();
};
void registerAnswering() {
    cocoa::RuntimeClass<Answering>("Answering").method<"description", &Answering::description>();
}
#endif

}  // namespace stagehopper::recording
