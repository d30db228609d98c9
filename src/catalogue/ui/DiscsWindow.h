// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppFolder.h"

#include <QTimer>
#include <QWidget>

class QLabel;
class QTableView;

namespace nubo::catalogue {

class Catalogue;

// The "Discos" window: the disc record of each group of the list with its files, bytes and
// length, and the whole list's totals. ORIGEN, UBICACION and NOTAS are edited in place; the
// totals follow the rows while the window is open.
class DiscsWindow final : public QWidget
{
    Q_OBJECT
public:
    DiscsWindow(Catalogue& catalogue, const platform::AppFolder& app, QWidget* parent = nullptr);

    // Shows the window with the totals counted afresh, the first disc's UBICACION current.
    void open();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void createControls();
    void connectCatalogue();
    void refreshTotals();
    void fitToFields();
    void showTotalsLine();
    void showRefusal(const QString& reason);

    Catalogue& m_catalogue;
    QTableView* m_table = nullptr;
    QLabel* m_totals = nullptr;
    QLabel* m_message = nullptr;
    QTimer m_refresh; // the rows changed: their totals are counted again once they settle
};

} // namespace nubo::catalogue
