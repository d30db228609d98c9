// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/SearchEngine.h"

#include "core/DiscRecord.h"
#include "core/RuntimeError.h"
#include "search/DiscSurvey.h"
#include "search/DriveList.h"
#include "search/DriveSpace.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QThread>

namespace nubo::search {

namespace {

constexpr quint32 kWhite = 0xFFFFFF;
constexpr qint16 kMessageDelay = 10000;
const QString kNoGroup = QStringLiteral("NO ESPECIFICADO");

} // namespace

SearchEngine::SearchEngine(const Services& services, QLocale locale, QObject* parent)
    : QObject(parent), m_services(services), m_locale(std::move(locale)),
      m_walker(services.host, services.directories)
{
}

void SearchEngine::StartSearch(const QString& drive)
{
    using platform::MessageAnswer;
    using platform::MessageButtons;
    QString target = drive;
    for (;;) {
        const int error = prepareAndRun(target);
        if (error == 0)
            return;
        if (error != core::errors::kDeviceUnavailable) {
            m_services.dialogs.messageBox(QStringLiteral("Ha ocurrido un error desconocido nro. ") +
                                              QString::number(error),
                                          QStringLiteral("Error Desconocido"));
            return;
        }
        if (const std::optional<QString> mountPoint = mountInsertedDisc(target)) {
            if (mountPoint->isEmpty())
                return;
            target = *mountPoint;
            continue;
        }
        // A drive without a disc: the tray opens, and the prompt repeats while it stays empty.
        m_services.tray.EjectTray(target);
        const MessageAnswer answer = m_services.dialogs.messageBox(
            QStringLiteral("Por Favor Inserte un CD en la unidad, pero sin cerrarla, el "
                           "programa lo hará por Usted "),
            QStringLiteral("No hay CD en la bandeja"), MessageButtons::OkCancel);
        m_services.tray.CloseTray(target);
        if (answer != MessageAnswer::Ok)
            return;
        waitForMedium(target);
    }
}

// A disc that is in but not mounted is not an empty drive: it is mounted, or said to hold
// no files (an audio CD), and its tray stays shut.
std::optional<QString> SearchEngine::mountInsertedDisc(const QString& drive)
{
    if (!m_services.tray.mediumPresent(drive))
        return std::nullopt;
    const QString mountPoint = m_services.tray.mountMedium(drive);
    if (mountPoint.isEmpty())
        m_services.dialogs.messageBox(QStringLiteral("El disco de la unidad no contiene archivos"),
                                      QStringLiteral("No se puede leer el disco"));
    return mountPoint;
}

void SearchEngine::waitForMedium(const QString& drive)
{
    // A shut drive needs a few seconds to read a disc in; events keep running meanwhile.
    QElapsedTimer waited;
    waited.start();
    while (!m_services.tray.mediumPresent(drive) && waited.elapsed() < m_mediumWait) {
        m_services.host.letEventsRun();
        QThread::msleep(100);
    }
}

int SearchEngine::prepareAndRun(const QString& drive)
{
    if (const int error = m_services.window.selectDrive(drive))
        return error;
    // The panel describes the volume the walk searches: the one that holds the search window's
    // folder, which the folder tree may have put on another volume than the drive list's.
    const QString folder = m_services.window.folderPath();
    ShowVolumeDetails(folder.isEmpty() ? drive : volumeOf(folder));
    if (askGroupName())
        RunSearch();
    return 0;
}

bool SearchEngine::askGroupName()
{
    const QString answer = m_services.dialogs
                               .inputBox(QStringLiteral("Ingrese el nombre del grupo con el que "
                                                        "desea realizar la busqueda"),
                                         QStringLiteral("Ingrese el titulo del grupo de archivos "
                                                        "en busqueda"),
                                         m_services.host.volumeName())
                               .value_or(QString());
    emit groupNameChosen(answer);
    if (!answer.trimmed().isEmpty()) {
        emit volumeNameChanged(answer);
        return true;
    }
    const platform::MessageAnswer cancel = m_services.dialogs.messageBox(
        QStringLiteral("Debe escribir un nombre.¿Desea cancelar la busqueda?"),
        QStringLiteral("Cancelacion de Busqueda"), platform::MessageButtons::YesNo);
    if (cancel == platform::MessageAnswer::Yes)
        return false;
    emit volumeNameChanged(kNoGroup);
    emit groupNameChosen(kNoGroup);
    return true;
}

void SearchEngine::ShowVolumeDetails(const QString& root)
{
    const std::optional<platform::VolumeDetails> details =
        m_services.volumes.details(DriveList(m_services.drives).pathOf(root));
    if (!details)
        return;
    emit volumeNameChanged(details->label);
    // Serials from 0x80000000 up read as negative numbers, as a signed 32-bit number shows them.
    // The doubled ampersand is the caption's own: the label shows one.
    emit volumeDetailsFound(core::serialText(details->serial),
                            QString::number(details->maxComponentLength), details->fileSystem,
                            QStringLiteral("&&H") + QString::number(details->flags, 16).toUpper());
}

void SearchEngine::ShowDriveSpace(const QString& root)
{
    const platform::VolumeSpace space =
        m_services.volumes.space(root).value_or(platform::VolumeSpace{});
    const DriveSpaceCaptions captions =
        driveSpaceCaptions(space.totalBytes, space.freeBytes, m_locale);
    emit driveSpaceFound(captions.total, captions.free);
}

QString SearchEngine::volumeOf(const QString& folder) const
{
    const QString prefix = m_services.drives.drivePrefixOf(folder);
    return prefix.isEmpty() ? QStringLiteral("/") : prefix;
}

QString SearchEngine::driveRootOf(const QString& folder) const
{
    if (folder.isEmpty())
        return {};
    return m_services.drives.drivePrefixOf(folder) + QLatin1Char('/');
}

QString SearchEngine::startPathFor(const QString& folder, const QString& driveText) const
{
    QString clean = folder;
    while (clean.size() > 1 && clean.endsWith(QLatin1Char('/')))
        clean.chop(1);
    QString driveRoot = DriveList(m_services.drives).pathOf(driveText);
    while (driveRoot.size() > 1 && driveRoot.endsWith(QLatin1Char('/')))
        driveRoot.chop(1);
    // Kept: at a drive's root the walk starts from the drive list's text, label included, so
    // the root of a labelled disk names no folder and finds nothing.
    if (clean.isEmpty() || clean == driveRoot)
        return DriveList::withSlash(driveText);
    return DriveList::withSlash(clean);
}

void SearchEngine::RunSearch()
{
    ISearchHost& host = m_services.host;
    if (!m_walker.Searching && host.refuseWhileListBusy())
        return;
    const QString folder = m_services.window.folderPath();
    ShowDriveSpace(driveRootOf(folder));
    emit folderStripShown();
    const int countBefore = host.rowCount();
    m_walker.MatchCount.reset();
    m_walker.UndecodableNames = 0;
    m_services.chooser.hideWindow();
    emit captionChanged(QStringLiteral("Realizando la Búsqueda solicitada..."));
    emit findMenuVisibleChanged(true);
    m_walker.SearchMask = m_services.window.maskText();
    StartPath = startPathFor(folder, m_services.window.currentDriveText());
    m_services.window.hideWindow();
    emit listWindowShown();

    if (m_walker.Searching) {
        // A press during a search is the stop request; the walk notices at its next turn.
        CancelRequested = true;
        m_walker.Searching = false;
        return;
    }
    if (m_walker.SearchMask.isEmpty())
        return;

    emit busyChanged(true);
    m_walker.Searching = true;
    m_walker.CollectFiles = true;
    emit findMenuCaptionChanged(QStringLiteral("&Parar!"));
    walkAndRecordDisc(folder);
    m_walker.Searching = false;
    m_walker.CollectFiles = false;
    emit findMenuCaptionChanged(QStringLiteral("&Buscar Archivo(s)..."));
    emit busyChanged(false);
    host.setFolderStrip(QString());
    reportOutcome(countBefore);
    reportOverflow();
}

// The walk, told to the host as it starts and ends (an optical disc's files are then read in
// the order found), and the disc record of the folder searched.
void SearchEngine::walkAndRecordDisc(const QString& folder)
{
    ISearchHost& host = m_services.host;
    host.walkStarts(m_services.drives.driveType(volumeOf(folder)) == platform::DriveType::CdRom);
    walkOncePerFloppy();
    host.walkEnds();
    host.recordDisc(surveyDisc(m_services.volumes, m_services.drives, folder, m_walker.SearchMask,
                               QDateTime::currentSecsSinceEpoch()));
}

void SearchEngine::reportOverflow()
{
    if (m_overflowFolder.isEmpty())
        return;
    const QString what = m_walker.MatchCount.value() >= SearchCounter::kSixteenBitLimit
                             ? QStringLiteral("32.767 archivos encontrados")
                             : QStringLiteral("32.767 carpetas recorridas");
    // The counters stop the walk as 16-bit counters do; this box says so and where.
    m_services.dialogs.messageBox(
        QStringLiteral("La búsqueda se detuvo al llegar a %1, en la carpeta:\n%2\n\n"
                       "Los archivos siguientes no se agregaron a la lista. Busque el resto "
                       "carpeta por carpeta, o use \"nubo-cli scan\", que no tiene este "
                       "límite.")
            .arg(what, m_overflowFolder),
        QStringLiteral("Búsqueda detenida en 32.767"));
    m_overflowFolder.clear();
}

void SearchEngine::walkOncePerFloppy()
{
    // Only the two floppy letters are looked at: the tree is walked once for each one present,
    // so a machine with both adds every file twice and one with neither walks nothing.
    const platform::FloppyPresence floppies = m_services.drives.floppyPresence();
    for (const bool present : {floppies.a, floppies.b}) {
        if (!m_walker.Searching || !present)
            continue;
        // A full counter abandons this walk; the driver goes on with its next statement.
        if (m_walker.WalkFolder(StartPath) == FolderWalker::WalkEnd::CounterFull)
            m_overflowFolder = m_walker.currentFolder();
    }
}

// Names that are not UTF-8 were added as Windows-1252 reads them; the end message says how
// many, since such a file can be listed but not opened by that name.
QString SearchEngine::undecodableNote() const
{
    const int count = m_walker.UndecodableNames;
    if (count == 0)
        return {};
    return count == 1
               ? QStringLiteral(" (1 nombre no estaba en UTF-8: se muestra como Windows-1252)")
               : QStringLiteral(" (%1 nombres no estaban en UTF-8: se muestran como "
                                "Windows-1252)")
                     .arg(count);
}

void SearchEngine::reportOutcome(int countBefore)
{
    ISearchHost& host = m_services.host;
    // Kept, both: after a stop the message gives the real growth of the list, after a normal
    // end the number of matched names, refused folders included; and CancelRequested is never
    // cleared, so every later search ends on the cancel branch too.
    if (CancelRequested) {
        emit captionChanged(QStringLiteral("La Búsqueda ha sido cancelada por el usuario"));
        emit messageShown(QStringLiteral("Han sido agregados %1 archivos a la lista")
                                  .arg(host.rowCount() - countBefore) +
                              undecodableNote(),
                          kMessageDelay, kWhite);
    } else {
        emit messageShown(QStringLiteral("Han sido agregados %1 archivos a la lista")
                                  .arg(m_walker.MatchCount.value()) +
                              undecodableNote(),
                          kMessageDelay, kWhite);
        emit captionChanged(QStringLiteral("La Búsqueda ha finalizado con exito"));
    }
    emit findMenuVisibleChanged(false);
    // The list window's flash timer counts its own ticks and never starts over, so only the
    // first search of a run flashes the caption.
    emit searchEnded();
}

bool SearchEngine::requestStop()
{
    if (!m_walker.Searching)
        return false;
    m_walker.Searching = false;
    CancelRequested = true;
    return true;
}

void SearchEngine::searchDroppedFolder(const QString& folder, const QString& mask)
{
    m_services.window.setFolderPath(folder);
    m_services.window.setMaskText(mask);
    RunSearch();
}

} // namespace nubo::search
