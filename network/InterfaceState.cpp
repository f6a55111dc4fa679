#include "network/InterfaceState.h"

#include "text/Utf8.h"

namespace stagehopper {

bool isInterfaceUp(std::string_view ifconfigOutput) {
    if (!isValidUtf8(ifconfigOutput)) return true;
    const auto contains = [ifconfigOutput](std::string_view part) {
        return ifconfigOutput.find(part) != std::string_view::npos;
    };
    return contains("status: active") || contains("<UP,");
}

}  // namespace stagehopper
