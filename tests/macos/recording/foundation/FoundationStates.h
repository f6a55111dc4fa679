#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/macos/recording/runtime/Retained.h"

namespace stagehopper::recording {

// The state of the stand-ins for Foundation's values. Plain data, any queue.

struct StringState {
    /// For a text that is not convertible: a question mark for each unit.
    std::string utf8;
    /// Only for a text with an unpaired surrogate, which UTF-8 cannot represent.
    std::optional<std::u16string> notConvertible = std::nullopt;
};
struct DataState {
    std::string bytes;
};
struct UrlState {
    /// "file:///Applications", "http://127.0.0.1:3000/health".
    std::string address;
    /// Of a file URL, not escaped.
    std::string path;
};
struct NumberState {
    double value = 0;
    bool truth = false;
};
struct ArrayState {
    std::vector<Retained> elements;
};
struct DictionaryState {
    /// Keys and values, in the order of insertion.
    std::vector<std::pair<Retained, Retained>> entries;
};

}  // namespace stagehopper::recording
