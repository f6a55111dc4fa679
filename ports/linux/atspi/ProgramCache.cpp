#include "ports/linux/atspi/ProgramCache.h"

#include <algorithm>
#include <utility>

namespace stagehopper::linux_port {

std::optional<KnownProgram> KnownPrograms::find(platform::Pid process) const {
    const auto known = programs_.find(process);
    if (known == programs_.end()) return std::nullopt;
    return known->second;
}

void KnownPrograms::remember(platform::Pid process, KnownProgram program) {
    programs_.insert_or_assign(process, std::move(program));
}

void KnownPrograms::keepOnly(const std::vector<ObjectReference>& roots) {
    std::erase_if(programs_, [&roots](const auto& entry) {
        return std::ranges::find(roots, entry.second.root) == roots.end();
    });
}

}  // namespace stagehopper::linux_port
