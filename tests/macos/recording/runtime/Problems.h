#pragma once

#include <string>
#include <vector>

/// What the port must not do and did: a message to an object that was freed, a reference released
/// too often, a message that is absent from the facts, a main-thread class on another queue ….
namespace stagehopper::recording {

/// The end of a test asks for the problems.
void noteProblem(std::string problem);

[[nodiscard]] const std::vector<std::string>& problems();
/// For tests of what is noted.
[[nodiscard]] std::vector<std::string> takeProblems();

}  // namespace stagehopper::recording
