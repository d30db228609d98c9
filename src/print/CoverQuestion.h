// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/Outcome.h"

#include <QList>
#include <QStringList>

#include <optional>

namespace nubo::platform {
class IDialogs;
}

namespace nubo::print {

// The cover's columns as the window shows them: n headers and the names under them.
struct CoverGrid
{
    qint16 n = 0;
    qint16 r = 0;
    QStringList headers;
    QList<QStringList> columns;
};

// Loading the cover window: asks how many columns a cover has (default 6) and lays the
// names out. A bad answer is reported as a run-time error in a message box and gives
// nothing; cancelling the question gives nothing without a message.
std::optional<CoverGrid> askCoverGrid(platform::IDialogs& dialogs, const QStringList& names);

// The grid for a known answer, or the error text the window would report.
[[nodiscard]] Outcome<CoverGrid> coverGridFor(const QString& answer, const QStringList& names);

} // namespace nubo::print
