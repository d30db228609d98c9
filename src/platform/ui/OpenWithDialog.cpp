// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ui/OpenWithDialog.h"

#include "platform/linux/ExecLine.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace nubo::platform {

OpenWithDialog::OpenWithDialog(QList<DesktopEntry> applications, QString path, QWidget* parent)
    : QDialog(parent), m_applications(std::move(applications)), m_path(std::move(path))
{
    setWindowTitle(QStringLiteral("Abrir con"));
    auto* layout = new QVBoxLayout(this);
    auto* label = new QLabel(QStringLiteral("Elija el programa con el que desea abrir \"%1\":")
                                 .arg(QFileInfo(m_path).fileName()));
    label->setWordWrap(true);
    layout->addWidget(label);

    listApplications = new QListWidget;
    listApplications->setObjectName(QStringLiteral("listApplications"));
    for (const DesktopEntry& entry : std::as_const(m_applications))
        listApplications->addItem(entry.name);
    label->setBuddy(listApplications);
    layout->addWidget(listApplications);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    cmdBrowse = buttons->addButton(QStringLiteral("&Buscar otro programa..."),
                                   QDialogButtonBox::ActionRole);
    cmdBrowse->setObjectName(QStringLiteral("cmdBrowse"));
    layout->addWidget(buttons);

    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(false);
    connect(listApplications, &QListWidget::currentRowChanged, this,
            [ok](int row) { ok->setEnabled(row >= 0); });
    connect(listApplications, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(cmdBrowse, &QPushButton::clicked, this, &OpenWithDialog::browse);
    resize(420, 460);
}

QStringList OpenWithDialog::command() const
{
    if (!m_program.isEmpty())
        return {m_program, m_path};
    const int row = listApplications->currentRow();
    if (row < 0 || row >= m_applications.size())
        return {};
    return exec::expand(m_applications.at(row), m_path);
}

void OpenWithDialog::setProgram(const QString& program)
{
    m_program = program;
}

void OpenWithDialog::browse()
{
    const QString program = QFileDialog::getOpenFileName(this, QStringLiteral("Buscar programa"),
                                                         QStringLiteral("/usr/bin"));
    if (program.isEmpty())
        return;
    setProgram(program);
    accept();
}

QStringList OpenWithDialog::choose(const QList<DesktopEntry>& applications, const QString& path,
                                   QWidget* parent)
{
    OpenWithDialog dialog(applications, path, parent);
    if (dialog.exec() != QDialog::Accepted)
        return {};
    return dialog.command();
}

} // namespace nubo::platform
