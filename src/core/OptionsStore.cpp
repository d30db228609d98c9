// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/OptionsStore.h"

#include <QFile>
#include <QFileInfo>

namespace nubo::core {

namespace {

const QString kSectionName = QStringLiteral("OPCIONES");

// The defaults file spells the show-properties key "MOSTARPRO" while reads and saves use
// "MOSTRARPRO": kept so, which makes the next read after a defaults write reset again.
const QString kDefaultsShowPropertiesKey = QStringLiteral("MOSTARPRO");

} // namespace

OptionsStore::OptionsStore(const platform::AppFolder& app, Options& options, ActivityLog& log)
    : m_app(app), m_options(options), m_log(log)
{
}

ProfileFile OptionsStore::profile() const
{
    return ProfileFile(m_app.resolve(QStringLiteral("\\ini\\Config.nbo")));
}

void OptionsStore::LeerOpciones()
{
    const ProfileFile file = profile();
    for (const Option option : Options::all) {
        const QString text =
            file.readString(kSectionName, Options::keyOf(option), QStringLiteral("Default"));
        // "KEY=" present with no value: the field keeps what it held.
        if (text.isEmpty())
            continue;
        if (text == QLatin1String("1") || text == QLatin1String("0")) {
            m_options.setValue(option, text.toInt());
            continue;
        }
        // Anything else stops the read; fields not reached keep their values.
        OpcionesPredeterminadas();
        return;
    }
}

void OptionsStore::OpcionesPredeterminadas()
{
    ProfileFile file = profile();
    // A file that cannot be removed is rewritten key by key below all the same.
    (void)file.remove();
    const QList<QPair<QString, QString>> defaults = {
        {Options::keyOf(Option::DblClkExecute), QStringLiteral("1")},
        {Options::keyOf(Option::PermitirAnims), QStringLiteral("1")},
        {Options::keyOf(Option::EscribirLog), QStringLiteral("1")},
        {Options::keyOf(Option::ConfigExcel), QStringLiteral("0")},
        {kDefaultsShowPropertiesKey, QStringLiteral("1")},
        {Options::keyOf(Option::MInstances), QStringLiteral("0")},
    };
    // Writing the defaults reports nothing: a read of a missing key falls back to them anyway.
    for (const auto& [key, value] : defaults)
        (void)file.writeString(kSectionName, key, value);
}

void OptionsStore::GuardarOpciones()
{
    ProfileFile file = profile();
    // A failed removal shows in the writes that follow, which are checked.
    (void)file.remove();
    for (const Option option : Options::all) {
        if (!file.writeString(kSectionName, Options::keyOf(option),
                              QString::number(m_options.value(option)))) {
            m_log.AnotarEnLog(
                QStringLiteral("No se ha podido guardar correctamente la configuracion de "
                               "opciones!!!"));
            return;
        }
    }
}

void OptionsStore::PrepararCarpetas()
{
    m_app.createFolder(QStringLiteral("Ini"));
    m_app.createFolder(QStringLiteral("Log"));
    if (!QFileInfo::exists(m_app.resolve(QStringLiteral("\\log\\nubo.log")))) {
        QFile log(m_app.resolve(QStringLiteral("\\Log\\nubo.log")));
        if (log.open(QIODevice::WriteOnly))
            log.close();
    }
    if (!QFileInfo::exists(profile().path()))
        OpcionesPredeterminadas();
}

} // namespace nubo::core
