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

/// What a Range header asks for: Safari plays no video from a server that does not understand it.
/// None when it is not one simple range; the whole file is the right answer then. Of length 0
/// when it lies outside the file.
/// Thread: any; pure.
std::optional<ByteRange> parseByteRange(std::string_view header, std::size_t fileSize);

}  // namespace stagehopper::companion
