#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace stagehopper::posix {

/// An open file that is closed with its owner.
class FileDescriptor {
public:
    /// A negative number means a file that could not be opened.
    explicit FileDescriptor(int number) : number_(number) {}
    ~FileDescriptor();
    FileDescriptor(FileDescriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&&) = delete;

    [[nodiscard]] bool isOpen() const { return number_ >= 0; }
    [[nodiscard]] int number() const { return number_; }

private:
    int number_;
};

/// Writes all of `bytes`, in one piece where the system lets us. False when that fails.
bool writeAll(int file, std::string_view bytes);
/// Reads up to the end of the file, or up to an error. Blocks as long as the other side does.
std::string readToEnd(int file);

}  // namespace stagehopper::posix
