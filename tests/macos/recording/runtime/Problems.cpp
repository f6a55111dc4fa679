#include "tests/macos/recording/runtime/Problems.h"

#include <utility>

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

}  // namespace stagehopper::recording
