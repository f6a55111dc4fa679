#include "tests/macos/recording/runtime/Recording.h"

#include <utility>

#include "tests/macos/recording/runtime/Blocks.h"
#include "tests/macos/recording/runtime/Heap.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Memory.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

std::vector<std::string> leaked() {
    auto all = heap::heldByPort();
    for (auto& line : blocks::heldByPort()) all.push_back(std::move(line));
    for (auto& line : dispatch::held()) all.push_back(std::move(line));
    return all;
}

void reset() {
    queues::reset();
    pools::clear();
    classes::forgetStates();
    heap::clear();
    blocks::clear();
    dispatch::clear();
    journal().clear();
    static_cast<void>(takeProblems());
}

}  // namespace stagehopper::recording
