#include "demo/Narrator.h"

#include <iostream>
#include <sstream>

#include "demo/Explanations.h"

namespace stagehopper::desktop {

namespace {

constexpr std::size_t lineWidth = 96;

void printWrapped(const std::string& words, const std::string& indent) {
    std::istringstream stream(words);
    std::string line = indent;
    for (std::string word; stream >> word;) {
        if (line.size() > indent.size() && line.size() + 1 + word.size() > lineWidth) {
            std::cout << line << '\n';
            line = indent;
        }
        if (line.size() > indent.size()) line += ' ';
        line += word;
    }
    std::cout << line << std::endl;
}

}  // namespace

void Narrator::step(const std::string& words) {
    std::cout << '\n';
    printWrapped(std::to_string(++steps_) + ". " + words, "");
}

void Narrator::result(const std::string& words) {
    printWrapped("=> " + words, "   ");
}

void Narrator::diagnostics(const std::vector<std::string>& lines) {
    if (lines.empty()) return;
    printWrapped("In the diagnostic log:", "   ");
    for (const auto& line : lines) {
        std::cout << "     " << line << '\n';
        const auto explanation = explanationOf(line);
        if (!explanation.empty() && explained_.insert(explanation).second) {
            printWrapped(explanation, "         ");
        }
    }
}

void Narrator::plain(const std::string& words) {
    std::cout << '\n';
    printWrapped(words, "");
}

}  // namespace stagehopper::desktop
