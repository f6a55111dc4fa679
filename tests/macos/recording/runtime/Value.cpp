#include "tests/macos/recording/runtime/Value.h"

#include <iomanip>
#include <sstream>

#include "tests/macos/facts/Agreement.h"

namespace stagehopper::recording {

namespace {

std::string number(double value) {
    std::ostringstream text;
    text << std::setprecision(12) << value;
    return text.str();
}

template <class... Numbers>
std::string braces(Numbers... numbers) {
    std::string text;
    ((text += (text.empty() ? "{" : ",") + number(numbers)), ...);
    return text + "}";
}

std::string pointed(const void* pointer) {
    return pointer == nullptr ? "NULL" : "<pointer>";
}

}  // namespace

bool Value::agreesWith(std::string_view otherEncoding) const {
    if (encoding_ == "v") return true;
    // A block is also an object.
    if (isObject() && (otherEncoding == "@" || otherEncoding == "@?")) return true;
    return macos_facts::agrees(encoding_, otherEncoding);
}

cocoa::id Value::object() const {
    return isObject() ? load<cocoa::id>() : nullptr;
}

std::string Value::describe() const {
    if (encoding_ == "v") return "void";
    if (isObject() || encoding_ == "#") return recording::describe(load<cocoa::id>());
    if (encoding_ == ":") return recording::describe(load<cocoa::SEL>());
    if (encoding_ == "B") return load<bool>() ? "YES" : "NO";
    if (encoding_ == "d") return number(load<double>());
    if (encoding_ == "q") return std::to_string(load<long>());
    if (encoding_ == "Q") return std::to_string(load<unsigned long>());
    if (isA<cocoa::CGRect>()) {
        const auto rect = load<cocoa::CGRect>();
        return braces(rect.origin.x, rect.origin.y, rect.size.width, rect.size.height);
    }
    if (isA<cocoa::CGPoint>()) return braces(load<cocoa::CGPoint>().x, load<cocoa::CGPoint>().y);
    if (isA<cocoa::CGSize>()) {
        return braces(load<cocoa::CGSize>().width, load<cocoa::CGSize>().height);
    }
    return pointed(load<const void*>());
}

}  // namespace stagehopper::recording
