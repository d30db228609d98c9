// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/Options.h"

namespace nubo::core {

void Options::setValue(Option option, int value)
{
    if (m_values[index(option)] == value)
        return;
    m_values[index(option)] = value;
    emit changed(option, value);
}

QString Options::keyOf(Option option)
{
    switch (option) {
    case Option::DblClkExecute:
        return QStringLiteral("DBLCLKEXECUTE");
    case Option::PermitirAnims:
        return QStringLiteral("PERMITIRANIMS");
    case Option::EscribirLog:
        return QStringLiteral("ESCRIBIRLOG");
    case Option::ConfigExcel:
        return QStringLiteral("CONFIGEXCEL");
    case Option::MostrarPro:
        return QStringLiteral("MOSTRARPRO");
    case Option::MInstances:
        return QStringLiteral("MINSTANCES");
    }
    return {};
}

} // namespace nubo::core
