#pragma once

#include <chrono>
#include <deque>
#include <string>
#include <string_view>

namespace stagehopper::webkit_ports {

/// Between the end of a page's process and the next load.
inline constexpr std::chrono::milliseconds reloadDelay{500};

/// How often a page whose process ends is loaded again: a page that always crashes must not keep
/// the machine busy forever.
class ReloadLimit {
public:
    static constexpr std::size_t maxReloads = 3;
    static constexpr std::chrono::seconds period{60};

    /// Call it each time the process ends; `now` is of any clock.
    [[nodiscard]] bool allowsReload(std::chrono::duration<double> now) {
        while (!reloads_.empty() && now - reloads_.front() >= period) reloads_.pop_front();
        if (reloads_.size() == maxReloads) return false;
        reloads_.push_back(now);
        return true;
    }

private:
    std::deque<std::chrono::duration<double>> reloads_;
};

/// For the system log.
[[nodiscard]] inline std::string pageEndedMessage(std::string_view page, bool reloads) {
    return "Stagehopper: the page " + std::string(page) +
           (reloads ? " ended and is loaded again" : " ended too often and stays empty");
}

}  // namespace stagehopper::webkit_ports
