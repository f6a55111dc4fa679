#pragma once

#include <optional>
#include <string>
#include <utility>

namespace stagehopper::platform {

/// Whether a request was carried out and, if not, the reason in words for the diagnostic log. For
/// abilities that a port may lack or lose (for example, keys to a background program on Wayland).
class [[nodiscard]] Outcome {
public:
    static Outcome done() { return Outcome(std::nullopt); }
    /// A reason from the system may be empty; the outcome is still a refusal.
    static Outcome refused(std::string reason) {
        if (reason.empty()) reason = "unknown reason";
        return Outcome(std::move(reason));
    }
    /// Rejects the empty literal: our own refusals have a reason.
    static Outcome refused(const char (&empty)[1]) = delete;

    explicit operator bool() const { return !refusal_; }
    /// Empty if and only if the request was carried out.
    [[nodiscard]] std::string reason() const { return refusal_.value_or(std::string()); }

private:
    explicit Outcome(std::optional<std::string> refusal) : refusal_(std::move(refusal)) {}
    std::optional<std::string> refusal_;
};

}  // namespace stagehopper::platform
