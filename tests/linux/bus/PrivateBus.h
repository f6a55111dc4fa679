#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "tests/drivers/desktop/ChildProgram.h"

namespace stagehopper::linux_port {

/// A message bus of a test's own, which starts no services. One thread.
class PrivateBus {
public:
    /// Its files go into this folder; throws DesktopError when it does not start.
    explicit PrivateBus(std::filesystem::path folder);

    [[nodiscard]] const std::string& address() const { return address_; }
    /// It is stopped, with all its connections open, until it continues.
    void hang() const;
    void goOn() const;
    void die();
    /// Comes back at the same address after it died.
    void start();

private:
    std::filesystem::path folder_;
    std::string address_;
    std::unique_ptr<desktop::ChildProgram> daemon_;
};

}  // namespace stagehopper::linux_port
