#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace stagehopper::recording {

struct JournalEntry {
    enum class Kind { message, function, callback };

    Kind kind = Kind::message;
    /// "main", "global user-initiated", "global default", "session", "task", "world".
    std::string queue;
    /// Since the start of the test.
    double seconds = 0;
    /// "<NSWindow 1>", or the class's name.
    std::string receiver;
    /// Of the message, or the function's name.
    std::string selector;
    std::vector<std::string> arguments;

    /// `[<NSWindow 1> setFrame:{0,0,520,680} display:YES]`, `CGEventPostToPid(812, key 121 down)`;
    /// a call of the system to an object of ours begins with `<- `.
    [[nodiscard]] std::string line() const;
};

/// The calls between the port and the system, in order. One for the program; each test clears it.
class Journal {
public:
    void add(JournalEntry entry) { entries_.push_back(std::move(entry)); }
    void clear() { entries_.clear(); }

    [[nodiscard]] const std::vector<JournalEntry>& entries() const { return entries_; }
    [[nodiscard]] std::vector<std::string> lines() const;
    [[nodiscard]] bool contains(std::string_view line) const;

private:
    std::vector<JournalEntry> entries_;
};

[[nodiscard]] Journal& journal();

/// Notes what the port must not do and did: a message to an object that was freed, a reference
/// released too often, a message that is absent from the facts, a main-thread class on another
/// queue …. The end of a test asks for the problems.
void noteProblem(std::string problem);
[[nodiscard]] const std::vector<std::string>& problems();
/// For tests of what is noted.
[[nodiscard]] std::vector<std::string> takeProblems();

/// Records a call of a C function of the system: `recordFunction("CGEventPostToPid", {…})`.
void recordFunction(std::string_view name, std::vector<std::string> arguments = {});

/// Fails the test, with the whole journal, unless these lines appear in this order; other lines may
/// be between them. Each is a whole line, or the end of one: without receiver, `setLevel:25]`.
void expectInOrder(const std::vector<std::string>& lines);

}  // namespace stagehopper::recording
