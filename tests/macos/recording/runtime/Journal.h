#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace stagehopper::recording {

struct JournalEntry {
    enum class Kind { message, function, callback };

    Kind kind = Kind::message;
    /// "main", "global user-initiated", "global default", "session", "task", "world".
    std::string queue;
    /// Since the start of the test.
    double seconds = 0;
    /// The receiver's class; empty for a C function.
    std::string className;
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
    [[nodiscard]] std::vector<std::string> linesSince(std::size_t mark) const;
    /// A point in the journal, for `linesSince`.
    [[nodiscard]] std::size_t mark() const { return entries_.size(); }
    /// The lines about objects of that class, or the calls of that C function.
    [[nodiscard]] std::vector<std::string> of(std::string_view name) const;
    [[nodiscard]] std::vector<JournalEntry> where(
        const std::function<bool(const JournalEntry&)>& condition) const;
    [[nodiscard]] bool contains(std::string_view line) const;

private:
    std::vector<JournalEntry> entries_;
};

[[nodiscard]] Journal& journal();

/// Records a call of a C function of the system: `recordFunction("CGEventPostToPid", {…})`.
void recordFunction(std::string_view name, std::vector<std::string> arguments = {});

/// Fails the test, with the whole journal, unless these lines appear in this order; other lines may
/// be between them. Each is a whole line, or the end of one: without receiver, `setLevel:25]`.
void expectInOrder(const std::vector<std::string>& lines);

}  // namespace stagehopper::recording
