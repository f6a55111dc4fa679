#include "ports/linux/atspi/BulkRead.h"

namespace stagehopper::linux_port {

namespace {

/// Object, application, parent, place among its siblings, number of children, interfaces, name,
/// role, description, states. Older toolkits send another type, which we ignore.
constexpr const char* replyType = "(a((so)(so)(so)iiassusau))";

VariantPointer field(const VariantPointer& tuple, gsize index) {
    return VariantPointer(g_variant_get_child_value(tuple.get(), index));
}

}  // namespace

BusCall BulkRead::call(const ObjectReference& object) {
    return {{object.bus, "/org/a11y/atspi/cache"},
            "org.a11y.atspi.Cache",
            "GetItems",
            replyType,
            nullptr};
}

BulkRead::BulkRead(const ObjectReference& object, const CallResult& result) : bus_(object.bus) {
    if (!result.reply) return;
    const VariantPointer items(g_variant_get_child_value(result.reply.get(), 0));
    const auto count = g_variant_n_children(items.get());
    entries_.reserve(count);
    for (gsize i = 0; i < count; ++i) {
        const VariantPointer item(g_variant_get_child_value(items.get(), i));
        const VariantPointer reference(field(item, 0));
        const VariantPointer path(field(reference, 1));
        const VariantPointer childCount(field(item, 4));
        const VariantPointer title(field(item, 6));
        const VariantPointer role(field(item, 7));
        entries_.insert_or_assign(g_variant_get_string(path.get(), nullptr),
                                  Entry{static_cast<AtSpiRole>(g_variant_get_uint32(role.get())),
                                        g_variant_get_string(title.get(), nullptr),
                                        g_variant_get_int32(childCount.get()) != 0});
    }
}

const BulkRead::Entry* BulkRead::find(const ObjectReference& object) const {
    if (object.bus != bus_) return nullptr;
    const auto entry = entries_.find(object.path);
    return entry == entries_.end() ? nullptr : &entry->second;
}

}  // namespace stagehopper::linux_port
