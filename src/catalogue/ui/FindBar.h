// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QToolButton;

namespace nubo::catalogue {

class ListFilter;

// The list window's find bar: a text field whose words filter the shown rows as they are
// typed, the count of rows shown, and a close button. Closing it shows every row again.
class FindBar final : public QWidget
{
    Q_OBJECT
public:
    explicit FindBar(ListFilter& filter, QWidget* parent = nullptr);

    // Shows the bar with the focus in its field, the text there selected.
    void open();
    // Empties the field, so every row shows again, and hides the bar.
    void closeAndShowAll();

    static QString countText(int shown, int total);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ListFilter& m_filter;
    QLineEdit* txtBuscarLista = nullptr;
    QLabel* lblBuscarCuenta = nullptr;
    QToolButton* cmdCerrarBuscar = nullptr;
};

} // namespace nubo::catalogue
