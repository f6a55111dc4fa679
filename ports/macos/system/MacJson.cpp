#include "ports/macos/system/MacJson.h"

#include <charconv>
#include <cmath>
#include <utility>

#include "ports/macos/cocoa/foundation/CoreFoundation.h"
#include "ports/macos/cocoa/foundation/NSDictionary.h"
#include "ports/macos/cocoa/foundation/NSJSONSerialization.h"
#include "ports/macos/cocoa/foundation/NSNumber.h"
#include "ports/macos/cocoa/objc/AutoreleasePool.h"
#include "ports/macos/system/JsonSyntax.h"

namespace stagehopper::macos_port {

namespace {

using platform::JsonValue;

template <class Integer>
std::optional<Integer> integer(std::string_view digits) {
    Integer number = 0;
    const auto* const end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (error != std::errc() || stop != end) return std::nullopt;
    return number;
}

/// Copies the objects of a document into a record.
class Recording {
public:
    JsonValue recorded(cocoa::NSObject object) {
        if (const auto string = object.as<cocoa::NSString>()) return {cocoa::text(string)};
        if (const auto number = object.as<cocoa::NSNumber>()) return numberOf(number);
        if (const auto array = object.as<cocoa::NSArray>()) return elementsOf(array);
        if (const auto dictionary = object.as<cocoa::NSDictionary>()) return membersOf(dictionary);
        // The only other object is an NSNull.
        return {nullptr};
    }
    /// Whether every number was finite.
    [[nodiscard]] bool isComplete() const { return isComplete_; }

private:
    JsonValue numberOf(cocoa::NSNumber number) {
        // A Boolean is also an NSNumber.
        const auto isBoolean = cocoa::CFGetTypeID(cocoa::bridged<cocoa::CFTypeRef>(number)) ==
                               cocoa::CFBooleanGetTypeID();
        const auto value = number.doubleValue();
        if (isBoolean) return {value != 0};
        // A large integer may be an NSDecimalNumber. The text is exact in every class of numbers.
        const auto digits = cocoa::text(number.stringValue());
        if (const auto exact = integer<std::int64_t>(digits)) return {*exact};
        if (const auto exact = integer<std::uint64_t>(digits)) return {*exact};
        isComplete_ = isComplete_ && std::isfinite(value);
        return {value};
    }
    JsonValue elementsOf(cocoa::NSArray array) {
        JsonValue::Array values;
        for (const auto element : cocoa::elements<cocoa::NSObject>(array)) {
            values.push_back(recorded(element));
        }
        return {std::move(values)};
    }
    JsonValue membersOf(cocoa::NSDictionary dictionary) {
        JsonValue::Object members;
        for (const auto name : cocoa::elements<cocoa::NSString>(dictionary.allKeys())) {
            members.push_back({cocoa::text(name), recorded(dictionary.objectForKey(name))});
        }
        return {std::move(members)};
    }

    bool isComplete_ = true;
};

}  // namespace

std::optional<JsonValue> MacJson::decoded(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    if (!isStrictJson(text)) return std::nullopt;
    const cocoa::AutoreleasePool pool;
    const auto document =
        cocoa::NSJSONSerialization::JSONObjectWithData(cocoa::NSData::dataWithBytes(text));
    if (!document) return std::nullopt;
    Recording recording;
    auto record = recording.recorded(document);
    if (!recording.isComplete()) return std::nullopt;
    return record;
}

}  // namespace stagehopper::macos_port
