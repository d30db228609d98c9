// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ui/CatalogueView.h"

#include "catalogue/CatalogueRow.h"

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

namespace {

// Room around a cell's text: the style's margins on both sides.
constexpr int kCellPadding = 16;
// What NOMBRE to FORMATO keep in sight beside detail columns.
constexpr int kReadableLetters = 14;

} // namespace

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

// The columns in sight: the four, then the detail columns not hidden.
std::vector<int> CatalogueView::shownColumns() const
{
    std::vector<int> shown;
    for (int c = 0; c < header()->count(); ++c) {
        if (c < kShownColumns || (c >= kTextColumnCount && !header()->isSectionHidden(c)))
            shown.push_back(c);
    }
    return shown;
}

int CatalogueView::captionWidth(int column) const
{
    const QString caption =
        model() ? model()->headerData(column, Qt::Horizontal).toString() : QString();
    return header()->fontMetrics().horizontalAdvance(caption) + kCellPadding;
}

int CatalogueView::naturalWidth(int column) const
{
    // A typical value of each detail column, as wide as the list writes it.
    static const std::array<const char*, kColumnCount - kTextColumnCount> samples = {
        "000000000", "0000-00-00 00:00", "MMMMMMMMMMMM", "MMMMMMMMMM", "MMMMMMMMMM", "0000",
        "000",       "MMMMMMM",          "0:00:00"};
    if (column < kTextColumnCount || column >= kColumnCount)
        return captionWidth(column);
    const int value = fontMetrics().horizontalAdvance(
                          QLatin1String(samples[std::size_t(column - kTextColumnCount)])) +
                      kCellPadding;
    return std::max(value, captionWidth(column));
}

void CatalogueView::fitColumns()
{
    QHeaderView* columns = header();
    const int width = viewport()->width();
    if (columns->count() < kShownColumns || width <= 0)
        return;
    const std::vector<int> shown = shownColumns();
    const int count = int(shown.size());
    // With the four alone they always fit, however narrow, as they always did. Beside detail
    // columns the four keep about fourteen letters and the others their captions, and the list
    // scrolls sideways past that.
    const bool keepReadable = count > kShownColumns;
    const int readableText = fontMetrics().averageCharWidth() * kReadableLetters + kCellPadding;
    const auto least = [&](int c) {
        if (!keepReadable)
            return 0;
        return c < kShownColumns ? std::max(readableText, captionWidth(c)) : captionWidth(c);
    };
    qint64 total = 0;
    for (const int c : shown)
        total += columns->sectionSize(c);
    // Each column keeps its share of the width; with no width yet they share it equally.
    std::vector<int> sizes(shown.size());
    int left = width;
    for (int i = 0; i < count - 1; ++i) {
        const int share =
            total > 0 ? int(columns->sectionSize(shown[i]) * width / total) : width / count;
        sizes[i] = std::max(share, least(shown[i]));
        left -= sizes[i];
    }
    sizes[count - 1] = std::max(left, least(shown[count - 1]));
    for (int i = 0; i < count; ++i)
        columns->resizeSection(shown[i], sizes[i]);
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
