// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ui/FindBar.h"

#include "catalogue/ListFilter.h"
#include "platform/ui/NamedChild.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace nubo::catalogue {

FindBar::FindBar(ListFilter& filter, QWidget* parent) : QWidget(parent), m_filter(filter)
{
    setObjectName(QStringLiteral("FindBar"));
    txtBuscarLista = platform::namedChild<QLineEdit>(this, "txtBuscarLista");
    txtBuscarLista->setToolTip(
        QStringLiteral("Muestra solamente las filas que contienen todas las palabras escritas"));
    // How to hold a word to one column, where it is seen while the field is empty.
    txtBuscarLista->setPlaceholderText(
        QStringLiteral("palabras, o columna:palabra (artista:quiroga, año:1979)"));
    txtBuscarLista->installEventFilter(this);
    lblBuscarCuenta = platform::namedChild<QLabel>(this, "lblBuscarCuenta");
    cmdCerrarBuscar = platform::namedChild<QToolButton>(this, "cmdCerrarBuscar");
    cmdCerrarBuscar->setText(QStringLiteral("X"));
    cmdCerrarBuscar->setToolTip(QStringLiteral("Cierra la busqueda y muestra toda la lista"));

    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(new QLabel(QStringLiteral("Buscar en la lista:"), this));
    row->addWidget(txtBuscarLista, 1);
    row->addWidget(lblBuscarCuenta);
    row->addWidget(cmdCerrarBuscar);

    connect(txtBuscarLista, &QLineEdit::textChanged, &m_filter, &ListFilter::setFindText);
    connect(&m_filter, &ListFilter::countsChanged, this,
            [this](int shown, int total) { lblBuscarCuenta->setText(countText(shown, total)); });
    connect(cmdCerrarBuscar, &QToolButton::clicked, this, &FindBar::closeAndShowAll);
    lblBuscarCuenta->setText(countText(m_filter.shownCount(), m_filter.totalCount()));
    hide();
}

QString FindBar::countText(int shown, int total)
{
    return QStringLiteral("%1 de %2 archivos").arg(shown).arg(total);
}

void FindBar::open()
{
    m_filter.prepare();
    lblBuscarCuenta->setText(countText(m_filter.shownCount(), m_filter.totalCount()));
    show();
    txtBuscarLista->setFocus();
    txtBuscarLista->selectAll();
}

void FindBar::closeAndShowAll()
{
    txtBuscarLista->clear();
    hide();
}

// Escape in the field closes the bar; anywhere else it keeps its meaning for the window.
bool FindBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == txtBuscarLista && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        closeAndShowAll();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace nubo::catalogue
