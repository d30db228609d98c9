// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/CatalogueRow.h"
#include "catalogue/ShownColumnsStore.h"

#include <QObject>

class QMenu;
class QWidget;

namespace nubo::catalogue {

class CatalogueView;

// Which of the file's detail columns (TAMAÑO to DURACION) the list shows: a menu of them with
// check marks, opened by a right click on the list's header and offered in the list window's
// menu for the keyboard. The choice is kept between runs by a ShownColumnsStore.
class ColumnChooser final : public QObject
{
    Q_OBJECT
public:
    ColumnChooser(CatalogueView& view, ShownColumnsStore store, QWidget* menuParent);

    QMenu* menu() const { return m_menu; }
    QList<Column> shownColumns() const;
    void setShown(Column column, bool shown);
    // Shows the chosen columns, each at its natural width, hides the others, and fits them with
    // the four to the list's width. The four's widths are the caller's.
    void showChosen();

signals:
    // The choice holds for this run, but its file could not be written.
    void choiceNotKept();

private:
    CatalogueView& m_view;
    ShownColumnsStore m_store;
    QMenu* m_menu = nullptr;
};

} // namespace nubo::catalogue
