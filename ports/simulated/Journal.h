#pragma once

#include <cstddef>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

#include "platform/Clock.h"

namespace stagehopper::simulated {

class SimulatedClock;

struct JournalEntry {
    /// Since the desktop was made, independent of the wall clock.
    std::chrono::nanoseconds at;
    std::string effect;
};

/// All effects of the application on its surroundings, in order. Any thread.
///
/// The effects read: `window "T" shown`, `window "T" closed`, `page /dir/panel.html loaded`,
/// `script evaluated: …`, `panel ordered front`, `panel ordered out`, `panel moved`,
/// `panel closed`, `process started: /sbin/ping …`, `process refused: …`,
/// `process asked to end: ping`, `process ended: ping`, `socket opened: ws://…`, `socket pinged`,
/// `socket closed with 1001`, `activation policy regular`, `main menu set`, `application
/// activated`, `application terminated`, `accessibility prompt shown`, `url opened: …`, `log: …`,
/// `pressed "T" of 42`, `key 121 down to 42`, `key 124 up to the focus`.
class Journal {
public:
    explicit Journal(const SimulatedClock& clock) : clock_(clock) {}

    void add(const std::string& effect);
    /// Called with each effect from now on, during the operation that causes it, like nested loops
    /// and busy systems. Set on the main thread.
    std::function<void(const std::string& effect)> observer;

    /// A point in the journal, for `effectsSince`.
    [[nodiscard]] std::size_t mark() const;
    [[nodiscard]] std::vector<std::string> effectsSince(std::size_t mark) const;
    [[nodiscard]] std::vector<JournalEntry> entries() const;

private:
    const SimulatedClock& clock_;
    mutable std::mutex mutex_;
    std::vector<JournalEntry> entries_;
};

}  // namespace stagehopper::simulated
