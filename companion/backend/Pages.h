#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace stagehopper::companion {

/// The files that browsers may load: a fixed list, read once, so that no path leads anywhere else.
/// Thread: one at a time.
class Pages {
public:
    struct File {
        std::string contentType;
        std::string bytes;
    };

    explicit Pages(const std::string& directory);

    /// None when it is not in the list, or was not there at start.
    const File* at(std::string_view path) const;
    /// The names of those that were not there.
    const std::vector<std::string>& missing() const { return missing_; }

private:
    std::map<std::string, File, std::less<>> files_;
    std::vector<std::string> missing_;
};

}  // namespace stagehopper::companion
