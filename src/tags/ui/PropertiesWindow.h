// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tags/FileProperties.h"

#include <QList>
#include <QWidget>

#include <utility>

class QLabel;
class QScrollArea;

namespace nubo::tags::ui {

// The non-modal "Propiedades de" window: one file's path, size, type, tag fields, audio
// properties and cover picture.
class PropertiesWindow final : public QWidget
{
    Q_OBJECT
public:
    explicit PropertiesWindow(QWidget* parent = nullptr);

    using Fields = QList<std::pair<QString, QString>>; // caption, value

    // Shows these properties in place of the previous ones.
    void showProperties(const FileProperties& properties);
    // For a file out of reach: what a catalogue keeps of it (columns) and of its disc (disc,
    // empty when it keeps no record of the disc).
    void showKnownFields(const QString& fileName, const Fields& columns, const Fields& disc);

private:
    QWidget* buildFields(const FileProperties& properties);
    void showPicture(const QByteArray& bytes);

    QScrollArea* m_fields = nullptr;
    QLabel* m_picture = nullptr;
};

} // namespace nubo::tags::ui
