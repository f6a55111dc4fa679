#include "ports/linux/x11/WindowDescription.h"

#include <X11/Xlib-xcb.h>
#include <glib.h>
#include <xcb/res.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "ports/linux/glib/GlibPointers.h"
#include "ports/linux/x11/X11Connection.h"
#include "ports/linux/x11/X11Property.h"

namespace stagehopper::linux_port {

namespace {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <class Reply>
using ReplyPointer = std::unique_ptr<Reply, FreeMemory>;

/// The pending requests about one window. Replies are collected in the order of the requests.
struct PropertyCookies {
    xcb_res_query_client_ids_cookie_t client;
    xcb_get_property_cookie_t process;
    xcb_get_property_cookie_t title;
    xcb_get_property_cookie_t oldTitle;
    xcb_get_property_cookie_t gtkApplicationId;
    xcb_get_property_cookie_t classNames;
    xcb_get_property_cookie_t states;
    xcb_get_property_cookie_t types;
};

/// WM_NAME of old programs: Latin-1 by definition, though many write UTF-8 into it.
std::string fromOldTitle(const std::string& bytes) {
    if (g_utf8_validate(bytes.data(), static_cast<gssize>(bytes.size()), nullptr) != FALSE) {
        return bytes;
    }
    const TextPointer text(g_convert(bytes.data(), static_cast<gssize>(bytes.size()), "UTF-8",
                                     "ISO-8859-1", nullptr, nullptr, nullptr));
    return text ? text.get() : std::string{};
}

class WindowPropertyBatch {
public:
    explicit WindowPropertyBatch(X11Connection& connection)
        : xcb_(XGetXCBConnection(connection.display())), atoms_(connection) {}

    [[nodiscard]] PropertyCookies request(WindowId window) const {
        const auto id = static_cast<xcb_window_t>(window);
        const xcb_res_client_id_spec_t whose{id, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        return {xcb_res_query_client_ids(xcb_, 1, &whose),
                property(id, "_NET_WM_PID"),
                property(id, "_NET_WM_NAME"),
                property(id, "WM_NAME"),
                property(id, "_GTK_APPLICATION_ID"),
                property(id, "WM_CLASS"),
                property(id, "_NET_WM_STATE"),
                property(id, "_NET_WM_WINDOW_TYPE")};
    }

    [[nodiscard]] TopLevelWindow collect(WindowId id, const PropertyCookies& cookies) const {
        TopLevelWindow window;
        window.id = id;
        // The server knows the process behind a window. A program in a sandbox writes its number
        // inside the sandbox into _NET_WM_PID.
        window.process = clientProcess(cookies.client);
        const auto written = numbers(cookies.process);
        if (!window.process && !written.empty() && written.front() != 0) {
            window.process = static_cast<platform::Pid>(written.front());
        }
        window.title = validUtf8(bytes(cookies.title));
        const auto oldTitle = bytes(cookies.oldTitle);
        if (window.title.empty()) window.title = fromOldTitle(oldTitle);
        window.gtkApplicationId = validUtf8(bytes(cookies.gtkApplicationId));

        const std::string names = bytes(cookies.classNames);
        const auto half = names.find('\0');
        window.instanceName = validUtf8(names.substr(0, half));
        if (half != std::string::npos) window.className = validUtf8(names.c_str() + half + 1);

        const auto states = numbers(cookies.states);
        window.fullScreen = contains(states, "_NET_WM_STATE_FULLSCREEN");
        window.hidden = contains(states, "_NET_WM_STATE_HIDDEN");
        const auto types = numbers(cookies.types);
        window.furniture = contains(types, "_NET_WM_WINDOW_TYPE_DOCK") ||
                           contains(types, "_NET_WM_WINDOW_TYPE_DESKTOP");
        return window;
    }

private:
    [[nodiscard]] xcb_get_property_cookie_t property(xcb_window_t window, const char* name) const {
        return xcb_get_property(xcb_, 0, window, static_cast<xcb_atom_t>(atoms_.atom(name)),
                                XCB_GET_PROPERTY_TYPE_ANY, 0, maxPropertyLength);
    }

    /// The value of a property with items of `format` bits; empty when it is missing. Also takes
    /// the error for a window that is gone off the connection.
    [[nodiscard]] std::string value(xcb_get_property_cookie_t cookie, int format) const {
        xcb_generic_error_t* error = nullptr;
        const ReplyPointer<xcb_get_property_reply_t> reply(
            xcb_get_property_reply(xcb_, cookie, &error));
        const ReplyPointer<xcb_generic_error_t> owned(error);
        if (!reply || reply->format != format) return {};
        return {static_cast<const char*>(xcb_get_property_value(reply.get())),
                static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
    }
    [[nodiscard]] std::string bytes(xcb_get_property_cookie_t cookie) const {
        return value(cookie, 8);
    }
    [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_get_property_cookie_t cookie) const {
        const auto raw = value(cookie, 32);
        std::vector<std::uint32_t> numbers(raw.size() / sizeof(std::uint32_t));
        if (!numbers.empty()) std::memcpy(numbers.data(), raw.data(), raw.size());
        return numbers;
    }

    [[nodiscard]] std::optional<platform::Pid> clientProcess(
        xcb_res_query_client_ids_cookie_t cookie) const {
        xcb_generic_error_t* error = nullptr;
        const ReplyPointer<xcb_res_query_client_ids_reply_t> reply(
            xcb_res_query_client_ids_reply(xcb_, cookie, &error));
        const ReplyPointer<xcb_generic_error_t> owned(error);
        if (!reply) return std::nullopt;
        std::optional<platform::Pid> process;
        for (auto each = xcb_res_query_client_ids_ids_iterator(reply.get()); each.rem > 0;
             xcb_res_client_id_value_next(&each)) {
            if ((each.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) == 0) continue;
            if (xcb_res_client_id_value_value_length(each.data) < 1) continue;
            const auto pid = *xcb_res_client_id_value_value(each.data);
            if (pid != 0) process = static_cast<platform::Pid>(pid);
        }
        return process;
    }

    [[nodiscard]] bool contains(const std::vector<std::uint32_t>& list, const char* atom) const {
        return std::ranges::find(list, static_cast<std::uint32_t>(atoms_.atom(atom))) != list.end();
    }

    xcb_connection_t* xcb_;
    X11Property atoms_;
};

}  // namespace

std::vector<TopLevelWindow> describeWindows(X11Connection& connection,
                                            const std::vector<WindowId>& ids) {
    const WindowPropertyBatch batch(connection);
    std::vector<PropertyCookies> cookies;
    for (const auto id : ids) cookies.push_back(batch.request(id));
    std::vector<TopLevelWindow> windows;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        windows.push_back(batch.collect(ids[i], cookies[i]));
    }
    return windows;
}

}  // namespace stagehopper::linux_port
