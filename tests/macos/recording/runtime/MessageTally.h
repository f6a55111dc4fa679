#pragma once

#include <cstddef>
#include <set>

#include "tests/macos/facts/Fact.h"

namespace stagehopper::recording {

/// Counts the messages of all tests together, and which were sent. Only the running work may call
/// this.
class MessageTally {
public:
    void add(const macos_facts::MethodFact& fact) {
        ++sent_;
        different_.insert(&fact);
    }
    [[nodiscard]] std::size_t sent() const { return sent_; }
    [[nodiscard]] bool contains(const macos_facts::MethodFact& fact) const {
        return different_.contains(&fact);
    }

private:
    std::size_t sent_ = 0;
    std::set<const macos_facts::MethodFact*> different_;
};

[[nodiscard]] inline MessageTally& messageTally() {
    static MessageTally all;
    return all;
}

}  // namespace stagehopper::recording
