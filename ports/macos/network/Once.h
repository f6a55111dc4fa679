#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

namespace stagehopper::macos_port {

/// A completion that runs on its first call only: the system has been seen to call some twice, even
/// on two threads at once. All copies share the one call.
template <class... Arguments>
class Once {
public:
    explicit Once(std::function<void(Arguments...)> function)
        : state_(std::make_shared<State>(std::move(function))) {}

    void operator()(Arguments... arguments) const {
        if (state_->wasCalled.exchange(true)) return;
        // What it holds goes with the call, not with the last copy.
        const auto function = std::exchange(state_->function, nullptr);
        function(std::move(arguments)...);
    }

private:
    struct State {
        explicit State(std::function<void(Arguments...)> toCall) : function(std::move(toCall)) {}
        std::atomic<bool> wasCalled = false;
        std::function<void(Arguments...)> function;
    };
    std::shared_ptr<State> state_;
};

}  // namespace stagehopper::macos_port
