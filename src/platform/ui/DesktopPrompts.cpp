// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/DesktopPrompts.h"

#include "platform/ui/OpenWithDialog.h"

#include <QDesktopServices>
#include <QPointer>
#include <QUrl>

namespace nubo::platform {

DesktopPrompts desktopPrompts(QWidget* chooserParent)
{
    QPointer<QWidget> parent(chooserParent);
    return {
        [parent](const QList<DesktopEntry>& applications, const QString& path) {
            return OpenWithDialog::choose(applications, path, parent.data());
        },
        [](const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); }};
}

} // namespace nubo::platform
