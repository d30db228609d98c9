// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTreeView>

namespace nubo::catalogue {

// The catalogue list control: a flat report view that accepts files dropped from the
// desktop and reports the keys and pointer moves the list window acts on.
class CatalogueView final : public QTreeView
{
    Q_OBJECT
public:
    static constexpr int kShownColumns = 4; // the drive column is kept but has no width

    explicit CatalogueView(QWidget* parent = nullptr);

    using QTreeView::edit;

    // Shares the visible width among the shown columns, each keeping its proportion.
    void fitColumns();

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
    bool m_handlingDoubleClick = false;
};

} // namespace nubo::catalogue
