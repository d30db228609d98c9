// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/linux/DesktopShell.h"

#include "platform/linux/ExecLine.h"

#include <QFileInfo>

namespace nubo::platform {

DesktopShell::DesktopShell(MimeAssociations associations, Launcher launcher, Chooser chooser,
                           DesktopOpener desktopOpener)
    : m_associations(std::move(associations)), m_launcher(std::move(launcher)),
      m_chooser(std::move(chooser)), m_desktopOpener(std::move(desktopOpener))
{
}

std::optional<DesktopEntry> DesktopShell::association(const QString& path) const
{
    return m_associations.defaultApplication(MimeAssociations::mimeTypeOf(path));
}

IShell::Result DesktopShell::start(const QStringList& command) const
{
    if (command.isEmpty())
        return Result::Failed;
    return m_launcher(command.first(), command.mid(1)) ? Result::Ok : Result::Failed;
}

IShell::Result DesktopShell::openWithEntry(const DesktopEntry& entry, const QString& path) const
{
    // Programs that need a terminal are left to the desktop's own opener, which provides one.
    if (entry.terminal)
        return m_desktopOpener(path) ? Result::Ok : Result::Failed;
    return start(exec::expand(entry, path));
}

IShell::Result DesktopShell::open(const QString& path)
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return Result::Failed;
    const std::optional<DesktopEntry> entry = association(path);
    if (!entry)
        return Result::NoAssociation;
    return openWithEntry(*entry, path);
}

IShell::Result DesktopShell::enqueue(const QString& path)
{
    if (path.isEmpty() || !QFileInfo::exists(path))
        return Result::Failed;
    const std::optional<DesktopEntry> entry = association(path);
    if (!entry)
        return Result::NoAssociation;
    const std::optional<QStringList> command =
        exec::enqueueCommand(exec::split(entry->exec).value_or(QStringList()), path);
    return command ? start(*command) : openWithEntry(*entry, path);
}

bool DesktopShell::openWith(const QString& path)
{
    const QStringList command = m_chooser(m_associations.applications(), path);
    return !command.isEmpty() && start(command) == Result::Ok;
}

} // namespace nubo::platform
