#pragma once

#include <set>
#include <string>
#include <vector>

namespace stagehopper::desktop {

/// Prints the story, in paragraphs that fit a terminal.
class Narrator {
public:
    /// What the user does; paragraphs are numbered.
    void step(const std::string& words);
    /// What came of it.
    void result(const std::string& words);
    /// What the program wrote meanwhile; a kind of line is explained when it first comes.
    void diagnostics(const std::vector<std::string>& lines);
    void plain(const std::string& words);

private:
    int steps_ = 0;
    std::set<std::string> explained_;
};

}  // namespace stagehopper::desktop
