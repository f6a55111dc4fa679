#include "tests/macos/recording/runtime/Journal.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

#include "tests/macos/recording/runtime/Queues.h"

namespace stagehopper::recording {

namespace {

std::string joined(const std::vector<std::string>& parts, const char* separator) {
    std::string text;
    for (const auto& part : parts) text += (text.empty() ? "" : separator) + part;
    return text;
}

/// "setFrame:{0,0,1,1} display:YES"
std::string messageText(const JournalEntry& entry) {
    if (entry.arguments.empty()) return entry.selector;
    std::string text;
    std::size_t begin = 0;
    for (const auto& argument : entry.arguments) {
        const auto colon = entry.selector.find(':', begin);
        if (begin > 0) text += ' ';
        text += entry.selector.substr(begin, colon + 1 - begin) + argument;
        begin = colon + 1;
    }
    return text;
}

std::vector<std::string>& noted() {
    static auto* const all = new std::vector<std::string>;
    return *all;
}

}  // namespace

std::string JournalEntry::line() const {
    if (kind == Kind::function) return selector + "(" + joined(arguments, ", ") + ")";
    const auto* sign = kind == Kind::callback ? "<- [" : "[";
    return sign + receiver + " " + messageText(*this) + "]";
}

std::vector<std::string> Journal::lines() const {
    std::vector<std::string> lines;
    for (const auto& entry : entries_) lines.push_back(entry.line());
    return lines;
}

bool Journal::contains(std::string_view line) const {
    return std::ranges::any_of(entries_,
                               [line](const auto& entry) { return entry.line().ends_with(line); });
}

Journal& journal() {
    static Journal all;
    return all;
}

void noteProblem(std::string problem) {
    noted().push_back(std::move(problem));
}

const std::vector<std::string>& problems() {
    return noted();
}

std::vector<std::string> takeProblems() {
    return std::exchange(noted(), {});
}

void recordFunction(std::string_view name, std::vector<std::string> arguments) {
    JournalEntry entry;
    entry.kind = JournalEntry::Kind::function;
    entry.queue = queues::current();
    entry.seconds = queues::now();
    entry.selector = name;
    entry.arguments = std::move(arguments);
    journal().add(std::move(entry));
}

void expectInOrder(const std::vector<std::string>& lines) {
    const auto there = journal().lines();
    auto next = there.begin();
    for (const auto& line : lines) {
        const auto found = std::find_if(next, there.end(),
                                        [&line](const auto& each) { return each.ends_with(line); });
        if (found == there.end()) {
            const bool isEarlier = journal().contains(line);
            const auto* what = isEarlier ? " came too early: " : " is missing: ";
            ADD_FAILURE() << "This" << what << line << "\nThe journal:\n  "
                          << joined(there, "\n  ");
            return;
        }
        next = found + 1;
    }
}

}  // namespace stagehopper::recording
