#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace stagehopper::platform {

/// The most levels of nested arrays and objects in a text: as many as Foundation's decoder accepts.
/// Recursive code is safe at this depth.
inline constexpr int maxJsonNesting = 512;

struct JsonMember;

/// One value of a JSON text.
struct JsonValue {
    using Array = std::vector<JsonValue>;
    /// In any order, each name once.
    using Object = std::vector<JsonMember>;

    /// An integer (one without a fraction and an exponent) is signed if it fits, otherwise unsigned
    /// if it fits. Any other number is a finite double or, if it is whole, possibly an integer.
    std::variant<std::nullptr_t, bool, std::int64_t, std::uint64_t, double, std::string, Array,
                 Object>
        value;
};

struct JsonMember {
    std::string name;
    JsonValue value;
};

/// Decodes JSON from other programs. Any thread.
class Json {
public:
    virtual ~Json() = default;
    /// Absent if `text` is malformed: the syntax of RFC 8259 in UTF-8, without extensions. A byte
    /// order mark at the start is ignored. Also absent: a text that is neither an array nor an
    /// object, more than `maxJsonNesting` levels, half of a surrogate pair, and a number too large
    /// for a double. Of members with the same name one remains.
    virtual std::optional<JsonValue> decoded(std::string_view text) = 0;
};

}  // namespace stagehopper::platform
