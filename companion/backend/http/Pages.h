#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace stagehopper::companion {

/// The files of `pageTable`, read once at the start, so that no request opens a file. One thread at
/// a time.
class Pages {
public:
    struct File {
        std::string contentType;
        std::string bytes;
    };

    explicit Pages(const std::string& directory);

    /// Null if the path is not in the table, or if there was no such file at the start.
    [[nodiscard]] const File* at(std::string_view path) const;
    /// The names of the files that could not be opened.
    const std::vector<std::string>& missing() const { return missing_; }

private:
    std::map<std::string, File, std::less<>> files_;
    std::vector<std::string> missing_;
};

}  // namespace stagehopper::companion
