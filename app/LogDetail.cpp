#include "app/LogDetail.h"

namespace stagehopper {

std::string logDetail(
    std::initializer_list<std::pair<std::string_view, std::string_view>> keysAndValues) {
    std::string detail;
    for (const auto& [key, value] : keysAndValues) {
        if (!detail.empty()) detail += ' ';
        detail += key;
        detail += '=';
        detail += value;
    }
    return detail;
}

}  // namespace stagehopper
