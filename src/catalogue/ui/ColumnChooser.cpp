// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ui/ColumnChooser.h"

#include "catalogue/ui/CatalogueView.h"

#include <QHeaderView>
#include <QMenu>

#include <array>

namespace nubo::catalogue {

namespace {

// The entries' access keys: the first letter no entry above has taken.
const std::array<const char*, kColumnCount - kTextColumnCount> kEntryTexts = {
    "&TAMAÑO", "&FECHA", "T&ITULO", "&ARTISTA", "A&LBUM", "AÑ&O", "&PISTA", "&GENERO", "&DURACION"};

} // namespace

ColumnChooser::ColumnChooser(CatalogueView& view, ShownColumnsStore store, QWidget* menuParent)
    : QObject(menuParent), m_view(view), m_store(std::move(store))
{
    m_menu = new QMenu(QStringLiteral("Colu&mnas"), menuParent);
    m_menu->setObjectName(QStringLiteral("mnuColumnas"));
    m_menu->menuAction()->setObjectName(QStringLiteral("mnuColumnas"));
    const QList<Column> chosen = m_store.load();
    for (int c = kTextColumnCount; c < kColumnCount; ++c) {
        const Column column = Column(c);
        QAction* entry =
            m_menu->addAction(QString::fromUtf8(kEntryTexts[std::size_t(c - kTextColumnCount)]));
        entry->setObjectName(QStringLiteral("mnuColumna") + ShownColumnsStore::keyOf(column));
        entry->setData(c);
        entry->setCheckable(true);
        entry->setChecked(chosen.contains(column));
        connect(entry, &QAction::toggled, this, [this, column](bool on) {
            setShown(column, on);
            if (!m_store.save(shownColumns()))
                emit choiceNotKept();
        });
    }
    QHeaderView* header = m_view.header();
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(header, &QWidget::customContextMenuRequested, this,
            [this, header](const QPoint& at) { m_menu->popup(header->mapToGlobal(at)); });
}

QList<Column> ColumnChooser::shownColumns() const
{
    QList<Column> shown;
    for (const QAction* entry : m_menu->actions()) {
        if (entry->isChecked())
            shown.append(Column(entry->data().toInt()));
    }
    return shown;
}

void ColumnChooser::setShown(Column column, bool shown)
{
    for (QAction* entry : m_menu->actions()) {
        if (entry->data().toInt() == int(column) && entry->isChecked() != shown) {
            const QSignalBlocker quiet(entry); // the caller keeps the file, not each entry
            entry->setChecked(shown);
        }
    }
    QHeaderView* header = m_view.header();
    const int section = int(column);
    if (header->isSectionHidden(section) != shown)
        return;
    header->setSectionHidden(section, !shown);
    if (shown)
        header->resizeSection(section, m_view.naturalWidth(section));
    m_view.fitColumns();
}

void ColumnChooser::showChosen()
{
    QHeaderView* header = m_view.header();
    for (const QAction* entry : m_menu->actions()) {
        const int section = entry->data().toInt();
        header->setSectionHidden(section, !entry->isChecked());
        if (entry->isChecked())
            header->resizeSection(section, m_view.naturalWidth(section));
    }
    m_view.fitColumns();
}

} // namespace nubo::catalogue
