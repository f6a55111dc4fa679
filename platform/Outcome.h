#pragma once

#include <optional>
#include <string>
#include <utility>

namespace stagehopper::platform {

/// Whether a request was carried out and, if not, why, in words for the diagnostic log.
/// For abilities that a port may lack or lose (keys to a background program under Wayland, say).
class [[nodiscard]] Outcome {
public:
    static Outcome done() { return Outcome(std::nullopt); }
    /// A reason from the system may turn out empty: that is a refusal, too.
    static Outcome refused(std::string reason) {
        if (reason.empty()) reason = "unknown reason";
        return Outcome(std::move(reason));
    }
    /// The empty literal: a refusal of ours has words.
    static Outcome refused(const char (&empty)[1]) = delete;

    explicit operator bool() const { return !refusal_; }
    /// Empty exactly when the request was carried out.
    [[nodiscard]] std::string reason() const { return refusal_.value_or(std::string()); }

private:
    explicit Outcome(std::optional<std::string> refusal) : refusal_(std::move(refusal)) {}
    std::optional<std::string> refusal_;
};

}  // namespace stagehopper::platform
