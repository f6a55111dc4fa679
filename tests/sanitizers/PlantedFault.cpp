// A program with the fault that its argument names.

#include <limits>
#include <memory>
#include <string_view>
#include <thread>
#include <vector>

namespace {

int useAfterFree() {
    std::vector<int> numbers(10, 1);
    const int& first = numbers.front();
    numbers = std::vector<int>(1000, 2);
    return first;
}

int overflow(int count) {
    return std::numeric_limits<int>::max() + count;
}

struct Ring {
    std::shared_ptr<Ring> next;
};

/// Many, as one may still be found by a value that was left on the stack.
int leak() {
    for (int i = 0; i < 100; ++i) {
        const auto ring = std::make_shared<Ring>();
        ring->next = ring;
    }
    return 0;
}

int race() {
    int count = 0;
    std::thread other([&count] { ++count; });
    ++count;
    other.join();
    return count;
}

}  // namespace

int main(int count, char** values) {
    const std::string_view fault = count > 1 ? values[1] : "";
    if (fault == "use-after-free") return useAfterFree();
    if (fault == "overflow") return overflow(count);
    if (fault == "leak") return leak();
    if (fault == "race") return race();
    return 2;
}
