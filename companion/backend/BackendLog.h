#pragma once

#include <cstddef>
#include <fstream>
#include <string>
#include <string_view>

namespace stagehopper::companion {

/// One line for each thing that happened, to standard error and to a file of bounded size.
/// Never give it a secret, nor a query, where secrets stand.
/// Thread: one at a time.
class BackendLog {
public:
    /// Without a path, or when it cannot be written, standard error alone has to do.
    explicit BackendLog(std::string path, std::size_t mostBytes = 1024 * 1024);

    /// What came from outside may stand in `detail`: it cannot break the line.
    void line(std::string_view event, std::string_view detail);

private:
    void openFile();

    std::string path_;
    std::size_t mostBytes_;
    std::size_t written_ = 0;
    std::ofstream file_;
};

/// The text with control characters and what is no ASCII written as \xNN, up to 300 bytes.
/// Thread: any; pure.
std::string escaped(std::string_view text);

}  // namespace stagehopper::companion
