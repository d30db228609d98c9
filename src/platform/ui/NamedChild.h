// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAnyStringView>
#include <QWidget>

#include <utility>

namespace nubo::platform {

// Creates a window's control with the objectName its code and tests find it by; the
// arguments go to the control's constructor ahead of the parent.
template <typename T, typename... Args>
T* namedChild(QWidget* parent, QAnyStringView name, Args&&... args)
{
    T* child = new T(std::forward<Args>(args)..., parent);
    child->setObjectName(name);
    return child;
}

} // namespace nubo::platform
