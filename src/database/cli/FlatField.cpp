// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/cli/FlatField.h"

namespace nubo::database::cli {

QString flat(QString text)
{
    for (QChar& c : text) {
        if (c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r'))
            c = QLatin1Char(' ');
    }
    return text;
}

} // namespace nubo::database::cli
