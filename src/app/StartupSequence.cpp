// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/StartupSequence.h"

#include "app/InstanceRegistration.h"
#include "app/ResourceFolders.h"

#include <QFileInfo>

namespace nubo::app {

using platform::MessageButtons;
using platform::MessageIcon;

bool StartupSequence::EsUnidadCDROM(const QString& drive) const
{
    return m_deps.platform.drives->driveType(drive) == platform::DriveType::CdRom;
}

QString StartupSequence::cdromRefusalText(const QString& drive)
{
    return QStringLiteral("No se puede ejecutar este programa desde el CD-ROM ") + drive +
           QStringLiteral(", instale el programa con el instalador o intente pasar todos los "
                          "archivos a una unidad de disco rígido");
}

QString StartupSequence::missingFilesText(const core::RuntimeError& error)
{
    return QStringLiteral(
               "El Archivo .exe debe estar en el directorio de instalacion original, Si quiere "
               "cree un acceso directo, pero no ejecute el Archivo ejecutable si ha sido movido "
               "o ejecutado desde otro directorio. Para el correcto funcionamiento del "
               "programa, reestablesca el archivo ejecutable al directorio donde fue "
               "instalado.  ") +
           QStringLiteral("ERROR NUMERO: ") + QString::number(error.number) +
           QStringLiteral(" DESCRIPCION: ") + error.description;
}

StartupSequence::Outcome StartupSequence::run(core::IStartupView& view)
{
    const platform::AppFolder& app = m_deps.app;
    const bool hadOptions = QFileInfo::exists(m_deps.store.profile().path());
    m_deps.store.LeerOpciones();
    if (!m_deps.options.isOn(core::Option::MInstances) &&
        m_deps.platform.instances->anotherInstanceRunning())
        return Outcome::EndProgram;

    const QString drive = m_deps.platform.drives->drivePrefixOf(startFolder());
    if (EsUnidadCDROM(drive)) {
        m_deps.dialogs.messageBox(cdromRefusalText(drive), QStringLiteral("Permiso Denegado"),
                                  MessageButtons::Ok, MessageIcon::None);
        return Outcome::EndProgram;
    }

    if (m_deps.prepareAppFolder)
        m_deps.prepareAppFolder();
    InstanceRegistration(*m_deps.platform.registry, m_deps.log)
        .RegistrarInstancia(view.nativeHandle(), m_deps.options.value(core::Option::MInstances),
                            m_deps.executablePath);
    ResourceFolders folders(app);
    folders.createFolders();
    folders.moveLooseFiles();
    m_deps.store.PrepararCarpetas();
    // A first start reads the defaults file it has just written, so it runs with them.
    if (!hadOptions)
        m_deps.store.LeerOpciones();
    view.loadButtonFaces();
    view.letEventsRun();

    if (!runGuardedSteps(view))
        return Outcome::Running;
    view.loadSkin(app.resolve(QStringLiteral("\\bitmap\\conarrows.JPG")));
    view.fitToSkin();
    view.applyRegion();
    return Outcome::Running;
}

QString StartupSequence::startFolder() const
{
    // The executable's folder, not a per-user application folder: a copy on a disc is refused.
    if (m_deps.executablePath.isEmpty())
        return m_deps.app.path();
    return QFileInfo(m_deps.executablePath).path();
}

bool StartupSequence::runGuardedSteps(core::IStartupView& view)
{
    std::optional<core::RuntimeError> error =
        view.setCustomCursor(m_deps.app.resolve(QStringLiteral("\\cursors\\DEFAULT.CUR")));
    if (!error)
        error = view.addTrayIcon();
    if (!error)
        error = view.prepareSkinBox();
    if (error)
        reportError(*error);
    return !error;
}

void StartupSequence::reportError(const core::RuntimeError& error)
{
    if (error.number == core::errors::kFileNotFound) {
        m_deps.dialogs.messageBox(missingFilesText(error),
                                  QStringLiteral("Error: No se encuentran los archivos!"));
        m_deps.log.AnotarEnLog(
            QStringLiteral("El Archivo .exe ha sido movido del lugar inicial de instalacion."));
        return;
    }
    const QString text = QStringLiteral("Ha ocurrido el Error : ") + QString::number(error.number) +
                         QStringLiteral(": ") + error.description;
    m_deps.dialogs.messageBox(
        text, QStringLiteral("ERROR! El programa puede no funcionar correctamente!"));
    m_deps.log.AnotarEnLog(text);
}

} // namespace nubo::app
