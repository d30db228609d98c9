// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppFolder.h"

namespace nubo::app {

// The picture folders beside the executable, and the tidying of loose pictures into them.
class ResourceFolders final
{
public:
    explicit ResourceFolders(const platform::AppFolder& app) : m_app(app) {}

    // Creates "Bitmap", "Icons" and "Cursors"; existing folders are left as they are.
    void createFolders();
    // Moves "*.bmp" and "*.jpg" into bitmap, "*.cur" into cursors, "*.ico" into icons.
    void moveLooseFiles();
    // Moves the application folder's files that match pattern into folder; a file that
    // already exists there stays where it is. Returns how many moved.
    int moveMatching(const QString& pattern, const QString& folder);

private:
    platform::AppFolder m_app;
};

} // namespace nubo::app
