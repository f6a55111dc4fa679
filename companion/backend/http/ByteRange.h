#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace stagehopper::companion {

/// A part of a file.
struct ByteRange {
    std::size_t first = 0;
    std::size_t length = 0;
};

/// Parses a Range header; Safari needs one to play a video. Null if it is not one simple range: the
/// response is then the whole file. Of length 0 if the range is outside the file. Any thread.
[[nodiscard]] std::optional<ByteRange> parseByteRange(std::string_view header,
                                                      std::size_t fileSize);

}  // namespace stagehopper::companion
