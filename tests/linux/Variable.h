#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace stagehopper::linux_port {

/// Sets or removes an environment variable during its lifetime.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* old = std::getenv(name)) before_ = old;
        value != nullptr ? setenv(name, value, 1) : unsetenv(name);
    }
    ~Variable() { before_ ? setenv(name_, before_->c_str(), 1) : unsetenv(name_); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    const char* name_;
    std::optional<std::string> before_;
};

}  // namespace stagehopper::linux_port
