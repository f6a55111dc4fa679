#include "ports/linux/atspi/AtSpiReads.h"

#include <memory>
#include <string_view>

namespace stagehopper::linux_port {

namespace {

constexpr const char* accessible = "org.a11y.atspi.Accessible";
constexpr std::string_view nullPath = "/org/a11y/atspi/null";

}  // namespace

BusCall at_spi_call::children(const ObjectReference& object) {
    return {object, accessible, "GetChildren", "(a(so))", nullptr};
}

BusCall at_spi_call::name(const ObjectReference& object) {
    return {object, "org.freedesktop.DBus.Properties", "Get", "(v)",
            VariantPointer(g_variant_ref_sink(g_variant_new("(ss)", accessible, "Name")))};
}

BusCall at_spi_call::role(const ObjectReference& object) {
    return {object, accessible, "GetRole", "(u)", nullptr};
}

BusCall at_spi_call::states(const ObjectReference& object) {
    return {object, accessible, "GetState", "(au)", nullptr};
}

std::optional<References> at_spi_reply::children(const CallResult& result) {
    if (!result.reply) return std::nullopt;
    References children;
    GVariantIter* iterator = nullptr;
    g_variant_get(result.reply.get(), "(a(so))", &iterator);
    const std::unique_ptr<GVariantIter, decltype(&g_variant_iter_free)> owned(iterator,
                                                                              &g_variant_iter_free);
    const char* bus = nullptr;
    const char* path = nullptr;
    while (g_variant_iter_next(iterator, "(&s&o)", &bus, &path) != FALSE) {
        if (path != nullPath && *bus != '\0') children.push_back({bus, path});
    }
    return children;
}

std::optional<std::string> at_spi_reply::name(const CallResult& result) {
    if (!result.reply) return std::nullopt;
    GVariant* value = nullptr;
    g_variant_get(result.reply.get(), "(v)", &value);
    const VariantPointer owned(value);
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING) == FALSE) return std::nullopt;
    return g_variant_get_string(value, nullptr);
}

AtSpiRole at_spi_reply::role(const CallResult& result) {
    guint32 role = 0;
    if (result.reply) g_variant_get(result.reply.get(), "(u)", &role);
    return static_cast<AtSpiRole>(role);
}

std::optional<std::uint64_t> at_spi_reply::states(const CallResult& result) {
    if (!result.reply) return std::nullopt;
    const VariantPointer words(g_variant_get_child_value(result.reply.get(), 0));
    std::uint64_t states = 0;
    for (gsize i = 0; i < g_variant_n_children(words.get()) && i < 2; ++i) {
        guint32 word = 0;
        g_variant_get_child(words.get(), i, "u", &word);
        states |= static_cast<std::uint64_t>(word) << (32U * i);
    }
    return states;
}

}  // namespace stagehopper::linux_port
