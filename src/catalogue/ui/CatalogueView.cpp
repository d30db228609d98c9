// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ui/CatalogueView.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

#include <algorithm>
#include <array>

namespace nubo::catalogue {

CatalogueView::CatalogueView(QWidget* parent) : QTreeView(parent)
{
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setAcceptDrops(true);
    viewport()->setAcceptDrops(true);
    setDragDropMode(QAbstractItemView::DropOnly);
    setMouseTracking(true);
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(false);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    header()->setMinimumSectionSize(0);
}

void CatalogueView::fitColumns()
{
    QHeaderView* columns = header();
    const int width = viewport()->width();
    if (columns->count() < kShownColumns || width <= 0)
        return;
    int shown = 0;
    for (int c = 0; c < kShownColumns; ++c)
        shown += columns->sectionSize(c);
    // Each column keeps its share of the width; with no width yet they share it equally.
    std::array<int, kShownColumns> sizes{};
    int left = width;
    for (int c = 0; c < kShownColumns - 1; ++c) {
        sizes[c] = shown > 0 ? int(qint64(columns->sectionSize(c)) * width / shown)
                             : width / kShownColumns;
        left -= sizes[c];
    }
    sizes[kShownColumns - 1] = std::max(0, left);
    for (int c = 0; c < kShownColumns; ++c)
        columns->resizeSection(c, sizes[c]);
}

bool CatalogueView::viewportEvent(QEvent* event)
{
    const bool handled = QTreeView::viewportEvent(event);
    // The details box or a scrollbar narrows the list: the four columns stay in sight.
    if (event->type() == QEvent::Resize)
        fitColumns();
    return handled;
}

void CatalogueView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_F2) {
        emit editNameRequested();
        return;
    }
    if (event->key() == Qt::Key_Delete) {
        emit deleteRequested();
        return;
    }
    QTreeView::keyPressEvent(event);
}

void CatalogueView::keyReleaseEvent(QKeyEvent* event)
{
    QTreeView::keyReleaseEvent(event);
    if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)
        emit arrowReleased();
}

void CatalogueView::mouseReleaseEvent(QMouseEvent* event)
{
    QTreeView::mouseReleaseEvent(event);
    if (event->button() == Qt::RightButton)
        emit rightButtonReleased(event->globalPosition().toPoint());
}

// What a double click starts (an "open with" chooser, say) may let events run for a while;
// the click that began the double click must not start editing the name meanwhile.
void CatalogueView::mouseDoubleClickEvent(QMouseEvent* event)
{
    m_handlingDoubleClick = true;
    QTreeView::mouseDoubleClickEvent(event);
    m_handlingDoubleClick = false;
}

bool CatalogueView::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    // The delayed click-to-edit arrives as a forced edit without an event.
    if (m_handlingDoubleClick && trigger == AllEditTriggers && !event)
        return false;
    return QTreeView::edit(index, trigger, event);
}

void CatalogueView::mouseMoveEvent(QMouseEvent* event)
{
    QTreeView::mouseMoveEvent(event);
    emit pointerOverRow(indexAt(event->position().toPoint()));
}

namespace {

// Files are only catalogued, never taken: a move would let the dragging program delete them.
bool acceptAsCopyOrLink(QDropEvent* event)
{
    const Qt::DropActions offered = event->possibleActions();
    if (!event->mimeData()->hasUrls() || !(offered & (Qt::CopyAction | Qt::LinkAction))) {
        event->ignore();
        return false;
    }
    event->setDropAction(offered & Qt::CopyAction ? Qt::CopyAction : Qt::LinkAction);
    event->accept();
    return true;
}

} // namespace

void CatalogueView::dragEnterEvent(QDragEnterEvent* event)
{
    acceptAsCopyOrLink(event);
}

void CatalogueView::dragMoveEvent(QDragMoveEvent* event)
{
    acceptAsCopyOrLink(event);
}

void CatalogueView::dropEvent(QDropEvent* event)
{
    if (!acceptAsCopyOrLink(event))
        return;
    QStringList names;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (!url.isLocalFile())
            break; // only local names can be catalogued; the walk ends here
        QString name = url.toLocalFile();
        while (name.size() > 1 && name.endsWith(QLatin1Char('/')))
            name.chop(1);
        names.append(name);
    }
    emit filesDropped(names);
}

} // namespace nubo::catalogue
