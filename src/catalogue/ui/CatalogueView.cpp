#include "catalogue/ui/CatalogueView.h"

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

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

void CatalogueView::mouseMoveEvent(QMouseEvent* event)
{
    QTreeView::mouseMoveEvent(event);
    emit pointerOverRow(indexAt(event->position().toPoint()));
}

void CatalogueView::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void CatalogueView::dragMoveEvent(QDragMoveEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void CatalogueView::dropEvent(QDropEvent* event)
{
    QStringList names;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (!url.isLocalFile())
            break; // only local names can be catalogued; the walk ends here
        QString name = url.toLocalFile();
        while (name.size() > 1 && name.endsWith(QLatin1Char('/')))
            name.chop(1);
        names.append(name);
    }
    event->acceptProposedAction();
    emit filesDropped(names);
}

} // namespace nubo::catalogue
