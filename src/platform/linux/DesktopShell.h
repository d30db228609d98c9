// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/IShell.h"
#include "platform/linux/MimeAssociations.h"

#include <functional>

namespace nubo::platform {

// The desktop shell on Linux: files open in the default application of their MIME type, the
// associated player's own option queues them, and a chooser serves files without one.
class DesktopShell final : public IShell
{
public:
    // Starts a program detached, with an argument list (never through a shell).
    using Launcher = std::function<bool(const QString& program, const QStringList& arguments)>;
    // Asks the user for a program for the file; the command to run, or empty.
    using Chooser = std::function<QStringList(const QList<DesktopEntry>&, const QString& path)>;
    // Hands the file to the desktop's own opener, which provides a terminal where one is needed.
    using DesktopOpener = std::function<bool(const QString& path)>;

    DesktopShell(MimeAssociations associations, Launcher launcher, Chooser chooser,
                 DesktopOpener desktopOpener);

    Result open(const QString& path) override;
    Result enqueue(const QString& path) override;
    bool openWith(const QString& path) override;

private:
    std::optional<DesktopEntry> association(const QString& path) const;
    Result start(const QStringList& command) const;
    Result openWithEntry(const DesktopEntry& entry, const QString& path) const;

    MimeAssociations m_associations;
    Launcher m_launcher;
    Chooser m_chooser;
    DesktopOpener m_desktopOpener;
};

// The shell's parts that need the windowing system, given by the program that has windows.
struct DesktopPrompts
{
    DesktopShell::Chooser chooser;
    DesktopShell::DesktopOpener desktopOpener;
};

} // namespace nubo::platform
