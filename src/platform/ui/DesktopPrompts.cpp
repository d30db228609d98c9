// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/DesktopPrompts.h"

#include "platform/ui/OpenWithDialog.h"

#include <QApplication>
#include <QDesktopServices>
#include <QPointer>
#include <QUrl>

namespace nubo::platform {

DesktopPrompts desktopPrompts(QWidget* chooserParent)
{
    QPointer<QWidget> parent(chooserParent);
    return {
        [parent](const QList<DesktopEntry>& applications, const QString& path) {
            // Over the window the user acted in, which gets the keyboard back when it closes.
            QWidget* owner = QApplication::activeWindow();
            return OpenWithDialog::choose(applications, path, owner ? owner : parent.data());
        },
        [](const QString& path) { return QDesktopServices::openUrl(QUrl::fromLocalFile(path)); }};
}

} // namespace nubo::platform
