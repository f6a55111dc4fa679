#include "ports/linux/atspi/ProgramCache.h"

#include <algorithm>
#include <utility>

namespace stagehopper::linux_port {

std::optional<CachedProgram> ProgramCache::find(platform::Pid process) const {
    const auto known = programs_.find(process);
    if (known == programs_.end()) return std::nullopt;
    return known->second;
}

void ProgramCache::store(platform::Pid process, CachedProgram program) {
    programs_.insert_or_assign(process, std::move(program));
}

void ProgramCache::keepOnly(const std::vector<ObjectReference>& roots) {
    std::erase_if(programs_, [&roots](const auto& entry) {
        return std::ranges::find(roots, entry.second.root) == roots.end();
    });
}

}  // namespace stagehopper::linux_port
