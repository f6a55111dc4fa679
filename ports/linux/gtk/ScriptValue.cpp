#include "ports/linux/gtk/ScriptValue.h"

#include <memory>

namespace stagehopper::linux_port {

namespace {

struct BytesUnref {
    void operator()(GBytes* bytes) const { g_bytes_unref(bytes); }
};

}  // namespace

std::optional<std::string> scriptText(JSCValue* value) {
    // The value `undefined` arrives as a null pointer.
    if (value == nullptr || !jsc_value_is_string(value)) return std::nullopt;
    // The conversion to UTF-8 would end the text at the first lone surrogate.
    const ObjectPointer<JSCValue> wellFormed(
        jsc_value_object_invoke_method(value, "toWellFormed", G_TYPE_NONE));
    const std::unique_ptr<GBytes, BytesUnref> bytes(jsc_value_to_string_as_bytes(wellFormed.get()));
    if (!bytes) return std::string{};
    gsize size = 0;
    const auto* data = static_cast<const char*>(g_bytes_get_data(bytes.get(), &size));
    return std::string(data, size);
}

ObjectPointer<JSCValue> signedBody(JSCValue* value, const std::string& signature) {
    if (value == nullptr || !jsc_value_is_array(value)) return {};
    const ObjectPointer<JSCValue> first(jsc_value_object_get_property_at_index(value, 0));
    if (scriptText(first.get()) != signature) return {};
    return ObjectPointer<JSCValue>(jsc_value_object_get_property_at_index(value, 1));
}

}  // namespace stagehopper::linux_port
