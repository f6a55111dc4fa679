#pragma once

#include <atspi/atspi.h>

#include <optional>
#include <string>
#include <vector>

#include "ports/linux/glib/GlibPointers.h"
#include "tests/drivers/desktop/WaitFor.h"
#include "tests/drivers/desktop/Windows.h"

namespace stagehopper::desktop {

/// One widget of some program, as assistive technology sees it.
struct Widget {
    std::string bus;
    std::string path;
};

/// Looks into other programs through the accessibility bus. Every call reads again: nothing is
/// cached. One thread.
class AccessibleTree {
public:
    /// Throws DesktopError.
    explicit AccessibleTree(const std::string& sessionBusAddress);

    /// The root of a process's tree.
    [[nodiscard]] std::optional<Widget> program(pid_t process) const;
    /// The first widget below `root`, in reading order, with this role, whose name contains `name`.
    /// Does not search menu bars.
    [[nodiscard]] std::optional<Widget> find(const Widget& root, AtspiRole role,
                                             const std::string& name) const;
    /// Waits for a widget of a process that is on the screen; throws DesktopError.
    [[nodiscard]] Widget waitFor(pid_t process, AtspiRole role, const std::string& name,
                                 Limit limit) const;

    [[nodiscard]] AtspiRole role(const Widget& widget) const;
    [[nodiscard]] std::string name(const Widget& widget) const;
    /// Its text, for entries and paragraphs.
    [[nodiscard]] std::string text(const Widget& widget) const;
    /// On the screen.
    [[nodiscard]] std::optional<Area> area(const Widget& widget) const;
    [[nodiscard]] std::vector<Widget> children(const Widget& widget) const;
    /// Roles, names and places, one widget a line, for an error message.
    [[nodiscard]] std::string outline(const Widget& root, int depth = 30) const;

private:
    [[nodiscard]] linux_port::VariantPointer call(const Widget& widget, const char* interface,
                                                  const char* method,
                                                  GVariant* arguments = nullptr) const;
    [[nodiscard]] std::optional<Widget> find(const Widget& root, AtspiRole role,
                                             const std::string& name, int depth) const;
    /// What another process has put into this widget, as web engines do with their pages; it is
    /// missing from the list of the children.
    [[nodiscard]] std::optional<Widget> embeddedChild(const Widget& widget) const;

    linux_port::ObjectPointer<GDBusConnection> bus_;
};

/// Switches accessibility on or off for all programs of a session. Throws DesktopError.
void setAccessibility(const std::string& sessionBusAddress, bool on);

}  // namespace stagehopper::desktop
