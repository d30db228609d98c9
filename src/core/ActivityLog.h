// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/AppFolder.h"

#include <QDateTime>
#include <QLocale>

#include <functional>

namespace nubo::core {

// The activity log "\log\nubo.log": one line per recorded error, appended while the
// log option is on, never failing to its caller.
class ActivityLog final
{
public:
    ActivityLog(const platform::AppFolder& app, std::function<bool()> enabled);

    QString path() const;

    void AnotarEnLog(const QString& texto);
    void VaciarLog();

    // "message time date": the message first, then the time, then the date, in the locale's
    // long time form and short date form.
    static QString formatLine(const QString& texto, const QDateTime& when, const QLocale& locale);

private:
    platform::AppFolder m_app;
    std::function<bool()> m_enabled;
};

} // namespace nubo::core
