#pragma once

#include <string>
#include <utility>

namespace stagehopper::platform {

/// Whether a request was carried out and, if not, why, in words for the diagnostic log.
/// For abilities that a port may lack or lose (keys to a background program under Wayland, say).
class [[nodiscard]] Outcome {
public:
    static Outcome done() { return Outcome{{}}; }
    static Outcome refused(std::string reason) { return Outcome{std::move(reason)}; }

    explicit operator bool() const { return reason_.empty(); }
    /// Empty when the request was carried out.
    [[nodiscard]] const std::string& reason() const { return reason_; }

private:
    explicit Outcome(std::string reason) : reason_(std::move(reason)) {}
    std::string reason_;
};

}  // namespace stagehopper::platform
