// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/linux/DesktopEntry.h"

#include <QDialog>

class QListWidget;
class QPushButton;

namespace nubo::platform {

// The "open with" chooser: the installed applications, plus browsing for any program.
class OpenWithDialog final : public QDialog
{
    Q_OBJECT

public:
    OpenWithDialog(QList<DesktopEntry> applications, QString path, QWidget* parent = nullptr);

    // The command that opens the file with the chosen application; empty when none is chosen.
    QStringList command() const;
    // Chooses a program outside the list (also what the browse button does after its dialog).
    void setProgram(const QString& program);

    // Shows the chooser modally; the command, or empty when the user cancels.
    static QStringList choose(const QList<DesktopEntry>& applications, const QString& path,
                              QWidget* parent = nullptr);

    QListWidget* listApplications = nullptr;
    QPushButton* cmdBrowse = nullptr;

private:
    void browse();

    QList<DesktopEntry> m_applications;
    QString m_path;
    QString m_program;
};

} // namespace nubo::platform
