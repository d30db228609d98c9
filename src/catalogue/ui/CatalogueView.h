// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTreeView>

#include <vector>

namespace nubo::catalogue {

// The catalogue list control: a flat report view that accepts files dropped from the
// desktop and reports the keys and pointer moves the list window acts on.
class CatalogueView final : public QTreeView
{
    Q_OBJECT
public:
    // NOMBRE to FORMATO, always shown; the drive column after them is kept but has no width,
    // and the file's detail columns after it are shown as the user chooses.
    static constexpr int kShownColumns = 4;

    explicit CatalogueView(QWidget* parent = nullptr);

    using QTreeView::edit;

    // Shares the visible width among the shown columns, each keeping its proportion. While
    // detail columns are shown no column narrows below a readable width (about fourteen letters,
    // a detail column its caption); past that they overflow and the list scrolls sideways.
    void fitColumns();
    // A width that holds a column's caption and a typical value of it.
    int naturalWidth(int column) const;

signals:
    void filesDropped(const QStringList& names);
    void editNameRequested(); // F2
    void deleteRequested();   // Delete
    void arrowReleased();     // Up or Down released
    void rightButtonReleased(const QPoint& globalPos);
    void pointerOverRow(const QModelIndex& index);

protected:
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    std::vector<int> shownColumns() const;
    int captionWidth(int column) const;

    bool m_handlingDoubleClick = false;
};

} // namespace nubo::catalogue
