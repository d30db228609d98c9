// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppFolder.h"

#include <QLabel>

namespace nubo::search {

// A picture that acts as a button: it reports the pointer entering it and a press on it, and
// remembers the name of the picture it shows.
class ImageButton final : public QLabel
{
    Q_OBJECT
public:
    ImageButton(const platform::AppFolder& app, QWidget* parent = nullptr);

    // Loads a picture named relative to the application folder; a missing file leaves the
    // current picture, and its name, as they were.
    void loadPicture(const QString& relative);
    const QString& pictureName() const { return m_pictureName; }

signals:
    void entered();
    void pressed();

protected:
    void enterEvent(QEnterEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    const platform::AppFolder& m_app;
    QString m_pictureName;
};

} // namespace nubo::search
