// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppFolder.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace nubo::frame {

// The author window: a short fixed text about the program, opened and closed by the main
// window's fifth button and by the tray menu.
class Form6 final : public QWidget
{
    Q_OBJECT
public:
    explicit Form6(const platform::AppFolder& app, QWidget* parent = nullptr);

    static QString aboutText();
    // The logo, read again once a first start has laid out the application folder.
    void loadPictures();

signals:
    void closed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    const platform::AppFolder& m_app;

    // The controls, named as the form names them; tests find them by those names.
    QLabel* Image1 = nullptr; // the program's logo
    QLabel* Label1 = nullptr; // the program's name
    QLabel* Label2 = nullptr; // the text
    QPushButton* Command1 = nullptr;
};

} // namespace nubo::frame
