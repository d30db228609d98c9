// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/IFrameWindows.h"

#include <QWidget>

class QAction;
class QLabel;
class QMenu;

namespace nubo::frame {

// The tray icon's menu form: a never-shown form that owns the popup menu "&Sobre el autor",
// "&Opciones", "&Quitar", each entry with a small picture held in the form's image boxes.
class Form8 final : public QWidget
{
    Q_OBJECT
public:
    explicit Form8(IFrameWindows& windows, QWidget* parent = nullptr);

    void popUpAt(const QPoint& globalPos);
    void hideMenu();

private:
    // The controls, named as the form names them; tests find them by those names.
    QMenu* menu = nullptr;
    QAction* Author = nullptr;
    QAction* options = nullptr;
    QAction* quit = nullptr;
    QLabel* Image1 = nullptr; // the pictures beside the entries, in menu order
    QLabel* Image2 = nullptr;
    QLabel* Image3 = nullptr;

    QAction* addEntry(const QString& name, const QString& caption, QLabel* image);

    IFrameWindows& m_windows;
};

} // namespace nubo::frame
