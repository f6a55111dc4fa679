#pragma once

#include <gio/gio.h>

#include <memory>

namespace stagehopper::linux_port {

struct ObjectUnref {
    void operator()(void* object) const { g_object_unref(object); }
};
struct VariantUnref {
    void operator()(GVariant* value) const { g_variant_unref(value); }
};
struct ErrorFree {
    void operator()(GError* error) const { g_error_free(error); }
};
struct MemoryFree {
    void operator()(void* memory) const { g_free(memory); }
};
struct ContextUnref {
    void operator()(GMainContext* context) const { g_main_context_unref(context); }
};
struct SourceDestroy {
    void operator()(GSource* source) const {
        g_source_destroy(source);
        g_source_unref(source);
    }
};

/// Owners of objects and memory from GLib.
template <typename T>
using ObjectPointer = std::unique_ptr<T, ObjectUnref>;
using VariantPointer = std::unique_ptr<GVariant, VariantUnref>;
using ErrorPointer = std::unique_ptr<GError, ErrorFree>;
using TextPointer = std::unique_ptr<char, MemoryFree>;
using ContextPointer = std::unique_ptr<GMainContext, ContextUnref>;
using SourcePointer = std::unique_ptr<GSource, SourceDestroy>;

}  // namespace stagehopper::linux_port
