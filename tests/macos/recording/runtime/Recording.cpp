#include "tests/macos/recording/runtime/Recording.h"

#include <utility>

#include "tests/macos/recording/runtime/Behaviours.h"
#include "tests/macos/recording/runtime/Blocks.h"
#include "tests/macos/recording/runtime/DispatchObjects.h"
#include "tests/macos/recording/runtime/Heap.h"
#include "tests/macos/recording/runtime/Journal.h"
#include "tests/macos/recording/runtime/Pools.h"
#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace {

std::vector<std::string>& noted() {
    static auto* const all = new std::vector<std::string>;
    return *all;
}

}  // namespace

void noteProblem(std::string problem) {
    noted().push_back(std::move(problem));
}

const std::vector<std::string>& problems() {
    return noted();
}

std::vector<std::string> takeProblems() {
    return std::exchange(noted(), {});
}

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
    noted().clear();
}

}  // namespace stagehopper::recording
