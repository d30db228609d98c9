// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "frame/TrayRecord.h"

#include <QIcon>

#include <functional>

namespace nubo::frame {

// The desktop's notification area as the tray class sees it: requests carry the record,
// and the icon's mouse actions come back as mouse messages (513 to 518).
class INotifyArea
{
public:
    virtual ~INotifyArea() = default;

    // True when the notification area took the request.
    virtual bool notify(NotifyMessage message, const TrayRecord& record, const QIcon& icon) = 0;
    virtual void setMouseHandler(std::function<void(int message)> handler) = 0;
    // The icon is shown in a notification area that exists now.
    virtual bool isIconVisible() const = 0;
};

} // namespace nubo::frame
