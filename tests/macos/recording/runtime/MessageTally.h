#pragma once

#include <cstddef>
#include <set>

#include "tests/macos/facts/Fact.h"

namespace stagehopper::recording {

/// How many messages were sent, and which, in all tests together. Whoever has its turn.
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

[[nodiscard]] MessageTally& messageTally();

}  // namespace stagehopper::recording
